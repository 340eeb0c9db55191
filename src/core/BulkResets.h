#pragma once
#include <QString>

class Session;

// Resets that work on a whole genome or a whole name list at one stroke.

// The value an answer of the mutability reset asks for: -1 when the text has 4 characters or
// more (refused for its length, whatever its value); otherwise its number, rounded and
// folded into 0..255 ("300" gives 44, "999" gives 231, "-5" gives 251).
int FoldMutabilityAnswer(const QString &answer);

// Asks for a value and, after a question, sets the MutabilityWeighting of every gene to it
// and refreshes the views. Gives true when the genes were changed.
bool ResetMutabilityValues(Session &session);

// The two lists that have a factory file beside them.
enum class ResettableList { Chemicals, Poses };

// After a question, deletes the list file in the folder the list loaders read, copies the
// list's factory file ("chemicals.def", "posename.def") in its place, and loads the list
// again. A failed delete or copy is reported once and the list is loaded all the same; with
// no factory file the list file is gone and the list falls back on its defaults. Neither the changed flag nor any gene is touched. Gives true when the list was
// loaded again (the caller then fills its view and count line).
bool ResetListToDefaults(Session &session, ResettableList list);
