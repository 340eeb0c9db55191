#pragma once
#include <QString>
#include <QStringList>
#include <QWidget>

class QLabel;
class QLineEdit;
class QPushButton;
class QTextBrowser;
class QTextDocument;

// The help file: an HTML document under its old name, Helixbench.hlp, beside the program.
namespace HelpDocument {

// The file's path in a folder: one '/' between the folder and the name.
QString PathIn(const QString &folder);

// The names of all anchors of a document, as the help window would find them.
QStringList AnchorNames(const QTextDocument &document);

// The anchors of a help file the window can show: one that can be read, is not empty or
// huge, and is an HTML document with the anchor of the table of contents. A missing or
// damaged file gives no anchors, silently.
QStringList Anchors(const QString &path);

} // namespace HelpDocument

// The help window: the help file in a browser, with its contents, back and forward, and a
// search within the page shown.
class HelpWindow : public QWidget
{
    Q_OBJECT
public:
    explicit HelpWindow(QWidget *parent = nullptr);

    // Shows the file at the anchor. The caller has checked that the file is usable and has
    // the anchor.
    void ShowAnchor(const QString &path, const QString &anchor);
    // The anchor now shown ("2001", "contents").
    QString CurrentAnchor() const;

    QTextBrowser *HelpBrowser = nullptr;
    QPushButton *HelpContentsButton = nullptr;
    QPushButton *HelpBackButton = nullptr;
    QPushButton *HelpForwardButton = nullptr;
    QLineEdit *HelpFindText = nullptr;
    QPushButton *HelpFindNextButton = nullptr;
    QPushButton *HelpFindPreviousButton = nullptr;
    QLabel *HelpFindStatus = nullptr;

    // Finds the text of the search box from the cursor on, wrapping round the page once.
    bool Find(bool backwards);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString path;
    bool placed = false; // centred on its screen once, when first shown (its frame known then)
};
