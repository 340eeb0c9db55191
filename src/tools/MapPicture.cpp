#include "tools/MapPicture.h"

#include <QPaintEvent>

const QColor MapPicture::Background = Qt::white;

MapPicture::MapPicture(QWidget *parent) : QFrame(parent)
{
    setObjectName(QStringLiteral("ChromosomePicture"));
    setFrameStyle(QFrame::Panel | QFrame::Sunken);
    setLineWidth(2);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setMinimumSize(2 * (ChromosomeMap::Margin + frameWidth()), 2 * (ChromosomeMap::Margin + frameWidth()));
    // The widget paints every pixel of its inside from the image.
    setAttribute(Qt::WA_OpaquePaintEvent);
    inside = contentsRect().size();
    GrowImage();
}

void MapPicture::GrowImage()
{
    const QSize least = inside.expandedTo(QSize(1, 1));
    if (!image.isNull() && image.width() >= least.width() && image.height() >= least.height())
        return;
    QImage grown(least.expandedTo(image.size()), QImage::Format_RGB32);
    grown.fill(Background);
    if (!image.isNull()) {
        QPainter copy(&grown);
        copy.drawImage(0, 0, image);
    }
    image = grown;
}

void MapPicture::Clear()
{
    EndPainting();
    ClearDirty();
    image = QImage(inside.expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Background);
    update();
}

void MapPicture::Line(int x1, int x2, int y, const ChromosomeMap::Shade &shade)
{
    if (!painter.isActive())
        painter.begin(&image);
    // Most of a full genome's columns lie right of the area: the painter is not asked for
    // lines that can't show.
    if (x2 <= x1 || x1 >= image.width() || x2 <= 0 || y < 0 || y >= image.height())
        return;
    painter.fillRect(QRect(x1, y, x2 - x1, 1), QColor(shade.red, shade.green, shade.blue));
    if (dirtyLeft >= dirtyRight) {
        dirtyLeft = x1, dirtyRight = x2, dirtyTop = y, dirtyBottom = y + 1;
    } else {
        dirtyLeft = qMin(dirtyLeft, x1), dirtyRight = qMax(dirtyRight, x2);
        dirtyTop = qMin(dirtyTop, y), dirtyBottom = qMax(dirtyBottom, y + 1);
    }
}

void MapPicture::EndPainting()
{
    if (painter.isActive())
        painter.end();
}

void MapPicture::Flush()
{
    // The painter stays on the image across the events that run now: a repaint only reads
    // the image, and a resize, which may replace it, ends the painter first.
    if (dirtyLeft >= dirtyRight || (sinceShown.isValid() && sinceShown.elapsed() < FrameMs))
        return;
    const QRect dirty(QPoint(dirtyLeft, dirtyTop), QPoint(dirtyRight - 1, dirtyBottom - 1));
    update(dirty.intersected(image.rect()).translated(contentsRect().topLeft()));
    ClearDirty();
    sinceShown.start();
}

void MapPicture::Finish()
{
    EndPainting();
    sinceShown.invalidate();
    Flush();
}

void MapPicture::paintEvent(QPaintEvent *event)
{
    QPainter p(this);
    const QRect inside = contentsRect();
    p.setClipRect(inside & event->rect());
    p.drawImage(inside.topLeft(), image);
    p.end();
    QFrame::paintEvent(event);
}

void MapPicture::resizeEvent(QResizeEvent *event)
{
    QFrame::resizeEvent(event);
    EndPainting();
    inside = contentsRect().size();
    GrowImage();
}
