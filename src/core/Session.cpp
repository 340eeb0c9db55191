#include "core/Session.h"

#include "core/Gene.h"
#include "core/Text.h"

const QString Session::Title = QStringLiteral("Helixbench");
const QString Session::ErrorMark = QStringLiteral("<<ERROR>>");
const QString Session::GenomeFilter = QStringLiteral("Verdant DNA (*.gen)");

Session::Session(Prompt &prompt, QObject *parent) : QObject(parent), prompt(prompt)
{
    StatusPanel[1] = QStringLiteral("No genome loaded");
    StatusPanel[2] = QStringLiteral("No slider data");
    StatusPanel[3] = QStringLiteral("Press F1 for help");
    MainTitle = Title;
}

Session::~Session()
{
    // Editors refer to their genes; the windows that own them close before the session
    // goes, but make sure no gene outlives its list with a dangling view.
    for (auto &g : GeneList)
        if (g && g->View) {
            g->View = nullptr;
            g->IsOpen = false;
        }
}

int Session::ShowMessage(const QString &text, int style, const QString &title)
{
    return prompt.Message(title, text, style);
}

void Session::ShowError(const QString &text) { ShowMessage(text, 16); }
void Session::ShowWarning(const QString &text) { ShowMessage(text, 48); }
void Session::ShowInfo(const QString &text) { ShowMessage(text, 64); }

void Session::ShowFault(qint16 number, const QString &description, const QString &context)
{
    ShowError(context + Text::LFCR + QStringLiteral("Description: Error ID") + Text::Str(number)
              + QStringLiteral(" (") + description + QStringLiteral(")"));
}

void Session::SetStatusPanel(int panel, const QString &text)
{
    if (panel < 1 || panel > 3)
        return;
    StatusPanel[panel] = text;
    emit StatusPanelChanged(panel, text);
}

void Session::SetMainTitle(const QString &text)
{
    MainTitle = text;
    emit MainTitleChanged(text);
}

void Session::RefreshViews() { emit ViewsRefreshRequested(); }

void Session::RefreshGeneRow(int numericId) { emit GeneRowChanged(numericId); }
