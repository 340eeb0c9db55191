// Start-up and quit of the main window: the order of start-up, the window's fixed texts, and
// the questions asked before the window closes.
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
// The vocabulary loaders of start-up report missing files in their own words: plain Ok boxes
// that come when no answer is queued are recorded and answered; any other prompt needs a queued answer.
class StartupPrompt : public ScriptedPrompt
{
public:
    int Message(const QString &title, const QString &text, int style) override
    {
        if (text.startsWith(QLatin1String("Welcome")))
            welcomeOverShownWindow = window && window->isVisible();
        if (!AllAnswered() || (style & 15) != 0)
            return ScriptedPrompt::Message(title, text, style);
        shown.append({QStringLiteral("message"), title, text, style});
        return Ok;
    }
    void Yield() override
    {
        if (onYield)
            onYield();
        ScriptedPrompt::Yield();
    }
    std::function<void()> onYield;
    QWidget *window = nullptr;
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
        prompt.window = form.get();
    }

    void cleanup()
    {
        session->QuitConfirm = false; // let the window go without questions
        form.reset();
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
    }

    // Title, version label, tabs and status panels before start-up (the quit question is not armed
    // yet: see the rows). Then start-up in order: one row of the session's state at each step, the list views filling
    // halfway through the reference tables, the export views after the egg offset is reset.
    void startupInOrder()
    {
        QStringList texts = {form->windowTitle(), form->VersionLabel->text()};
        for (int i = 0; i < form->SSTab1->count(); ++i)
            texts << form->SSTab1->tabText(i);
        for (int i = 1; i <= 3; ++i)
            texts << form->findChild<QLabel *>(QStringLiteral("StatusBar_%1").arg(i))->text();
        QCOMPARE(texts, QStringList({"Helixbench", "VERSION", "Cover", "Genotype", "Gene Editor", "Organ View",
                                     "Biochemistry", "Poses", "Export", "No genome loaded", "No slider data",
                                     "Press F1 for help"}));

        StoredPreferences::Set(QStringLiteral("Compatibility"), QStringLiteral("1"));
        form->SSTab1->setCurrentIndex(4);
        session->PlacementStep = 3;
        session->Lists.ChemicalsChanged = session->Lists.PosesChanged = session->Lists.ScriptsChanged = true;
        session->LayEggOffset = 5000;
        session->Template.DefaultGeneCounts[0] = 999;
        QList<QList<int>> rows;
        // Tab shown, genotype categories, template's first count, half-life names, egg offset, egg varieties,
        // lobe names, placement step, a list changed, compatibility mode, quit question armed, welcomes shown.
        auto row = [&, &s = *session, &t = session->Tables] {
            rows << QList<int>({form->SSTab1->currentIndex(), int(t.GenotypeCategoryNames.size()),
                                s.Template.DefaultGeneCounts[0], int(t.HalfLifeNames.size()), s.LayEggOffset,
                                int(t.EggVarietyNames.size()), int(t.LobeNames.size()), s.PlacementStep,
                                s.Lists.ChemicalsChanged || s.Lists.PosesChanged || s.Lists.ScriptsChanged,
                                s.CompatibilityMode.Text().toInt(), s.QuitConfirm,
                                int(prompt.MessageTexts().filter("Welcome to the Helixbench!").size())});
        };
        connect(session.get(), &Session::ListViewsMustFill, this, row);
        connect(session.get(), &Session::ExportViewsMustFill, this, row);
        form->Startup(appDir.path());
        QVERIFY(prompt.welcomeOverShownWindow);
        row();
        QCOMPARE(rows, QList<QList<int>>({{0, 15, 27, 0, 5000, 18, 0, 3, 1, 0, 0, 0},
                                          {0, 15, 27, 0, 0, 18, 0, 3, 1, 0, 0, 0},
                                          {0, 15, 27, 32, 0, 18, 8, 999, 0, 1, 1, 1}}));
        const QString dir = appDir.path();
        QCOMPARE(QStringList({session->AppDirectory, QDir::currentPath(), session->HelpFile, form->VersionLabel->text()}),
                 QStringList({dir, QDir(dir).canonicalPath(), dir + "/Helixbench.hlp", "3.42 mc-c"}));
    }

    // The quit question, then one question for each changed list; No at the quit question, or
    // Cancel at a list, keep the window open and the settings unsaved.
    void quitQuestions_data()
    {
        const QString l = QStringLiteral("The %1 list has changed. Save changes?");
        const QStringList q = {"Are you sure you wish to quit?", l.arg("Chemical"), l.arg("Pose"),
                               l.arg("macro script")};
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
        QCOMPARE(prompt.MessageTexts(), questions);
        for (const auto &s : prompt.shown)
            QCOMPARE(s.title + QString::number(s.style), QStringLiteral("Helixbench35"));
        // The settings are saved only when the window closes.
        QCOMPARE(StoredPreferences::Get(QStringLiteral("Product")).toString(),
                 QString::fromLatin1(closes ? "Arkenfold 9" : ""));
    }

    // The tabs fill the window from the first show; below 7200 x 7500 twips outside they keep
    // their last size, above it they follow.
    void tabsFollowOnlyALargeWindow()
    {
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        QWidget *canvas = form->SSTab1->parentWidget();
        QCOMPARE(form->SSTab1->size(), canvas->size());
        const QSize shown = canvas->size();
        const int twip = 15; // pixels at 96 dpi are 15 twips
        form->resize(7000 / twip, 7000 / twip);
        QTRY_COMPARE(canvas->width(), 7000 / twip);
        QCOMPARE(form->SSTab1->size(), shown);
        form->resize(8000 / twip, 8000 / twip);
        QTRY_COMPARE(form->SSTab1->size(), canvas->size());
    }

    // The chemical list read at start-up names the rows of the Biochemistry tab; without its
    // file the rows keep their numbers and the user is told so, as for the pose and script lists.
    void startupReadsTheChemicalList_data()
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
    void startupReadsTheChemicalList()
    {
        QFETCH(bool, file);
        QString names[NameLists::ListEntries], captions[NameLists::ListEntries];
        names[7] = QStringLiteral("Glucose"), captions[7] = QStringLiteral("sugar");
        QFile::remove(appDir.path() + "/chemicals.txt");
        if (file)
            QVERIFY(TestFiles::Write(appDir.path() + "/chemicals.txt", NameLists::EncodeListFile(names, captions, NameLists::ListEntries)));
        form->Startup(appDir.path());
        QStringList warnings;
        for (const auto &s : prompt.shown)
            if (s.style == 48)
                warnings << ShownText(s);
        QTEST(warnings, "warnings");
        form->SSTab1->setCurrentIndex(4);
        const auto *view = form->findChild<QTreeWidget *>(QStringLiteral("ChemicalListView"));
        const QTreeWidgetItem *item = view ? view->topLevelItem(7) : nullptr;
        QVERIFY(item);
        QTEST(item->text(0) + '|' + item->text(1) + '|' + item->text(2), "row");
    }

    // Saving puts the file's name (its last 20 characters) on the first status panel; loading
    // it puts up "Please Wait", which moves as the genes are read, one gene between turns of
    // the event loop.
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
        form->findChild<QAction *>(QStringLiteral("gappfLoadGenome"))->trigger();
        prompt.onYield = nullptr;
        // One turn before each record (four genes, then the end mark), two once all is read;
        // the gene list's refresh takes its own turns after these.
        QCOMPARE(turns.mid(0, 7), QStringList({"Please Wait 1 0 0", "Please Wait 1 1 4", "Please Wait 1 2 24", "Please Wait 1 3 45",
                                               "Please Wait 1 4 65", "Please Wait 1 4 0", "Please Wait 1 4 0"}));
        QCOMPARE(Panel() + QString::number(session->GeneCount), QStringLiteral("...rather_long_name.gen4"));
        QVERIFY(!prompt.progressLoaded);
    }

    // A load that is cancelled or fails leaves no genome, and the panel says so.
    void noGenomeAfterAFailedLoad_data()
    {
        QTest::addColumn<QByteArray>("bytes"); // of the file chosen; empty: the dialog is cancelled
        QTest::addColumn<QString>("error");
        QTest::newRow("cancelled") << QByteArray() << QString();
        QTest::newRow("not a genome") << QByteArray("GIF89a") << "This is not a Arkenfold 2 Verdant DNA file.";
    }
    void noGenomeAfterAFailedLoad()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QString, error);
        session->NewGenome();
        session->LastGenomeDirectory = appDir.path() + '/';
        session->SetStatusPanel(1, QStringLiteral("Sample.gen"));
        const QString path = appDir.path() + QStringLiteral("/chosen.gen");
        QVERIFY(bytes.isEmpty() || TestFiles::Write(path, bytes));
        prompt.AnswerOpen(bytes.isEmpty() ? QString() : path);
        if (!error.isEmpty())
            prompt.AnswerMessage(Prompt::Ok);
        form->findChild<QAction *>(QStringLiteral("gappfLoadGenome"))->trigger();
        QCOMPARE(prompt.MessageTexts(), error.isEmpty() ? QStringList() : QStringList{error});
        QCOMPARE(Panel() + QString::number(session->GeneCount), QStringLiteral("No genome loaded0"));
    }

private:
    QString Panel() const { return form->findChild<QLabel *>(QStringLiteral("StatusBar_1"))->text(); }
    StartupPrompt prompt;
    QTemporaryDir appDir;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
};

QTEST_MAIN(TestStartup)
#include "test_startup.moc"
