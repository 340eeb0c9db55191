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
    GrowImage();
}

void MapPicture::GrowImage()
{
    const QSize inside = contentsRect().size().expandedTo(QSize(1, 1));
    if (!image.isNull() && image.width() >= inside.width() && image.height() >= inside.height())
        return;
    QImage grown(inside.expandedTo(image.size()), QImage::Format_RGB32);
    grown.fill(Background);
    if (!image.isNull()) {
        QPainter copy(&grown);
        copy.drawImage(0, 0, image);
    }
    image = grown;
}

void MapPicture::Clear()
{
    Flush();
    image = QImage(contentsRect().size().expandedTo(QSize(1, 1)), QImage::Format_RGB32);
    image.fill(Background);
    update();
}

void MapPicture::Line(int x1, int x2, int y, const ChromosomeMap::Shade &shade)
{
    if (!painter.isActive())
        painter.begin(&image);
    const QRect r(x1, y, x2 - x1, 1);
    painter.fillRect(r, QColor(shade.red, shade.green, shade.blue));
    dirty |= r;
}

void MapPicture::Flush()
{
    // The painter lets go of the image before anything else may look at it or resize it.
    if (painter.isActive())
        painter.end();
    if (!dirty.isEmpty())
        update(dirty.intersected(image.rect()).translated(contentsRect().topLeft()));
    dirty = QRect();
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
    Flush();
    GrowImage();
}
