// The workbench's preferences, the game's key, folder names and the first-run welcome.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"

#include <QtTest>

namespace {
const QString Welcome = QStringLiteral(
    "Welcome to the Helixbench!\r\n\r\nPlease note that you can get help on the Helixbench using\r\n"
    "the F1 key. There is a substantial amount of information\r\nthere specifically designed to help beginners. "
    "All you need\r\nis a little patience. (Nature took 3.7 billion years to come\r\nup with us, after all!) Enjoy!");
const QString Company = QStringLiteral("Kelmoth Technology");
const QString Product = QStringLiteral("Arkenfold 2");
const QString Genetics = QStringLiteral("Genetics Directory");
const QStringList Names = {"Use Default Captions", "Compatibility", "Company", "Version", "Product"};
} // namespace

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
    }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    void defaultsAndTheFiveValues()
    {
        // An empty store gives the defaults, whatever the session held.
        session->UseDefaultCaptions = session->CompatibilityMode = session->RegistryVersion = QStringLiteral("x");
        session->LastGenomeDirectory = QStringLiteral("/somewhere/");
        session->LoadSettings();
        QCOMPARE(Values(*session), QStringList({"0", "0", Company, "1.0", Product}));
        QVERIFY(session->LastGenomeDirectory.isEmpty());
        // A save writes all five under their names, and not the first-run mark.
        session->UseDefaultCaptions = QStringLiteral("1");
        session->RegistryVersion = QStringLiteral("2.5");
        QVERIFY(session->SaveSettings());
        QStringList stored;
        for (const QString &name : Names)
            stored << StoredPreferences::Get(name).toString();
        QCOMPARE(stored, QStringList({"1", "0", Company, "2.5", Product}));
        QVERIFY(!StoredPreferences::Get(QStringLiteral("Installed")).isValid());
        Session next(prompt);
        next.LoadSettings();
        QCOMPARE(Values(next), stored);
    }

    void gameSettings()
    {
        // 99 bytes and the terminator fit the buffer of 100; 100 bytes do not, nor does a missing name.
        const QString fits = QStringLiteral("/") + QString(98, QLatin1Char('g'));
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, fits);
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), QStringLiteral("Main Directory"), fits + 'h');
        sandbox->SetGameValue(Company, Product, QStringLiteral("2.0"), Genetics, QStringLiteral("/new/"));
        QCOMPARE(session->ReadGameSetting(Genetics), fits);
        QCOMPARE(session->ReadGameSetting(QStringLiteral("Main Directory")), QStringLiteral("<<ERROR>>"));
        QCOMPARE(session->ReadGameSetting(QStringLiteral("No Such Value")), QStringLiteral("<<ERROR>>"));
        // A changed key is read under the new key at the very next read.
        session->RegistryVersion = QStringLiteral("2.0");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/new/"));
        session->RegistryProduct = QStringLiteral("Arkenfold 3");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("<<ERROR>>"));
    }

    void normalisePath()
    {
        // Cut at the first control character (the terminator among them), then one separator at the end.
        const std::pair<QString, QString> cases[] = {
            {"/games/genetics", "/games/genetics/"}, {"/games/genetics/", "/games/genetics/"}, {"", "/"},
            {QStringLiteral("/games/gen") + QChar(0) + QStringLiteral("junk/"), "/games/gen/"},
            {"/a/b\x1f/c\n", "/a/b/"}, {"\t/a", "/"}, {"/a b ", "/a b /"}};
        for (const auto &[text, expected] : cases)
            QCOMPARE(Session::NormalisePath(text), expected);
    }

    void welcomeOnFirstRunOnly()
    {
        // One answer queued: a second welcome would be an unexpected prompt.
        prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        Session(prompt).WelcomeFirstRun();
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, Welcome));
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
        // Only the mark "no" brings it back; any other mark is set to "yes" in silence.
        StoredPreferences::Set(QStringLiteral("Installed"), QStringLiteral("maybe"));
        session->WelcomeFirstRun();
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
        StoredPreferences::Set(QStringLiteral("Installed"), QStringLiteral("no"));
        prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        QCOMPARE(prompt.MessageTexts(), QStringList({Welcome, Welcome}));
    }

private:
    static QStringList Values(const Session &s)
    {
        return {s.UseDefaultCaptions, s.CompatibilityMode, s.RegistryCompany, s.RegistryVersion, s.RegistryProduct};
    }

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
