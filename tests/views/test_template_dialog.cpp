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
    std::unique_ptr<QTemporaryDir> dir;
    std::unique_ptr<Session> session;
    std::unique_ptr<QWidget> owner;
    QPointer<frmChangeDefaultTemplate> dialog;

    template <typename T> T *Find(const char *name) { return dialog->findChild<T *>(QString::fromLatin1(name)); }
    void Click(const char *name) { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }
    QString Shown(int row) { return Find<QTreeWidget>("DefaultListView")->topLevelItem(row)->text(1); }
    // Selects a row, presses Change and answers the input box.
    void Change(int row, const QString &answer)
    {
        auto *view = Find<QTreeWidget>("DefaultListView");
        view->setCurrentItem(view->topLevelItem(row));
        prompt.AnswerInput(answer);
        Click("DChangeCommand");
    }

private slots:
    void init()
    {
        prompt.Clear();
        dir.reset(new QTemporaryDir);
        session.reset(new Session(prompt));
        session->AppDirectory = dir->path();
        session->Tables.Build();
        owner.reset(new QWidget);
        dialog = frmChangeDefaultTemplate::Open(*session, owner.get());
    }

    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a prompt that was expected never came");
        owner.reset();
        session.reset();
    }

    void opensWithTheFourteenCategories()
    {
        QCOMPARE(dialog->windowTitle(), QStringLiteral("Change Default Template"));
        QVERIFY(!dialog->isModal());
        auto *view = Find<QTreeWidget>("DefaultListView");
        QCOMPARE(view->topLevelItemCount(), 14);
        QCOMPARE(view->headerItem()->text(0), QStringLiteral("Gene Type"));
        QCOMPARE(view->headerItem()->text(1), QStringLiteral("Default Genes in Template"));
        QCOMPARE(view->topLevelItem(6)->text(0), QStringLiteral("Poses"));
        QCOMPARE(Shown(6), QStringLiteral("104"));
        QCOMPARE(view->topLevelItem(13)->text(0), QStringLiteral("Total carried (not expressed) genes"));
        QVERIFY(Find<QPushButton>("DChangeCommand")->isEnabled());
        QVERIFY(!Find<QPushButton>("DSaveCommand")->isEnabled());
        QCOMPARE(Find<QPushButton>("DCloseCommand")->text(), QStringLiteral("&Close"));
        // A second open shows the same dialog.
        QCOMPARE(frmChangeDefaultTemplate::Open(*session, owner.get()), dialog);
    }

    void changeAsksAndFoldsTheAnswer()
    {
        prompt.AnswerMessage(Prompt::Ok);
        Click("DChangeCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Nothing Selected"));
        QCOMPARE(prompt.Last().style, 48);

        Change(6, QStringLiteral("1030"));
        QCOMPARE(prompt.Last().title, QStringLiteral("Change Default Genes in Template"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Change default for Poses from '104' [104]"));
        QCOMPARE(session->Template.DefaultGeneCounts[6], 6);
        QCOMPARE(Shown(6), QStringLiteral("6"));
        QVERIFY(Find<QPushButton>("DSaveCommand")->isEnabled());

        Change(0, QStringLiteral("-3"));
        QCOMPARE(Shown(0), QStringLiteral("-3"));
        Change(2, QStringLiteral("many"));
        QCOMPARE(Shown(2), QStringLiteral("0"));
        Change(3, QStringLiteral("2.5"));
        QCOMPARE(Shown(3), QStringLiteral("2"));
        Change(4, QStringLiteral("3.5 genes"));
        QCOMPARE(Shown(4), QStringLiteral("4"));
        Change(5, QString()); // cancel
        QCOMPARE(Shown(5), QStringLiteral("4"));
    }

    void saveWritesAndDisablesItselfAndCloseAsksNothing()
    {
        Change(10, QStringLiteral("7"));
        Click("DSaveCommand");
        QVERIFY(!Find<QPushButton>("DSaveCommand")->isEnabled());
        const QByteArray bytes = TestFiles::Read(dir->path() + QStringLiteral("/mutations.txt"));
        QCOMPARE(bytes.size(), 164);
        QCOMPARE(bytes.mid(40, 4), QByteArray("\x07\x00\x00\x00", 4));

        // An unsaved change stays in the array after the dialog closes, but not in the file.
        Change(11, QStringLiteral("9"));
        Click("DCloseCommand");
        QVERIFY(!dialog->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull()); // it deletes itself once closed
        QCOMPARE(session->Template.DefaultGeneCounts[11], 9);
        QCOMPARE(TestFiles::Read(dir->path() + QStringLiteral("/mutations.txt")).mid(44, 4),
                 QByteArray("\x08\x00\x00\x00", 4));
    }
};

QTEST_MAIN(TestTemplateDialog)
#include "test_template_dialog.moc"
