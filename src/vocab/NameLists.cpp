#include "vocab/NameLists.h"

#include "core/Session.h"

// The list files come with the vocabularies work; until then the lists start empty and
// nothing is written.
void NameLists::LoadChemicalList() {}
void NameLists::LoadPoseList() {}
void NameLists::LoadScriptList() {}
bool NameLists::SaveChemicalList() { return true; }
bool NameLists::SavePoseList() { return true; }
bool NameLists::SaveScriptList() { return true; }
