#pragma once
#include "core/ChromosomeMap.h"

#include <QFrame>
#include <QImage>
#include <QPainter>
#include <QRect>

// The drawing area of the chromosome map: a sunken frame whose inside, in pixels, is the
// surface the plot draws on. The plot goes into an image the size of the inside, and the
// widget only ever shows that image: a repaint or a resize never plots again. The image
// grows when the area grows and never shrinks, so a picture made smaller and large again
// comes back whole.
class MapPicture : public QFrame, public ChromosomeMap::Surface
{
    Q_OBJECT
public:
    static constexpr int DesignWidth = 501, DesignHeight = 349; // border included
    static const QColor Background;

    explicit MapPicture(QWidget *parent = nullptr);

    QSize sizeHint() const override { return {DesignWidth, DesignHeight}; }
    // The picture as it stands (the inside of the frame, drawn or cleared).
    const QImage &Image() const { return image; }

    // The surface: the inside of the frame.
    int Width() const override { return contentsRect().width(); }
    int Height() const override { return contentsRect().height(); }
    void Clear() override;
    void Line(int x1, int x2, int y, const ChromosomeMap::Shade &shade) override;
    void Flush() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QImage image;
    QPainter painter;  // active on the image while lines come in, between two flushes
    QRect dirty;       // drawn since the last flush, in image coordinates
    // Makes the image at least the size of the inside, keeping what it shows.
    void GrowImage();
};
