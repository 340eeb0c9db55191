#pragma once
#include "core/OrganLayout.h"
#include "widgets/LazyPage.h"

#include <QHash>
#include <QIcon>
#include <functional>
#include <vector>

class Session;
class HelixbenchForm;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The Organ View tab: which receptors, emitters and reactions belong to which organ, as a
// tree with statistics under it. The tree is rebuilt by RefreshViews and, when the genome
// has changed since, on entering the tab. Its widgets are made when the tab is first shown; a
// build before that keeps its nodes aside and puts them into the tree then.
class OrganViewTab : public LazyPage
{
    Q_OBJECT
public:
    // Item data roles of the tree's nodes: the node key and the image name.
    static constexpr int KeyRole = Qt::UserRole;
    static constexpr int ImageRole = Qt::UserRole + 1;

    OrganViewTab(Session &session, HelixbenchForm &mainWindow);

    // The main window calls this after it has changed to this tab: rebuilds the tree under
    // the progress window if OrganViewStale is set.
    void EnterTab();
    // Rebuilds the tree and OrganStatusLabel (see OrganTreeBuilder); false if it returned at
    // once because there are no genes or a build is running.
    bool BuildOrganTree();
    // Opens the editor of the selected gene node.
    void EditFromOrganCommand();

    // The images the tree's nodes name: "organ", "emitter", "reaction", "receptor",
    // "information". Drawn here, so nothing has to be shipped.
    QHash<QString, QIcon> GeneralImageList;

    QTreeWidget *OrganTreeView = nullptr;
    QPushButton *EditFromOrganButton = nullptr; // objectName "EditFromOrganCommand"
    QLabel *OrganStatusLabel = nullptr;

    const OrganTreeBuilder &Builder() const { return builder; }

protected:
    void BuildPage() override;

private:
    // What a build of the tree did, kept while the tree does not exist yet.
    struct Recorded
    {
        struct Node
        {
            int parent;
            QString key, text, image;
        };
        bool cleared = false;
        std::vector<Node> nodes;
        bool hasStatus = false;
        QString status;
    };
    friend class RecordingSink;
    // Runs build against the tree and its status line, with the nodes put in as one batch.
    bool IntoTree(const std::function<bool(OrganTreeSink &)> &build);
    Recorded recorded;

    Session &session;
    HelixbenchForm &mainWindow;
    OrganTreeBuilder builder;

    void OnDoubleClick(QTreeWidgetItem *item);
};
