// The notes dialog: what each way out stores, and that formatting survives the box.
#include "core/Gene.h"
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "views/GeneNotesForm.h"
#include "vocab/Rtf.h"

#include <QApplication>
#include <QGroupBox>
#include <QPushButton>
#include <QScreen>
#include <QTextEdit>
#include <QTimer>
#include <QtTest>
#include <functional>

using Rtf::Run;
using Rtf::Runs;

namespace {

Run R(const QString &text, bool bold = false, bool italic = false, bool underline = false, int halfPoints = 0)
{
    Run r;
    r.text = text;
    r.bold = bold;
    r.italic = italic;
    r.underline = underline;
    r.halfPoints = halfPoints;
    return r;
}

// Runs act on the notes dialog as soon as it stands open (modally, inside EditGeneNotes).
void WhenNotesOpen(std::function<void(GeneNotesForm &)> act)
{
    auto *timer = new QTimer;
    timer->setInterval(10);
    QObject::connect(timer, &QTimer::timeout, [timer, act]() {
        for (QWidget *w : QApplication::topLevelWidgets()) {
            auto *form = qobject_cast<GeneNotesForm *>(w);
            if (form && form->isVisible()) {
                timer->stop();
                timer->deleteLater();
                act(*form);
                return;
            }
        }
    });
    timer->start();
}

} // namespace

class TestNotes : public QObject
{
    Q_OBJECT

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
        QCOMPARE(form.objectName(), QStringLiteral("GeneNotesForm"));
        QCOMPARE(form.windowTitle(), QStringLiteral("Gene Notes"));
        QVERIFY(form.isModal());
        QCOMPARE(form.findChild<QGroupBox *>(QStringLiteral("Frame1"))->title(), QStringLiteral("Detailed Gene Description"));
        QVERIFY(form.findChild<QTextEdit *>(QStringLiteral("NotesRichTextBox")));
        QCOMPARE(form.findChild<QPushButton *>(QStringLiteral("GeneNotesClose"))->text(), QStringLiteral("&Close"));
        QCOMPARE(form.findChild<QPushButton *>(QStringLiteral("GeneNotesCancel"))->text(), QStringLiteral("C&ancel"));

        // Centred on the screen.
        const QRect screen = form.screen()->geometry();
        QCOMPARE(form.pos(), QPoint(screen.x() + (screen.width() - form.frameGeometry().width()) / 2,
                                    screen.y() + (screen.height() - form.frameGeometry().height()) / 2));
    }

    void closeStoresWhatTheBoxHolds()
    {
        CaptionStore &cs = session->CaptionStore;
        // A gene without a record: Close, with nothing typed, stores "<no annotation>" as rich text.
        WhenNotesOpen([](GeneNotesForm &form) {
            QCOMPARE(form.NotesRichTextBox->toPlainText(), QStringLiteral("<no annotation>"));
            QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton);
        });
        EditGeneNotes(*session, *gene);
        QVERIFY(session->NotesAccepted);
        const QString stored = cs.GetAnnotation(2, 1, 4);
        QVERIFY(Rtf::IsRtf(stored));
        QCOMPARE(Rtf::PlainText(Rtf::Read(stored)), QStringLiteral("<no annotation>"));
        QCOMPARE(cs.GetCaption(2, 1, 4), QString()); // the record is new: an empty caption
        QCOMPARE(session->NotesText, stored);

        // Typed text with formatting, stored by Close.
        const Runs before = {R(QStringLiteral("Drives "), true), R(QStringLiteral("hunger"), false, true, false, 28),
                             R(QStringLiteral("\n\tsecond line"))};
        cs.SetAnnotation(2, 1, 4, Rtf::Write(before));
        WhenNotesOpen([](GeneNotesForm &form) {
            form.NotesRichTextBox->moveCursor(QTextCursor::End);
            QTest::keyClick(form.NotesRichTextBox, Qt::Key_U, Qt::ControlModifier);
            QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" more"));
            QTest::mouseClick(form.GeneNotesClose, Qt::LeftButton);
        });
        EditGeneNotes(*session, *gene);
        Runs expected = before;
        expected.append(R(QStringLiteral(" more"), false, false, true));
        QCOMPARE(Rtf::Read(cs.GetAnnotation(2, 1, 4)), expected);
    }

    void otherWaysOutStoreNothing()
    {
        CaptionStore &cs = session->CaptionStore;
        const QString original = Rtf::Write({R(QStringLiteral("keep me"), true)});
        cs.SetAnnotation(2, 1, 4, original);

        const QList<std::function<void(GeneNotesForm &)>> exits = {
            [](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton); },
            [](GeneNotesForm &form) { form.close(); }, // the window's close box
            [](GeneNotesForm &form) { QTest::keyClick(&form, Qt::Key_Escape); },
        };
        for (const auto &leave : exits) {
            session->NotesText.clear();
            WhenNotesOpen([leave](GeneNotesForm &form) {
                form.NotesRichTextBox->moveCursor(QTextCursor::End);
                QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" typed"));
                leave(form);
            });
            EditGeneNotes(*session, *gene);
            QVERIFY(!session->NotesAccepted);
            QCOMPARE(cs.GetAnnotation(2, 1, 4), original);
            // The box's content was copied all the same.
            QCOMPARE(Rtf::PlainText(Rtf::Read(session->NotesText)), QStringLiteral("keep me typed"));
        }
        // Cancelling on a gene without a record makes none.
        gene->ID = 9;
        WhenNotesOpen([](GeneNotesForm &form) { QTest::mouseClick(form.GeneNotesCancel, Qt::LeftButton); });
        EditGeneNotes(*session, *gene);
        QCOMPARE(cs.CaptionCount, qint16(1));
    }

    void boxKeepsFormattingAndPlainText()
    {
        GeneNotesForm form(*session);
        const Runs runs = {R(QStringLiteral("a\u00e9\u03a9 "), true, true, true, 20), R(QStringLiteral("\n\n")),
                           R(QStringLiteral("big"), false, false, false, 48), R(QStringLiteral("\tend\n"), true)};
        form.SetTextRTF(Rtf::Write(runs));
        QCOMPARE(form.NotesRichTextBox->toPlainText(), QStringLiteral("a\u00e9\u03a9 \n\nbig\tend\n"));
        QCOMPARE(DocumentRuns(*form.NotesRichTextBox->document()), runs);
        QCOMPARE(Rtf::Read(form.TextRTF()), runs);

        form.SetTextRTF(QStringLiteral("line 1\r\nline {2}"));
        QCOMPARE(form.NotesRichTextBox->toPlainText(), QStringLiteral("line 1\nline {2}"));
        QCOMPARE(Rtf::Read(form.TextRTF()), Runs{R(QStringLiteral("line 1\nline {2}"))});

        // Ctrl+B types bold; a second Ctrl+B ends it.
        form.SetTextRTF(QString());
        form.show();
        QApplication::setActiveWindow(&form);
        form.NotesRichTextBox->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClicks(form.NotesRichTextBox, QStringLiteral("bold"));
        QTest::keyClick(form.NotesRichTextBox, Qt::Key_B, Qt::ControlModifier);
        QTest::keyClick(form.NotesRichTextBox, Qt::Key_I, Qt::ControlModifier);
        QTest::keyClicks(form.NotesRichTextBox, QStringLiteral(" it"));
        QCOMPARE(Rtf::Read(form.TextRTF()), (Runs{R(QStringLiteral("bold"), true), R(QStringLiteral(" it"), false, true)}));
        form.hide();
    }

private:
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<Gene> gene;
};

QTEST_MAIN(TestNotes)
#include "test_notes.moc"
