#pragma once
// What a list shows, as one text that a test compares in one check.
#include <QTreeWidget>

// The columns of a row (or of the header) joined with '|'.
inline QString RowText(const QTreeWidgetItem *item)
{
    QStringList texts;
    for (int c = 0; c < item->columnCount(); ++c)
        texts << item->text(c);
    return texts.join(QLatin1Char('|'));
}

// One column of a list's top-level rows, top to bottom, joined with ','.
inline QString ColumnText(const QTreeWidget *list, int column)
{
    QStringList texts;
    for (int i = 0; list && i < list->topLevelItemCount(); ++i)
        texts << list->topLevelItem(i)->text(column);
    return texts.join(QLatin1Char(','));
}
