#pragma once
class QTreeView;

// Column widths of a list view that fit what the list holds.
namespace ColumnFit {
// When the view is first filled with rows, sizes every column to the wider of its caption and
// its rows. Column `rest` (if not -1) then always takes the width the others leave in the
// viewport, never less than its caption, also after the user has resized another column.
void Install(QTreeView *view, int rest = -1);
}
