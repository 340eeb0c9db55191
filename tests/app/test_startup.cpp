// Start-up and quit of the main window: the order of start-up, the first-run welcome, the
// window's fixed texts, and the questions asked before the window closes.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QLabel>
#include <QSettings>
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
const QString ChemicalQuestion = QStringLiteral("The Chemical list has changed. Save changes?");
const QString PoseQuestion = QStringLiteral("The Pose list has changed. Save changes?");
const QString ScriptQuestion = QStringLiteral("The macro script list has changed. Save changes?");

QVariant StoredPreference(const QString &name)
{
    QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
    return store.value(QStringLiteral("Preferences/") + name);
}

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
    }

    void cleanup()
    {
        if (form)
            session->QuitConfirm = false; // let the window go without questions
        form.reset();
        session.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    void windowBeforeStartup()
    {
        form.reset(new HelixbenchForm(*session));
        QCOMPARE(form->windowTitle(), QStringLiteral("Helixbench"));
        QCOMPARE(Tabs(), QStringList({"Cover", "Genotype", "Gene Editor", "Organ View", "Biochemistry", "Poses",
                                       "Export"}));
        QCOMPARE(form->VersionLabel->text(), QStringLiteral("VERSION"));
        QCOMPARE(Panels(), QStringList({"No genome loaded", "No slider data", "Press F1 for help"}));
        QVERIFY(!session->QuitConfirm);

        // Closing before start-up has ended asks nothing.
        form->show();
        QVERIFY(form->close());
        QVERIFY(prompt.shown.isEmpty());
    }

    void startupInOrder()
    {
        form.reset(new HelixbenchForm(*session));
        form->SSTab1->setCurrentIndex(4);
        session->PlacementStep = 3;
        session->ChemicalsChanged = session->PosesChanged = session->ScriptsChanged = true;
        session->LastGenomeDirectory = QStringLiteral("/old/");
        StartUp();
        QCOMPARE(session->AppDirectory, appDir->path());
        QCOMPARE(QDir::currentPath(), QDir(appDir->path()).canonicalPath());
        QCOMPARE(form->SSTab1->currentIndex(), 0);
        QCOMPARE(form->VersionLabel->text(), QStringLiteral("3.42 mc-c"));
        QCOMPARE(session->PlacementStep, qint16(999));
        QVERIFY(!session->ChemicalsChanged && !session->PosesChanged && !session->ScriptsChanged);
        QVERIFY(session->LastGenomeDirectory.isEmpty());
        QCOMPARE(session->HelpFile, appDir->path() + QStringLiteral("/Helixbench.hlp"));
        QVERIFY(session->QuitConfirm);
        // Nothing is loaded by itself.
        QCOMPARE(session->GeneCount, qint16(0));
        QCOMPARE(Panels(), QStringList({"No genome loaded", "No slider data", "Press F1 for help"}));
        QCOMPARE(form->findChild<QLabel *>(QStringLiteral("StatusBar_1")), form->StatusPanel[1]);
        QCOMPARE(form->findChild<QLabel *>(QStringLiteral("StatusBar_3")), form->StatusPanel[3]);
    }

    void startupReadsTheSettings()
    {
        {
            QSettings store(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Helixbench 2"));
            store.setValue(QStringLiteral("Preferences/Compatibility"), QStringLiteral("1"));
            store.setValue(QStringLiteral("Preferences/Version"), QStringLiteral("4.2"));
        }
        form.reset(new HelixbenchForm(*session));
        StartUp();
        QCOMPARE(session->CompatibilityMode, QStringLiteral("1"));
        QCOMPARE(session->RegistryVersion, QStringLiteral("4.2"));
        QCOMPARE(session->UseDefaultCaptions, QStringLiteral("0"));
    }

    void welcomeOnTheFirstStartOnly()
    {
        form.reset(new HelixbenchForm(*session));
        StartUp();
        QCOMPARE(WelcomesShown(), 1);
        QCOMPARE(StoredPreference(QStringLiteral("Installed")).toString(), QStringLiteral("yes"));

        session->QuitConfirm = false;
        form.reset();
        session.reset(new Session(prompt));
        prompt.Clear();
        form.reset(new HelixbenchForm(*session));
        StartUp();
        QCOMPARE(WelcomesShown(), 0);
    }

    // The reference tables are built around the loads, and the list views fill halfway.
    void referenceTablesInOrder()
    {
        QStringList steps;
        session->AppDirectory = appDir->path();
        QDir::setCurrent(appDir->path());
        session->Template.DefaultGeneCounts[0] = 999;
        session->Template.DefaultGeneCounts[13] = 999;
        session->LayEggOffset = 5000;
        connect(session.get(), &Session::ListViewsMustFill, this, [&] {
            steps << QStringLiteral("lists");
            QCOMPARE(int(session->Tables.GeneTypeNames.size()), 4);
            QCOMPARE(session->Tables.GenotypeCategoryNames.last(), QStringLiteral("END"));
            QCOMPARE(session->Template.DefaultGeneCounts[0], 27);
            QCOMPARE(session->Template.DefaultGeneCounts[13], 0);
            QVERIFY(session->Tables.HalfLifeNames.isEmpty());
            QCOMPARE(session->LayEggOffset, 5000);
        });
        connect(session.get(), &Session::ExportViewsMustFill, this, [&] {
            steps << QStringLiteral("export");
            QCOMPARE(session->LayEggOffset, 0);
            QCOMPARE(int(session->Tables.EggVarietyNames.size()), 18);
            QVERIFY(session->Tables.LobeNames.isEmpty());
        });
        prompt.lenient = true;
        session->BuildReferenceTables();
        prompt.lenient = false;
        QCOMPARE(steps, QStringList({"lists", "export"}));
        QCOMPARE(int(session->Tables.HalfLifeNames.size()), 32);
        QCOMPARE(int(session->Tables.SensorimotorEmitterLoci.size()), 14);
        QCOMPARE(int(session->Tables.BrainReceptorLoci.size()), 59);
        QCOMPARE(session->Tables.BrainReceptorLoci.at(58), QStringLiteral("Cell(39) State"));
        QCOMPARE(session->Tables.BrainEmitterLoci.at(3), QStringLiteral("Cell(0) Output"));
        QCOMPARE(session->Tables.SensorimotorReceptorLoci.at(8), QStringLiteral("<normal walk gait (DO NOT USE)>"));
        QCOMPARE(session->Tables.SensorimotorReceptorLoci.last(), QStringLiteral("Special gait 15"));
        QCOMPARE(session->Tables.CirculatoryLoci.last(), QStringLiteral("Floating recep-emit 7"));
    }

    void quitAsksFirst()
    {
        form.reset(new HelixbenchForm(*session));
        StartUp();
        form->show();
        prompt.Clear();
        prompt.AnswerMessage(Prompt::No);
        QVERIFY(!form->close());
        QVERIFY(form->isVisible());
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(prompt.Last().text, QuitQuestion);
        QCOMPARE(prompt.Last().style, 35);
        QCOMPARE(prompt.Last().title, QStringLiteral("Helixbench"));

        prompt.AnswerMessage(Prompt::Cancel);
        QVERIFY(!form->close());

        // Yes with no changed list closes at once and saves the settings.
        prompt.Clear();
        session->RegistryProduct = QStringLiteral("Arkenfold 9");
        prompt.AnswerMessage(Prompt::Yes);
        QVERIFY(form->close());
        QCOMPARE(prompt.MessageTexts(), QStringList({QuitQuestion}));
        QCOMPARE(StoredPreference(QStringLiteral("Product")).toString(), QStringLiteral("Arkenfold 9"));
    }

    void quitAsksAboutEachChangedList()
    {
        form.reset(new HelixbenchForm(*session));
        StartUp();
        form->show();
        prompt.Clear();
        session->ChemicalsChanged = session->PosesChanged = session->ScriptsChanged = true;
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::No).AnswerMessage(Prompt::No).AnswerMessage(Prompt::No);
        QVERIFY(form->close());
        QCOMPARE(prompt.MessageTexts(), QStringList({QuitQuestion, ChemicalQuestion, PoseQuestion, ScriptQuestion}));
        for (const auto &s : prompt.shown)
            QCOMPARE(s.style, 35);
        QVERIFY(StoredPreference(QStringLiteral("Compatibility")).isValid());
    }

    void cancelAtAListKeepsTheWindowOpen()
    {
        form.reset(new HelixbenchForm(*session));
        StartUp();
        form->show();
        prompt.Clear();
        session->ChemicalsChanged = session->PosesChanged = true;
        // Only the chemical and pose lists changed: the script question does not come.
        prompt.AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Yes).AnswerMessage(Prompt::Cancel);
        QVERIFY(!form->close());
        QVERIFY(form->isVisible());
        QCOMPARE(prompt.MessageTexts(), QStringList({QuitQuestion, ChemicalQuestion, PoseQuestion}));
        // The close stopped before the settings were saved.
        QVERIFY(!StoredPreference(QStringLiteral("Compatibility")).isValid());
        QVERIFY(session->QuitConfirm);
    }

private:
    void StartUp()
    {
        prompt.lenient = true;
        form->Startup(appDir->path());
        prompt.lenient = false;
    }

    int WelcomesShown() const
    {
        int n = 0;
        for (const QString &t : prompt.MessageTexts())
            n += t.startsWith(QStringLiteral("Welcome to the Helixbench!")) ? 1 : 0;
        return n;
    }

    QStringList Tabs() const
    {
        QStringList captions;
        for (int i = 0; i < form->SSTab1->count(); ++i)
            captions << form->SSTab1->tabText(i);
        return captions;
    }

    QStringList Panels() const
    {
        QStringList texts;
        for (int i = 1; i <= 3; ++i) {
            const QLabel *panel = form->findChild<QLabel *>(QStringLiteral("StatusBar_%1").arg(i));
            texts << (panel ? panel->text() : QStringLiteral("<missing panel %1>").arg(i));
        }
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
