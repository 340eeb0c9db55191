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
    // Each strand is a chain of cubic curves, eight to a turn, each matching the sine and its
    // slope at both ends: the same line as one segment per pixel to the eye, at a fraction of
    // the cost of stroking it.
    const qreal k = 2 * pi * turns / width; // the sine's angle per pixel
    const int pieces = int(std::ceil(turns * 8));
    const qreal step = qreal(width) / pieces;
    const QColor strands[2] = {QColor(0x4c, 0xaf, 0x50), QColor(0xe0, 0xa8, 0x20)};
    for (int s = 0; s < 2; ++s) {
        const qreal phase = s * pi;
        auto slope = [&](qreal x) { return amplitude * k * std::cos(k * x + phase); };
        QPainterPath path(QPointF(0, y(0, phase)));
        for (int i = 0; i < pieces; ++i) {
            const qreal x0 = i * step, x1 = x0 + step;
            path.cubicTo(QPointF(x0 + step / 3, y(x0, phase) + slope(x0) * step / 3),
                         QPointF(x1 - step / 3, y(x1, phase) - slope(x1) * step / 3), QPointF(x1, y(x1, phase)));
        }
        p.setPen(QPen(strands[s], height / 16.0, Qt::SolidLine, Qt::RoundCap));
        p.drawPath(path);
    }
    return picture;
}
