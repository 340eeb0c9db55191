#include "vocab/NameLists.h"

#include "core/Session.h"

// Placeholder until the list files are built: the lists start empty and nothing is written.
void NameLists::LoadChemicalList() {}
void NameLists::LoadPoseList() {}
void NameLists::LoadScriptList() {}
bool NameLists::SaveChemicalList() { return true; }
bool NameLists::SavePoseList() { return true; }
bool NameLists::SaveScriptList() { return true; }
