#pragma once
#include <QString>

// The one way the core speaks to the user. The application supplies an implementation
// built on Qt's dialogs; tests supply a scripted one that answers from a queue.
class Prompt
{
public:
    // Button codes of a message box.
    enum Button { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

    virtual ~Prompt() = default;

    // A message box. style = button set (0 Ok, 3 Yes/No/Cancel, 4 Yes/No) + icon
    // (16 critical, 32 question, 48 exclamation, 64 information). Gives a button code.
    virtual int Message(const QString &title, const QString &text, int style) = 0;

    // An input box. Cancel gives the empty text.
    virtual QString InputBox(const QString &title, const QString &prompt, const QString &preset) = 0;

    // File dialogs with a filter such as "Verdant DNA (*.gen)". Cancel gives the empty text.
    // Neither changes the process's current directory.
    virtual QString OpenFileName(const QString &title, const QString &folder, const QString &filter,
                                 const QString &defaultSuffix) = 0;
    virtual QString SaveFileName(const QString &title, const QString &folder, const QString &filter,
                                 const QString &defaultSuffix) = 0;

    // The progress window "ProcessingForm": loaded (hidden, centred, titled), shown,
    // updated and unloaded by its users.
    virtual void ProgressLoad(const QString &title) = 0;
    virtual void ProgressShow() = 0;
    virtual bool ProgressVisible() const = 0;
    virtual void ProgressSetValue(int value) = 0;
    virtual void ProgressSetStatus(const QString &text) = 0;
    virtual void ProgressUnload() = 0;

    // Lets windows repaint during a long operation without running user commands.
    virtual void Yield() = 0;
};
