#pragma once
class QWidget;
class Session;

// Window placement. Sizes in the description of the cascade are twips: 1,440 to the
// logical inch of the screen.
namespace Placement {
int TwipsToPixels(int twips, const QWidget *reference = nullptr);
// Centres a window on the available area of its screen, first making it no larger than
// that area.
void CentreForm(QWidget *window);
// Places a gene editor on the next step of the cascade below the main window, moved back
// onto the available area where it would pass its right or bottom edge.
void PlaceEditor(Session &session, QWidget *editor, const QWidget *mainWindow);
}
