#include "editors/UnlistedCombo.h"

#include <QComboBox>

QString UnlistedText(int value) { return QString::number(value) + QStringLiteral(" (no name)"); }

void BindKeepingUnlisted(Bindings &bind, QComboBox *combo, ByteRef field, ComboMap map)
{
    map.keepUnshown = true;
    map.writeBack = false;
    bind.Combo(combo, field, map);
    // The placeholder is no item: the user cannot pick it, and it goes once an item is picked.
    bind.Step([combo, field] {
        if (quint8 *v = field())
            combo->setPlaceholderText(combo->currentIndex() < 0 ? UnlistedText(*v) : QString());
    });
}
