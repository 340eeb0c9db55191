#include "core/ChromosomeMap.h"

#include "core/Session.h"

namespace ChromosomeMap {

namespace {
// n / d to the nearest whole number, halves to even, for n >= 0 and d > 0.
int DivideHalfEven(int n, int d)
{
    const int q = n / d, r2 = 2 * (n % d);
    return r2 > d || (r2 == d && q % 2 != 0) ? q + 1 : q;
}

// "gene" as the last four bytes of the window, oldest first.
constexpr quint32 GeneToken = quint32('g') << 24 | quint32('e') << 16 | quint32('n') << 8 | quint32('e');
} // namespace

int ColumnWidth(int areaWidth) { return areaWidth > 0 ? DivideHalfEven(areaWidth, ColumnDivisor) : 0; }

Shade LineShade(quint8 byte)
{
    // 200 - b / 3 has a third or two thirds as its fraction, never a half: the rounding
    // takes a third down and two thirds up. The green is exact too: 9c / 10.
    const int c = 200 - DivideHalfEven(byte, 3);
    return {c, DivideHalfEven(9 * c, 10), c};
}

Walker::Step Walker::Next(quint8 byte, int areaHeight)
{
    Step s{x, y, false};
    token = token << 8 | byte;
    s.tick = token == GeneToken;
    ++y;
    if (y > areaHeight - Margin) {
        x += w + ColumnGap;
        y = Margin;
    }
    return s;
}

int Plot(Session &session, Surface &surface)
{
    Prompt &prompt = session.prompt;
    prompt.ProgressLoad(QStringLiteral("Building Chromosome Map"));
    prompt.ProgressSetValue(0);
    prompt.ProgressShow();
    surface.Clear();
    Walker walker(ColumnWidth(surface.Width()));
    surface.Flush();
    prompt.Yield();
    prompt.Yield();

    // From here on the plot reads the image only: the magic and "gend" are bytes like any other.
    session.EncodeGenome();
    const ::GenomeImage &image = session.GenomeImage;
    const int count = qBound(0, image.WriteCursor, ::GenomeImage::Size);
    const int w = walker.ColumnWidth();
    Shade shades[256];
    for (int b = 0; b < 256; ++b)
        shades[b] = LineShade(quint8(b));
    const Shade black;
    int ticks = 0;
    for (int i = 0; i < count; ++i) {
        if (i % ProgressStep == 0 && prompt.ProgressVisible()) {
            surface.Flush();
            prompt.Yield();
            prompt.ProgressSetValue(DivideHalfEven(i * 100, count));
        }
        const quint8 b = image.Bytes[size_t(i)];
        const Walker::Step s = walker.Next(b, surface.Height());
        surface.Line(s.x, s.x + w, s.y, shades[b]);
        if (s.tick) {
            surface.Line(s.x + w + TickGap, s.x + w + TickGap + TickLength, s.y, black);
            ++ticks;
        }
    }
    surface.Finish();
    prompt.ProgressUnload();
    return ticks;
}

} // namespace ChromosomeMap
