#pragma once
#include <QDialog>

class QLabel;
class QPushButton;

// The About box: the program's version, date and build in one label. There is one box: a
// second opening brings the open one forward.
class AboutForm : public QDialog
{
    Q_OBJECT
public:
    // The version text and date the program carries (the main window's VersionLabel shows
    // the same version text).
    static const QString VersionText; // "3.42 mc-c"
    static const QString VersionDate; // "17.12.98"

    // Opens the box of owner, not modal, making it on first use.
    static AboutForm *Open(QWidget *owner);

    // The program's revision: the last number of its file version (the application version,
    // e.g. 87 for 2.0.0.87); 0 when it has none.
    static int Revision();
    // The text of AboutLabel: "Helixbench 3.42 mc-c (17.12.98) build " and the revision.
    static QString AboutText();

    QLabel *AboutLabel = nullptr;
    QPushButton *CloseCommand = nullptr;

private:
    explicit AboutForm(QWidget *owner);
};
