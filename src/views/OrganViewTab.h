#pragma once
#include "core/OrganLayout.h"

#include <QHash>
#include <QIcon>
#include <QWidget>

class Session;
class HelixbenchForm;
class QLabel;
class QPushButton;
class QTreeWidget;
class QTreeWidgetItem;

// The Organ View tab: which receptors, emitters and reactions belong to which organ, as a
// tree with statistics under it. The tree is rebuilt by RefreshViews and, when the genome
// has changed since, on entering the tab.
class OrganViewTab : public QWidget
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

private:
    Session &session;
    HelixbenchForm &mainWindow;
    OrganTreeBuilder builder;

    void OnDoubleClick(QTreeWidgetItem *item);
};
