// The notes dialog: what each way out stores, and that formatting survives the box.
#include "core/Gene.h"
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "views/GeneNotesForm.h"
#include "vocab/RtfTestKit.h"

#include <QApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QTimer>
#include <functional>

using namespace Rtf;

namespace {
// Acts on the notes dialog once it stands open (modally, inside EditGeneNotes), with the box
// focused in the active window so that its shortcuts reach it.
void WhenNotesOpen(std::function<void(GeneNotesForm &)> act)
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
}
} // namespace

class TestNotes : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<Gene> gene;

private slots:
    void init()
    {
        prompt.Clear();
        session.reset(new Session(prompt));
        gene.reset(GeneKinds::Make(*session, 2, 1));
        gene->GeneType = 2;
        gene->GeneSubType = 1;
        gene->ID = 4;
    }

    void cleanup()
    {
        gene.reset();
        session.reset();
        QVERIFY(prompt.AllAnswered());
    }

    void dialogAsDesigned()
    {
        session->NotesAccepted = true;
        GeneNotesForm form(*session);
        QVERIFY(!session->NotesAccepted); // loading the dialog clears the last answer
        QCOMPARE(form.windowTitle(), QStringLiteral("Gene Notes"));
        QVERIFY(form.isModal());
        QCOMPARE(form.Frame1->title(), QStringLiteral("Detailed Gene Description"));
        QCOMPARE(form.GeneNotesClose->text() + form.GeneNotesCancel->text(), QStringLiteral("&CloseC&ancel"));
        const QRect screen = form.screen()->geometry(); // centred on the screen
        QCOMPARE(form.pos(), QPoint(screen.x() + (screen.width() - form.frameGeometry().width()) / 2,
                                    screen.y() + (screen.height() - form.frameGeometry().height()) / 2));

        // Formatting and plain text survive the box.
        const Runs runs = {R("a\u00e9\u03a9 ", true, true, true, 20), R("\n\n"), R("big", 0, 0, 0, 48), R("\tend\n", true)};
        form.SetTextRTF(Write(runs));
        QCOMPARE(form.NotesRichTextBox->toPlainText(), QStringLiteral("a\u00e9\u03a9 \n\nbig\tend\n"));
        QCOMPARE(Read(form.TextRTF()), runs);
        form.SetTextRTF(QStringLiteral("line 1\r\nline {2}"));
        QCOMPARE(Read(form.TextRTF()), Runs{R("line 1\nline {2}")});
    }

    void closeStoresWhatTheBoxHolds()
    {
        CaptionStore &cs = session->CaptionStore;
        // A gene without a record: Close, with nothing typed, stores "<no annotation>" as rich text.
        WhenNotesOpen([](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton); });
        EditGeneNotes(*session, *gene);
        QVERIFY(session->NotesAccepted);
        const QString stored = cs.GetAnnotation(2, 1, 4);
        QVERIFY(IsRtf(stored));
        QCOMPARE(Read(stored), Runs{R("<no annotation>")});
        QCOMPARE(cs.GetCaption(2, 1, 4), QString()); // the record is new: an empty caption
        QCOMPARE(session->NotesText, stored);

        // Formatted text plus text typed with the shortcuts (a second Ctrl+B ends bold).
        const Runs before = {R("Drives ", true), R("hunger", false, true, false, 28), R("\n\tsecond line")};
        cs.SetAnnotation(2, 1, 4, Write(before));
        WhenNotesOpen([](GeneNotesForm &form) {
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral("b"));
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_U, Qt::ControlModifier);
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" more"));
            QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton);
        });
        EditGeneNotes(*session, *gene);
        QCOMPARE(Read(cs.GetAnnotation(2, 1, 4)), before + Runs({R("b", true), R(" more", false, false, true)}));
    }

    void otherWaysOutStoreNothing()
    {
        CaptionStore &cs = session->CaptionStore;
        const QString original = Write({R("keep me", true)});
        cs.SetAnnotation(2, 1, 4, original);
        const QList<std::function<void(GeneNotesForm &)>> exits = {
            [](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton); },
            [](GeneNotesForm &form) { form.close(); }, // the window's close box
            [](GeneNotesForm &form) { QTest::keyClick(&form, Qt::Key_Escape); },
        };
        for (const auto &leave : exits) {
            session->NotesText.clear();
            WhenNotesOpen([leave](GeneNotesForm &form) {
                QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" typed"));
                leave(form);
            });
            EditGeneNotes(*session, *gene);
            QVERIFY(!session->NotesAccepted);
            QCOMPARE(cs.GetAnnotation(2, 1, 4), original);
            // The box's content was copied all the same.
            QCOMPARE(PlainText(Read(session->NotesText)), QStringLiteral("keep me typed"));
        }
        // Cancelling on a gene without a record makes none.
        gene->ID = 9;
        WhenNotesOpen([](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton); });
        EditGeneNotes(*session, *gene);
        QCOMPARE(cs.CaptionCount, qint16(1));
    }
};

QTEST_MAIN(TestNotes)
#include "test_notes.moc"
