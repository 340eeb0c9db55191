#include "widgets/Placement.h"

#include "core/Session.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

namespace {
QScreen *ScreenOf(const QWidget *w)
{
    QScreen *s = w ? w->screen() : nullptr;
    return s ? s : QGuiApplication::primaryScreen();
}
// The outer size of a window, title bar and borders included. One never shown has no frame
// yet (and Qt reports its frame geometry a pixel short): it is given the frame that the
// window manager put around the reference window, if that one is on screen.
QSize OuterSize(const QWidget *w, const QWidget *reference = nullptr)
{
    if (w->isVisible())
        return w->frameGeometry().size();
    QSize frame(0, 0);
    if (reference && reference->isVisible())
        frame = reference->frameGeometry().size() - reference->geometry().size();
    return w->size() + frame.expandedTo(QSize(0, 0));
}
} // namespace

namespace Placement {

int TwipsToPixels(int twips, const QWidget *reference)
{
    QScreen *s = ScreenOf(reference);
    const double dpi = s ? s->logicalDotsPerInchX() : 96.0;
    return int(twips * dpi / 1440.0 + 0.5);
}

void CentreForm(QWidget *window)
{
    QScreen *s = ScreenOf(window);
    if (!s)
        return;
    const QRect screen = s->geometry();
    const QSize size = OuterSize(window);
    window->move(screen.x() + (screen.width() - size.width()) / 2, screen.y() + (screen.height() - size.height()) / 2);
}

void PlaceEditor(Session &session, QWidget *editor, const QWidget *mainWindow)
{
    if (++session.PlacementStep > 10)
        session.PlacementStep = 0;
    const int step = TwipsToPixels(240, mainWindow) * (session.PlacementStep + 2);
    const QPoint corner = mainWindow ? mainWindow->frameGeometry().topLeft() : QPoint(0, 0);
    int left = corner.x() + step;
    int top = corner.y() + step;
    QScreen *s = ScreenOf(mainWindow);
    const QRect screen = s ? s->geometry() : QRect(0, 0, 1024, 768);
    const QSize size = OuterSize(editor, mainWindow);
    if (left + size.width() > screen.right() + 1)
        left = screen.right() + 1 - size.width();
    if (top + size.height() > screen.bottom() + 1)
        top = screen.bottom() + 1 - size.height();
    editor->move(left, top);
}

} // namespace Placement
