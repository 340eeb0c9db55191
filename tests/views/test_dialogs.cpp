// Two dialogs walked through from opening to closing: the gene notes (what each way out stores,
// and that formatting survives the box) and "Change Default Template".
#include "core/Gene.h"
#include "core/Session.h"
#include "editors/GeneNotesForm.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "views/frmChangeDefaultTemplate.h"
#include "vocab/RtfTestKit.h"

#include <QtWidgets>

using namespace Rtf;
using Act = std::function<void(GeneNotesForm &)>;

class TestDialogs : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    QTemporaryDir dir;
    std::unique_ptr<Session> session;
    std::unique_ptr<Gene> gene;
    QWidget owner;
    QPointer<frmChangeDefaultTemplate> dialog;

    // Opens the notes of the gene (modally) and acts on the dialog once it stands open, with
    // the box focused in the active window so that its shortcuts reach it.
    void EditNotes(const Act &act)
    {
        QTimer::singleShot(0, [act]() {
            auto *form = qobject_cast<GeneNotesForm *>(QApplication::activeModalWidget());
            QVERIFY(form);
            QApplication::setActiveWindow(form);
            form->NotesRichTextBox->setFocus();
            QVERIFY(QTest::qWaitForWindowActive(form));
            form->NotesRichTextBox->moveCursor(QTextCursor::End);
            act(*form);
        });
        EditGeneNotes(*session, *gene);
    }
    QTreeWidget *View() { return dialog->findChild<QTreeWidget *>(QStringLiteral("DefaultListView")); }
    QPushButton *Button(const char *name) { return dialog->findChild<QPushButton *>(name); }
    // Selects a row, presses Change and answers the input box.
    void Change(int row, const QString &answer)
    {
        View()->setCurrentItem(View()->topLevelItem(row));
        prompt.AnswerInput(answer);
        QTest::mouseClick(Button("DChangeCommand"), Qt::LeftButton);
    }

private slots:
    void init()
    {
        gene.reset();
        prompt.Clear();
        session.reset(new Session(prompt));
        session->AppDirectory = dir.path();
        gene = MakeGene(*session, GeneKind::Species);
        gene->ID = 4;
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    // Its texts.
    void dialogAsDesigned()
    {
        GeneNotesForm form(*session);
        QCOMPARE(form.windowTitle() + '|' + form.Frame1->title() + '|' + form.GeneNotesClose->text() + form.GeneNotesCancel->text(),
                 QStringLiteral("Gene Notes|Detailed Gene Description|&CloseC&ancel"));
    }

    void closeStoresWhatTheBoxHoldsAndCancelNothing()
    {
        CaptionStore &cs = session->CaptionStore;
        // A gene without a record: Close, with nothing typed, stores "<no annotation>" as rich
        // text, in a new record with an empty caption.
        EditNotes([](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton); });
        const QString stored = cs.GetAnnotation(2, 1, 4);
        QVERIFY(session->NotesAccepted && IsRtf(stored) && session->NotesText == stored);
        QCOMPARE(Read(stored), Runs{R("<no annotation>")});
        QCOMPARE(cs.GetCaption(2, 1, 4), QString());

        // Formatted text survives the box, and text typed with the shortcuts is added (a second
        // Ctrl+B ends bold).
        const Runs before = {R("Drives \u00e9\u03a9 ", true, true, true, 20), R("hunger", false, true, false, 48),
                             R("\n\n\tsecond line")};
        cs.SetAnnotation(2, 1, 4, Write(before));
        EditNotes([](GeneNotesForm &form) {
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral("b"));
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_U, Qt::ControlModifier);
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" more"));
            QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton);
        });
        const QString original = cs.GetAnnotation(2, 1, 4);
        QCOMPARE(Read(original), before + Runs({R("b", true), R(" more", false, false, true)}));

        // Cancel stores nothing and clears the last answer, though the box's content is copied.
        EditNotes([](GeneNotesForm &form) {
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" typed"));
            QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton);
        });
        QVERIFY(!session->NotesAccepted && cs.GetAnnotation(2, 1, 4) == original);
        QVERIFY(PlainText(Read(session->NotesText)).endsWith(QStringLiteral(" more typed")));
    }

    void openChangeSaveAndClose()
    {
        session->Tables.Build();
        dialog = frmChangeDefaultTemplate::Open(*session, &owner);
        QCOMPARE(dialog->windowTitle() + '|' + View()->headerItem()->text(1) + '|' + View()->topLevelItem(6)->text(0),
                 QStringLiteral("Change Default Template|Default Genes in Template|Poses"));
        // Modeless, Save off until a change, all fourteen categories; a second open shows the same
        // one again, though it was hidden.
        dialog->hide();
        QVERIFY(!dialog->isModal() && !Button("DSaveCommand")->isEnabled() && View()->topLevelItemCount() == 14
                && frmChangeDefaultTemplate::Open(*session, &owner) == dialog && dialog->isVisible());
        prompt.AnswerMessage(Prompt::Ok);
        QTest::mouseClick(Button("DChangeCommand"), Qt::LeftButton);
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("Nothing Selected48"));

        // Answer -> shown: kept to a byte, halves to even, a leading number; Cancel (empty) keeps the value.
        for (const auto &[answer, shown] : {std::pair{"1030", "6"}, {"2.5", "2"}, {"3.5 genes", "4"}, {"", "4"}}) {
            Change(6, QString::fromLatin1(answer));
            QCOMPARE(View()->topLevelItem(6)->text(1), QString::fromLatin1(shown));
        }
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Change Default Genes in Template", 0, "Change default for Poses from '104' [104]"));
        QVERIFY(session->Template.DefaultGeneCounts[6] == 4 && Button("DSaveCommand")->isEnabled());

        // Save writes the file and disables itself. A later change stays in the array after
        // the dialog closes (and deletes itself), but not in the file.
        QTest::mouseClick(Button("DSaveCommand"), Qt::LeftButton);
        const QByteArray saved = TestFiles::Read(dir.path() + QStringLiteral("/mutations.txt"));
        QVERIFY(!Button("DSaveCommand")->isEnabled() && saved.mid(6 * 4, 4) == QByteArray("\x04\x00\x00\x00", 4));
        Change(11, QStringLiteral("9"));
        QTest::mouseClick(Button("DCloseCommand"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull() && session->Template.DefaultGeneCounts[11] == 9 && prompt.AllAnswered());
        QCOMPARE(TestFiles::Read(dir.path() + QStringLiteral("/mutations.txt")), saved);
    }
};

QTEST_MAIN(TestDialogs)
#include "test_dialogs.moc"
