#include "widgets/LazyPage.h"

#include <QCoreApplication>
#include <QEvent>

void LazyPage::EnsureBuilt()
{
    if (built)
        return;
    built = true;
    BuildPage();
    // What the new widgets queued for themselves as they were filled (columns fitted to
    // their rows) runs now, before the page is laid out and shown: so it sees them as it
    // would have had they been made and filled long before the page was first shown.
    for (QObject *o : findChildren<QObject *>())
        QCoreApplication::sendPostedEvents(o, QEvent::MetaCall);
    emit Built();
}

void LazyPage::setVisible(bool visible)
{
    // Made just before the page first shows, so its widgets are shown and laid out with it
    // as if they had been there all along.
    if (visible)
        EnsureBuilt();
    QWidget::setVisible(visible);
}
