// Start-up and quit of the main window: the order of start-up and the lists it reads, the
// window's fixed texts, the genome's name over save and load, and the questions asked before
// the window closes.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/StoredPreferences.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QLabel>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

namespace {
// Notes whether the welcome came while a window was on the screen, and lets a test look in
// at each yield.
class StartupPrompt : public ScriptedPrompt
{
public:
    int Message(const QString &title, const QString &text, int style) override
    {
        const QWidgetList all = QApplication::topLevelWidgets();
        if (text.startsWith(QLatin1String("Welcome")))
            welcomeOverShownWindow = std::any_of(all.begin(), all.end(), [](QWidget *w) { return w->isVisible(); });
        return ScriptedPrompt::Message(title, text, style);
    }
    void Yield() override
    {
        if (onYield)
            onYield();
        ScriptedPrompt::Yield();
    }
    std::function<void()> onYield;
    bool welcomeOverShownWindow = false;
};
} // namespace

class TestStartup : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        form.reset(new HelixbenchForm(*session));
    }

    void cleanup()
    {
        session->QuitConfirm = false; // let the window go without questions
        form.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // The chemical list read at start-up names the rows of the Biochemistry tab; without its
    // file the rows keep their numbers and the user is told so, as for the pose and script lists.
    void startupInOrder_data()
    {
        QTest::addColumn<bool>("file");
        QTest::addColumn<QString>("row");
        QTest::addColumn<QStringList>("warnings");
        const QString missing = ShownText("Helixbench", 48, "Could not find '%1', using numeric substitutes.");
        const QStringList others = {missing.arg("posenames.txt"),
                                    ShownText("Helixbench", 48, "Could not find 'scriptnames.txt'--no autoscripts loaded")};
        QTest::newRow("chemicals.txt") << true << "7|Glucose|sugar" << others;
        QTest::newRow("no list") << false << "7|7|" << QStringList{missing.arg("chemicals.txt")} + others;
    }

    // Title, version label, tabs and status panels before start-up (the quit question is not armed
    // yet: see the rows). Then start-up in order: one row of the session's state when the list
    // views fill, halfway through the reference tables, and one at the end.
    void startupInOrder()
    {
        QFETCH(bool, file);
        QStringList texts = {form->windowTitle(), form->VersionLabel->text()};
        for (int i = 0; i < form->SSTab1->count(); ++i)
            texts << form->SSTab1->tabText(i);
        for (int i = 1; i <= 3; ++i)
            texts << form->findChild<QLabel *>(QStringLiteral("StatusBar_%1").arg(i))->text();
        QCOMPARE(texts, QStringList({"Helixbench", "VERSION", "Cover", "Genotype", "Gene Editor", "Organ View",
                                     "Biochemistry", "Poses", "Export", "No genome loaded", "No slider data",
                                     "Press F1 for help"}));

        QString names[NameLists::ListEntries], captions[NameLists::ListEntries];
        names[7] = QStringLiteral("Glucose"), captions[7] = QStringLiteral("sugar");
        QFile::remove(appDir.path() + "/chemicals.txt");
        QVERIFY(!file || TestFiles::Write(appDir.path() + "/chemicals.txt", NameLists::EncodeListFile(names, captions, NameLists::ListEntries)));
        StoredPreferences::Set(QStringLiteral("Compatibility"), QStringLiteral("1"));
        form->SSTab1->setCurrentIndex(4);
        session->PlacementStep = 3;
        session->Lists.ChemicalsChanged = session->Lists.PosesChanged = session->Lists.ScriptsChanged = true;
        session->LayEggOffset = 5000;
        session->Template.DefaultGeneCounts[0] = 999;
        QFETCH(QStringList, warnings);
        for (int box = 0; box <= warnings.size(); ++box) // the welcome and each warning
            prompt.AnswerMessage(Prompt::Ok);
        QList<QList<int>> rows;
        // Tab shown, genotype categories, template's first count, half-life names, egg offset, placement
        // step, a list changed, compatibility mode, quit question armed, welcome shown.
        auto row = [&, &s = *session, &t = session->Tables] {
            rows << QList<int>({form->SSTab1->currentIndex(), int(t.GenotypeCategoryNames.size()), s.Template.DefaultGeneCounts[0],
                                int(t.HalfLifeNames.size()), s.LayEggOffset, s.PlacementStep,
                                s.Lists.ChemicalsChanged || s.Lists.PosesChanged || s.Lists.ScriptsChanged,
                                s.CompatibilityMode.Text().toInt(), s.QuitConfirm, int(prompt.shown.size() > warnings.size())});
        };
        connect(session.get(), &Session::ListViewsMustFill, this, row);
        form->Startup(appDir.path());
        QVERIFY(prompt.welcomeOverShownWindow);
        row();
        QCOMPARE(rows, QList<QList<int>>({{0, 15, 27, 0, 5000, 3, 1, 0, 0, 0}, {0, 15, 27, 32, 0, 999, 0, 1, 1, 1}}));
        QCOMPARE(QStringList({QDir::currentPath(), session->HelpFile, form->VersionLabel->text()}),
                 QStringList({QDir(appDir.path()).canonicalPath(), appDir.path() + "/Helixbench.hlp", "3.42 mc-c"}));
        QStringList shown;
        for (const auto &s : prompt.shown.mid(0, warnings.size()))
            shown << ShownText(s);
        QCOMPARE(shown, warnings);
        const QTreeWidgetItem *item = form->findChild<QTreeWidget *>(QStringLiteral("ChemicalListView"))->topLevelItem(7);
        QTEST(item->text(0) + '|' + item->text(1) + '|' + item->text(2), "row");
    }

    // The quit question, then one question for each changed list; No at the quit question, or
    // Cancel at a list, keep the window open and the settings unsaved.
    void quitQuestions_data()
    {
        const QString l = QStringLiteral("The %1 list has changed. Save changes?");
        QStringList q;
        for (const QString &text : {QStringLiteral("Are you sure you wish to quit?"), l.arg("Chemical"), l.arg("Pose"), l.arg("macro script")})
            q << ShownText("Helixbench", 35, text);
        QTest::addColumn<bool>("allChanged");
        QTest::addColumn<QList<int>>("answers");
        QTest::addColumn<QStringList>("questions");
        QTest::addColumn<bool>("closes");
        QTest::newRow("No to quit") << false << QList<int>{Prompt::No} << QStringList{q[0]} << false;
        // Only changed lists are asked about.
        QTest::newRow("Cancel at a list") << false << QList<int>{Prompt::Yes, Prompt::Cancel}
                                          << QStringList{q[0], q[2]} << false;
        QTest::newRow("all lists, No each") << true << QList<int>{Prompt::Yes, Prompt::No, Prompt::No, Prompt::No}
                                            << q << true;
    }

    void quitQuestions()
    {
        QFETCH(bool, allChanged);
        QFETCH(QList<int>, answers);
        QFETCH(QStringList, questions);
        QFETCH(bool, closes);
        session->QuitConfirm = true; // as start-up leaves it
        form->show();
        session->RegistryProduct = QStringLiteral("Arkenfold 9");
        session->Lists.PosesChanged = true;
        session->Lists.ChemicalsChanged = session->Lists.ScriptsChanged = allChanged;
        for (int answer : answers)
            prompt.AnswerMessage(answer);
        QCOMPARE(QList<bool>({form->close(), form->isVisible()}), QList<bool>({closes, !closes}));
        QStringList asked;
        for (const auto &s : prompt.shown)
            asked << ShownText(s);
        QCOMPARE(asked, questions);
        // The settings are saved only when the window closes.
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Product")).toString(),
                 QString::fromLatin1(closes ? "Arkenfold 9" : ""));
    }

    // Saving puts the file's name (its last 20 characters) on the first status panel; loading
    // it puts up "Please Wait", which moves as the genes are read, one gene between turns of
    // the event loop. A load that is cancelled or fails leaves no genome, and the panel says so.
    void saveAndLoadShowTheGenome()
    {
        session->NewGenome();
        for (int i = 0; i < 3; ++i)
            QVERIFY(session->CreateGene(1, 2, false));
        const QString path = appDir.path() + QStringLiteral("/a_rather_long_name.gen");
        session->LastGenomeDirectory = appDir.path() + '/';
        prompt.AnswerSave(path);
        form->findChild<QAction *>(QStringLiteral("gappfSaveGenomeAs"))->trigger();
        QCOMPARE(Panel(), QStringLiteral("...rather_long_name.gen"));

        QStringList turns; // at each yield: the window's title and whether it shows, genes read, progress
        prompt.onYield = [&] {
            turns << QStringLiteral("%1 %2 %3 %4").arg(prompt.progressTitle).arg(prompt.progressVisible)
                         .arg(session->GeneCount).arg(prompt.progressValue);
        };
        prompt.AnswerMessage(Prompt::Yes).AnswerOpen(path);
        Load();
        prompt.onYield = nullptr;
        // One turn before each record (four genes, then the end mark), two once all is read;
        // the gene list's refresh takes its own turns after these.
        QCOMPARE(turns.mid(0, 7), QStringList({"Please Wait 1 0 0", "Please Wait 1 1 4", "Please Wait 1 2 24", "Please Wait 1 3 45",
                                               "Please Wait 1 4 65", "Please Wait 1 4 0", "Please Wait 1 4 0"}));
        QCOMPARE(Panel() + QString::number(session->GeneCount), QStringLiteral("...rather_long_name.gen4"));
        QVERIFY(!prompt.progressLoaded);

        prompt.AnswerMessage(Prompt::Yes).AnswerOpen(QString());
        Load();
        QCOMPARE(Panel() + QString::number(session->GeneCount), QStringLiteral("No genome loaded0"));
        QVERIFY(TestFiles::Write(path, "GIF89a"));
        prompt.AnswerOpen(path).AnswerMessage(Prompt::Ok);
        Load();
        QCOMPARE(prompt.MessageTexts().last() + '|' + Panel(), QStringLiteral("This is not a Arkenfold 2 Verdant DNA file.|No genome loaded"));
    }

private:
    QString Panel() const { return form->findChild<QLabel *>(QStringLiteral("StatusBar_1"))->text(); }
    void Load() { form->findChild<QAction *>(QStringLiteral("gappfLoadGenome"))->trigger(); }
    StartupPrompt prompt;
    QTemporaryDir appDir;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
};

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
