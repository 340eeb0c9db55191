// The "Change Default Template" dialog, walked through from opening to closing.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "views/frmChangeDefaultTemplate.h"

#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>
#include <QtTest>

class TestTemplateDialog : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    QTemporaryDir dir;
    Session session{prompt};
    QWidget owner;
    QPointer<frmChangeDefaultTemplate> dialog;

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
    void openChangeSaveAndClose()
    {
        session.AppDirectory = dir.path();
        session.Tables.Build();
        dialog = frmChangeDefaultTemplate::Open(session, &owner);
        QCOMPARE(dialog->windowTitle() + '|' + View()->headerItem()->text(1) + '|' + View()->topLevelItem(6)->text(0),
                 QStringLiteral("Change Default Template|Default Genes in Template|Poses"));
        // Modeless, Save off until a change, all fourteen categories; a second open shows the same
        // one again, though it was hidden.
        dialog->hide();
        QVERIFY(!dialog->isModal() && !Button("DSaveCommand")->isEnabled() && View()->topLevelItemCount() == 14
                && frmChangeDefaultTemplate::Open(session, &owner) == dialog && dialog->isVisible());
        prompt.AnswerMessage(Prompt::Ok);
        QTest::mouseClick(Button("DChangeCommand"), Qt::LeftButton);
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("Nothing Selected48"));

        // Answer -> shown: kept to a byte, halves to even, a leading number; Cancel (empty) keeps the value.
        for (const auto &[answer, shown] : {std::pair{"1030", "6"}, {"2.5", "2"}, {"3.5 genes", "4"}, {"", "4"}}) {
            Change(6, QString::fromLatin1(answer));
            QCOMPARE(View()->topLevelItem(6)->text(1), QString::fromLatin1(shown));
        }
        QCOMPARE(ShownText(prompt.shown[1]), ShownText("Change Default Genes in Template", 0, "Change default for Poses from '104' [104]"));
        QVERIFY(session.Template.DefaultGeneCounts[6] == 4 && Button("DSaveCommand")->isEnabled());

        // Save writes the file and disables itself. A later change stays in the array after
        // the dialog closes (and deletes itself), but not in the file.
        QTest::mouseClick(Button("DSaveCommand"), Qt::LeftButton);
        const QByteArray saved = TestFiles::Read(dir.path() + QStringLiteral("/mutations.txt"));
        QVERIFY(!Button("DSaveCommand")->isEnabled() && saved.mid(6 * 4, 4) == QByteArray("\x04\x00\x00\x00", 4));
        Change(11, QStringLiteral("9"));
        QTest::mouseClick(Button("DCloseCommand"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull() && session.Template.DefaultGeneCounts[11] == 9 && prompt.AllAnswered());
        QCOMPARE(TestFiles::Read(dir.path() + QStringLiteral("/mutations.txt")), saved);
    }
};

QTEST_MAIN(TestTemplateDialog)
#include "test_template_dialog.moc"
