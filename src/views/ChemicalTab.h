#pragma once
#include "views/NameListTab.h"

// The "Biochemistry" tab: the chemical list, its count line, its commands and pop-up menu.
class ChemicalTab : public NameListTab
{
    Q_OBJECT
public:
    explicit ChemicalTab(Session &session);

    // The commands of the buttons and the pop-up menu.
    void AddChemical();
    void AddChemicalHere();
    void DeleteChemical();
    void RenameChemical();
    void CaptionChemical();

protected:
    void BuildCommands() override;
};
