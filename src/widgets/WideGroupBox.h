#pragma once
#include <QGroupBox>

// A group box for a frame as large as a tab page. Styles commonly draw a group box from a
// small picture: the corners as they are, the edges and the middle stretched to the box's
// size. Stretching a picture over a large area is the slowest way there is to lay one
// colour, and a frame the size of a page pays it at every first paint. Where the style's box
// is made that way, this one learns its corners and the colours of its edges and middle from
// the style's own drawing of a small box, and lays them out at the full size with plain
// fills: the same pixels at a fraction of the cost. Where it is not (a title, a check box, a
// style that shades the middle or the edges along their length), the style draws it all.
class WideGroupBox : public QGroupBox
{
public:
    using QGroupBox::QGroupBox;

protected:
    void paintEvent(QPaintEvent *event) override;
};
