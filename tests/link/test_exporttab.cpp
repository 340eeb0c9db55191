// The Export tab without a game: what start-up puts into its controls, and the
// Scriptorium's list commands, which find their slots by name.
#include "LinkTestKit.h"

using namespace LinkTestKit;

class TestExportTab : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Bench> bench;

    ExportTab &tab() { return *bench->tab; }
    std::array<QString, 21> &names() { return bench->session->Lists.ScriptNames; }
    // The rows' names, then the count line.
    QString Rows()
    {
        QStringList rows;
        for (int i = 0; i < tab().ScriptListView->topLevelItemCount(); ++i)
            rows << tab().ScriptListView->topLevelItem(i)->text(0);
        return rows.join(QLatin1Char(',')) + QLatin1Char('|') + tab().ScriptStatusLabel->text();
    }

private slots:
    void init() { prompt.Clear(), bench.reset(new Bench(prompt)); }
    void cleanup() { QVERIFY2(prompt.AllAnswered(), "an expected prompt was not shown"); }

    void startUpFillsTheControls()
    {
        QComboBox *egg = tab().EggColourCombo;
        egg->setCurrentIndex(5);
        tab().SexCombo->setCurrentIndex(2);
        emit bench->session->ExportViewsMustFill(); // a refill starts both lists afresh
        QCOMPARE(egg->count(), 17); // up to the table's empty row
        QCOMPARE(egg->itemText(16), QStringLiteral("Light blue spotty (A1)"));
        QVERIFY(egg->currentIndex() == 0 && tab().SexCombo->currentIndex() == 0);
        // The moniker is open exactly while the box is clear.
        QVERIFY(tab().VirginBirthCheck->isChecked() && !tab().ParentMoniker->isEnabled());
        tab().VirginBirthCheck->click();
        QVERIFY(tab().ParentMoniker->isEnabled());
    }

    void listCommandsFindTheirSlotByName()
    {
        names()[5] = names()[2] = QStringLiteral("dup");
        names()[0] = QStringLiteral("s0");
        tab().RefreshScriptList();
        tab().ScriptListView->topLevelItem(2)->setSelected(true); // the later of two rows of the same name acts on the earlier slot
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(names()[2] + Rows(), ExportTab::EmptySlot + QStringLiteral("s0,dup|2 of 20 autoscripts used"));
        // Cancelling the second question stores nothing; an add fills the lowest hole.
        prompt.AnswerInput(QStringLiteral("forgotten")).AnswerInput(QString());
        prompt.AnswerInput(QStringLiteral("new")).AnswerInput(QStringLiteral("dde: getb cnam"));
        tab().AddAutoScriptCommand->click();
        tab().AddAutoScriptCommand->click();
        QCOMPARE(Rows(), QStringLiteral("s0,new,dup|3 of 20 autoscripts used"));
        // A row whose name has left the list since the last refresh.
        tab().ScriptListView->topLevelItem(2)->setSelected(true);
        names()[5] = QStringLiteral("renamed");
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        tab().UpdateScriptCommand->click();
        tab().RemoveAutoScriptCommand->click();
        QCOMPARE(prompt.MessageTexts(), (QStringList{"Error locating item 'dup' for update", "Error locating item 'dup' for removal"}));
        // With every slot taken it refuses before any question.
        std::fill_n(names().begin(), 20, QStringLiteral("taken"));
        prompt.AnswerMessage(Prompt::Ok);
        tab().AddAutoScriptCommand->click();
        QCOMPARE(prompt.Last().text, QStringLiteral("No additional auto-script slots available"));
    }
};

QTEST_MAIN(TestExportTab)
#include "test_exporttab.moc"
