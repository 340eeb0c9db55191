#pragma once
class QWidget;
class Session;

// Window placement. Sizes in the description of the cascade are twips: 1,440 to the
// logical inch of the screen.
namespace Placement {
int TwipsToPixels(int twips, const QWidget *reference = nullptr);
// Centres a window on its screen.
void CentreForm(QWidget *window);
// Places a gene editor on the next step of the cascade below the main window.
void PlaceEditor(Session &session, QWidget *editor, const QWidget *mainWindow);
}
