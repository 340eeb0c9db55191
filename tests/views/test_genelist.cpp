// The Gene Editor tab driven through its widgets.
#include "core/Gene.h"
#include "core/GeneView.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "support/ScriptedPrompt.h"
#include "views/GeneEditorTab.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

namespace {
// An editor that stays open until told to close.
struct FakeEditor : GeneView
{
    explicit FakeEditor(Gene &g) : owner(g) {}
    Gene &owner;
    int fronts = 0;
    bool disposed = false;
    void SetControls() override {}
    void GetControls() override {}
    void SetEditorCaption() override {}
    void ShowEditor() override {}
    void BringToFront() override { ++fronts; }
    void RequestClose() override { owner.CloseView(); }
    void Dispose() override { disposed = true; }
};
} // namespace

class TestGeneList : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    std::vector<std::unique_ptr<FakeEditor>> editors;
    GeneEditorTab *tab = nullptr;
    QTreeWidget *list = nullptr;

    Gene *Add(int type, int subType, int id, const QString &caption)
    {
        session->GenomeImage.ReadCursor = 0;
        session->CreateGene(quint8(type), quint8(subType), false);
        Gene *g = session->GeneAt(session->GeneCount - 1);
        g->ID = quint8(id);
        session->CaptionStore.SetCaption(type, subType, id, caption);
        return g;
    }
    // The species gene, then reactions "Gene 1" .. "Gene count-1" with the IDs 1 ...
    void Genome(int count)
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        for (int i = 1; i < count; ++i)
            Add(1, 2, i, QStringLiteral("Gene %1").arg(i));
        session->RefreshViews();
    }
    void Click(const char *name) { form->findChild<QAbstractButton *>(QString::fromLatin1(name))->click(); }
    void ClickRowAt(int position, Qt::MouseButton button = Qt::LeftButton)
    {
        const QPoint at = list->visualItemRect(list->topLevelItem(position - 1)).center();
        QTest::mouseClick(list->viewport(), button, {}, at);
    }
    void ClickHeader(int column)
    {
        QHeaderView *h = list->header();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(column) + 8, h->height() / 2));
    }
    QStringList Column(int column) const
    {
        QStringList texts;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            texts << list->topLevelItem(i)->text(column);
        return texts;
    }
    QString SelectedKey() const { return list->selectedItems().value(0) ? list->selectedItems()[0]->text(0) : QString(); }
    // The gene IDs in list order, -1 for a gene whose Numeric_ID doesn't match its slot.
    QList<int> Ids() const
    {
        QList<int> ids;
        for (int i = 0; i < session->GeneCount; ++i)
            ids << (session->GeneAt(i)->Numeric_ID == i ? session->GeneAt(i)->ID : -1);
        return ids;
    }
    void Ok(int n = 1)
    {
        while (n--)
            prompt.AnswerMessage(Prompt::Ok);
    }

private slots:
    void init()
    {
        prompt.Clear();
        editors.clear();
        session.reset(new Session(prompt));
        session->Tables.Build();
        session->EditorFactory = [this](Gene &g) {
            editors.push_back(std::make_unique<FakeEditor>(g));
            return editors.back().get();
        };
        form.reset(new HelixbenchForm(*session));
        form->SSTab1->setCurrentIndex(2);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        tab = form->findChild<GeneEditorTab *>();
        list = form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView"));
    }
    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
        session->QuitConfirm = false;
        form.reset();
        session.reset();
    }

    void rowsAndWholeRowSelection()
    {
        QCOMPARE(list->headerItem()->text(1) + "|" + list->headerItem()->text(3) + "|" + list->headerItem()->text(7),
                 QStringLiteral("Gen #|Switch On|Type"));
        session->Lists.ChemicalNames[3] = QStringLiteral("Pyruvate");
        Add(2, 1, 1, QStringLiteral("Header"));
        auto *emitter = static_cast<clsEmitter *>(Add(1, 1, 14, QStringLiteral("014 Tired - Emitter")));
        emitter->Chem = 3;
        emitter->Mutability = 16 | 32;
        emitter->MutabilityWeighting = 7;
        Add(1, 3, 1, QString());
        session->RefreshViews();
        QCOMPARE(Column(5), QStringList({"0", "(7)", "0"}));
        QCOMPARE(Column(7), QStringList({"Creature: Genus", "Biochemistry: Chemical Emitter (Pyruvate)",
                                         "Biochemistry: Chemical Half-Life"}));
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          QPoint(list->header()->sectionViewportPosition(6) + 5, list->visualItemRect(list->topLevelItem(2)).center().y()));
        QCOMPARE(tab->SelectedGeneIndex(), 2);
        QCOMPARE(list->selectionModel()->selectedIndexes().size(), 8);
    }

    void sortingByAnyColumnKeepsTheGeneNumber()
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        const char *captions[] = {"zeta", "alpha", "mid", "beta"};
        const int generations[] = {10, 9, 100, 2};
        for (int i = 0; i < 4; ++i)
            Add(1, 2, i + 1, QString::fromLatin1(captions[i]))->Generation = quint8(generations[i]);
        session->RefreshViews();

        ClickHeader(6);
        const QStringList byCaption{"Header", "alpha", "beta", "mid", "zeta"};
        QCOMPARE(Column(6), byCaption);
        ClickRowAt(3); // "beta"
        QCOMPARE(tab->SelectedGeneIndex(), 4);
        ClickHeader(6); // the same header again: still ascending
        QCOMPARE(Column(6), byCaption);
        session->RefreshViews(); // a rebuild keeps the sort column
        QCOMPARE(Column(6), byCaption);

        ClickHeader(1); // numbers sort as text
        QCOMPARE(Column(1), QStringList({"0", "10", "100", "2", "9"}));
        ClickRowAt(2);
        QCOMPARE(tab->SelectedGeneIndex(), 1);
    }

    void deleteAsksProtectsAndMovesTheSelection()
    {
        Genome(5);
        Ok();
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("No gene selected"));

        ClickRowAt(3);
        prompt.AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        Click("DeleteGeneCommand");
        QCOMPARE(session->GeneCount, qint16(5));
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Permanently delete gene 'Gene 2'?"));
        QCOMPARE(prompt.Last().style, 35);
        QCOMPARE(Column(6), QStringList({"Header", "Gene 1", "Gene 3", "Gene 4"}));
        QCOMPARE(SelectedKey() + list->selectedItems()[0]->text(6), QStringLiteral("002Gene 3"));

        // Quietly, the last gene: the new last row is selected.
        tab->DeleteQuietlyCheck->setChecked(true);
        ClickRowAt(4);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0), QStringList({"000", "001", "002"}));
        QCOMPARE(SelectedKey(), QStringLiteral("002"));

        // The species gene stays, even quietly; sorted by another column, the row at its
        // number's position is selected.
        ClickHeader(6);
        ClickRowAt(3);
        Ok();
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("You cannot delete the species/sex gene"));
        QCOMPARE(Column(0), QStringList({"001", "002", "000"}));
        QCOMPARE(SelectedKey(), QStringLiteral("001"));
    }

    void renameAndChangeIdRewriteTheRow()
    {
        Genome(3);
        ClickRowAt(2);
        session->SummaryStale = session->OrganViewStale = false;
        prompt.AnswerInput(QStringLiteral("Better name"));
        Click("RenameGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Rename Gene 'Gene 1' [Gene 1]"));
        QCOMPARE(list->topLevelItem(1)->text(6), QStringLiteral("Better name"));
        QVERIFY(session->SummaryStale && session->OrganViewStale);

        prompt.AnswerInput(QStringLiteral("999"));
        Ok();
        Click("ChangeIDCommand");
        QCOMPARE(list->topLevelItem(1)->text(2), QStringLiteral("001"));
        prompt.AnswerInput(QStringLiteral("40"));
        Click("ChangeIDCommand");
        QCOMPARE(list->topLevelItem(1)->text(2) + list->topLevelItem(1)->text(6), QStringLiteral("040<no caption>"));
    }

    void slowAndFastMoves()
    {
        Genome(8); // IDs 1 (species), 1 .. 7
        session->SummaryStale = session->OrganViewStale = false;
        ClickRowAt(4);
        Ok();
        Click("DownFastCommand"); // four places, then one refusal
        QCOMPARE(prompt.MessageTexts(), QStringList{"Can't move this gene down further"});
        QCOMPARE(Ids(), QList<int>({1, 1, 2, 4, 5, 6, 7, 3}));
        QCOMPARE(Column(6).last(), QStringLiteral("Gene 3"));
        QCOMPARE(SelectedKey(), QStringLiteral("007"));
        QVERIFY(session->OrganViewStale && !session->SummaryStale);

        prompt.Clear();
        Click("UpFastCommand"); // six places, no message
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(Ids(), QList<int>({1, 3, 1, 2, 4, 5, 6, 7}));
        QCOMPARE(SelectedKey(), QStringLiteral("001"));

        Ok(3);
        Click("UpCommand");
        ClickRowAt(1);
        Click("DownCommand");
        Click("UpCommand");
        QCOMPARE(prompt.MessageTexts(), QStringList({"Cannot move this gene further up", "Cannot move gene 0 ANYWHERE",
                                                     "Cannot move this gene further up"}));
        ClickRowAt(3);
        Click("DownCommand");
        QCOMPARE(Ids(), QList<int>({1, 3, 2, 1, 4, 5, 6, 7}));
        QCOMPARE(SelectedKey(), QStringLiteral("003"));
        list->clearSelection();
        Ok();
        Click("UpCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("No gene is selected to move"));
    }

    void movesWhileSortedRewriteRowsInPlace()
    {
        Add(2, 1, 1, QStringLiteral("a species"));
        Add(1, 2, 1, QStringLiteral("d"));
        Add(1, 2, 2, QStringLiteral("b"));
        Add(1, 2, 3, QStringLiteral("c"));
        session->RefreshViews();
        ClickHeader(6);
        ClickRowAt(2); // gene 2, "b"
        Click("DownCommand");
        QCOMPARE(Ids(), QList<int>({1, 1, 3, 2}));
        QCOMPARE(Column(0), QStringList({"000", "002", "003", "001"}));
        QCOMPARE(Column(6), QStringList({"a species", "c", "b", "d"}));
        QCOMPARE(SelectedKey(), QStringLiteral("001")); // position n + 2
    }

    void newGeneDialog()
    {
        prompt.AnswerMessage(Prompt::Yes); // no genome: one is offered, no dialog
        Click("NewGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("No valid genome initialised. Do you want me to do this for you?"));
        QCOMPARE(Column(6), QStringList{"001 Header Gene"});
        QVERIFY(!form->findChild<NewGeneForm *>());

        Click("NewGeneCommand");
        auto *dialog = form->findChild<NewGeneForm *>(QStringLiteral("NewGeneForm"));
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
        QCOMPARE(dialog->GeneTypeCombo->count(), 16);
        QCOMPARE(dialog->GeneTypeCombo->currentIndex(), 0);

        dialog->GeneTypeCombo->setCurrentIndex(7);
        Ok();
        dialog->btnCreateAndClose->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("Cannot create second Genus gene"));
        QVERIFY(dialog->isVisible());

        dialog->GeneTypeCombo->setCurrentIndex(15);
        prompt.AnswerInput(QStringLiteral("Heart")).AnswerInput(QString());
        dialog->btnCreateGene->click();
        dialog->btnCreateAndClose->click(); // cancelled at the caption: stays open
        QVERIFY(dialog->isVisible());
        QCOMPARE(Column(6), QStringList({"001 Header Gene", "001 Heart - Brain Organ"}));
        QCOMPARE(list->topLevelItem(1)->text(7), QStringLiteral("Brain: Brain Organ"));

        // At 899 genes the dialog refuses, whichever button.
        while (session->GeneCount < 898)
            Add(2, 0, 0, QStringLiteral("x"));
        session->RefreshViews();
        prompt.AnswerInput(QStringLiteral("last"));
        Ok(2);
        dialog->btnCreateGene->click();
        dialog->btnCreateGene->click();
        dialog->btnCreateAndClose->click();
        QCOMPARE(prompt.MessageTexts().mid(2),
                 QStringList({"Reached the limit of 900 genes.", "Reached the limit of 900 genes."}));
        QCOMPARE(list->topLevelItemCount(), 899);
        QVERIFY(dialog->isVisible());

        prompt.AnswerMessage(Prompt::Yes); // a genome that goes takes the dialog along
        session->AbandonGenome();
        QVERIFY(!dialog->isVisible());
    }

    void popUpMenuAndDoubleClick()
    {
        Genome(3);
        ClickRowAt(3);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(2)).center());
        QVERIFY(session->GeneAt(2)->IsOpen);

        ClickRowAt(2, Qt::RightButton); // the menu comes with the release
        QVERIFY(tab->mnuGenePopUp->isVisible());
        QCOMPARE(tab->mnuGenePopUp->defaultAction()->objectName(), QStringLiteral("mnuGeneEdit"));
        QStringList entries;
        for (QAction *a : tab->mnuGenePopUp->actions())
            entries << (a->isSeparator() ? QStringLiteral("-") : a->objectName() + ' ' + a->text());
        QCOMPARE(entries, QStringList({"mnuGeneEdit &Edit", "mnuGeneRename &Rename", "mnuGeneDelete &Delete", "-",
                                       "mnuGeneNew &New Gene"}));
        tab->mnuGenePopUp->defaultAction()->trigger();
        tab->mnuGenePopUp->close();
        QVERIFY(session->GeneAt(1)->IsOpen);
        Click("EditGeneCommand"); // an open gene's editor only comes to the front
        QCOMPARE(editors.size(), size_t(2));
        QCOMPARE(editors[1]->fronts, 1);
    }

    void deletedGenesEditorStaysOpen()
    {
        Genome(5);
        tab->DeleteQuietlyCheck->setChecked(true);
        ClickRowAt(3);
        Click("EditGeneCommand");
        Click("DeleteGeneCommand");
        QVERIFY(!editors[0]->disposed && editors[0]->owner.IsOpen);
        // Its close rewrites the row of its old number: the gene that took the place.
        session->CaptionStore.SetCaption(1, 2, 3, QStringLiteral("Gene 3, renamed"));
        editors[0]->RequestClose();
        QCOMPARE(list->topLevelItem(2)->text(6), QStringLiteral("Gene 3, renamed"));

        ClickRowAt(4); // the last number is gone from the list: the close says so
        Click("EditGeneCommand");
        Click("DeleteGeneCommand");
        Ok();
        editors[1]->RequestClose();
        QCOMPARE(prompt.Last().text, QStringLiteral("Error finding gene key 003. Possible fatal error."));

        ClickRowAt(2); // still open when the genome goes: it goes too
        Click("EditGeneCommand");
        Click("DeleteGeneCommand");
        prompt.AnswerMessage(Prompt::Yes);
        session->AbandonGenome();
        QVERIFY(editors[2]->disposed);
        QCOMPARE(session->EditorCount, qint16(0));
    }
};

QTEST_MAIN(TestGeneList)
#include "test_genelist.moc"
