#include "widgets/ColumnFit.h"

#include <QEvent>
#include <QHeaderView>
#include <QPointer>
#include <QStyle>
#include <QTreeView>

namespace {

class Fitter : public QObject
{
public:
    Fitter(QTreeView *v, int r) : QObject(v), view(v), rest(r)
    {
        view->viewport()->installEventFilter(this);
        QHeaderView *h = view->header();
        if (rest >= 0 && rest != h->count() - 1)
            h->setStretchLastSection(false);
        connect(h, &QHeaderView::sectionResized, this, [this](int section) {
            if (section != rest)
                FillRest();
        });
        connect(view->model(), &QAbstractItemModel::rowsInserted, this, &Fitter::FitSoon);
        connect(view->model(), &QAbstractItemModel::modelReset, this, &Fitter::FitSoon);
    }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Resize)
            FillRest();
        return QObject::eventFilter(watched, event);
    }

private:
    QTreeView *view;
    int rest;
    bool fitted = false;
    bool pending = false;

    // A list is often filled a row at a time: the columns are measured once all are in.
    void FitSoon()
    {
        if (fitted || pending)
            return;
        pending = true;
        QMetaObject::invokeMethod(this, [this] { Fit(); }, Qt::QueuedConnection);
    }

    void Fit()
    {
        pending = false;
        if (fitted || view->model()->rowCount() == 0)
            return;
        fitted = true;
        QHeaderView *h = view->header();
        for (int c = 0; c < h->count(); ++c)
            if (c != rest && !h->isSectionHidden(c))
                h->resizeSection(c, qMax(static_cast<QAbstractItemView *>(view)->sizeHintForColumn(c), Caption(c)));
        FillRest();
    }

    // The width a column's caption needs. The header's own hint keeps room for a sort
    // indicator in every column; only the column sorted by shows one.
    int Caption(int column) const
    {
        QHeaderView *h = view->header();
        if (h->isSortIndicatorShown() && h->sortIndicatorSection() == column)
            return h->sectionSizeHint(column);
        const QString text = view->model()->headerData(column, Qt::Horizontal).toString();
        return h->fontMetrics().horizontalAdvance(text) + 2 * h->style()->pixelMetric(QStyle::PM_HeaderMargin, nullptr, h) + 4;
    }

    void FillRest()
    {
        QHeaderView *h = view->header();
        if (rest < 0 || rest >= h->count())
            return;
        int others = 0;
        for (int c = 0; c < h->count(); ++c)
            if (c != rest && !h->isSectionHidden(c))
                others += h->sectionSize(c);
        const int width = qMax(Caption(rest), view->viewport()->width() - others);
        if (width != h->sectionSize(rest))
            h->resizeSection(rest, width);
    }
};

} // namespace

namespace ColumnFit {

void Install(QTreeView *view, int rest) { new Fitter(view, rest); }

} // namespace ColumnFit
