// The "Change Default Template" dialog.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
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

    template <typename T> T *Find(const char *name) { return dialog->findChild<T *>(QString::fromLatin1(name)); }
    QPushButton *Button(const char *name) { return Find<QPushButton>(name); }
    QTreeWidgetItem *Row(int row) { return Find<QTreeWidget>("DefaultListView")->topLevelItem(row); }
    // Selects a row, presses Change and answers the input box.
    void Change(int row, const QString &answer)
    {
        Find<QTreeWidget>("DefaultListView")->setCurrentItem(Row(row));
        prompt.AnswerInput(answer);
        QTest::mouseClick(Button("DChangeCommand"), Qt::LeftButton);
    }

private slots:
    void initTestCase()
    {
        session.AppDirectory = dir.path();
        session.Tables.Build();
        dialog = frmChangeDefaultTemplate::Open(session, &owner);
    }

    void cleanup() { QVERIFY(prompt.AllAnswered()); }

    void opensWithTheFourteenCategories()
    {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Change Default Template"));
        QVERIFY(!dialog->isModal());
        auto *view = Find<QTreeWidget>("DefaultListView");
        QCOMPARE(view->topLevelItemCount(), 14);
        QCOMPARE(view->headerItem()->text(1), QStringLiteral("Default Genes in Template"));
        QCOMPARE(Row(6)->text(0) + Row(6)->text(1), QStringLiteral("Poses104"));
        QVERIFY(Button("DChangeCommand")->isEnabled());
        QVERIFY(!Button("DSaveCommand")->isEnabled());
        QCOMPARE(frmChangeDefaultTemplate::Open(session, &owner), dialog); // a second open shows the same one
    }

    void changeAsksAndFoldsTheAnswer()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QTest::mouseClick(Button("DChangeCommand"), Qt::LeftButton);
        QCOMPARE(prompt.Last().text + QString::number(prompt.Last().style), QStringLiteral("Nothing Selected48"));

        Change(6, QStringLiteral("1030"));
        QCOMPARE(prompt.Last().title, QStringLiteral("Change Default Genes in Template"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Change default for Poses from '104' [104]"));
        QCOMPARE(session.Template.DefaultGeneCounts[6], 6);
        QVERIFY(Button("DSaveCommand")->isEnabled());
        // Answer -> shown: halves to even, a leading number, and Cancel (empty) keeps the value.
        const QList<QPair<QString, QString>> answers = {{"2.5", "2"}, {"3.5 genes", "4"}, {"", "4"}};
        for (const auto &a : answers) {
            Change(3, a.first);
            QCOMPARE(Row(3)->text(1), a.second);
        }
    }

    void saveWritesAndDisablesItselfAndCloseAsksNothing()
    {
        Change(10, QStringLiteral("7"));
        QTest::mouseClick(Button("DSaveCommand"), Qt::LeftButton);
        QVERIFY(!Button("DSaveCommand")->isEnabled());
        const QString file = dir.path() + QStringLiteral("/mutations.txt");
        QCOMPARE(TestFiles::Read(file).size(), 164);
        QCOMPARE(TestFiles::Read(file).mid(40, 4), QByteArray("\x07\x00\x00\x00", 4));

        // An unsaved change stays in the array after the dialog closes, but not in the file.
        Change(11, QStringLiteral("9"));
        QTest::mouseClick(Button("DCloseCommand"), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull()); // it deletes itself once closed
        QCOMPARE(session.Template.DefaultGeneCounts[11], 9);
        QCOMPARE(TestFiles::Read(file).mid(44, 4), QByteArray("\x08\x00\x00\x00", 4));
    }
};

QTEST_MAIN(TestTemplateDialog)
#include "test_template_dialog.moc"
