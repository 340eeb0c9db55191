#pragma once
#include <QtGlobal>

class Session;

// The chromosome map: the encoded genome drawn byte by byte, one short horizontal line for
// each byte, running down the drawing area in columns, with a black tick beside the last
// letter of every "gene" token. The plot knows nothing of widgets: it draws on a surface.
namespace ChromosomeMap {

constexpr int Margin = 5;        // first row and left edge of the first column
constexpr int ColumnDivisor = 38; // the area's width over this is the width of a column
constexpr int TickGap = 1;       // from a column's right end to its ticks
constexpr int TickLength = 4;    // pixels of a tick
constexpr int ColumnGap = 6;     // from a column's right end to the next column
constexpr int ProgressStep = 100; // bytes between two looks at the progress window

struct Shade
{
    int red = 0, green = 0, blue = 0;
    bool operator==(const Shade &o) const { return red == o.red && green == o.green && blue == o.blue; }
};

// Width of a column: the area's width / 38, to the nearest whole number, halves to even.
int ColumnWidth(int areaWidth);
// The colour of a byte's line: c = 200 - b / 3 and g = c x 0.9, each rounded to the nearest
// whole number with halves to even; red and blue are c. High bytes are darker.
Shade LineShade(quint8 byte);

// What the plot draws on. Lines are horizontal and one pixel high; a line from x1 to x2
// covers the pixels x1 to x2 - 1 (its end point is not drawn). The plot asks for the size
// as it needs it: the width once, the height at every byte.
class Surface
{
public:
    virtual ~Surface() = default;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    virtual void Clear() = 0;
    virtual void Line(int x1, int x2, int y, const Shade &shade) = 0;
    // Called before the plot lets the event loop run: what was drawn may be shown now.
    virtual void Flush() {}
    // Called when the plot is done: all that was drawn is to be shown.
    virtual void Finish() { Flush(); }
};

// Plots the session's genome on the surface, with the progress window up: clears it,
// encodes the genome (with every effect an encode has) and draws WriteCursor bytes of the
// image. Gives the number of ticks drawn.
int Plot(Session &session, Surface &surface);

// The geometry of the plot, one byte at a time: where its line and tick go.
class Walker
{
public:
    explicit Walker(int columnWidth) : w(columnWidth) {}

    struct Step
    {
        int x = 0, y = 0; // start of the byte's line
        bool tick = false; // the byte ends a "gene" token
    };
    // Places the next byte; areaHeight is the area's height as it stands now.
    Step Next(quint8 byte, int areaHeight);
    int ColumnWidth() const { return w; }

private:
    int w;
    int x = Margin, y = Margin;
    quint32 token = 0; // the last four bytes, oldest in the high byte
};

} // namespace ChromosomeMap
