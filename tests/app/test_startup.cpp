// Start-up and quit of the main window: the order of start-up, the first-run welcome, the
// window's fixed texts, and the questions asked before the window closes.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QLabel>
#include <QTabWidget>
#include <QtTest>

namespace {

// The vocabulary loaders of start-up report missing files in their own words. While
// `lenient` is set, such plain Ok boxes are recorded and answered without being queued;
// any other prompt still needs a queued answer.
class StartupPrompt : public ScriptedPrompt
{
public:
    bool lenient = false;
    int Message(const QString &title, const QString &text, int style) override
    {
        if (lenient && AllAnswered() && (style & 15) == 0) {
            shown.append({QStringLiteral("message"), title, text, style});
            return Ok;
        }
        return ScriptedPrompt::Message(title, text, style);
    }
};

const QString QuitQuestion = QStringLiteral("Are you sure you wish to quit?");
const QString Chemicals = QStringLiteral("The Chemical list has changed. Save changes?");
const QString Poses = QStringLiteral("The Pose list has changed. Save changes?");
const QString Scripts = QStringLiteral("The macro script list has changed. Save changes?");
} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        sandbox.reset(new SettingsSandbox);
        appDir.reset(new QTemporaryDir);
        prompt.Clear();
        session.reset(new Session(prompt));
        form.reset(new HelixbenchForm(*session));
    }

    void cleanup()
    {
        session->QuitConfirm = false; // let the window go without questions
        form.reset();
        session.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    void windowBeforeStartup()
    {
        QCOMPARE(form->windowTitle(), QStringLiteral("Helixbench"));
        QStringList tabs;
        for (int i = 0; i < form->SSTab1->count(); ++i)
            tabs << form->SSTab1->tabText(i);
        QCOMPARE(tabs,
                 QStringList({"Cover", "Genotype", "Gene Editor", "Organ View", "Biochemistry", "Poses", "Export"}));
        QCOMPARE(form->VersionLabel->text(), QStringLiteral("VERSION"));
        QCOMPARE(Panels(), QStringList({"No genome loaded", "No slider data", "Press F1 for help"}));
        // Closing before start-up has ended asks nothing.
        form->show();
        QVERIFY(form->close());
    }

    void startupInOrder()
    {
        StoredPreferences::Set(QStringLiteral("Compatibility"), QStringLiteral("1"));
        form->SSTab1->setCurrentIndex(4);
        session->PlacementStep = 3;
        session->ChemicalsChanged = session->PosesChanged = session->ScriptsChanged = true;
        session->LastGenomeDirectory = QStringLiteral("/old/");
        StartUp();
        QCOMPARE(session->AppDirectory, appDir->path());
        QCOMPARE(QDir::currentPath(), QDir(appDir->path()).canonicalPath());
        QCOMPARE(session->HelpFile, appDir->path() + QStringLiteral("/Helixbench.hlp"));
        QCOMPARE(QList<int>({form->SSTab1->currentIndex(), session->PlacementStep, session->ChemicalsChanged,
                             session->PosesChanged, session->ScriptsChanged, session->QuitConfirm, session->GeneCount}),
                 QList<int>({0, 999, false, false, false, true, 0}));
        QCOMPARE(form->VersionLabel->text(), QStringLiteral("3.42 mc-c"));
        QVERIFY(session->LastGenomeDirectory.isEmpty());
        QCOMPARE(session->CompatibilityMode, QStringLiteral("1")); // the settings are read
        QCOMPARE(Panels(), QStringList({"No genome loaded", "No slider data", "Press F1 for help"}));
        // The first start welcomes once.
        QCOMPARE(prompt.MessageTexts().filter(QStringLiteral("Welcome to the Helixbench!")).size(), 1);
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));
    }

    // The reference tables are built around the loads, and the list views fill halfway.
    void referenceTablesInOrder()
    {
        QStringList steps;
        session->AppDirectory = appDir->path();
        QDir::setCurrent(appDir->path());
        session->LayEggOffset = 5000;
        session->Template.DefaultGeneCounts[0] = 999;
        const ReferenceTables &t = session->Tables;
        connect(session.get(), &Session::ListViewsMustFill, this, [&] {
            steps << t.GenotypeCategoryNames.last();
            // The template is loaded, the half-lives are not yet named, the egg offset not yet reset.
            QCOMPARE(QList<int>({session->Template.DefaultGeneCounts[0], int(t.HalfLifeNames.size()),
                                 session->LayEggOffset}), QList<int>({27, 0, 5000}));
        });
        connect(session.get(), &Session::ExportViewsMustFill, this, [&] {
            steps << QStringLiteral("export");
            QCOMPARE(QList<int>({session->LayEggOffset, int(t.EggVarietyNames.size()), int(t.LobeNames.size())}),
                     QList<int>({0, 18, 0}));
        });
        prompt.lenient = true;
        session->BuildReferenceTables();
        prompt.lenient = false;
        QCOMPARE(steps, QStringList({"END", "export"}));
        QCOMPARE(int(t.HalfLifeNames.size()), 32);
    }

    // The quit question, then one question for each changed list; No or Cancel at the quit
    // question, or Cancel at a list, keep the window open and the settings unsaved.
    void quitQuestions_data()
    {
        QTest::addColumn<bool>("poseOnly");
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QStringList>("listQuestions");
        QTest::addColumn<bool>("closes");
        QTest::newRow("No") << true << QList<int>({Prompt::No}) << QStringList() << false;
        QTest::newRow("Cancel") << true << QList<int>({Prompt::Cancel}) << QStringList() << false;
        QTest::newRow("Cancel at a list") << false << QList<int>({Prompt::Yes, Prompt::Yes, Prompt::Cancel})
                                          << QStringList({Chemicals, Poses}) << false;
        QTest::newRow("Yes, one list changed") << true << QList<int>({Prompt::Yes, Prompt::No}) << QStringList({Poses})
                                               << true;
        QTest::newRow("Yes, all changed") << false << QList<int>({Prompt::Yes, Prompt::No, Prompt::No, Prompt::No})
                                          << QStringList({Chemicals, Poses, Scripts}) << true;
    }

    void quitQuestions()
    {
        QFETCH(bool, poseOnly);
        QFETCH(QList<int>, answers);
        QFETCH(QStringList, listQuestions);
        QFETCH(bool, closes);
        StartUp();
        form->show();
        prompt.Clear();
        session->RegistryProduct = QStringLiteral("Arkenfold 9");
        session->PosesChanged = true;
        session->ChemicalsChanged = session->ScriptsChanged = !poseOnly;
        for (int answer : answers)
            prompt.AnswerMessage(answer);
        QCOMPARE(form->close(), closes);
        QCOMPARE(form->isVisible(), !closes);
        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Helixbench", 35, QuitQuestion));
        QCOMPARE(prompt.MessageTexts(), QStringList({QuitQuestion}) + listQuestions);
        for (const auto &s : prompt.shown)
            QCOMPARE(s.style, 35);
        // The settings are saved only when the window closes.
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Product")).toString(),
                 QString::fromLatin1(closes ? "Arkenfold 9" : ""));
        QVERIFY(closes || session->QuitConfirm);
    }

private:
    void StartUp()
    {
        prompt.lenient = true;
        form->Startup(appDir->path());
        prompt.lenient = false;
    }

    QLabel *Panel(int i) const { return form->findChild<QLabel *>(QStringLiteral("StatusBar_%1").arg(i)); }
    QStringList Panels() const
    {
        QStringList texts;
        for (const QLabel *panel : {Panel(1), Panel(2), Panel(3)})
            texts << (panel ? panel->text() : QStringLiteral("<missing>"));
        return texts;
    }

    StartupPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<QTemporaryDir> appDir;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
};

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
