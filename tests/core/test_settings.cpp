// The workbench's preferences, the game's key, folder names and the first-run welcome with
// its mark "Installed".
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"

#include <QtTest>

class TestSettings : public QObject
{
    Q_OBJECT

private slots:
    void init() { FreshSession(sandbox, prompt, session); }

    void cleanup() { QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for"); }

    void defaultsAndTheFiveValues()
    {
        auto values = [](const Session &s) -> QStringList {
            return {s.UseDefaultCaptions.Text(), s.CompatibilityMode.Text(), s.RegistryCompany, s.RegistryVersion, s.RegistryProduct,
                    s.LastGenomeDirectory};
        };
        // An empty store gives the defaults, whatever the session held.
        session->RegistryVersion = session->LastGenomeDirectory = "x";
        session->UseDefaultCaptions = "x";
        session->CompatibilityMode = "x";
        session->LoadSettings();
        QCOMPARE(values(*session), QStringList({"0", "0", "Kelmoth Technology", "1.0", "Arkenfold 2", ""}));
        // A save writes all five under their names; a new session reads them.
        session->UseDefaultCaptions = QStringLiteral("1");
        session->RegistryVersion = QStringLiteral("2.5");
        QVERIFY(session->SaveSettings());
        QStringList stored;
        for (const char *name : {"Use Default Captions", "Compatibility", "Company", "Version", "Product"})
            stored << StoredPreferences::Get(QString::fromLatin1(name)).toString();
        QCOMPARE(stored, QStringList({"1", "0", "Kelmoth Technology", "2.5", "Arkenfold 2"}));
        Session next(prompt);
        next.LoadSettings();
        QCOMPARE(values(next), stored << "");
    }

    // The game's folder: 99 bytes and the terminator fit the buffer of 100; 100 bytes do not, nor does
    // a missing name.
    void gameFolder()
    {
        const QString fits = QStringLiteral("/") + QString(98, QLatin1Char('g'));
        for (const char *name : {"Genetics Directory", "Main Directory"})
            sandbox->SetGameValue("Kelmoth Technology", "Arkenfold 2", "1.0", name, *name == 'G' ? fits : fits + 'h');
        QCOMPARE(QStringList({session->ReadGameSetting("Genetics Directory"), session->ReadGameSetting("Main Directory"),
                              session->ReadGameSetting("No Such Value")}), QStringList({fits, "<<ERROR>>", "<<ERROR>>"}));
        // A value written by hand with an unquoted comma comes whole, blanks and all.
        QVERIFY(TestFiles::Write(sandbox->SystemFolder() + "/Kelmoth Technology/Arkenfold 2.ini",
                                 "[1.0]\nMain Directory = /opt/Arkenfold, Deluxe /\nGenetics%20Directory=/g, h\n"));
        QCOMPARE(session->ReadGameSetting("Main Directory") + '|' + session->ReadGameSetting("Genetics Directory"),
                 QStringLiteral("/opt/Arkenfold, Deluxe /|/g, h"));
    }

    // A folder name is cut at its first control character (a blank is none) and ends in one
    // separator.
    void normalisePath()
    {
        QCOMPARE(Session::NormalisePath("/games/Arkenfold 2\x1f/junk") + '|' + Session::NormalisePath("/games/"),
                 QStringLiteral("/games/Arkenfold 2/|/games/"));
    }

    // The welcome comes when the stored mark is missing or "no", and then "yes" is stored; a
    // second run brings nothing (a welcome without a queued answer fails). A mark of "yes" is
    // not written again: a rewrite by the store would lose the comment and the blanks around
    // "=". Other values survive the write of the mark.
    void welcomeOnFirstRunOnly_data()
    {
        QTest::addColumn<QByteArray>("file"); // the settings file before start; empty: none
        QTest::addColumn<bool>("welcome");
        QTest::addColumn<bool>("untouched"); // the file keeps its bytes
        const QByteArray head = "; kept by hand\n[Preferences]\nCompany = Kelmoth Technology\n";
        QTest::newRow("no file") << QByteArray() << true << false;
        QTest::newRow("no") << head + "Installed = no\n" << true << false;
        QTest::newRow("another word") << head + "Installed = maybe\n" << false << false;
        QTest::newRow("yes") << head + "Installed = yes\n" << false << true;
    }
    void welcomeOnFirstRunOnly()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, welcome);
        QFETCH(bool, untouched);
        const QString path = QSettings(QSettings::IniFormat, QSettings::UserScope, "Helixbench 2").fileName();
        QVERIFY(file.isEmpty() || TestFiles::Write(path, file));
        if (welcome)
            prompt.AnswerMessage(Prompt::Ok);
        session->WelcomeFirstRun();
        Session(prompt).WelcomeFirstRun();
        const QString text = "Welcome to the Helixbench!\r\n\r\nPlease note that you can get help on the Helixbench using\r\n"
                             "the F1 key. There is a substantial amount of information\r\nthere specifically designed to "
                             "help beginners. All you need\r\nis a little patience. (Nature took 3.7 billion years to come"
                             "\r\nup with us, after all!) Enjoy!";
        QCOMPARE(prompt.shown.size(), welcome ? 1 : 0);
        if (welcome)
            QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, text));
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
        QCOMPARE(TestFiles::Read(path) == file, untouched);
        if (!file.isEmpty())
            QCOMPARE(StoredPreferences::Get(QStringLiteral("Company")).toString(), QStringLiteral("Kelmoth Technology"));
    }

private:
    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
};

QTEST_GUILESS_MAIN(TestSettings)
#include "test_settings.moc"
