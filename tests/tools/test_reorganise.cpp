// Chemical reorganisation: recording moves in the dialog, and carrying them out over the
// genes of every chemical kind, the half-life tables, the chemical list and open editors.
#include "ToolTestKit.h"
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "editors/EditorRegistry.h"
#include "tools/frmReorganise.h"

#include <QtTest>
#include <QtWidgets>

using SummaryTestKit::Add;

class TestReorganise : public QObject, ToolBench
{
    Q_OBJECT

    frmReorganise *dialog = nullptr;

    NameLists &Lists() { return session->Lists; }
    void Name(int i, const char *name, const char *caption = "")
    {
        Lists().ChemicalNames[size_t(i)] = QString::fromLatin1(name);
        Lists().ChemicalCaptions[size_t(i)] = QString::fromLatin1(caption);
    }
    QTreeWidgetItem *Row(int chemical) { return dialog->ReorganiseListView->topLevelItem(chemical - 1); }
    // Picks a chemical's row with the mouse (which puts its own number in the box), types the
    // new number and presses Change.
    void Move(int chemical, const QString &to)
    {
        QTreeWidget *v = dialog->ReorganiseListView;
        v->scrollToItem(Row(chemical));
        QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, v->visualItemRect(Row(chemical)).center());
        QCOMPARE(dialog->WasLabel->text() + '|' + dialog->ChangeTextBox->text(), QString::number(chemical) + '|' + QString::number(chemical));
        dialog->ChangeTextBox->setText(to);
        QTest::mouseClick(dialog->ChangeCommand, Qt::LeftButton);
    }
    void Reorganise(int answer)
    {
        prompt.AnswerMessage(answer);
        if (answer == Prompt::Yes)
            prompt.AnswerMessage(Prompt::Ok);
        QTest::mouseClick(dialog->ReorganiseCommand, Qt::LeftButton);
    }
    // One gene of every chemical kind (the stimulus refers to free chemical 5 too), with a
    // half-life table whose value of chemical i is i + 100 (mod 256).
    clsReceptor *receptor = nullptr; clsEmitter *emitter = nullptr; clsInject *inject = nullptr;
    clsReaction *reaction = nullptr; clsStimulus *stimulus = nullptr; clsHalfLives *halfLives = nullptr;
    void Genome()
    {
        (receptor = &Add<clsReceptor>(*session, 1, 0))->Chem = 10;
        (emitter = &Add<clsEmitter>(*session, 1, 1))->Chem = 20;
        (inject = &Add<clsInject>(*session, 1, 4))->Chem = 10;
        reaction = &Add<clsReaction>(*session, 1, 2);
        stimulus = &Add<clsStimulus>(*session, 2, 0);
        for (int k : {0, 1, 2, 3}) {
            reaction->SetChem(k, QList<int>{10, 20, 0, 30}[k]);
            stimulus->SetChem(k, QList<int>{20, 10, 5, 10}[k]);
        }
        halfLives = &Add<clsHalfLives>(*session, 1, 3);
        for (int i = 0; i < 256; ++i)
            halfLives->SetChem(i, (i + 100) & 255);
    }
    // The numbers of that genome in the order above: the four chemicals of the reaction and
    // of the stimulus, then the half-lives of chemicals 10, 20, 30, 5 and 0.
    QList<int> Refs()
    {
        QList<int> v{receptor->Chem, emitter->Chem, inject->Chem};
        v << reaction->GetChem(0) << reaction->GetChem(1) << reaction->GetChem(2) << reaction->GetChem(3);
        v << stimulus->GetChem(0) << stimulus->GetChem(1) << stimulus->GetChem(2) << stimulus->GetChem(3);
        for (int i : {10, 20, 30, 5, 0})
            v << halfLives->GetChem(i);
        return v;
    }

private slots:
    void init()
    {
        Start(true);
        Lists().SetChemicalDefaults();
        Name(10, "Glucose", "sugar");
        Name(20, "Starch", "store");
        Name(30, "Fat");
        form->findChild<QAction *>(QStringLiteral("gappaReorganise"))->trigger();
        dialog = form->findChild<frmReorganise *>();
    }

    void cleanup() { QVERIFY(Finish()); }

    void recordingAMove_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message"); // empty: accepted
        QTest::addColumn<QString>("changeTo");
        QTest::newRow("text has the value 0") << "Fred" << ShownText("Helixbench", 16, "Can't change to 0") << "-";
        QTest::newRow("above 255") << "256" << ShownText("Helixbench", 16, "Can't change to 256") << "-";
        QTest::newRow("a target taken") << "20" << ShownText("Helixbench", 64, "Chemical 30 (Fat) is already changed to use this") << "-";
        QTest::newRow("the last number") << "255" << QString() << "255";
    }

    // A row for each chemical but 0: its name, its number, the number it is to take. A pick
    // shows the chemical; a target is taken once, and a second move of a chemical gives its
    // first target up.
    void recordingAMove()
    {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(QString, changeTo);
        QCOMPARE(QString::number(dialog->ReorganiseListView->topLevelItemCount()) + '|' + Row(10)->text(0) + '|'
                     + Row(10)->text(1) + '|' + Row(10)->text(2),
                 QStringLiteral("255|Glucose|10|-"));
        Move(10, QStringLiteral("20"));
        QCOMPARE(dialog->ChemicalNameLabel->text() + '|' + dialog->ChemicalNumberLabel->text(), QStringLiteral("Glucose|(number 10)"));
        Move(10, QStringLiteral("25"));
        Move(30, QStringLiteral("20")); // 20 is taken from here on
        if (!message.isEmpty())
            prompt.AnswerMessage(Prompt::Ok);
        Move(40, typed);
        QCOMPARE(prompt.shown.isEmpty() ? QString() : ShownText(prompt.Last()), message);
        QCOMPARE(Row(10)->text(2) + '|' + Row(30)->text(2) + '|' + Row(40)->text(2), "25|20|" + changeTo);
    }

    void carryingOutMovesRenumbersEveryChemicalGeneKindAndTheList()
    {
        Genome();
        // The receptor's editor is open, its chemical changed to 20 and not yet taken in: the
        // edit is taken in before the renumbering and the editor then shows the result, so
        // closing it writes back the new number. (The gene list's refresh names the empty
        // slots, so it comes before the names below.)
        RegisterEditors(*session, form.get());
        emit session->ViewsRefreshRequested(); // the gene list holds the receptor's row
        receptor->OpenView();
        dynamic_cast<QWidget *>(receptor->View)->findChild<QComboBox *>("lstChem")->setCurrentIndex(20);
        Name(0, "<none>", "nothing");
        Name(5, "5HT", "counts as free");
        Name(6, "", "an empty name has the value 0: it stays");
        Name(7, "7", "a free slot's description");
        const QList<int> before = Refs();
        Move(10, QStringLiteral("20"));
        Move(20, QStringLiteral("10")); // allowed: only targets are compared
        Reorganise(Prompt::No); // any answer but Yes changes nothing
        QCOMPARE(Refs(), before);
        QVERIFY(!Lists().ChemicalsChanged && Lists().ChemicalNames[10] == QStringLiteral("Glucose"));

        Reorganise(Prompt::Yes);
        receptor->CloseView();
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Helixbench", 35,
                 "Are you absolutely sure you wish to do this?\r\n\r\nIf you click YES, the current genome will be reorganised\r\n"
                 "to match the new arrangement, and then the chemical list\r\nitself will be changed. This could cause serious problems!"));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Operation probably complete. Who knows."));
        // Free chemical 5 stays; the half-lives move with their chemicals, free
        // slots (5 too, whose name begins with a number) get 0, and slot 0 the value of the
        // last free chemical, 255. Free slots and slot 0 lose their descriptions.
        QCOMPARE(Refs(), QList<int>({10, 10, 20, 20, 10, 0, 30, 10, 20, 5, 20, 120, 110, 130, 0, 99}));
        QStringList names;
        for (int i : {0, 5, 6, 7, 10, 20, 30})
            names << Lists().ChemicalNames[size_t(i)] + '/' + Lists().ChemicalCaptions[size_t(i)];
        QCOMPARE(names.join(' '), QStringLiteral("<nothing>/ 5/ 6/an empty name has the value 0: it stays 7/ Starch/store Glucose/sugar Fat/"));
        QVERIFY(Lists().ChemicalsChanged);
        auto *view = form->findChild<QTreeWidget *>(QStringLiteral("ChemicalListView"));
        QCOMPARE(view->topLevelItem(10)->text(1) + '|' + view->topLevelItem(0)->text(1), QStringLiteral("Starch|<nothing>"));
    }
};

QTEST_MAIN(TestReorganise)
#include "test_reorganise.moc"
