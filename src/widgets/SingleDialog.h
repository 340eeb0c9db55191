#pragma once
#include <QWidget>

// The modeless dialogs of the menus stand once beside their owner: a second call shows the one that is open,
// as it stands, and makes a new one only when there is none. A dialog made here deletes
// itself when it closes.
namespace SingleDialog {

template <typename Dialog, typename Make> Dialog *Show(QWidget *owner, Make make)
{
    Dialog *dialog = owner ? owner->findChild<Dialog *>(QString(), Qt::FindDirectChildrenOnly) : nullptr;
    if (!dialog) {
        dialog = make();
        dialog->setAttribute(Qt::WA_DeleteOnClose);
    }
    dialog->show();
    dialog->raise();
    dialog->activateWindow();
    return dialog;
}

} // namespace SingleDialog
