#include "views/ChemicalTab.h"

#include "core/Session.h"

#include <QMenu>

namespace {
NameListTabLayout ChemicalLayout()
{
    return {1,
            "ChemicalTab",
            "BC_frame",
            QStringLiteral("Chemical List"),
            "ChemicalListView",
            {QStringLiteral("Number"), QStringLiteral("Name"), QStringLiteral("Description")},
            "ChemCountLabel",
            QStringLiteral("No chemicals loaded"),
            "mnuChemicalPopUp",
            QStringLiteral("PopUp2")};
}
} // namespace

ChemicalTab::ChemicalTab(Session &s) : NameListTab(s, ChemicalLayout()) {}

void ChemicalTab::BuildCommands()
{
    AddButton("AddChemicalCommand", QStringLiteral("&Add"), [this] { AddChemical(); });
    AddButton("AddHereCommand", QStringLiteral("Add &Here"), [this] { AddChemicalHere(); });
    AddButton("DeleteChemicalCommand", QStringLiteral("&Delete"), [this] { DeleteChemical(); });
    AddButton("RenameChemicalCommand", QStringLiteral("&Rename"), [this] { RenameChemical(); });
    AddButton("CaptionChemicalCommand", QStringLiteral("&Edit Description"), [this] { CaptionChemical(); });

    QAction *rename = AddEntry("mnuChemicalRename", QStringLiteral("&Rename"), [this] { RenameChemical(); });
    AddEntry("mnuChemicalEditDescription", QStringLiteral("&Edit Description"), [this] { CaptionChemical(); });
    AddEntry("mnuChemicalDelete", QStringLiteral("&Delete"), [this] { DeleteChemical(); });
    popUp->addSeparator();
    AddEntry("mnuChemicalAddHere", QStringLiteral("&New Chemical Here"), [this] { AddChemicalHere(); });
    AddEntry("mnuChemicalAdd", QStringLiteral("Ne&w Chemical"), [this] { AddChemical(); });
    AddSaveEntry("mnuChemicalSaveChanges");
    popUp->setDefaultAction(rename);
}

void ChemicalTab::AddChemical()
{
    int slot = -1;
    if (session.Lists.AddChemical(slot))
        ShowStored(slot);
}

void ChemicalTab::AddChemicalHere()
{
    OnSelectedSlot([this](int slot) { return session.Lists.AddChemicalHere(slot); });
}

void ChemicalTab::DeleteChemical()
{
    OnSelectedSlot([this](int slot) { return session.Lists.DeleteChemical(slot); });
}

void ChemicalTab::RenameChemical()
{
    OnSelectedSlot([this](int slot) { return session.Lists.RenameChemical(slot); });
}

void ChemicalTab::CaptionChemical()
{
    OnSelectedSlot([this](int slot) { return session.Lists.CaptionChemical(slot); });
}
