// The workbench's preferences, the game's key, folder names and the first-run welcome.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QtTest>

namespace {
const QString Welcome = QStringLiteral(
    "Welcome to the Helixbench!\r\n"
    "\r\n"
    "Please note that you can get help on the Helixbench using\r\n"
    "the F1 key. There is a substantial amount of information\r\n"
    "there specifically designed to help beginners. All you need\r\n"
    "is a little patience. (Nature took 3.7 billion years to come\r\n"
    "up with us, after all!) Enjoy!");

const QString Company = QStringLiteral("Kelmoth Technology");
const QString Product = QStringLiteral("Arkenfold 2");
const QString Genetics = QStringLiteral("Genetics Directory");

QVariant StoredPreference(const QString &name)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
    return store.value(QStringLiteral("Preferences/") + name);
}

void StorePreference(const QString &name, const QString &value)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
    store.setValue(QStringLiteral("Preferences/") + name, value);
}
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

    void loadFromAnEmptyStoreGivesDefaults()
    {
        session->UseDefaultCaptions = QStringLiteral("1");
        session->CompatibilityMode = QStringLiteral("1");
        session->RegistryCompany = session->RegistryVersion = session->RegistryProduct = QStringLiteral("x");
        session->LastGenomeDirectory = QStringLiteral("/somewhere/");
        session->LoadSettings();
        QCOMPARE(session->UseDefaultCaptions, QStringLiteral("0"));
        QCOMPARE(session->CompatibilityMode, QStringLiteral("0"));
        QCOMPARE(session->RegistryCompany, Company);
        QCOMPARE(session->RegistryVersion, QStringLiteral("1.0"));
        QCOMPARE(session->RegistryProduct, Product);
        QVERIFY(session->LastGenomeDirectory.isEmpty());
        QVERIFY(prompt.shown.isEmpty());
    }

    void loadReadsEachValueUnderItsName()
    {
        StorePreference(QStringLiteral("Use Default Captions"), QStringLiteral("1"));
        StorePreference(QStringLiteral("Compatibility"), QStringLiteral("1"));
        StorePreference(QStringLiteral("Company"), QStringLiteral("C"));
        StorePreference(QStringLiteral("Version"), QStringLiteral("V"));
        StorePreference(QStringLiteral("Product"), QStringLiteral("P"));
        session->LoadSettings();
        QCOMPARE(QStringList({session->UseDefaultCaptions, session->CompatibilityMode, session->RegistryCompany,
                              session->RegistryVersion, session->RegistryProduct}),
                 QStringList({"1", "1", "C", "V", "P"}));
    }

    void saveWritesTheFiveValues()
    {
        // With an empty store the first end of the program writes all five.
        session->LoadSettings();
        QVERIFY(session->SaveSettings());
        QCOMPARE(StoredPreference(QStringLiteral("Use Default Captions")).toString(), QStringLiteral("0"));
        QCOMPARE(StoredPreference(QStringLiteral("Compatibility")).toString(), QStringLiteral("0"));
        QCOMPARE(StoredPreference(QStringLiteral("Company")).toString(), Company);
        QCOMPARE(StoredPreference(QStringLiteral("Version")).toString(), QStringLiteral("1.0"));
        QCOMPARE(StoredPreference(QStringLiteral("Product")).toString(), Product);
        // The first-run mark is the welcome's business, not the save's.
        QVERIFY(!StoredPreference(QStringLiteral("Installed")).isValid());

        session->UseDefaultCaptions = QStringLiteral("1");
        session->RegistryVersion = QStringLiteral("2.5");
        QVERIFY(session->SaveSettings());
        Session next(prompt);
        next.LoadSettings();
        QCOMPARE(next.UseDefaultCaptions, QStringLiteral("1"));
        QCOMPARE(next.RegistryVersion, QStringLiteral("2.5"));
        QVERIFY(prompt.shown.isEmpty());
    }

    void failedSaveIsReportedOnce()
    {
        // A store that cannot be written: a folder stands where its file should be.
        QVERIFY(QDir().mkpath(sandbox->UserFolder() + QStringLiteral("/Helixbench 2.ini")));
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!session->SaveSettings());
        QCOMPARE(prompt.shown.size(), 1);
        QVERIFY(prompt.Last().text.startsWith(QStringLiteral("Error saving registry settings\n\rDescription: Error ID ")));
        QCOMPARE(prompt.Last().style, 16);
    }

    void gameValueLengthLimit()
    {
        // 99 bytes and the terminator fit the buffer of 100; 100 bytes do not.
        const QString fits = QStringLiteral("/") + QString(98, QLatin1Char('g'));
        const QString tooLong = fits + QLatin1Char('h');
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, fits);
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), QStringLiteral("Main Directory"), tooLong);
        QCOMPARE(session->ReadGameSetting(Genetics), fits);
        QCOMPARE(session->ReadGameSetting(QStringLiteral("Main Directory")), QStringLiteral("<<ERROR>>"));
        QCOMPARE(session->ReadGameSetting(QStringLiteral("No Such Value")), QStringLiteral("<<ERROR>>"));
        QVERIFY(prompt.shown.isEmpty());
    }

    void gameKeyFollowsTheThreeWords()
    {
        sandbox->SetGameValue(Company, Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/old/"));
        sandbox->SetGameValue(Company, Product, QStringLiteral("2.0"), Genetics, QStringLiteral("/new/"));
        sandbox->SetGameValue(QStringLiteral("Other"), Product, QStringLiteral("1.0"), Genetics, QStringLiteral("/other/"));
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/old/"));
        // A changed version is looked up under the new key at the very next read.
        session->RegistryVersion = QStringLiteral("2.0");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/new/"));
        session->RegistryVersion = QStringLiteral("3.0");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("<<ERROR>>"));
        session->RegistryVersion = QStringLiteral("1.0");
        session->RegistryCompany = QStringLiteral("Other");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("/other/"));
        session->RegistryProduct = QStringLiteral("Arkenfold 3");
        QCOMPARE(session->ReadGameSetting(Genetics), QStringLiteral("<<ERROR>>"));
    }

    void normalisePath_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QString>("expected");
        QTest::newRow("plain") << QString("/games/genetics") << QString("/games/genetics/");
        QTest::newRow("trailing separator kept single") << QString("/games/genetics/") << QString("/games/genetics/");
        QTest::newRow("empty") << QString("") << QString("/");
        QTest::newRow("terminator and rest cut") << QStringLiteral("/games/gen") + QChar(0) + QStringLiteral("junk/")
                                                 << QString("/games/gen/");
        QTest::newRow("first control character") << QString("/a/b\x1f/c\n") << QString("/a/b/");
        QTest::newRow("control character first") << QString("\t/a") << QString("/");
        QTest::newRow("blank is no control") << QString("/a b ") << QString("/a b /");
    }

    void normalisePath()
    {
        QFETCH(QString, text);
        QFETCH(QString, expected);
        QCOMPARE(Session::NormalisePath(text), expected);
    }

    void welcomeOnFirstRunOnly()
    {
        prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(prompt.Last().text, Welcome);
        QCOMPARE(prompt.Last().style, 64);
        QCOMPARE(prompt.Last().title, QStringLiteral("Helixbench"));
        QCOMPARE(StoredPreference(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));

        // The next start stays silent.
        Session next(prompt);
        next.WelcomeFirstRun();
        QCOMPARE(prompt.shown.size(), 1);
    }

    void welcomeOnlyForTheMarkNo()
    {
        StorePreference(QStringLiteral("Installed"), QStringLiteral("maybe"));
        session->WelcomeFirstRun();
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(StoredPreference(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));

        StorePreference(QStringLiteral("Installed"), QStringLiteral("no"));
        prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        QCOMPARE(prompt.MessageTexts(), QStringList({Welcome}));
    }

private:
    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
