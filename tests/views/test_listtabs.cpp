// The Biochemistry and Poses tabs driven through their widgets: commands, messages, count
// lines and the pop-up menus.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "views/ChemicalTab.h"
#include "views/HelixbenchForm.h"
#include "views/ListText.h"
#include "views/PoseTab.h"

#include <QtTest>
#include <QtWidgets>

class TestListTabs : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;

    template <typename T> T *Find(const char *name) { return form->findChild<T *>(QString::fromLatin1(name)); }
    void Click(const char *button) { QTest::mouseClick(Find<QPushButton>(button), Qt::LeftButton); }
    QString Label(const char *name) { return Find<QLabel>(name)->text(); }
    QString Row(const char *view, int row) { return RowText(Find<QTreeWidget>(view)->topLevelItem(row)); }
    void Select(const char *view, int row) { Find<QTreeWidget>(view)->setCurrentItem(Find<QTreeWidget>(view)->topLevelItem(row)); }
    // Fills the views and shows the tab.
    void Fill(const char *tab) { emit session->ListViewsMustFill(); Find<QTabWidget>("SSTab1")->setCurrentWidget(Find<QWidget>(tab)); }
    // The pop-up menu's entries, "-" for a separator.
    static QString Entries(QMenu *menu)
    {
        QStringList texts;
        for (QAction *a : menu->actions())
            texts << (a->isSeparator() ? QStringLiteral("-") : a->text());
        return menu->title() + '|' + texts.join(',');
    }
    QString Shown(int i = -1) const { return ShownText(i < 0 ? prompt.Last() : prompt.shown[i]); }
    // A right click on a row: the press selects it, the release opens the pop-up menu.
    QMenu *RightClick(const char *view, int row, const char *menuName)
    {
        auto *v = Find<QTreeWidget>(view);
        v->scrollToItem(v->topLevelItem(row));
        QTest::mouseClick(v->viewport(), Qt::RightButton, {}, v->visualItemRect(v->topLevelItem(row)).center());
        return Find<QMenu>(menuName)->isVisible() ? Find<QMenu>(menuName) : nullptr;
    }

private slots:
    void init()
    {
        FreshSession(sandbox, prompt, session);
        form.reset(new HelixbenchForm(*session));
        form->BuildAllTabs();
        form->show();
        QVERIFY(QTest::qWaitForWindowExposed(form.get()));
        session->Lists.SetChemicalDefaults();
        session->Lists.SetPoseDefaults();
    }

    void cleanup() { form.reset(); session.reset(); QVERIFY(prompt.AllAnswered()); }

    void startUpFillsBothViewsAndChemicalCommandsAskStoreAndRecount()
    {
        QCOMPARE(Label("ChemCountLabel") + Label("PoseCountLabel"), QStringLiteral("No chemicals loadedNo poses loaded"));
        session->Lists.ChemicalNames[0].clear(); // as a file may hold it
        session->Lists.ChemicalNames[1] = QStringLiteral("ATP");
        Fill("ChemicalTab");
        QCOMPARE(Find<QTreeWidget>("ChemicalListView")->topLevelItemCount() + Find<QTreeWidget>("PoseListView")->topLevelItemCount(), 512);
        QCOMPARE(Row("ChemicalListView", 0) + Row("ChemicalListView", 1), QStringLiteral("0|<nothing>|1|ATP|"));
        QCOMPARE(session->Lists.ChemicalNames[0], QStringLiteral("<nothing>"));

        // Add needs no row: it takes the first free slot, 2.
        prompt.AnswerInput(QStringLiteral("Glucose")).AnswerInput(QStringLiteral("sugar"));
        Click("AddChemicalCommand");
        QCOMPARE(Shown(0), QStringLiteral("Name new Chemical|0|Enter a name for chemical 2 [<un-named chemical>]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|Glucose|sugar"));
        QCOMPARE(Label("ChemCountLabel"), QStringLiteral(" 3 chemical(s) in use, 253 slots free"));

        // Cancel in the second box stores nothing, not even the first answer.
        prompt.AnswerInput(QStringLiteral("Lactate")).AnswerInput(QString());
        Click("AddChemicalCommand");
        QCOMPARE(Row("ChemicalListView", 3), QStringLiteral("3|3|"));

        // Add Here over a named slot asks first; No ends it.
        Select("ChemicalListView", 2);
        prompt.AnswerMessage(Prompt::No);
        Click("AddHereCommand");
        QCOMPARE(Shown(), QStringLiteral("Helixbench|35|Are you sure you wish to write over 'Glucose'"));

        prompt.AnswerInput(QStringLiteral("Dextrose")).AnswerInput(QStringLiteral("fuel"));
        Click("RenameChemicalCommand");
        QCOMPARE(Shown(), QStringLiteral("Rename Chemical|0|Rename Chemical 'Glucose' [Glucose]"));
        Click("CaptionChemicalCommand");
        QCOMPARE(Shown(), QStringLiteral("Edit Chemical Caption|0|Edit Caption 'sugar' [sugar]"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|Dextrose|fuel"));

        prompt.AnswerMessage(Prompt::Yes);
        Click("DeleteChemicalCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Are you sure you wish to delete 'Dextrose'?"));
        QCOMPARE(Row("ChemicalListView", 2), QStringLiteral("2|2|"));
    }

    void popUpMenusAndTheirSaveEntries()
    {
        session->Lists.ChemicalNames[5] = QStringLiteral("ATP");
        Fill("ChemicalTab");
        QMenu *menu = RightClick("ChemicalListView", 5, "mnuChemicalPopUp");
        QVERIFY(menu && SelectedNameListSlot(Find<QTreeWidget>("ChemicalListView")) == 5);
        QCOMPARE(menu->defaultAction(), Find<QAction>("mnuChemicalRename"));
        QCOMPARE(Entries(menu).section('|', 1), QStringLiteral("&Rename,&Edit Description,&Delete,-,&New Chemical Here,Ne&w Chemical,-,&Save Changes"));
        QVERIFY(!Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();

        // Once a name changed, Save Changes is on and saves the list.
        prompt.AnswerInput(QStringLiteral("Adenosine"));
        Find<QAction>("mnuChemicalRename")->trigger();
        QVERIFY(RightClick("ChemicalListView", 5, "mnuChemicalPopUp") && Find<QAction>("mnuChemicalSaveChanges")->isEnabled());
        menu->hide();
        Find<QAction>("mnuChemicalSaveChanges")->trigger();
        QVERIFY(!session->Lists.ChemicalsChanged && QFile::exists(sandbox->path() + QStringLiteral("/Chemicals.txt")));

        Fill("PoseTab");
        menu = RightClick("PoseListView", 7, "mnuPosePopUp");
        QVERIFY(menu);
        QCOMPARE(Entries(menu), QStringLiteral("PopUp3|&Rename,&Edit Description,&Delete,-,&Save Changes"));
        menu->hide();
    }

    // The save commands save only a list that changed, and renaming to the same text is a
    // change. Pose 0 is renamed and described like any other pose, and a free one is not deleted.
    void saveCommandsAndPoseZero()
    {
        Fill("PoseTab");
        auto *poses = form->findChild<PoseTab *>();
        prompt.AnswerMessage(Prompt::Ok).AnswerMessage(Prompt::Ok);
        form->findChild<ChemicalTab *>()->SaveListCommand();
        poses->SaveListCommand();
        QCOMPARE(Shown(0), QStringLiteral("Helixbench|64|No changes to save, operation canceled"));
        QCOMPARE(QDir(sandbox->path()).entryList({"*.txt"}), QStringList());
        Select("PoseListView", 4);
        prompt.AnswerInput(QStringLiteral("4"));
        Click("RenamePoseCommand");
        poses->SaveListCommand();
        QVERIFY(!session->Lists.PosesChanged && QFile::exists(sandbox->path() + QStringLiteral("/PoseName.txt")));

        Select("PoseListView", 0);
        prompt.AnswerMessage(Prompt::Ok).AnswerInput(QStringLiteral("Walk")).AnswerInput(QStringLiteral("legs moving"));
        Click("DeletePoseCommand");
        QCOMPARE(prompt.Last().text, QStringLiteral("Pose 0 is already deleted"));
        Click("RenamePoseCommand");
        QCOMPARE(Shown(), QStringLiteral("Rename Pose|0|Rename Pose '0' [0]"));
        Click("CaptionPoseCommand");
        QCOMPARE(Shown(), QStringLiteral("Describe Pose|0|Describe Pose 'Walk' []"));
        QCOMPARE(Row("PoseListView", 0), QStringLiteral("0|Walk|legs moving"));

        // A row that is missing is reported.
        QTreeWidget empty;
        prompt.AnswerMessage(Prompt::Ok);
        UpdateChemicalPoseInPlace(*session, 1, &empty, 12);
        QCOMPARE(Shown(), QStringLiteral("Helixbench|16|Error finding list key in UpdateChemicalPoseInPlace()"));
    }
};

QTEST_MAIN(TestListTabs)
#include "test_listtabs.moc"
