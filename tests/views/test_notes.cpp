// The notes dialog: what each way out stores, and that formatting survives the box.
#include "core/Gene.h"
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "editors/GeneNotesForm.h"
#include "vocab/RtfTestKit.h"

#include <QtWidgets>

using namespace Rtf;
using Act = std::function<void(GeneNotesForm &)>;

class TestNotes : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<Gene> gene;

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

private slots:
    void init()
    {
        gene.reset();
        session.reset(new Session(prompt));
        gene = MakeGene(*session, GeneKind::Species);
        gene->ID = 4;
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    // Its texts, and it stands in the middle of the screen.
    void dialogAsDesigned()
    {
        GeneNotesForm form(*session);
        QCOMPARE(form.windowTitle() + '|' + form.Frame1->title() + '|' + form.GeneNotesClose->text() + form.GeneNotesCancel->text(),
                 QStringLiteral("Gene Notes|Detailed Gene Description|&CloseC&ancel"));
        const QRect screen = form.screen()->availableGeometry(), at = form.frameGeometry();
        QVERIFY2((at.center() - screen.center()).manhattanLength() <= 2, qPrintable(QDebug::toString(at)));
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
        // Cancelling on a gene without a record makes none.
        gene->ID = 9;
        EditNotes([](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton); });
        QCOMPARE(cs.CaptionCount, qint16(1));
    }
};

QTEST_MAIN(TestNotes)
#include "test_notes.moc"
