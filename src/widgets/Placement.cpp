#include "widgets/Placement.h"

#include "core/Session.h"

#include <QApplication>
#include <QScreen>
#include <QWidget>
#include <QWindow>

namespace {
QScreen *ScreenOf(const QWidget *w)
{
    QScreen *s = w ? w->screen() : nullptr;
    return s ? s : QGuiApplication::primaryScreen();
}
// The part of the screen that windows may use (panels and docks left out), in the units the
// windows are placed in, whatever the scale.
QRect Available(const QWidget *w)
{
    QScreen *s = ScreenOf(w);
    return s ? s->availableGeometry() : QRect(0, 0, 1024, 768);
}
// The frame that the window manager puts around a window: that of the window itself once
// shown or once its platform window knows it, else that of the reference window if that one
// is on screen, else none. (Qt reports the frame of a window never shown a pixel short.)
bool KnowsItsFrame(const QWidget *w)
{
    return w->isVisible() || (w->windowHandle() && !w->windowHandle()->frameMargins().isNull());
}
QSize FrameOf(const QWidget *w, const QWidget *reference)
{
    const QWidget *framed = KnowsItsFrame(w) ? w : reference && reference->isVisible() ? reference : nullptr;
    return framed ? (framed->frameGeometry().size() - framed->geometry().size()).expandedTo(QSize(0, 0)) : QSize(0, 0);
}
// Makes a window no larger than the available area, title bar and borders included, as far
// as its minimum size lets it shrink; returns its outer size.
QSize FitToScreen(QWidget *w, const QRect &area, const QWidget *reference = nullptr)
{
    const QSize frame = FrameOf(w, reference);
    const QSize inner = w->size().boundedTo(area.size() - frame);
    if (inner != w->size())
        w->resize(inner.expandedTo(w->minimumSize()));
    return w->size() + frame;
}
// Keeps the top left corner of a window of that outer size on the area: when the window is
// larger than the area its title bar stays reachable.
QPoint Clamp(QPoint at, const QSize &size, const QRect &area)
{
    at.setX(qMax(area.left(), qMin(at.x(), area.right() + 1 - size.width())));
    at.setY(qMax(area.top(), qMin(at.y(), area.bottom() + 1 - size.height())));
    return at;
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
    // A window never shown has no frame yet: count that of a window on screen, its owner's
    // if it has one, else the active window's.
    const QWidget *owner = window->parentWidget() ? window->parentWidget()->window() : nullptr;
    const QWidget *reference = owner && owner->isVisible() ? owner : QApplication::activeWindow();
    const QRect area = Available(window);
    const QSize size = FitToScreen(window, area, reference != window ? reference : nullptr);
    const QPoint centred(area.x() + (area.width() - size.width()) / 2, area.y() + (area.height() - size.height()) / 2);
    window->move(Clamp(centred, size, area));
}

void PlaceEditor(Session &session, QWidget *editor, const QWidget *mainWindow)
{
    if (++session.PlacementStep > 10)
        session.PlacementStep = 0;
    const int step = TwipsToPixels(240, mainWindow) * (session.PlacementStep + 2);
    const QPoint corner = mainWindow ? mainWindow->frameGeometry().topLeft() : QPoint(0, 0);
    const QRect area = Available(mainWindow);
    const QSize size = FitToScreen(editor, area, mainWindow);
    // Past the right or bottom edge the editor moves back onto the screen.
    editor->move(Clamp(corner + QPoint(step, step), size, area));
}

} // namespace Placement
