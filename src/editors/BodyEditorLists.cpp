#include "editors/BodyEditorLists.h"

#include "core/Session.h"

#include <QComboBox>

void FillSpeciesList(Session &session, QComboBox *combo)
{
    combo->clear();
    for (const QString &name : session.Tables.SpeciesNames) {
        if (name.isEmpty())
            break;
        combo->addItem(name);
    }
    combo->setCurrentIndex(0);
}

void FillPoseList(Session &session, QComboBox *combo, const QString &zeroText)
{
    const auto &names = session.Lists.PoseNames;
    QStringList items;
    items.reserve(NameLists::SlotsInUse);
    for (int i = 0; i < NameLists::SlotsInUse; ++i)
        items << (i == 0 && !zeroText.isNull() ? zeroText : names[size_t(i)]);
    combo->clear();
    combo->addItems(items);
    combo->setCurrentIndex(0);
}

void BindIndexCombo(Bindings &bind, QComboBox *combo, ByteRef field)
{
    bind.Combo(combo, field, ComboMap::IndexKeepingUnshown());
    bind.Step([combo, field] {
        if (const quint8 *v = field())
            combo->setPlaceholderText(combo->currentIndex() < 0 ? QString::number(*v) : QString());
    });
}
