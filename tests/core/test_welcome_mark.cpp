// The first-run mark "Installed": what each stored mark brings up at start, what is stored
// afterwards, and that a returning user's settings file is not written again.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"

#include <QtTest>

class TestWelcomeMark : public QObject
{
    Q_OBJECT

private slots:
    void markAfterStart_data()
    {
        QTest::addColumn<QByteArray>("file"); // the settings file before start; empty: none
        QTest::addColumn<bool>("welcome");
        QTest::addColumn<bool>("untouched"); // the file keeps its bytes
        const QByteArray head = "; kept by hand\n[Preferences]\nCompany = Kelmoth Technology\n";
        QTest::newRow("no file") << QByteArray() << true << false;
        QTest::newRow("no mark") << head << true << false;
        QTest::newRow("no") << head + "Installed = no\n" << true << false;
        QTest::newRow("another word") << head + "Installed = maybe\n" << false << false;
        QTest::newRow("yes") << head + "Installed = yes\n" << false << true;
    }
    void markAfterStart()
    {
        QFETCH(QByteArray, file);
        QFETCH(bool, welcome);
        QFETCH(bool, untouched);
        SettingsSandbox sandbox;
        const QString path = QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2")).fileName();
        if (!file.isEmpty())
            QVERIFY(TestFiles::Write(path, file));
        ScriptedPrompt prompt;
        if (welcome)
            prompt.AnswerMessage(Prompt::Ok);
        Session(prompt).WelcomeFirstRun();
        QVERIFY(prompt.AllAnswered());
        QCOMPARE(prompt.shown.size(), welcome ? 1 : 0);
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
        // A rewrite by the store would lose the comment and the blanks around "=".
        QCOMPARE(TestFiles::Read(path) == file, untouched);
        // Other values survive the write of the mark.
        if (!file.isEmpty())
            QCOMPARE(StoredPreferences::Get(QStringLiteral("Company")).toString(), QStringLiteral("Kelmoth Technology"));
    }
};

QTEST_GUILESS_MAIN(TestWelcomeMark)
#include "test_welcome_mark.moc"
