#pragma once
// Lists and a combo binding that the species, appearance, pose and gait editors share.
#include "editors/EditorBinding.h"

#include <QString>

class Session;
class QComboBox;

// Clears the combo and adds the species names up to the first empty one, so that the item
// index is the genus; selects item 0.
void FillSpeciesList(Session &session, QComboBox *combo);

// Clears the combo and adds the 256 pose names as they stand (an unnamed pose is an empty
// line), so that the item index is the pose number; item 0 gets zeroText instead of the name
// of pose 0 when one is given. Selects item 0. The combo does not refill itself later.
void FillPoseList(Session &session, QComboBox *combo, const QString &zeroText = QString());

// A combo whose item index is the stored byte. A byte the list has no item for selects
// nothing, shows its number in grey in the empty combo and stays in the gene until the user
// picks an item.
void BindIndexCombo(Bindings &bind, QComboBox *combo, ByteRef field);
