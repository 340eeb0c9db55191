// The Gene Editor tab driven through its widgets.
#include "core/GeneCommands.h"
#include "editors/EditorTestKit.h"
#include "views/GeneEditorTab.h"
#include "views/HelixbenchForm.h"
#include "views/ListText.h"
#include "views/NewGeneForm.h"

class TestGeneList : public QObject
{
    Q_OBJECT
    EditorTestKit kit;
    std::unique_ptr<HelixbenchForm> form;
    GeneEditorTab *tab = nullptr;
    QTreeWidget *list = nullptr;
    Session *s() { return kit.session.get(); }

    // The species gene "Header", then reactions "Gene 1" .. "Gene count-1"; each gene's ID is
    // its position plus one.
    void Genome(int count)
    {
        kit.Add(2, 1, QStringLiteral("Header"));
        for (int i = 1; i < count; ++i)
            kit.Add(1, 2, QStringLiteral("Gene %1").arg(i));
        s()->RefreshViews();
    }
    void Click(const char *name) { form->findChild<QAbstractButton *>(QLatin1String(name))->click(); }
    void ClickRowAt(int position, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(list->viewport(), button, {}, list->visualItemRect(list->topLevelItem(position - 1)).center());
    }
    void ClickHeader(int column)
    {
        QTest::mouseClick(list->header()->viewport(), Qt::LeftButton, {}, QPoint(list->header()->sectionViewportPosition(column) + 8, 5));
    }
    QString Column(int column) const { return ColumnText(list, column); }
    QString Selected(int column = 0) const { return list->selectedItems().value(0) ? list->selectedItems()[0]->text(column) : QString(); }

private slots:
    void init()
    {
        kit.Init();
        form.reset(new HelixbenchForm(*s()));
        form->SSTab1->setCurrentIndex(2);
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        tab = form->findChild<GeneEditorTab *>();
        list = form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView"));
    }
    void cleanup()
    {
        s()->QuitConfirm = false;
        form.reset();
        kit.Cleanup();
    }

    void eightColumnsSortedByAnyKeepTheGeneNumber()
    {
        kit.Add(2, 1, QStringLiteral("Header"));
        const std::pair<const char *, int> genes[] = {{"zeta", 10}, {"alpha", 9}, {"mid", 100}, {"beta", 2}};
        for (auto [caption, generation] : genes)
            kit.Add(1, 2, QLatin1String(caption))->Generation = quint8(generation);
        s()->GeneAt(1)->Mutability = 16 | 32, s()->GeneAt(1)->MutabilityWeighting = 7;
        s()->RefreshViews();
        QCOMPARE(RowText(list->headerItem()), QStringLiteral("#|Gen #|G-ID|Switch On|Sex|Mut.|Description|Type"));
        QCOMPARE(RowText(list->topLevelItem(1)), GeneCommands::RowTexts(*s(), *s()->GeneAt(1)).join('|'));
        ClickHeader(6);
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickRowAt(3); // "beta"
        QCOMPARE(tab->SelectedGeneIndex(), 4);
        ClickHeader(6);      // the same header again: still ascending
        s()->RefreshViews(); // a rebuild keeps the sort column
        QCOMPARE(Column(6), QStringLiteral("Header,alpha,beta,mid,zeta"));
        ClickHeader(1); // numbers sort as text
        QCOMPARE(Column(1), QStringLiteral("0,10,100,2,9"));
        // A new gene's row takes its sorted place.
        Click("NewGeneCommand");
        kit.prompt.AnswerInput(QStringLiteral("new"));
        form->findChild<NewGeneForm *>()->btnCreateAndClose->click();
        QCOMPARE(Column(1) + '|' + Column(6).section(',', 1, 1), QStringLiteral("0,0,10,100,2,9|001 new - Brain Lobe"));
    }

    void deleteAsksProtectsAndMovesTheSelection()
    {
        Genome(5);
        ClickRowAt(3);
        kit.prompt.AnswerMessage(Prompt::No).AnswerMessage(Prompt::Yes);
        Click("DeleteGeneCommand");
        QCOMPARE(s()->GeneCount, qint16(5));
        Click("DeleteGeneCommand");
        QCOMPARE(kit.prompt.Last().text + ' ' + QString::number(kit.prompt.Last().style),
                 QStringLiteral("Permanently delete gene 'Gene 2'? 35"));
        QCOMPARE(Column(6) + ' ' + Selected() + Selected(6), QStringLiteral("Header,Gene 1,Gene 3,Gene 4 002Gene 3"));

        tab->DeleteQuietlyCheck->setChecked(true); // quietly, the last gene: the new last row
        ClickRowAt(4);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("000,001,002 002"));

        // The species gene stays, even quietly; sorted by another column, the row at its
        // number's position is selected.
        ClickHeader(6);
        ClickRowAt(3);
        kit.prompt.AnswerMessage(Prompt::Ok);
        Click("DeleteGeneCommand");
        QCOMPARE(Column(0) + ' ' + Selected(), QStringLiteral("001,002,000 001"));
    }

    // The pop-up menu comes with the release of a right click; its default entry opens the
    // gene's editor. Rename and Change ID rewrite the row.
    void popUpRenameAndChangeId()
    {
        Genome(3);
        ClickRowAt(2, Qt::RightButton);
        QMenu *menu = tab->mnuGenePopUp;
        QVERIFY(menu->isVisible());
        QCOMPARE(menu->defaultAction()->objectName() + ' ' + menu->defaultAction()->text(), QStringLiteral("mnuGeneEdit &Edit"));
        menu->defaultAction()->trigger();
        menu->close();
        QVERIFY(s()->GeneAt(1)->IsOpen);

        kit.prompt.AnswerInput(QStringLiteral("Better name"));
        Click("RenameGeneCommand");
        QCOMPARE(kit.prompt.Last().text, QStringLiteral("Rename Gene 'Gene 1' [Gene 1]"));
        QCOMPARE(Selected(6), QStringLiteral("Better name"));
        kit.prompt.AnswerInput(QStringLiteral("40"));
        Click("ChangeIDCommand"); // a new key: the caption belongs to the old one
        QCOMPARE(Selected(2) + Selected(6), QStringLiteral("040<no caption>"));
    }

    void slowAndFastMoves()
    {
        Genome(8); // IDs 1 (species), 2 .. 8
        s()->SummaryStale = s()->OrganViewStale = false;
        ClickRowAt(4);
        kit.prompt.AnswerMessage(Prompt::Ok);
        Click("DownFastCommand"); // four places, then one refusal
        QCOMPARE(kit.prompt.MessageTexts(), QStringList{"Can't move this gene down further"});
        QCOMPARE(Column(2) + ' ' + Selected(), QStringLiteral("001,002,003,005,006,007,008,004 007"));
        QVERIFY(s()->OrganViewStale && !s()->SummaryStale);

        kit.prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        ClickRowAt(2);
        Click("UpCommand");
        ClickRowAt(1);
        Click("DownCommand");
        QCOMPARE(kit.prompt.MessageTexts().mid(1), QStringList({"Cannot move this gene further up", "Cannot move gene 0 ANYWHERE"}));
        ClickRowAt(3);
        Click("DownCommand");
        // The number column shows each gene's renumbered place.
        QCOMPARE(Column(2) + ' ' + Selected() + ' ' + Column(0),
                 QStringLiteral("001,002,005,003,006,007,008,004 003 000,001,002,003,004,005,006,007"));
    }

    // Create opens the new gene's editor and leaves the dialog in front of it, ready for the
    // next; at 899 genes it refuses, whichever button, and stays open; a genome that goes takes
    // it along.
    void newGeneDialog()
    {
        Genome(898);
        Click("NewGeneCommand");
        auto *dialog = form->findChild<NewGeneForm *>(QStringLiteral("NewGeneForm"));
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal());
        kit.prompt.AnswerInput(QStringLiteral("lobe"));
        dialog->btnCreateGene->click();
        QVERIFY(s()->GeneCount == 899 && s()->GeneAt(898)->IsOpen);
        QTRY_COMPARE(QApplication::activeWindow(), dialog);

        kit.prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        dialog->btnCreateGene->click();
        dialog->btnCreateAndClose->click();
        QCOMPARE(kit.prompt.MessageTexts(), QStringList(2, QStringLiteral("Reached the limit of 900 genes.")));
        QVERIFY(list->topLevelItemCount() == 899 && dialog->isVisible());
        kit.prompt.AnswerMessage(Prompt::Yes);
        s()->AbandonGenome();
        QVERIFY(!dialog->isVisible());
    }
};

QTEST_MAIN(TestGeneList)
#include "test_genelist.moc"
