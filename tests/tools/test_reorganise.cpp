// Chemical reorganisation: recording moves in the dialog, and carrying them out over the
// genes of every chemical kind, the half-life tables, the chemical list and open editors.
#include "core/ChemicalReorganiser.h"
#include "core/GeneView.h"
#include "core/SummaryTestKit.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "editors/EditorRegistry.h"
#include "support/ScriptedPrompt.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "tools/frmReorganise.h"
#include "views/HelixbenchForm.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

#include <algorithm>

using SummaryTestKit::Add;

namespace {
const QString Question = QStringLiteral(
    "Are you absolutely sure you wish to do this?\r\n\r\nIf you click YES, the current genome will be reorganised\r\n"
    "to match the new arrangement, and then the chemical list\r\nitself will be changed. This could cause serious problems!");
const QString Done = QStringLiteral("Operation probably complete. Who knows.");

} // namespace

class TestReorganise : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    frmReorganise *dialog = nullptr;

    NameLists &Lists() { return session->Lists; }
    void Name(int i, const char *name, const char *caption = "")
    {
        Lists().ChemicalNames[size_t(i)] = QString::fromLatin1(name);
        Lists().ChemicalCaptions[size_t(i)] = QString::fromLatin1(caption);
    }
    QTreeWidgetItem *Row(int chemical) { return dialog->ReorganiseListView->topLevelItem(chemical - 1); }
    // Picks a chemical's row with the mouse, types the new number and presses Change.
    void Move(int chemical, const QString &to)
    {
        QTreeWidget *v = dialog->ReorganiseListView;
        v->scrollToItem(Row(chemical));
        QTest::mouseClick(v->viewport(), Qt::LeftButton, {}, v->visualItemRect(Row(chemical)).center());
        QCOMPARE(dialog->WasLabel->text(), QString::number(chemical));
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
    void OpenDialog()
    {
        form->findChild<QAction *>(QStringLiteral("gappaReorganise"))->trigger();
        dialog = form->findChild<frmReorganise *>();
        QVERIFY(dialog);
        QVERIFY(QTest::qWaitForWindowExposed(dialog));
    }
    // A half-life table whose value of chemical i is i + offset (mod 256).
    clsHalfLives &HalfLives(int offset)
    {
        auto &h = Add<clsHalfLives>(*session, 1, 3);
        for (int i = 0; i < 256; ++i)
            h.SetChem(i, (i + offset) & 255);
        return h;
    }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        form.reset(new HelixbenchForm(*session));
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        Lists().SetChemicalDefaults();
        emit session->ListViewsMustFill();
        Name(10, "Glucose", "sugar");
        Name(20, "Starch", "store");
        Name(30, "Fat");
        OpenDialog();
    }

    void cleanup()
    {
        session->CloseAllViews();
        form.reset();
        session.reset();
        dialog = nullptr;
        QVERIFY(prompt.AllAnswered());
    }

    void dialogOpensWithoutBlockingAndListsChemicalsOneToTwoFiftyFive()
    {
        QVERIFY(!dialog->isModal());
        QCOMPARE(QApplication::activeModalWidget(), nullptr);
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Reorganise Chemical Order"));
        QCOMPARE(dialog->ReorganiseListView->topLevelItemCount(), 255);
        QCOMPARE(Row(10)->text(0) + '|' + Row(10)->text(1) + '|' + Row(10)->text(2), QStringLiteral("Glucose|10|-"));
        QCOMPARE(Row(255)->text(1), QStringLiteral("255"));
        QCOMPARE(dialog->ChemicalNameLabel->text() + dialog->ChemicalNumberLabel->text() + dialog->WasLabel->text()
                     + dialog->ChangeTextBox->text(),
                 QStringLiteral("-0(none)(none)"));
        QVERIFY(!dialog->ChangeCommand->isEnabled());

        // The menu a second time brings the same dialog forward.
        form->findChild<QAction *>(QStringLiteral("gappaReorganise"))->trigger();
        QCOMPARE(form->findChildren<frmReorganise *>().size(), 1);
    }

    void pickingARowShowsTheChemicalAndEnablesChange()
    {
        Move(20, QStringLiteral("21"));
        QCOMPARE(dialog->ChemicalNameLabel->text() + '|' + dialog->ChemicalNumberLabel->text(),
                 QStringLiteral("Starch|(number 20)"));
        QVERIFY(dialog->ChangeCommand->isEnabled());
        QCOMPARE(Row(20)->text(2), QStringLiteral("21"));
        QVERIFY(dialog->Moves().MoveMarked[20]);
        QCOMPARE(dialog->Moves().NewNumber[20], qint16(21));
        // Picking again puts the chemical's own number into the box.
        Move(20, QStringLiteral("20"));
        QCOMPARE(Row(20)->text(2), QStringLiteral("20"));
        // The arrow keys pick the row they move to, and Enter in the box records the move.
        QTest::keyClick(dialog->ReorganiseListView, Qt::Key_Down);
        QCOMPARE(dialog->WasLabel->text() + '|' + dialog->ChangeTextBox->text(), QStringLiteral("21|21"));
        dialog->ChangeTextBox->setText(QStringLiteral("40"));
        QTest::keyClick(dialog->ChangeTextBox, Qt::Key_Return);
        QCOMPARE(Row(21)->text(2), QStringLiteral("40"));
    }

    void recordingRefusesWithTheseMessages_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("message"); // empty: accepted
        QTest::addColumn<QString>("changeTo");
        QTest::newRow("text has the value 0") << "Fred" << ShownText("Helixbench", 16, "Can't change to 0") << "-";
        QTest::newRow("above 255") << "256" << ShownText("Helixbench", 16, "Can't change to 256") << "-";
        QTest::newRow("negative") << "-3" << ShownText("Helixbench", 16, "Can't change to -3") << "-";
        QTest::newRow("rounded, ties to even") << "2.5" << QString() << "2";
        QTest::newRow("a target taken") << "20" << ShownText("Helixbench", 64, "Chemical 30 (Fat) is already changed to use this") << "-";
        QTest::newRow("the first target") << "255" << QString() << "255";
    }

    void recordingRefusesWithTheseMessages()
    {
        QFETCH(QString, typed);
        QFETCH(QString, message);
        QFETCH(QString, changeTo);
        Move(30, QStringLiteral("20")); // 20 is taken from here on
        if (!message.isEmpty())
            prompt.AnswerMessage(Prompt::Ok);
        Move(40, typed);
        QCOMPARE(prompt.shown.isEmpty() ? QString() : ShownText(prompt.Last()), message);
        QCOMPARE(Row(40)->text(2), changeTo);
        QCOMPARE(dialog->Moves().MoveMarked[40], message.isEmpty());
    }

    void aTargetIsTakenOnceButAChemicalCanBeChangedAgain()
    {
        Move(10, QStringLiteral("20"));
        prompt.AnswerMessage(Prompt::Ok);
        Move(10, QStringLiteral("20")); // the same number again is refused too
        QCOMPARE(prompt.Last().text, QStringLiteral("Chemical 10 (Glucose) is already changed to use this"));
        Move(10, QStringLiteral("25")); // 20 is free again
        Move(30, QStringLiteral("20"));
        QCOMPARE(Row(10)->text(2) + Row(30)->text(2), QStringLiteral("2520"));
        QCOMPARE(prompt.shown.size(), 1);
    }

    void aChemicalOutsideOneToTwoFiftyFiveIsInvalid_data()
    {
        QTest::addColumn<QString>("was");
        QTest::newRow("no row picked") << "(none)";
        QTest::newRow("chemical 0") << "0";
        QTest::newRow("256") << "256";
    }

    void aChemicalOutsideOneToTwoFiftyFiveIsInvalid()
    {
        QFETCH(QString, was);
        ChemicalReorganiser moves(*session);
        prompt.AnswerMessage(Prompt::Ok);
        QCOMPARE(moves.RecordMove(was, QStringLiteral("5")), 0);
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 16, "Invalid chemical"));
        QCOMPARE(std::count(moves.MoveMarked.begin(), moves.MoveMarked.end(), true), 0);
    }

    void swappingTwoChemicalsRenumbersEveryChemicalGeneKind()
    {
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 10;
        auto &emitter = Add<clsEmitter>(*session, 1, 1);
        emitter.Chem = 20;
        auto &inject = Add<clsInject>(*session, 1, 4);
        inject.Chem = 10;
        auto &reaction = Add<clsReaction>(*session, 1, 2);
        for (int k : {0, 1, 2, 3})
            reaction.SetChem(k, QList<int>{10, 20, 0, 30}[k]);
        auto &stimulus = Add<clsStimulus>(*session, 2, 0);
        for (int k : {0, 1, 2, 3})
            stimulus.SetChem(k, QList<int>{20, 10, 5, 10}[k]);
        auto &free = Add<clsReceptor>(*session, 1, 0);
        free.Chem = 5; // a free slot's reference stays as it is
        auto &pose = Add<clsPose>(*session, 2, 3);
        pose.pose = 10; // not a chemical
        auto &first = HalfLives(0);
        auto &second = HalfLives(100);

        Move(10, QStringLiteral("20"));
        Move(20, QStringLiteral("10")); // allowed: only targets are compared
        QCOMPARE(Row(10)->text(2) + '|' + Row(20)->text(2), QStringLiteral("20|10"));
        prompt.shown.clear();
        Reorganise(Prompt::Yes);

        QCOMPARE(ShownText(prompt.shown[0]), ShownText("Helixbench", 35, Question));
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Helixbench", 64, Done));
        QCOMPARE(QList<int>({receptor.Chem, emitter.Chem, inject.Chem, free.Chem, pose.pose}), QList<int>({20, 10, 20, 5, 10}));
        QCOMPARE(QList<int>({reaction.GetChem(0), reaction.GetChem(1), reaction.GetChem(2), reaction.GetChem(3)}),
                 QList<int>({20, 10, 0, 30}));
        QCOMPARE(QList<int>({stimulus.GetChem(0), stimulus.GetChem(1), stimulus.GetChem(2), stimulus.GetChem(3)}),
                 QList<int>({10, 20, 5, 20}));
        // Half-lives move with their chemicals; each table keeps its own values. Free slots
        // get 0, and slot 0 the value of the last free chemical, 255.
        for (auto *h : {&first, &second}) {
            const int o = h == &first ? 0 : 100;
            QCOMPARE(QList<int>({h->GetChem(10), h->GetChem(20), h->GetChem(30), h->GetChem(5), h->GetChem(0)}),
                     QList<int>({20 + o, 10 + o, 30 + o, 0, (255 + o) & 255}));
        }
        // The names and descriptions move too; the dialog and its map stay as they were.
        QCOMPARE(Lists().ChemicalNames[10] + '|' + Lists().ChemicalCaptions[10] + '|' + Lists().ChemicalNames[20] + '|'
                     + Lists().ChemicalCaptions[20] + '|' + Lists().ChemicalNames[30],
                 QStringLiteral("Starch|store|Glucose|sugar|Fat"));
        QVERIFY(Lists().ChemicalsChanged);
        QVERIFY(dialog->isVisible());
        QCOMPARE(Row(10)->text(0) + Row(10)->text(2), QStringLiteral("Glucose20"));
        auto *view = form->findChild<QTreeWidget *>(QStringLiteral("ChemicalListView"));
        QCOMPARE(view->topLevelItem(10)->text(1) + '|' + view->topLevelItem(20)->text(1) + '|' + view->topLevelItem(0)->text(1),
                 QStringLiteral("Starch|Glucose|<nothing>"));

        // A second press applies the same map again: everything is back.
        Reorganise(Prompt::Yes);
        QCOMPARE(QList<int>({receptor.Chem, emitter.Chem, inject.Chem, reaction.GetChem(1), stimulus.GetChem(0)}),
                 QList<int>({10, 20, 10, 20, 20}));
        QCOMPARE(first.GetChem(10) * 1000 + first.GetChem(20), 10020);
        QCOMPARE(Lists().ChemicalNames[10], QStringLiteral("Glucose"));
    }

    void withNoMoveNamedChemicalsStayAndFreeSlotsAreTidied()
    {
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 7;
        auto &h = HalfLives(1);
        Name(5, "5HT", "counts as free");
        Name(6, "", "an empty name has the value 0: it stays");
        Name(7, "7", "a free slot's description");
        Name(0, "<none>", "nothing");
        Lists().ChemicalNames[256] = QStringLiteral("last");
        Reorganise(Prompt::Yes);

        QCOMPARE(int(receptor.Chem), 7);
        QCOMPARE(Lists().ChemicalNames[10] + Lists().ChemicalCaptions[10], QStringLiteral("Glucosesugar"));
        for (int i : {5, 7})
            QCOMPARE(Lists().ChemicalNames[size_t(i)] + '|' + Lists().ChemicalCaptions[size_t(i)], QString::number(i) + '|');
        QCOMPARE(Lists().ChemicalNames[6] + '|' + Lists().ChemicalCaptions[6], QStringLiteral("6|an empty name has the value 0: it stays"));
        QCOMPARE(Lists().ChemicalNames[0] + '|' + Lists().ChemicalCaptions[0], QStringLiteral("<nothing>|"));
        QCOMPARE(Lists().ChemicalNames[256], QStringLiteral("last"));
        QCOMPARE(QList<int>({h.GetChem(5), h.GetChem(7), h.GetChem(10), h.GetChem(30), h.GetChem(0)}),
                 QList<int>({0, 0, 11, 31, 0})); // slot 0: the value of free chemical 255, 256 & 255
    }

    void aMoveOntoAStayingChemicalLosesTheSlotToTheLaterOne()
    {
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 10;
        Move(10, QStringLiteral("30")); // 30 keeps its place and, later in order, its name
        Reorganise(Prompt::Yes);
        QCOMPARE(int(receptor.Chem), 30);
        QCOMPARE(Lists().ChemicalNames[30] + '|' + Lists().ChemicalNames[10], QStringLiteral("Fat|10"));
    }

    void anyAnswerButYesChangesNothing_data()
    {
        QTest::addColumn<int>("answer");
        QTest::newRow("No") << int(Prompt::No);
        QTest::newRow("Cancel") << int(Prompt::Cancel);
    }

    void anyAnswerButYesChangesNothing()
    {
        QFETCH(int, answer);
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 10;
        auto &h = HalfLives(0);
        Move(10, QStringLiteral("20"));
        const auto names = Lists().ChemicalNames;
        const auto captions = Lists().ChemicalCaptions;
        Reorganise(answer);
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(int(receptor.Chem) * 1000 + h.GetChem(7), 10007);
        QVERIFY(Lists().ChemicalNames == names && Lists().ChemicalCaptions == captions);
        QVERIFY(!Lists().ChemicalsChanged);
        QVERIFY(dialog->Moves().MoveMarked[10]);
    }

    void anOpenEditorKeepsItsEditAndShowsTheNewNumber()
    {
        RegisterEditors(*session, form.get());
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 20;
        auto &other = Add<clsReceptor>(*session, 1, 0);
        other.Chem = 10;
        emit session->ViewsRefreshRequested(); // the gene list holds their rows
        receptor.OpenView();
        auto *chem = receptor.View ? dynamic_cast<QWidget *>(receptor.View)->findChild<QComboBox *>("lstChem") : nullptr;
        QVERIFY(chem);
        chem->setCurrentIndex(10); // the user picked chemical 10 and hasn't closed the editor yet

        Move(10, QStringLiteral("20"));
        Move(20, QStringLiteral("10"));
        Reorganise(Prompt::Yes);
        // The edit was taken in before the renumbering and the editor shows the result, so
        // closing it later writes back no old number.
        QCOMPARE(QList<int>({int(receptor.Chem), chem->currentIndex(), int(other.Chem)}), QList<int>({20, 20, 20}));
        receptor.CloseView();
        QCOMPARE(int(receptor.Chem), 20);
    }

    void closingTheDialogDropsTheMoves()
    {
        auto &receptor = Add<clsReceptor>(*session, 1, 0);
        receptor.Chem = 10;
        Move(10, QStringLiteral("20"));
        QTest::mouseClick(dialog->CloseReorganiseCommand, Qt::LeftButton);
        QTRY_VERIFY(!form->findChild<frmReorganise *>());
        OpenDialog();
        QCOMPARE(Row(10)->text(2), QStringLiteral("-"));
        Reorganise(Prompt::Yes);
        QCOMPARE(int(receptor.Chem), 10);
    }

    void anEmptyGenomeStillMovesTheList()
    {
        QCOMPARE(int(session->GeneCount), 0);
        Move(10, QStringLiteral("11"));
        Reorganise(Prompt::Yes);
        QCOMPARE(Lists().ChemicalNames[11] + '|' + Lists().ChemicalNames[10], QStringLiteral("Glucose|10"));
    }

    void aFullGenomeOfNineHundredGenesIsRenumbered()
    {
        for (int i = 0; i < 900; ++i) {
            switch (i % 4) {
            case 0: Add<clsReceptor>(*session, 1, 0).Chem = 10; break;
            case 1: Add<clsReaction>(*session, 1, 2).SetChem(3, 20); break;
            case 2: HalfLives(i); break;
            default: Add<clsPose>(*session, 2, 3); break;
            }
        }
        Move(10, QStringLiteral("20"));
        Move(20, QStringLiteral("10"));
        QElapsedTimer timer;
        timer.start();
        Reorganise(Prompt::Yes);
        qInfo("reorganising 900 genes took %lld ms", timer.elapsed());
        int moved = 0;
        for (int i = 0; i < 900; i += 4)
            moved += static_cast<clsReceptor *>(session->GeneAt(i))->Chem == 20;
        for (int i = 1; i < 900; i += 4)
            moved += static_cast<clsReaction *>(session->GeneAt(i))->GetChem(3) == 10;
        QCOMPARE(moved, 450);
        QCOMPARE(static_cast<clsHalfLives *>(session->GeneAt(898))->GetChem(10), (20 + 898) & 255);
    }
};

QTEST_MAIN(TestReorganise)
#include "test_reorganise.moc"
