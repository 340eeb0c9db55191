#pragma once
#include <QObject>
#include <QPointer>
#include <QString>

class HelpWindow;
class QWidget;

// The application's help: it knows the help file, opens the one help window at the contents
// or at a topic, and answers F1 in every window of the program.
//
// F1 in a window leads to the window's topic:
//   - a window with a HelpRequested(int) signal (the gene editors, the rule dialog) handles
//     the key itself and names its context number through that signal, which is connected
//     here the first time F1 reaches the window;
//   - a window with a "HelpTopic" property (the main window: the page of its tab) opens that
//     anchor;
//   - any other window opens its context number by its object name (HelpTopics::ContextOf),
//     or the contents when it has none.
// A help file that is missing or damaged is ignored without a word: nothing opens.
class HelpSystem : public QObject
{
    Q_OBJECT
public:
    explicit HelpSystem(QObject *parent = nullptr);
    ~HelpSystem() override;

    // Registers the help file; from now on F1 works in every window of the application.
    void Register(const QString &helpFilePath);
    QString HelpFilePath() const { return path; }

    // The help window if it has been opened, else nullptr.
    HelpWindow *Window() const;

public slots:
    // Opens the help file at its table of contents.
    void ShowHelpContents();
    // Opens the help file at a context number (the contents for 0).
    void ShowHelpTopic(int context);
    // Opens the help file at an anchor; the contents if the file lacks it. False if the file
    // is missing or damaged.
    bool ShowHelpAnchor(const QString &anchor);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // The help F1 opens in a window, or false when the window handles F1 itself.
    bool AnswerF1(QWidget *window);
    // While a modal dialog is up, the help window becomes its child so that it can be used;
    // it goes back to standing alone when the dialog is hidden.
    void LendTo(QWidget *modal);
    void GiveBack();

    QString path;
    QPointer<HelpWindow> window;
    QPointer<QWidget> lender;
};
