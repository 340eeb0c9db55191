#pragma once
#include "core/ChromosomeMap.h"

#include <QElapsedTimer>
#include <QFrame>
#include <QImage>
#include <QPainter>

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
    int Width() const override { return inside.width(); }
    int Height() const override { return inside.height(); }
    void Clear() override;
    void Line(int x1, int x2, int y, const ChromosomeMap::Shade &shade) override;
    // The screen follows the image at most once a frame while the plot runs, and wholly
    // when it is done.
    void Flush() override;
    void Finish() override;

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QImage image;
    QSize inside; // of the frame, kept as it changes: the plot asks for it at every byte
    QPainter painter;  // active on the image while a plot draws
    // Drawn and not yet shown, in image coordinates: left, top, right and bottom edges
    // (right and bottom outside), empty while left >= right.
    int dirtyLeft = 0, dirtyTop = 0, dirtyRight = 0, dirtyBottom = 0;
    void ClearDirty() { dirtyLeft = dirtyTop = dirtyRight = dirtyBottom = 0; }
    QElapsedTimer sinceShown;
    static constexpr int FrameMs = 16;
    // Ends the painter before the image is replaced or handed out.
    void EndPainting();
    // Makes the image at least the size of the inside, keeping what it shows.
    void GrowImage();
};
