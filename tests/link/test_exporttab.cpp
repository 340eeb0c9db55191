// The Export tab without a game: what start-up puts into its controls, and the
// Scriptorium's list commands, which find their slots by name.
#include "LinkTestKit.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

using namespace LinkTestKit;

class TestExportTab : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Bench> bench;

    ExportTab &tab() { return *bench->tab; }
    std::array<QString, 21> &names() { return bench->session->Lists.ScriptNames; }
    QString Rows()
    {
        QStringList rows;
        for (int i = 0; i < tab().ScriptListView->topLevelItemCount(); ++i)
            rows << tab().ScriptListView->topLevelItem(i)->text(0);
        return rows.join(QLatin1Char(',')) + QLatin1Char('|') + tab().ScriptStatusLabel->text();
    }
    void Use(int slot, const QString &name)
    {
        names()[size_t(slot)] = name;
        bench->session->Lists.ScriptMacros[size_t(slot)] = QStringLiteral("macro ") + name;
        tab().RefreshScriptList();
        tab().ShowScriptCount();
    }
    void Select(int row) { tab().ScriptListView->topLevelItem(row)->setSelected(true); }

private slots:
    void init()
    {
        prompt.Clear();
        bench.reset(new Bench(prompt));
    }
    void cleanup() { QVERIFY2(prompt.AllAnswered(), "an expected prompt was not shown"); }

    void startUpFillsTheControls()
    {
        QComboBox *egg = tab().EggColourCombo;
        QCOMPARE(egg->count(), 17); // up to the table's empty row
        QCOMPARE(egg->itemText(16), QStringLiteral("Light blue spotty (A1)"));
        QCOMPARE(tab().ScriptStatusLabel->text(), QStringLiteral("0 of 20 autoscripts used"));
        egg->setCurrentIndex(5);
        tab().SexCombo->setCurrentIndex(2);
        emit bench->session->ExportViewsMustFill();
        QCOMPARE(egg->count(), 17);
        QCOMPARE(egg->currentIndex(), 0);
        QCOMPARE(tab().SexCombo->currentIndex(), 0);

        // The moniker is open exactly while the box is clear.
        QVERIFY(tab().VirginBirthCheck->isChecked() && !tab().ParentMoniker->isEnabled());
        tab().VirginBirthCheck->click();
        QVERIFY(tab().ParentMoniker->isEnabled());
    }

    void addFillsTheLowestHoleAndRemoveLeavesOne()
    {
        Use(2, QStringLiteral("s2"));
        Use(0, QStringLiteral("s0"));
        Use(1, QStringLiteral("s1"));
        QCOMPARE(Rows(), QStringLiteral("s0,s1,s2|3 of 20 autoscripts used"));
        Select(1);
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(Rows(), QStringLiteral("s0,s2|2 of 20 autoscripts used"));
        QVERIFY(bench->session->ScriptsChanged);

        // Cancelling either question stores nothing.
        bench->session->ScriptsChanged = false;
        prompt.AnswerInput(QString()).AnswerInput(QStringLiteral("forgotten")).AnswerInput(QString());
        tab().AddAutoScriptCommand->click();
        tab().AddAutoScriptCommand->click();
        QCOMPARE(Rows(), QStringLiteral("s0,s2|2 of 20 autoscripts used"));
        QVERIFY(!bench->session->ScriptsChanged);

        prompt.AnswerInput(QStringLiteral("new")).AnswerInput(QStringLiteral("dde: getb cnam"));
        tab().AddAutoScriptCommand->click();
        QCOMPARE(names()[1], QStringLiteral("new"));
        QCOMPARE(Rows(), QStringLiteral("s0,new,s2|3 of 20 autoscripts used"));
        QVERIFY(bench->session->ScriptsChanged);
        QCOMPARE(prompt.Last().title + prompt.Last().text,
                 QStringLiteral("New auto-macroEnter a macro for this auto-macro [dde: getb cnam]"));

        for (int i = 0; i < 20; ++i)
            Use(i, QStringLiteral("s%1").arg(i));
        prompt.AnswerMessage(Prompt::Ok);
        tab().AddAutoScriptCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("No additional auto-script slots available"));
        QCOMPARE(prompt.Last().kind, QStringLiteral("message")); // refused before any question
    }

    void removeAndRunFindTheirSlotByName()
    {
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        tab().RemoveAutoScriptCommand->click();
        tab().UpdateScriptCommand->click();
        QCOMPARE(prompt.MessageTexts(), (QStringList{"Nothing selected", "Nothing selected"}));
        QCOMPARE(prompt.Last().style, 48);

        // The later of two rows of the same name acts on the earlier slot.
        Use(2, QStringLiteral("dup"));
        Use(5, QStringLiteral("dup"));
        Use(8, QStringLiteral("other"));
        Select(1);
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(names()[2], ExportTab::EmptySlot);
        QCOMPARE(names()[5], QStringLiteral("dup"));

        // A row whose name has left the list since the last refresh.
        Select(1);
        names()[8] = QStringLiteral("renamed");
        prompt.Clear();
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        tab().UpdateScriptCommand->click();
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(prompt.MessageTexts(), (QStringList{"Error locating item 'other' for update",
                                                     "Error locating item 'other' for removal"}));
    }

    void popUpOpensOnRightButtonRelease()
    {
        QMenu *menu = tab().mnuAutoScriptPopUp;
        QCOMPARE(menu->actions(), (QList<QAction *>{tab().mnuAutoScriptRun, tab().mnuAutoScriptDelete}));
        QCOMPARE(menu->defaultAction(), tab().mnuAutoScriptRun);
        Use(0, QStringLiteral("only"));
        bench->form->show();
        bench->form->SSTab1->setCurrentWidget(&tab());
        QWidget *viewport = tab().ScriptListView->viewport();
        const QPoint row = tab().ScriptListView->visualItemRect(tab().ScriptListView->topLevelItem(0)).center();
        QTest::mousePress(viewport, Qt::RightButton, {}, row);
        QVERIFY(!menu->isVisible());
        QTest::mouseRelease(viewport, Qt::RightButton, {}, row);
        QTRY_VERIFY(menu->isVisible());
        menu->close();
        Select(0);
        tab().mnuAutoScriptDelete->trigger();
        QCOMPARE(Rows(), QStringLiteral("|0 of 20 autoscripts used"));
    }
};

QTEST_MAIN(TestExportTab)
#include "test_exporttab.moc"
