#pragma once
#include <QPixmap>

class QWidget;

// The Cover tab's picture: a strand of two helices with their rungs, in the colours of the
// program's icon, drawn for the screen the widget stands on.
QPixmap DrawCoverPicture(const QWidget *reference);
