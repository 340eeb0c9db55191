#include "core/Session.h"

#include "core/Gene.h"
#include "core/genes/BodyGenes.h"
#include "base/Text.h"

const QString Session::ErrorMark = QStringLiteral("<<ERROR>>");
const QString Session::GenomeFilter = QStringLiteral("Verdant DNA (*.gen)");

Session::Session(Prompt &prompt, QObject *parent) : QObject(parent), UserMessages(prompt)
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

// Start-up of the vocabularies. The order matters: the template's presets stand before its
// file is read, and the list views are filled before the rest of the tables exist.
void Session::BuildReferenceTables()
{
    Tables.BuildKindTables();

    Template.SetPresets();

    Lists.LoadChemicalList();
    Lists.LoadPoseList();
    Lists.LoadScriptList();
    Template.LoadDefaultTemplate();

    emit ListViewsMustFill();

    LayEggOffset = 0;
    emit ExportViewsMustFill();

    Tables.BuildGeneTables();
}

int Session::HeadGenus() const
{
    const Gene *first = GeneAt(0);
    if (const auto *species = dynamic_cast<const clsSpecies *>(first))
        return species->Genus;
    if (const auto *appearance = dynamic_cast<const clsAppearance *>(first))
        return appearance->Genus;
    return -1;
}
