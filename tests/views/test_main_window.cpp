// The main window driven through its widgets. The summary tabs: the Organ View tree and its
// status line, the edit command, the stale flags on entering a tab, the genotype lists and
// labels. A tab that makes its widgets when first shown, after some work, shows what it would
// have shown had it been made at start-up (compared row by row with a window whose tabs were
// all made first).
// The lists: the Gene Editor tab (sorting, delete, pop-up menu, moves, the new gene dialog), the
// Biochemistry and Poses tabs (commands, messages, count lines, pop-up menus, saving) and the
// comparison window opened from the menu.
#include "core/GeneCommands.h"
#include "core/SummaryTestKit.h"
#include "core/compare/OtherGenome.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"
#include "editors/EditorTestKit.h"
#include "support/KindBodies.h"
#include "support/ShownText.h"
#include "views/ChemicalTab.h"
#include "views/GeneEditorTab.h"
#include "views/GenomeCompareForm.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"
#include "views/OrganViewTab.h"
#include "views/PoseTab.h"

#include <functional>

using namespace GenomeBytes;
using SummaryTestKit::Add;

namespace {
// The columns of a row (or of the header) joined with '|'.
QString RowText(const QTreeWidgetItem *item)
{
    QStringList texts;
    for (int c = 0; c < item->columnCount(); ++c)
        texts << item->text(c);
    return texts.join(QLatin1Char('|'));
}

// One column of a list's top-level rows, top to bottom, joined with ','.
QString ColumnText(const QTreeWidget *list, int column)
{
    QStringList texts;
    for (int i = 0; i < list->topLevelItemCount(); ++i)
        texts << list->topLevelItem(i)->text(column);
    return texts.join(QLatin1Char(','));
}

QByteArray Species() { return Header(2, 1, 1) + Hex("00") + "EVE_ADAM"; }
QByteArray Receptor(int id, int chem) { return Header(1, 0, id) + Hex("020000") + char(chem) + Hex("00000000"); }
QByteArray Pose(int id, int pose) { return Header(2, 3, id) + char(pose) + "XXXXXXXXXXXXXXX"; }

// Two organs, the first with a receptor on chemical 3 and a reaction, then a lobe, the second
// organ and a pose.
void Organs(Session &s)
{
    Add(s, 3, 0, 1, QStringLiteral("Heart"));
    Add<clsReceptor>(s, 1, 0, 1, QStringLiteral("feel")).Chem = 3;
    Add(s, 1, 2, 1, QStringLiteral("burn"));
    auto &lobe = Add<clsBrainLobe>(s, 0, 0, 1, QStringLiteral("Vision"));
    std::tie(lobe.Width, lobe.Height, lobe.StateRule) = std::tuple(4, 5, std::array<quint8, 12>{9, 31, 16});
    Add(s, 3, 0, 2, QStringLiteral("Lung"));
    Add(s, 2, 3, 1, QStringLiteral("stand"));
    s.RefreshViews();
}

// A window on a session of its own, its tabs made at start-up or left to make themselves.
struct Bench
{
    ScriptedPrompt prompt;
    Session session{prompt};
    HelixbenchForm form{session};
    Bench()
    {
        session.Tables.Build();
    }
};

// Every row of every list of a tab, and its labels, as text.
QStringList TabText(QWidget *tab)
{
    QStringList out;
    for (const QTreeWidget *tree : tab->findChildren<QTreeWidget *>())
        for (QTreeWidgetItemIterator it(const_cast<QTreeWidget *>(tree)); *it; ++it)
            out << tree->objectName() + QLatin1Char('|') + RowText(*it);
    for (const QLabel *label : tab->findChildren<QLabel *>())
        out << label->objectName() + QLatin1Char('=') + label->text();
    return out;
}

// Each step is done to the window made whole at start and to the one left to make its tabs.
using Steps = std::function<void(Bench &)>;
} // namespace
Q_DECLARE_METATYPE(Steps)

class TestMainWindow : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    ScriptedPrompt &prompt = kit.prompt;
    std::unique_ptr<HelixbenchForm> form;
    Session *s() { return kit.session.get(); }

    template <typename T> T *Find(const char *name) { return form->findChild<T *>(QString::fromLatin1(name)); }
    void Click(const char *button) { Find<QAbstractButton>(button)->click(); }
    QString Label(const char *name) { return Find<QLabel>(name)->text(); }
    // A row of a list (-1: its header), its columns joined with '|'.
    QString Row(const char *view, int row)
    {
        const QTreeWidget *tree = Find<QTreeWidget>(view);
        return RowText(row < 0 ? tree->headerItem() : tree->topLevelItem(row));
    }
    QString Shown(int i = -1) const { return ShownText(i < 0 ? prompt.Last() : prompt.shown[i]); }
    // Fills the name lists and shows the tab.
    void Fill(const char *tab)
    {
        emit s()->ListViewsMustFill();
        Find<QTabWidget>("SSTab1")->setCurrentWidget(Find<QWidget>(tab));
    }
    // A click on a row; with the right button the release opens the list's pop-up menu.
    void ClickRow(const char *view, int row, Qt::MouseButton button = Qt::LeftButton)
    {
        auto *v = Find<QTreeWidget>(view);
        v->scrollToItem(v->topLevelItem(row));
        QTest::mouseClick(v->viewport(), button, {}, v->visualItemRect(v->topLevelItem(row)).center());
    }
    QMenu *RightClick(const char *view, int row, const char *menuName)
    {
        ClickRow(view, row, Qt::RightButton);
        return Find<QMenu>(menuName)->isVisible() ? Find<QMenu>(menuName) : nullptr;
    }
    // The pop-up menu's entries, "-" for a separator.
    static QString Entries(QMenu *menu)
    {
        QStringList texts;
        for (QAction *a : menu->actions())
            texts << (a->isSeparator() ? QStringLiteral("-") : a->text());
        return texts.join(',');
    }

    QTreeWidget *Tree() { return Find<QTreeWidget>("OrganTreeView"); }
    OrganViewTab *OrganTab() { return form->findChild<OrganViewTab *>(); }
    QTreeWidgetItem *Node(const QString &key)
    {
        for (QTreeWidgetItemIterator it(Tree()); *it; ++it)
            if ((*it)->data(0, OrganViewTab::KeyRole).toString() == key)
                return *it;
        return nullptr;
    }

    // The gene list: the species gene "Header", then reactions "Gene 1" .. "Gene count-1"; each
    // gene's ID is its position plus one. Rows are counted from 1, as the list shows them.
    void Genome(int count)
    {
        kit.Add(2, 1, QStringLiteral("Header"));
        for (int i = 1; i < count; ++i)
            kit.Add(1, 2, QStringLiteral("Gene %1").arg(i));
        s()->RefreshViews();
    }
    QTreeWidget *GeneList() { return Find<QTreeWidget>("GeneListListView"); }
    void ClickGene(int position) { ClickRow("GeneListListView", position - 1); }
    void ClickHeader(int column)
    {
        QHeaderView *header = GeneList()->header();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, QPoint(header->sectionViewportPosition(column) + 8, 5));
    }
    QString Column(int column) { return ColumnText(GeneList(), column); }
    QString Selected(int column = 0)
    {
        const QList<QTreeWidgetItem *> rows = GeneList()->selectedItems();
        return rows.isEmpty() ? QString() : rows[0]->text(column);
    }

    // Opens the genome species, receptor 1 on chemical 5, pose 1; chooses a file of `other`
    // (with the open genome's captions) in the open dialog of the menu entry, and gives the
    // window that opened.
    GenomeCompareForm *Compare(const QByteArray &other)
    {
        s()->Lists.ChemicalNames[5] = QStringLiteral("Glucose");
        DecodeBytes(*s(), File(Species() + Receptor(1, 5) + Pose(1, 42)));
        s()->RefreshViews();
        const QString path = kit.sandbox->path() + QStringLiteral("/other.gen");
        TestFiles::Write(path, other);
        TestFiles::Write(kit.sandbox->path() + QStringLiteral("/other.gno"), s()->CaptionStore.FileBytes());
        prompt.AnswerOpen(path);
        Find<QAction>("gappcCompareGenome")->trigger();
        return form->findChild<GenomeCompareForm *>();
    }

private slots:
    void init()
    {
        kit.Init();
        SummaryTestKit::SetTemplate(*s());
        prompt.progressLoads = 0;
        s()->LastGenomeDirectory = kit.sandbox->path() + QLatin1Char('/');
        form.reset(new HelixbenchForm(*s()));
        form->BuildAllTabs();
        form->SSTab1->setCurrentIndex(2);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        s()->Lists.SetChemicalDefaults();
        s()->Lists.SetPoseDefaults();
    }
    void cleanup()
    {
        s()->QuitConfirm = false;
        form.reset();
        kit.Cleanup();
    }

    void enteringTheTabRebuildsOnlyWhenStaleAndThereAreGenes()
    {
        Organs(*s());
        Add(*s(), 1, 0, 2, QStringLiteral("late"));
        s()->OrganViewStale = true;
        QVERIFY(!Node(QStringLiteral("voci2"))); // the tree keeps the old state until the tab is entered
        OrganTab()->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating organ layout...100"));
        QVERIFY(!prompt.progressLoaded && !s()->OrganViewStale);
        OrganTab()->EnterTab(); // the flag is clear: nothing happens
        QCOMPARE(prompt.progressLoads, 1);

        // With no genes the window comes up at each entry, but the flag stays and so do the nodes.
        s()->ClearGeneList();
        s()->OrganViewStale = true;
        OrganTab()->EnterTab();
        OrganTab()->EnterTab();
        QCOMPARE(prompt.progressLoads, 3);
        QVERIFY(s()->OrganViewStale && Node(QStringLiteral("voci2")));
        QCOMPARE(Label("OrganStatusLabel"), QStringLiteral("Total genes in organs: 3 over 2 organs."));
    }

    void editCommandOpensOnlyGeneNodes()
    {
        QList<int> opened; // the genes an editor was asked for
        s()->EditorFactory = [&opened](Gene &gene) -> GeneView * { return opened << gene.Numeric_ID, nullptr; };
        Organs(*s());
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        Tree()->setCurrentItem(Node(QStringLiteral("or1"))->child(0)); // the organ's summary line has no key
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(ShownText(prompt.shown[0]) + '/' + ShownText(prompt.shown[1]),
                 QStringLiteral("Helixbench|64|No gene selected/Helixbench|16|This is not a gene entry, cannot open edit window"));
        Tree()->setCurrentItem(Node(QStringLiteral("voci1")));
        form->findChild<QPushButton *>(QStringLiteral("EditFromOrganCommand"))->click();
        QCOMPARE(opened, QList<int>{2});
    }

    void genotypeRowsAndLabels()
    {
        QCOMPARE(Label("GeneticSummaryLabel") + Label("BrainLobeSummaryLabel"), QStringLiteral("No Genome LoadedNo Genome Loaded"));
        QCOMPARE(Row("GenotypeListView", -1) + '/' + Row("BrainLobeListView", -1),
                 QStringLiteral("Type|Total Present|Mutations from template/Lobe #|Name|Width|Height|Neurones|State Rule"));
        Organs(*s());
        QCOMPARE(Row("GenotypeListView", 10) + Label("GeneticSummaryLabel"), QStringLiteral("Organs| 2|2 6 gene(s) total."));
        QCOMPARE(Row("BrainLobeListView", 0), QStringLiteral(" 0|Vision| 4| 5| 20|state:PLUS:input:"));
        // Entering the tab recounts only while the flag is set.
        Add(*s(), 2, 3, 2, QStringLiteral("sit"));
        s()->SummaryStale = true;
        form->findChild<GenotypeTab *>()->EnterTab();
        QCOMPARE(prompt.progressTitle + QString::number(prompt.progressValue), QStringLiteral("Updating genetic summary...100"));
        QVERIFY(prompt.progressLoads == 1 && !prompt.progressLoaded && !s()->SummaryStale);
        QCOMPARE(Row("GenotypeListView", 6) + Label("GeneticSummaryLabel"), QStringLiteral("Poses| 2|102 7 gene(s) total."));
    }
    void aTabFirstShownLaterShowsWhatItWouldHaveShown_data()
    {
        QTest::addColumn<Steps>("steps");
        QTest::newRow("a load") << Steps([](Bench &b) { Organs(b.session); });
        QTest::newRow("a load, then no genes: the tree keeps its nodes") << Steps([](Bench &b) {
            Organs(b.session);
            b.session.ClearGeneList();
            b.session.RefreshViews();
        });
        QTest::newRow("a renamed chemical reaches no row until rewritten") << Steps([](Bench &b) {
            Organs(b.session);
            b.session.Lists.ChemicalNames[3] = QStringLiteral("renamed");
        });
        QTest::newRow("a rewritten row and a changed template") << Steps([](Bench &b) {
            Organs(b.session);
            b.session.Template.DefaultGeneCounts[0] = 99;
            b.session.CaptionStore.SetCaption(1, 0, 1, QStringLiteral("sense"));
            b.session.RefreshGeneRow(1);
        });
        QTest::newRow("the first gene's row rewritten after its tab is made") << Steps([](Bench &b) {
            Organs(b.session);
            b.form.SSTab1->setCurrentIndex(2);
            b.session.CaptionStore.SetCaption(3, 0, 1, QStringLiteral("Lung"));
            b.session.RefreshGeneRow(0);
        });
        QTest::newRow("genes added to the list") << Steps([](Bench &b) {
            Organs(b.session);
            for (int id = 1; id <= 2; ++id) {
                Add<clsEmitter>(b.session, 1, 1, id, QStringLiteral("emit")).Chem = 4;
                b.form.geneEditorTab->AddGeneRow(b.session.GeneCount - 1);
            }
        });
        QTest::newRow("a load, then an unknown row") << Steps([](Bench &b) {
            b.prompt.AnswerMessage(Prompt::Ok);
            Organs(b.session);
            b.session.RefreshGeneRow(7);
        });
    }
    void aTabFirstShownLaterShowsWhatItWouldHaveShown()
    {
        QFETCH(Steps, steps);
        Bench whole, lazy;
        whole.form.BuildAllTabs();
        steps(whole);
        steps(lazy);
        for (int tab = 1; tab <= 3; ++tab) {
            lazy.form.SSTab1->setCurrentIndex(tab);
            whole.form.SSTab1->setCurrentIndex(tab);
            QCOMPARE(TabText(lazy.form.SSTab1->widget(tab)), TabText(whole.form.SSTab1->widget(tab)));
        }
        QCOMPARE(lazy.prompt.progressLoads, whole.prompt.progressLoads); // the same rebuilds on entry
        QCOMPARE(lazy.prompt.MessageTexts(), whole.prompt.MessageTexts());
        QVERIFY(whole.prompt.AllAnswered() && lazy.prompt.AllAnswered());
    }

    void eightColumnsSortedByAnyKeepTheGeneNumber()
    {
        kit.Add(2, 1, QStringLiteral("Header"));
        const std::pair<const char *, int> genes[] = {{"zeta", 10}, {"alpha", 9}, {"mid", 100}, {"beta", 2}};
        for (auto [caption, generation] : genes)
            kit.Add(1, 2, QLatin1String(caption))->Generation = quint8(generation);
        s()->RefreshViews();
        QCOMPARE(Row("GeneListListView", -1), QStringLiteral("#|Gen #|G-ID|Switch On|Sex|Mut.|Description|Type"));
        ClickHeader(6);
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickGene(3); // "beta"
        QCOMPARE(form->findChild<GeneEditorTab *>()->SelectedGeneIndex(), 4);
        ClickHeader(6);      // the same header again: still ascending
        s()->RefreshViews(); // a rebuild keeps the sort column
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickHeader(1); // numbers sort as text
        QCOMPARE(Column(1), QStringLiteral("0,10,100,2,9"));
        // A new gene's row takes its sorted place.
        Click("NewGeneCommand");
        prompt.AnswerInput(QStringLiteral("new"));
        form->findChild<NewGeneForm *>()->btnCreateAndClose->click();
        QCOMPARE(Column(1) + '|' + Column(6).section(',', 1, 1), QStringLiteral("0,0,10,100,2,9|001 new - Brain Lobe"));
    }

    void deleteAsksProtectsAndMovesTheSelection()
    {
        Genome(5);
        ClickGene(3);
        prompt.AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        Click("DeleteGeneCommand");
        QCOMPARE(s()->GeneCount, qint16(5));
        Click("DeleteGeneCommand");
        QCOMPARE(Shown(), QStringLiteral("Helixbench|35|Permanently delete gene 'Gene 2'?"));
        QCOMPARE(Column(6) + ' ' + Selected() + Selected(6), QStringLiteral("Header,Gene 1,Gene 3,Gene 4 002Gene 3"));

        Find<QCheckBox>("DeleteQuietlyCheck")->setChecked(true); // quietly, the last gene: the new last row
        ClickGene(4);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("000,001,002 002"));

        // The species gene stays, even quietly; sorted by another column, the row at its
        // number's position is selected.
        ClickHeader(6);
        ClickGene(3);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("001,002,000 001"));
    }

    // The pop-up menu comes with the release of a right click; its default entry opens the
    // gene's editor. Rename rewrites the row.
    void popUpAndRename()
    {
        Genome(3);
        QMenu *menu = RightClick("GeneListListView", 1, "mnuGenePopUp");
        QVERIFY(menu);
        QCOMPARE(menu->defaultAction()->objectName() + ' ' + menu->defaultAction()->text(), QStringLiteral("mnuGeneEdit &Edit"));
        menu->defaultAction()->trigger();
        menu->close();
        QVERIFY(s()->GeneAt(1)->IsOpen);

        prompt.AnswerInput(QStringLiteral("Better name"));
        Click("RenameGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Rename Gene 'Gene 1' [Gene 1]"));
        QCOMPARE(Selected(6), QStringLiteral("Better name"));
    }

    void slowAndFastMoves()
    {
        Genome(8); // IDs 1 (species), 2 .. 8
        s()->SummaryStale = s()->OrganViewStale = false;
        ClickGene(4);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DownFastCommand"); // four places, then one refusal
        QCOMPARE(prompt.MessageTexts(), QStringList{"Can't move this gene down further"});
        QCOMPARE(Column(2) + ' ' + Selected(), QStringLiteral("001,002,003,005,006,007,008,004 007"));
        QVERIFY(s()->OrganViewStale && !s()->SummaryStale);

        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        ClickGene(2);
        Click("UpCommand");
        ClickGene(1);
        Click("DownCommand");
        QCOMPARE(prompt.MessageTexts().mid(1), QStringList({"Cannot move this gene further up", "Cannot move gene 0 ANYWHERE"}));
    }

    // Create opens the new gene's editor and leaves the dialog in front of it, ready for the
    // next; at 899 genes it refuses, whichever button, and stays open.
    void newGeneDialog()
    {
        Genome(898);
        Click("NewGeneCommand");
        auto *dialog = form->findChild<NewGeneForm *>(QStringLiteral("NewGeneForm"));
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
        prompt.AnswerInput(QStringLiteral("lobe"));
        dialog->btnCreateGene->click();
        QVERIFY(s()->GeneCount == 899 && s()->GeneAt(898)->IsOpen);
        QTRY_COMPARE(QApplication::activeWindow(), dialog);

        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        dialog->btnCreateGene->click();
        dialog->btnCreateAndClose->click();
        QCOMPARE(prompt.MessageTexts(), QStringList(2, QStringLiteral("Reached the limit of 900 genes.")));
        QVERIFY(GeneList()->topLevelItemCount() == 899 && dialog->isVisible());
    }

    void startUpFillsBothViewsAndChemicalCommandsAskStoreAndRecount()
    {
        QCOMPARE(Label("ChemCountLabel") + Label("PoseCountLabel"), QStringLiteral("No chemicals loadedNo poses loaded"));
        s()->Lists.ChemicalNames[0].clear(); // as a file may hold it
        s()->Lists.ChemicalNames[1] = QStringLiteral("ATP");
        Fill("ChemicalTab");
        QCOMPARE(Find<QTreeWidget>("ChemicalListView")->topLevelItemCount() + Find<QTreeWidget>("PoseListView")->topLevelItemCount(), 512);
        QCOMPARE(Row("ChemicalListView", 0) + Row("ChemicalListView", 1), QStringLiteral("0|<nothing>|1|ATP|"));
        QCOMPARE(s()->Lists.ChemicalNames[0], QStringLiteral("<nothing>"));

        // Add needs no row: it takes the first free slot, 2.
        prompt.AnswerInput(QStringLiteral("Glucose")).AnswerInput(QStringLiteral("sugar"));
        Click("AddChemicalCommand");
        QCOMPARE(Shown(0), QStringLiteral("Name new Chemical|0|Enter a name for chemical 2 [<un-named chemical>]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|Glucose|sugar"));
        QCOMPARE(Label("ChemCountLabel"), QStringLiteral(" 3 chemical(s) in use, 253 slots free"));

        // Cancel in the second box stores nothing, not even the first answer.
        prompt.AnswerInput(QStringLiteral("Lactate")).AnswerInput(QString());
        Click("AddChemicalCommand");
        QCOMPARE(Row("ChemicalListView", 3), QStringLiteral("3|3|"));

        // Add Here over a named slot asks first; No ends it.
        ClickRow("ChemicalListView", 2);
        prompt.AnswerMessage(Prompt::No);
        Click("AddHereCommand");
        QCOMPARE(Shown(), QStringLiteral("Helixbench|35|Are you sure you wish to write over 'Glucose'"));

        prompt.AnswerInput(QStringLiteral("Dextrose")).AnswerInput(QStringLiteral("fuel"));
        Click("RenameChemicalCommand");
        QCOMPARE(Shown(), QStringLiteral("Rename Chemical|0|Rename Chemical 'Glucose' [Glucose]"));
        Click("CaptionChemicalCommand");
        QCOMPARE(Shown(), QStringLiteral("Edit Chemical Caption|0|Edit Caption 'sugar' [sugar]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|Dextrose|fuel"));

        prompt.AnswerMessage(Prompt::Yes);
        Click("DeleteChemicalCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Are you sure you wish to delete 'Dextrose'?"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|2|"));
    }

    void popUpMenusAndTheirSaveEntries()
    {
        s()->Lists.ChemicalNames[5] = QStringLiteral("ATP");
        Fill("ChemicalTab");
        QMenu *menu = RightClick("ChemicalListView", 5, "mnuChemicalPopUp");
        QVERIFY(menu && SelectedNameListSlot(Find<QTreeWidget>("ChemicalListView")) == 5);
        QCOMPARE(menu->defaultAction(), Find<QAction>("mnuChemicalRename"));
        QCOMPARE(Entries(menu), QStringLiteral("&Rename,&Edit Description,&Delete,-,&New Chemical Here,Ne&w Chemical,-,&Save Changes"));
        QVERIFY(!Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();

        // Once a name changed, Save Changes is on and saves the list.
        prompt.AnswerInput(QStringLiteral("Adenosine"));
        Find<QAction>("mnuChemicalRename")->trigger();
        QVERIFY(RightClick("ChemicalListView", 5, "mnuChemicalPopUp") && Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();
        Find<QAction>("mnuChemicalSaveChanges")->trigger();
        QVERIFY(!s()->Lists.ChemicalsChanged && QFile::exists(kit.sandbox->path() + QStringLiteral("/Chemicals.txt")));
    }

    // The save commands save only a list that changed. Pose 0 is renamed and described like any
    // other pose, and a free one is not deleted.
    void saveCommandsAndPoseZero()
    {
        Fill("PoseTab");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        form->findChild<ChemicalTab *>()->SaveListCommand();
        form->findChild<PoseTab *>()->SaveListCommand();
        QCOMPARE(Shown(0), QStringLiteral("Helixbench|64|No changes to save, operation canceled"));
        QCOMPARE(QDir(kit.sandbox->path()).entryList({"*.txt"}), QStringList());

        ClickRow("PoseListView", 0);
        prompt.AnswerMessage(Prompt::Ok).AnswerInput(QStringLiteral("Walk")).AnswerInput(QStringLiteral("legs moving"));
        Click("DeletePoseCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Pose 0 is already deleted"));
        Click("RenamePoseCommand");
        QCOMPARE(Shown(), QStringLiteral("Rename Pose|0|Rename Pose '0' [0]"));
        Click("CaptionPoseCommand");
        QCOMPARE(Shown(), QStringLiteral("Describe Pose|0|Describe Pose 'Walk' []"));
        QCOMPARE(Row("PoseListView", 0), QStringLiteral("0|Walk|legs moving"));
    }

    // A changed pair lists its fields with both values; the filter narrows the rows; the
    // window compares again when the open genome loses a gene.
    void differencesFiltersAndTheOpenGenomeFollowed()
    {
        GenomeCompareForm *w = Compare(File(Species() + Pose(1, 42) + Receptor(1, 6) + Receptor(2, 5)));
        QVERIFY(w && w->txtMessages->parentWidget()->isHidden());
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only right,same"));
        QCOMPARE(w->lblSummary->text(), QStringLiteral("3 genes left, 4 right: 2 same, 1 changed, 0 only left, 1 only right"));
        QCOMPARE(ColumnText(w->CompareListView, 5).section(',', 1, 1), QStringLiteral("#002 <no caption>"));
        const QTreeWidgetItem *field = w->CompareListView->topLevelItem(1)->child(0);
        QCOMPARE(QStringList({field->text(1), field->text(4), field->text(5)}), QStringList({"Chemical", "5 (Glucose)", "6"}));

        w->lstShow->setCurrentIndex(1);
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("changed,only right"));
        QVERIFY(GeneCommands::DeleteGene(*s(), 2, true)); // the pose
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("only right,changed,only right"));
    }

    // Copying the selected right genes: each lands at the end of the open genome with a
    // spare ID where its own is taken, the gene list gets its rows, and the window compares
    // again. Nothing selected is a message.
    void copyAddsRowsAndComparesAgain()
    {
        GenomeCompareForm *w = Compare(File(Species() + Receptor(1, 6) + Receptor(4, 5)));
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only right,only left"));
        prompt.AnswerMessage(Prompt::Ok);
        w->btnCopy->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("No gene of the other genome is selected to copy"));
        w->CompareListView->topLevelItem(1)->child(0)->setSelected(true); // a field row picks its gene
        w->CompareListView->topLevelItem(2)->setSelected(true);
        w->btnCopy->click();

        QCOMPARE(Column(2), QStringLiteral("001,001,001,002,004"));
        // The changed receptor's copy took ID 2 and pairs with nothing; the other now matches.
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("same,changed,only left,only left,same"));
    }

    // A damaged or foreign file: its messages stand in the window, the open genome shows on
    // the left only, and nothing reaches the user's prompt (which fails the test on any message).
    void damagedFileShowsItsMessages_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QString>("message");
        QTest::newRow("foreign") << QByteArray("GIF89a....") << "This is not a Arkenfold 2 Verdant DNA file.";
        QTest::newRow("truncated") << ("dna2" + Receptor(1, 5).left(9)) << "Unable to lock onto valid data. Operation aborted.";
    }
    void damagedFileShowsItsMessages()
    {
        QFETCH(QByteArray, bytes);
        GenomeCompareForm *w = Compare(bytes);
        QVERIFY(w && !w->Other().Loaded() && !w->txtMessages->parentWidget()->isHidden());
        QTEST(w->txtMessages->toPlainText().section(QLatin1Char('\n'), -1), "message"); // the last one
        QCOMPARE(ColumnText(w->CompareListView, 0), QStringLiteral("only left,only left,only left"));
    }
};

QTEST_MAIN(TestMainWindow)
#include "test_main_window.moc"
