#pragma once
// A combo bound to a byte that may hold a value its list has no item for (a stimulus past the
// last named one, a neurone beyond the sensory lobe). Such a value selects nothing, and the
// combo shows the number itself in grey where an item would stand, so the user sees what the
// gene holds. Storing keeps the value until the user picks an item.
#include "editors/EditorBinding.h"

class QComboBox;

void BindKeepingUnlisted(Bindings &bind, QComboBox *combo, ByteRef field, ComboMap map = ComboMap::Index());

// The text an unlisted value shows: "50 (no name)".
QString UnlistedText(int value);
