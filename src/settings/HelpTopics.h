#pragma once
#include <QList>
#include <QString>

// Where F1 leads: the context number of each window that has one, and the anchor in the help
// file that a number or a main-window tab opens. Windows are known by their object names, so
// a dialog needs nothing of its own to take part.
namespace HelpTopics {

// Context numbers of the dialogs that are not gene editors (the editors' numbers stand in
// the gene kind table).
constexpr int ChromosomeMap = 3000, Options = 3001, NewGene = 3003;

// The anchor of the help file's table of contents.
QString ContentsAnchor();

// The context number of a window, by its object name; 0 when it has none (the notes dialog,
// message boxes, the help window itself).
int ContextOf(const QString &windowName);

// The anchor a context number opens: the number itself ("2000").
QString AnchorOf(int context);

// The anchor of the page of a main-window tab (0 Cover .. 6 Export); the contents for others.
QString TabAnchor(int tab);

// Every context number the program can ask for, without repeats, ascending.
QList<int> AllContexts();
// Every anchor F1 or the Help menu can open: the contents, the numbers and the tab pages.
QStringList AllAnchors();

} // namespace HelpTopics
