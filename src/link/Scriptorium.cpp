// The Scriptorium of the Export tab: twenty named macros whose replies show in their rows,
// and the one-shot macro whose reply shows in a message.
#include "core/Session.h"
#include "link/ExportTab.h"
#include "link/MacroLink.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QTreeWidget>

void ExportTab::RefreshScriptList()
{
    const NameLists &lists = session.Lists;
    ScriptListView->setUpdatesEnabled(false);
    ScriptListView->clear();
    ScriptCount = 0;
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < ScriptSlots; ++i) {
        if (lists.ScriptNames[size_t(i)] == EmptySlot)
            continue;
        rows << new QTreeWidgetItem(
            QStringList{lists.ScriptNames[size_t(i)], lists.ScriptMacros[size_t(i)], lists.ScriptResults[size_t(i)]});
        ++ScriptCount;
    }
    ScriptListView->addTopLevelItems(rows);
    ScriptListView->setUpdatesEnabled(true);
}

void ExportTab::ShowScriptCount()
{
    ScriptStatusLabel->setText(QString::number(ScriptCount) + QStringLiteral(" of ") + QString::number(ScriptSlots)
                               + QStringLiteral(" autoscripts used"));
}

void ExportTab::AddAutoScript()
{
    NameLists &lists = session.Lists;
    int slot = -1;
    for (int i = 0; i < ScriptSlots && slot < 0; ++i)
        if (lists.ScriptNames[size_t(i)] == EmptySlot)
            slot = i;
    if (slot < 0) {
        session.ShowError(QStringLiteral("No additional auto-script slots available"));
        return;
    }
    const QString title = QStringLiteral("New auto-macro");
    const QString name = session.prompt.InputBox(title, QStringLiteral("Enter a display name for this auto-macro"),
                                                 QStringLiteral("<un-named auto-macro>"));
    if (name.isEmpty())
        return;
    const QString macro = session.prompt.InputBox(title, QStringLiteral("Enter a macro for this auto-macro"),
                                                  QStringLiteral("dde: getb cnam"));
    if (macro.isEmpty())
        return;
    lists.ScriptNames[size_t(slot)] = name;
    lists.ScriptMacros[size_t(slot)] = macro;
    RefreshScriptList();
    ShowScriptCount();
    session.Lists.ScriptsChanged = true;
}

int ExportTab::SelectedScriptSlot(const QString &purpose)
{
    const QList<QTreeWidgetItem *> selected = ScriptListView->selectedItems();
    if (selected.isEmpty()) {
        session.ShowWarning(QStringLiteral("Nothing selected"));
        return -1;
    }
    // Slots are found by name, so a row that repeats an earlier name acts on the earlier slot.
    const QString text = selected.first()->text(0);
    for (int i = 0; i < ScriptSlots; ++i)
        if (session.Lists.ScriptNames[size_t(i)] == text)
            return i;
    session.ShowError(QStringLiteral("Error locating item '") + text + QStringLiteral("' for ") + purpose);
    return -1;
}

void ExportTab::RemoveAutoScript()
{
    const int slot = SelectedScriptSlot(QStringLiteral("removal"));
    if (slot < 0)
        return;
    NameLists &lists = session.Lists;
    lists.ScriptNames[size_t(slot)] = EmptySlot;
    lists.ScriptMacros[size_t(slot)].clear();
    lists.ScriptResults[size_t(slot)].clear();
    RefreshScriptList();
    ShowScriptCount();
    session.Lists.ScriptsChanged = true;
}

void ExportTab::RunSelectedAutoScript()
{
    const int slot = SelectedScriptSlot(QStringLiteral("update"));
    if (slot < 0)
        return;
    NameLists &lists = session.Lists;
    lists.ScriptResults[size_t(slot)] = RunAutoScript(lists.ScriptMacros[size_t(slot)]);
    RefreshScriptList();
    ShowScriptCount();
}

QString ExportTab::RunAutoScript(const QString &macro)
{
    if (!link->OpenMacroLink())
        return QStringLiteral("Fault: Error initialising DDE link");
    LinkFailure failure;
    if (link->PokeMacro(macro, failure))
        link->ReadMacroResult(failure);
    QString result;
    if (failure.Raised()) {
        link->SetStatus(QStringLiteral("Error during macro operation"));
        result = QStringLiteral("Fault: ") + QString::number(failure.number) + QStringLiteral(" (")
                 + failure.description + QStringLiteral(")");
    } else {
        link->SetStatus(QStringLiteral("Operation complete"));
        result = session.MacroResult;
    }
    link->CloseMacroLink();
    return result;
}

void ExportTab::InjectOneShot()
{
    if (!link->OpenMacroLink())
        return;
    const QString text = TestScriptText->text();
    // The request goes out even after a failed poke; the failure shown is the last one.
    LinkFailure failure, last;
    link->PokeMacro(text, failure);
    if (failure.Raised())
        last = failure;
    link->ReadMacroResult(failure);
    if (failure.Raised())
        last = failure;
    if (last.Raised()) {
        link->SetStatus(QStringLiteral("Error during macro operation"));
        session.ShowFault(last.number, last.description, QStringLiteral("Error sending DDE command"));
    } else {
        link->SetStatus(QStringLiteral("Operation complete"));
        session.ShowInfo(QStringLiteral("Results of '") + text + QStringLiteral("' were '") + session.MacroResult
                         + QStringLiteral("'"));
    }
    link->CloseMacroLink();
}

bool ExportTab::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == ScriptListView->viewport() && event->type() == QEvent::MouseButtonRelease) {
        auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::RightButton) {
            mnuAutoScriptPopUp->popup(mouse->globalPosition().toPoint(), mnuAutoScriptRun);
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}
