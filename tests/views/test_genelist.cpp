// The Gene Editor tab driven through its widgets.
#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "support/ScriptedPrompt.h"
#include "views/GeneEditorTab.h"
#include "views/HelixbenchForm.h"
#include "views/NewGeneForm.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

class TestGeneList : public QObject
{
    Q_OBJECT
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    GeneEditorTab *tab = nullptr;
    QTreeWidget *list = nullptr;

    Gene *Add(int type, int subType, int id, const QString &caption)
    {
        session->CreateGene(quint8(type), quint8(subType), false);
        Gene *g = session->GeneAt(session->GeneCount - 1);
        g->ID = quint8(id);
        session->CaptionStore.SetCaption(type, subType, id, caption);
        return g;
    }
    // The species gene "Header", then reactions "Gene 1" .. "Gene count-1" with the IDs 1 ...
    void Genome(int count)
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        for (int i = 1; i < count; ++i)
            Add(1, 2, i, QStringLiteral("Gene %1").arg(i));
        session->RefreshViews();
    }
    void Click(const char *name) { form->findChild<QAbstractButton *>(QLatin1String(name))->click(); }
    void ClickRowAt(int position, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(list->topLevelItem(position - 1)).center());
    }
    void ClickHeader(int column)
    {
        QHeaderView *h = list->header();
        QTest::mouseClick(h->viewport(), Qt::LeftButton, {}, QPoint(h->sectionViewportPosition(column) + 8, h->height() / 2));
    }
    // The texts of a column from top to bottom, joined with commas.
    QString Column(int column) const
    {
        QStringList texts;
        for (int i = 0; i < list->topLevelItemCount(); ++i)
            texts << list->topLevelItem(i)->text(column);
        return texts.join(',');
    }
    QString Selected(int column = 0) const
    {
        return list->selectedItems().isEmpty() ? QString() : list->selectedItems()[0]->text(column);
    }

private slots:
    void init()
    {
        prompt.Clear();
        session.reset(new Session(prompt));
        session->Tables.Build();
        form.reset(new HelixbenchForm(*session));
        RegisterEditors(*session, form.get());
        form->SSTab1->setCurrentIndex(2);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        tab = form->findChild<GeneEditorTab *>();
        list = form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView"));
    }
    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
        session->CloseAllViews();
        session->QuitConfirm = false;
        form.reset();
        session.reset();
    }

    void rowsShowTheEightColumns()
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        Gene *g = Add(1, 1, 14, QStringLiteral("014 Tired - Emitter"));
        g->Mutability = 16 | 32, g->MutabilityWeighting = 7, g->Generation = 2;
        session->RefreshViews();
        QStringList header, row;
        for (int c = 0; c < 8; ++c)
            header << list->headerItem()->text(c), row << list->topLevelItem(1)->text(c);
        QCOMPARE(header.join('|'), QStringLiteral("#|Gen #|G-ID|Switch On|Sex|Mut.|Description|Type"));
        QCOMPARE(row, GeneCommands::RowTexts(*session, *g));
    }

    void sortingByAnyColumnKeepsTheGeneNumber()
    {
        Add(2, 1, 1, QStringLiteral("Header"));
        const std::pair<const char *, int> genes[] = {{"zeta", 10}, {"alpha", 9}, {"mid", 100}, {"beta", 2}};
        for (auto [caption, generation] : genes)
            Add(1, 2, session->GeneCount, QLatin1String(caption))->Generation = quint8(generation);
        session->RefreshViews();
        ClickHeader(6);
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickRowAt(3); // "beta"
        QCOMPARE(tab->SelectedGeneIndex(), 4);
        ClickHeader(6);          // the same header again: still ascending
        session->RefreshViews(); // a rebuild keeps the sort column
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickHeader(1); // numbers sort as text
        QCOMPARE(Column(1), QStringLiteral("0,10,100,2,9"));
        ClickRowAt(2);
        QCOMPARE(tab->SelectedGeneIndex(), 1);
    }

    void deleteAsksProtectsAndMovesTheSelection()
    {
        Genome(5);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("No gene selected"));
        ClickRowAt(3);
        prompt.AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        Click("DeleteGeneCommand");
        QCOMPARE(session->GeneCount, qint16(5));
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Permanently delete gene 'Gene 2'?"));
        QCOMPARE(prompt.Last().style, 35);
        QCOMPARE(Column(6), QStringLiteral("Header,Gene 1,Gene 3,Gene 4"));
        QCOMPARE(Selected() + Selected(6), QStringLiteral("002Gene 3")); // the next gene

        tab->DeleteQuietlyCheck->setChecked(true); // quietly, the last gene: the new last row
        ClickRowAt(4);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("000,001,002 002"));

        // The species gene stays, even quietly; sorted by another column, the row at its
        // number's position is selected.
        ClickHeader(6);
        ClickRowAt(3);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DeleteGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("You cannot delete the species/sex gene"));
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("001,002,000 001"));
    }

    void renameAndChangeIdRewriteTheRow()
    {
        Genome(3);
        ClickRowAt(2);
        session->SummaryStale = session->OrganViewStale = false;
        prompt.AnswerInput(QStringLiteral("Better name"));
        Click("RenameGeneCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Rename Gene 'Gene 1' [Gene 1]"));
        QCOMPARE(Selected(6), QStringLiteral("Better name"));
        QVERIFY(session->SummaryStale && session->OrganViewStale);
        prompt.AnswerInput(QStringLiteral("40"));
        Click("ChangeIDCommand"); // a new key: the caption belongs to the old one
        QCOMPARE(Selected(2) + Selected(6), QStringLiteral("040<no caption>"));
    }

    void slowAndFastMoves()
    {
        Genome(8); // IDs 1 (species), 1 .. 7
        session->SummaryStale = session->OrganViewStale = false;
        ClickRowAt(4);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DownFastCommand"); // four places, then one refusal
        QCOMPARE(prompt.MessageTexts(), QStringList{"Can't move this gene down further"});
        QCOMPARE(Column(2) + ' ' + Selected(), QStringLiteral("001,001,002,004,005,006,007,003 007"));
        QCOMPARE(Column(6).section(',', -1), QStringLiteral("Gene 3"));
        QVERIFY(session->OrganViewStale && !session->SummaryStale);
        prompt.Clear();
        Click("UpFastCommand"); // six places, no message
        QVERIFY(prompt.shown.isEmpty());
        QCOMPARE(Column(2) + ' ' + Selected(), QStringLiteral("001,003,001,002,004,005,006,007 001"));

        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        Click("UpCommand");
        ClickRowAt(1);
        Click("DownCommand");
        QCOMPARE(prompt.MessageTexts(), QStringList({"Cannot move this gene further up", "Cannot move gene 0 ANYWHERE"}));
        ClickRowAt(3);
        Click("DownCommand");
        QCOMPARE(Column(2) + ' ' + Selected(), QStringLiteral("001,003,002,001,004,005,006,007 003"));
        for (int i = 0; i < session->GeneCount; ++i)
            QCOMPARE(session->GeneAt(i)->Numeric_ID, qint16(i));
    }

    // With 899 genes the new-gene dialog refuses, whichever button, and stays open.
    void newGeneDialogAtTheLimit()
    {
        Genome(899);
        Click("NewGeneCommand");
        auto *dialog = form->findChild<NewGeneForm *>(QStringLiteral("NewGeneForm"));
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        dialog->btnCreateGene->click();
        dialog->btnCreateAndClose->click();
        QCOMPARE(prompt.MessageTexts(), QStringList(2, QStringLiteral("Reached the limit of 900 genes.")));
        QCOMPARE(list->topLevelItemCount(), 899);
        QVERIFY(dialog->isVisible());
        prompt.AnswerMessage(Prompt::Yes); // a genome that goes takes the dialog along
        session->AbandonGenome();
        QVERIFY(!dialog->isVisible());
    }

    void popUpDefaultAndDoubleClickOpen()
    {
        Genome(3);
        ClickRowAt(3);
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->topLevelItem(2)).center());
        QVERIFY(session->GeneAt(2)->IsOpen);
        ClickRowAt(2, Qt::RightButton); // the menu comes with the release
        QMenu *menu = tab->mnuGenePopUp;
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->defaultAction()->objectName() + ' ' + menu->defaultAction()->text(), QStringLiteral("mnuGeneEdit &Edit"));
        menu->defaultAction()->trigger();
        menu->close();
        QVERIFY(session->GeneAt(1)->IsOpen);
    }
};

QTEST_MAIN(TestGeneList)
#include "test_genelist.moc"
