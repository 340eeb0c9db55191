#include "widgets/WideGroupBox.h"

#include <QImage>
#include <QStyleOptionGroupBox>
#include <QStylePainter>

#include <cmath>

namespace {
// The style's box drawn small on a clear ground, and the widths of its edges (in device
// pixels) such that each edge row or column is one colour along its length and the middle
// one colour throughout. Empty when the box is not made that way.
struct BoxPicture
{
    QImage sample;
    int left = 0, top = 0, right = 0, bottom = 0;
};

// Where the run of a line's middle colour begins and ends.
template <typename At> std::pair<int, int> MiddleRun(int length, At at)
{
    const int mid = length / 2;
    int from = mid, to = mid;
    while (from > 0 && at(from - 1) == at(mid))
        --from;
    while (to < length - 1 && at(to + 1) == at(mid))
        ++to;
    return {from, to};
}

BoxPicture LearnBox(const QWidget &box, QStyleOptionGroupBox option, QPainter::RenderHints hints)
{
    // Small, but with room for a middle beside edges of any usual width.
    constexpr int side = 48;
    const qreal ratio = box.devicePixelRatioF();
    const int n = int(std::ceil(side * ratio));
    BoxPicture picture;
    QImage sample(n, n, QImage::Format_ARGB32_Premultiplied);
    sample.setDevicePixelRatio(ratio);
    sample.fill(Qt::transparent);
    option.rect = QRect(0, 0, side, side);
    {
        QPainter p(&sample);
        p.setRenderHints(hints);
        box.style()->drawComplexControl(QStyle::CC_GroupBox, &option, &p, &box);
    }
    // The edges reach as far in as any row or column departs from its middle colour.
    const auto pixels = reinterpret_cast<const QRgb *>(sample.constBits());
    const qsizetype stride = sample.bytesPerLine() / qsizetype(sizeof(QRgb));
    int left = 0, right = 0, top = 0, bottom = 0;
    for (int i = 0; i < n; ++i) {
        const QRgb *row = pixels + i * stride, *column = pixels + i;
        const auto [fromX, toX] = MiddleRun(n, [row](int x) { return row[x]; });
        const auto [fromY, toY] = MiddleRun(n, [column, stride](int y) { return column[y * stride]; });
        left = qMax(left, fromX), right = qMax(right, n - 1 - toX);
        top = qMax(top, fromY), bottom = qMax(bottom, n - 1 - toY);
    }
    // Each row is now one colour between the left and right edges, and each column between
    // the top and bottom ones: the middle is one colour. It must be a good part of the box,
    // or the style does not draw it by stretching.
    const int room = n / 4;
    if (n - left - right < room || n - top - bottom < room)
        return picture;
    picture.sample = sample;
    picture.left = left, picture.top = top, picture.right = right, picture.bottom = bottom;
    return picture;
}

// Lays the learned box out at w x h device pixels: the corners as drawn, each edge stretched
// from a slice one pixel long (one draw for all its rows or columns), the middle filled.
void DrawBox(QPainter &p, const BoxPicture &b, int w, int h)
{
    const int n = b.sample.width(), mid = n / 2;
    const int innerW = w - b.left - b.right, innerH = h - b.top - b.bottom;
    QImage sample = b.sample;
    sample.setDevicePixelRatio(1);
    const struct { QRect to, from; } parts[] = {
        {QRect(0, 0, b.left, b.top), QRect(0, 0, b.left, b.top)},
        {QRect(w - b.right, 0, b.right, b.top), QRect(n - b.right, 0, b.right, b.top)},
        {QRect(0, h - b.bottom, b.left, b.bottom), QRect(0, n - b.bottom, b.left, b.bottom)},
        {QRect(w - b.right, h - b.bottom, b.right, b.bottom), QRect(n - b.right, n - b.bottom, b.right, b.bottom)},
        {QRect(b.left, 0, innerW, b.top), QRect(mid, 0, 1, b.top)},
        {QRect(b.left, h - b.bottom, innerW, b.bottom), QRect(mid, n - b.bottom, 1, b.bottom)},
        {QRect(0, b.top, b.left, innerH), QRect(0, mid, b.left, 1)},
        {QRect(w - b.right, b.top, b.right, innerH), QRect(n - b.right, mid, b.right, 1)},
    };
    // A slice of one colour stretched is that colour whichever way it is sampled: the nearest
    // pixel is the cheapest.
    p.setRenderHint(QPainter::SmoothPixmapTransform, false);
    for (const auto &part : parts)
        if (!part.from.isEmpty())
            p.drawImage(part.to, sample, part.from);
    const QRgb middle = sample.pixel(mid, mid);
    if (qAlpha(middle) != 0)
        p.fillRect(QRect(b.left, b.top, innerW, innerH), QColor::fromRgba(qUnpremultiply(middle)));
}
} // namespace

void WideGroupBox::paintEvent(QPaintEvent *)
{
    QStylePainter p(this);
    QStyleOptionGroupBox option;
    initStyleOption(&option);
    const BoxPicture box = title().isEmpty() && !isCheckable() ? LearnBox(*this, option, p.renderHints()) : BoxPicture();
    const qreal ratio = devicePixelRatioF();
    const int w = int(std::lround(width() * ratio)), h = int(std::lround(height() * ratio));
    if (box.sample.isNull() || w < box.left + box.right + 1 || h < box.top + box.bottom + 1) {
        p.drawComplexControl(QStyle::CC_GroupBox, option);
        return;
    }
    // In device pixels, so that every fill meets the pixels the style's drawing would.
    p.setWorldTransform(QTransform::fromScale(1 / ratio, 1 / ratio));
    DrawBox(p, box, w, h);
}
