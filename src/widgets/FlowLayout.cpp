#include "widgets/FlowLayout.h"

#include <QStyle>
#include <QWidget>

FlowLayout::FlowLayout(QWidget *parent) : QLayout(parent) {}

FlowLayout::~FlowLayout()
{
    while (QLayoutItem *item = takeAt(0))
        delete item;
}

void FlowLayout::addWidget(QWidget *w, int stretch)
{
    QLayout::addWidget(w);
    stretches.last() = stretch;
}

void FlowLayout::addItem(QLayoutItem *item)
{
    items << item;
    stretches << 0;
}

QLayoutItem *FlowLayout::takeAt(int index)
{
    if (index < 0 || index >= items.size())
        return nullptr;
    stretches.removeAt(index);
    return items.takeAt(index);
}

QSize FlowLayout::minimumSize() const
{
    // The widest single item: narrower than that, nothing can be shown whole.
    QSize size;
    for (QLayoutItem *item : items)
        if (!item->isEmpty())
            size = size.expandedTo(item->sizeHint());
    const QMargins m = contentsMargins();
    return size + QSize(m.left() + m.right(), m.top() + m.bottom());
}

QSize FlowLayout::sizeHint() const
{
    // Everything on one row.
    int width = 0, height = 0, shown = 0;
    for (QLayoutItem *item : items)
        if (!item->isEmpty()) {
            width += item->sizeHint().width();
            height = qMax(height, item->sizeHint().height());
            ++shown;
        }
    const QMargins m = contentsMargins();
    return QSize(width + qMax(0, shown - 1) * Gap() + m.left() + m.right(), height + m.top() + m.bottom());
}

// An item that wraps its own content (a flow within a flow) is as high as it needs at width.
int FlowLayout::HeightAt(QLayoutItem *item, int width)
{
    return item->hasHeightForWidth() ? item->heightForWidth(width) : item->sizeHint().height();
}

int FlowLayout::Gap() const
{
    if (spacing() >= 0)
        return spacing();
    const QWidget *w = parentWidget();
    return w ? qMax(0, w->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, w)) : 6;
}

void FlowLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    Arrange(rect, true);
}

// Places the items in rows within rect (when apply is set) and returns the height they take.
int FlowLayout::Arrange(const QRect &rect, bool apply) const
{
    const QRect area = rect.marginsRemoved(contentsMargins());
    const int gap = Gap();
    int top = area.y();
    int first = 0;
    while (first < items.size()) {
        // Take as many items as fit on this row, at least one.
        int last = first, used = 0, height = 0, stretch = 0;
        for (; last < items.size(); ++last) {
            if (items[last]->isEmpty())
                continue;
            const QSize hint = items[last]->sizeHint();
            const int need = used ? used + gap + hint.width() : hint.width();
            if (used && need > area.width())
                break;
            used = need;
            height = qMax(height, HeightAt(items[last], qMin(hint.width(), area.width())));
            stretch += stretches[last];
        }
        if (apply) {
            const int spare = qMax(0, area.width() - used);
            int x = area.x();
            for (int i = first; i < last; ++i) {
                if (items[i]->isEmpty())
                    continue;
                int w = items[i]->sizeHint().width();
                if (stretch)
                    w += spare * stretches[i] / stretch;
                items[i]->setGeometry(QRect(x, top, qMin(w, area.width() - (x - area.x())), height));
                x += w + gap;
            }
        }
        top += height + gap;
        first = last;
    }
    return top - (top > area.y() ? gap : 0) - rect.y() + contentsMargins().bottom();
}
