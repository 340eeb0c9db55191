#include "views/CoverPicture.h"

#include "widgets/Placement.h"

#include <QPainter>
#include <QPainterPath>
#include <QWidget>

#include <cmath>

QPixmap DrawCoverPicture(const QWidget *reference)
{
    const int width = Placement::TwipsToPixels(5400, reference);
    const int height = Placement::TwipsToPixels(1500, reference);
    const qreal ratio = reference ? reference->devicePixelRatioF() : 1.0;
    QPixmap picture(QSize(int(width * ratio), int(height * ratio)));
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);

    QPainter p(&picture);
    p.setRenderHint(QPainter::Antialiasing);
    const qreal margin = height * 0.15;
    const qreal middle = height / 2.0, amplitude = middle - margin;
    const qreal turns = 2.5, pi = 3.14159265358979;
    auto y = [&](qreal x, qreal phase) { return middle + amplitude * std::sin(2 * pi * turns * x / width + phase); };

    // Rungs first, so that the strands run over their ends.
    p.setPen(QPen(QColor(0x2d, 0x5f, 0x8a), height / 40.0, Qt::SolidLine, Qt::RoundCap));
    const int rungs = 28;
    for (int i = 1; i < rungs; ++i) {
        const qreal x = width * i / qreal(rungs);
        p.drawLine(QPointF(x, y(x, 0)), QPointF(x, y(x, pi)));
    }
    const QColor strands[2] = {QColor(0x4c, 0xaf, 0x50), QColor(0xe0, 0xa8, 0x20)};
    for (int s = 0; s < 2; ++s) {
        QPainterPath path(QPointF(0, y(0, s * pi)));
        for (int x = 1; x <= width; ++x)
            path.lineTo(x, y(x, s * pi));
        p.setPen(QPen(strands[s], height / 16.0, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(path);
    }
    return picture;
}
