// The Biochemistry and Poses tabs driven through their widgets: commands, messages, count
// lines and the pop-up menus.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/ChemicalTab.h"
#include "views/HelixbenchForm.h"
#include "views/PoseTab.h"

#include <QAction>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTabWidget>
#include <QTreeWidget>
#include <QtTest>

class TestListTabs : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;

    template <typename T> T *Find(const char *name)
    {
        T *w = form->findChild<T *>(QString::fromLatin1(name));
        if (!w)
            qFatal("no control %s", name);
        return w;
    }
    void Click(const char *button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QTreeWidget *View(const char *name) { return Find<QTreeWidget>(name); }
    QStringList Row(const char *view, int row)
    {
        QTreeWidgetItem *item = View(view)->topLevelItem(row);
        return {item->text(0), item->text(1), item->text(2)};
    }
    void Select(const char *view, int row) { View(view)->setCurrentItem(View(view)->topLevelItem(row)); }
    // A right click on a row: the press selects it, the release opens the pop-up menu.
    void RightClick(const char *view, int row)
    {
        QTreeWidget *v = View(view);
        v->scrollToItem(v->topLevelItem(row));
        const QPoint at = v->visualItemRect(v->topLevelItem(row)).center();
        QTest::mouseClick(v->viewport(), Qt::RightButton, {}, at);
    }
    QStringList Entries(QMenu *menu)
    {
        QStringList texts;
        for (QAction *a : menu->actions())
            texts << (a->isSeparator() ? QStringLiteral("-") : a->text());
        return texts;
    }
    void ShowTab(const char *name)
    {
        auto *tabs = Find<QTabWidget>("SSTab1");
        tabs->setCurrentWidget(Find<QWidget>(name));
    }

private slots:
    void init()
    {
        prompt.Clear();
        sandbox.reset(new SettingsSandbox);
        session.reset(new Session(prompt));
        session->AppDirectory = sandbox->path();
        form.reset(new HelixbenchForm(*session));
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        session->Lists.SetChemicalDefaults();
        session->Lists.SetPoseDefaults();
    }

    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a prompt that was expected never came");
        form.reset();
        session.reset();
    }

    void startUpFillsBothViewsAndTheirCounts()
    {
        QCOMPARE(Find<QLabel>("ChemCountLabel")->text(), QStringLiteral("No chemicals loaded"));
        QCOMPARE(Find<QLabel>("PoseCountLabel")->text(), QStringLiteral("No poses loaded"));
        QCOMPARE(View("ChemicalListView")->topLevelItemCount(), 0);

        session->Lists.ChemicalNames[0].clear(); // as a file may hold it
        session->Lists.ChemicalNames[5] = QStringLiteral("ATP");
        session->Lists.ChemicalCaptions[5] = QStringLiteral("energy");
        session->Lists.PoseCaptions[3] = QStringLiteral("sitting");
        emit session->ListViewsMustFill();

        QTreeWidget *chemicals = View("ChemicalListView");
        QCOMPARE(chemicals->topLevelItemCount(), 256);
        QCOMPARE(Row("ChemicalListView", 0), QStringList({"0", "<nothing>", ""}));
        QCOMPARE(session->Lists.ChemicalNames[0], QStringLiteral("<nothing>"));
        QCOMPARE(Row("ChemicalListView", 5), QStringList({"5", "ATP", "energy"}));
        QVERIFY(!chemicals->isSortingEnabled());
        QCOMPARE(chemicals->selectionBehavior(), QAbstractItemView::SelectRows);
        QCOMPARE(Find<QLabel>("ChemCountLabel")->text(), QStringLiteral(" 2 chemical(s) in use, 254 slots free"));

        QTreeWidget *poses = View("PoseListView");
        QCOMPARE(poses->topLevelItemCount(), 256);
        QCOMPARE(Row("PoseListView", 3), QStringList({"3", "3", "sitting"}));
        QCOMPARE(Find<QLabel>("PoseCountLabel")->text(), QStringLiteral(" 1 pose(s) in use, 255 slots free"));
    }

    void chemicalCommandsAskStoreAndRecount()
    {
        session->Lists.ChemicalNames[1] = QStringLiteral("ATP");
        emit session->ListViewsMustFill();
        ShowTab("ChemicalTab");

        prompt.AnswerMessage(Prompt::Ok);
        Click("RenameChemicalCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Nothing selected"));
        QCOMPARE(prompt.Last().style, 48);

        // Add needs no row: it takes the first free slot, 2.
        prompt.Clear();
        prompt.AnswerInput(QStringLiteral("Glucose")).AnswerInput(QStringLiteral("sugar"));
        Click("AddChemicalCommand");
        QCOMPARE(prompt.shown[0].title, QStringLiteral("Name new Chemical"));
        QCOMPARE(prompt.shown[0].text, QStringLiteral("Enter a name for chemical 2 [<un-named chemical>]"));
        QCOMPARE(prompt.shown[1].text, QStringLiteral("Enter a caption for chemical 2 [<no-caption>]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringList({"2", "Glucose", "sugar"}));
        QCOMPARE(Find<QLabel>("ChemCountLabel")->text(), QStringLiteral(" 3 chemical(s) in use, 253 slots free"));
        QVERIFY(session->ChemicalsChanged);

        // Cancel in the second box stores nothing, not even the first answer.
        prompt.AnswerInput(QStringLiteral("Lactate")).AnswerInput(QString());
        Click("AddChemicalCommand");
        QCOMPARE(Row("ChemicalListView", 3), QStringList({"3", "3", ""}));
        QCOMPARE(session->Lists.ChemicalNames[3], QStringLiteral("3"));

        // Add Here over a named slot asks first; No ends it.
        prompt.Clear();
        Select("ChemicalListView", 2);
        prompt.AnswerMessage(Prompt::No);
        Click("AddHereCommand");
        QCOMPARE(prompt.shown.size(), 1);
        QCOMPARE(prompt.Last().text, QStringLiteral("Are you sure you wish to write over 'Glucose'"));
        QCOMPARE(prompt.Last().style, 35);

        prompt.Clear();
        prompt.AnswerInput(QStringLiteral("Dextrose"));
        Click("RenameChemicalCommand");
        QCOMPARE(prompt.Last().title, QStringLiteral("Rename Chemical"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Rename Chemical 'Glucose' [Glucose]"));
        prompt.AnswerInput(QStringLiteral("fuel"));
        Click("CaptionChemicalCommand");
        QCOMPARE(prompt.Last().title, QStringLiteral("Edit Chemical Caption"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Edit Caption 'sugar' [sugar]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringList({"2", "Dextrose", "fuel"}));

        prompt.Clear();
        prompt.AnswerMessage(Prompt::Yes);
        Click("DeleteChemicalCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Are you sure you wish to delete 'Dextrose'?"));
        QCOMPARE(Row("ChemicalListView", 2), QStringList({"2", "2", ""}));
        QCOMPARE(Find<QLabel>("ChemCountLabel")->text(), QStringLiteral(" 2 chemical(s) in use, 254 slots free"));
        prompt.AnswerMessage(Prompt::Ok);
        Click("DeleteChemicalCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Chemical 2 is already deleted"));
    }

    void poseCommandsTreatPoseZeroLikeAnyOther()
    {
        emit session->ListViewsMustFill();
        ShowTab("PoseTab");
        Select("PoseListView", 0);
        prompt.AnswerMessage(Prompt::Ok);
        Click("DeletePoseCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Pose 0 is already deleted"));
        QVERIFY(!session->PosesChanged);

        prompt.AnswerInput(QStringLiteral("Sit"));
        Click("RenamePoseCommand");
        QCOMPARE(prompt.Last().title, QStringLiteral("Rename Pose"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Rename Pose '0' [0]"));
        QCOMPARE(Find<QLabel>("PoseCountLabel")->text(), QStringLiteral(" 1 pose(s) in use, 255 slots free"));

        Select("PoseListView", 10);
        prompt.AnswerInput(QStringLiteral("Walk")).AnswerInput(QStringLiteral("legs moving"));
        Click("RenamePoseCommand");
        Click("CaptionPoseCommand");
        QCOMPARE(prompt.Last().title, QStringLiteral("Describe Pose"));
        QCOMPARE(prompt.Last().text, QStringLiteral("Describe Pose 'Walk' []"));
        QCOMPARE(Row("PoseListView", 10), QStringList({"10", "Walk", "legs moving"}));
        QCOMPARE(Find<QLabel>("PoseCountLabel")->text(), QStringLiteral(" 2 pose(s) in use, 254 slots free"));
        QVERIFY(session->PosesChanged);

        prompt.AnswerMessage(Prompt::Yes);
        Click("DeletePoseCommand");
        QCOMPARE(Row("PoseListView", 10), QStringList({"10", "10", ""}));
    }

    void popUpMenusOpenOnRightReleaseWithTheirDefaults()
    {
        session->Lists.ChemicalNames[5] = QStringLiteral("ATP");
        emit session->ListViewsMustFill();
        ShowTab("ChemicalTab");

        auto *menu = Find<QMenu>("mnuChemicalPopUp");
        RightClick("ChemicalListView", 5);
        QVERIFY(menu->isVisible());
        QCOMPARE(SelectedNameListSlot(View("ChemicalListView")), 5);
        QCOMPARE(menu->defaultAction(), Find<QAction>("mnuChemicalRename"));
        QCOMPARE(Entries(menu), QStringList({"&Rename", "&Edit Description", "&Delete", "-", "&New Chemical Here",
                                             "Ne&w Chemical", "-", "&Save Changes"}));
        QVERIFY(!Find<QAction>("mnuChemicalSaveChanges")->isEnabled());

        prompt.AnswerInput(QStringLiteral("Adenosine"));
        menu->hide();
        Find<QAction>("mnuChemicalRename")->trigger();
        QCOMPARE(Row("ChemicalListView", 5)[1], QStringLiteral("Adenosine"));
        RightClick("ChemicalListView", 5);
        QVERIFY(Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();

        // Saving clears the flag, and the entry follows it.
        Find<QAction>("mnuChemicalSaveChanges")->trigger();
        QVERIFY(!session->ChemicalsChanged);
        QVERIFY(QFile::exists(sandbox->path() + QStringLiteral("/Chemicals.txt")));
        RightClick("ChemicalListView", 5);
        QVERIFY(!Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();

        ShowTab("PoseTab");
        auto *poseMenu = Find<QMenu>("mnuPosePopUp");
        RightClick("PoseListView", 7);
        QVERIFY(poseMenu->isVisible());
        QCOMPARE(poseMenu->title(), QStringLiteral("PopUp3"));
        QCOMPARE(poseMenu->defaultAction(), Find<QAction>("mnuPoseRename"));
        QCOMPARE(Entries(poseMenu), QStringList({"&Rename", "&Edit Description", "&Delete", "-", "&Save Changes"}));
        QVERIFY(!Find<QAction>("mnuPoseSaveChanges")->isEnabled());
        poseMenu->hide();
    }

    void menuSaveCommandsSaveOnlyWhatChanged()
    {
        emit session->ListViewsMustFill();
        auto *chemicals = form->findChild<ChemicalTab *>();
        auto *poses = form->findChild<PoseTab *>();
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        chemicals->SaveChemicalListCommand();
        poses->SavePoseListCommand();
        QCOMPARE(prompt.MessageTexts(), QStringList({"No changes to save, operation canceled",
                                                     "No changes to save, operation canceled"}));
        QCOMPARE(prompt.Last().style, 64);
        QVERIFY(!QFile::exists(sandbox->path() + QStringLiteral("/Chemicals.txt")));
        QVERIFY(!QFile::exists(sandbox->path() + QStringLiteral("/PoseName.txt")));

        // Renaming to the same text still counts as a change.
        Select("PoseListView", 4);
        prompt.AnswerInput(QStringLiteral("4"));
        poses->RenamePose();
        QVERIFY(session->PosesChanged);
        poses->SavePoseListCommand();
        QVERIFY(!session->PosesChanged);
        QCOMPARE(TestFiles::Read(sandbox->path() + QStringLiteral("/PoseName.txt")).left(6),
                 QByteArray("\x01\x00" "0" "\x01\x00" "1", 6));
    }

    void aRowThatIsMissingIsReported()
    {
        QTreeWidget empty;
        prompt.AnswerMessage(Prompt::Ok);
        UpdateChemicalPoseInPlace(*session, 1, &empty, 12);
        QCOMPARE(prompt.Last().text, QStringLiteral("Error finding list key in UpdateChemicalPoseInPlace()"));
        QCOMPARE(prompt.Last().style, 16);
    }
};

QTEST_MAIN(TestListTabs)
#include "test_listtabs.moc"
