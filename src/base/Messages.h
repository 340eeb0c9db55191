#pragma once
#include "base/Prompt.h"

#include <QString>

// The messages the program shows, composed as the user knows them and handed to the
// Prompt: plain messages with a style, errors, warnings, information and faults.
class UserMessages
{
public:
    static const QString Title; // "Helixbench"

    explicit UserMessages(Prompt &prompt) : prompt(prompt) {}
    virtual ~UserMessages() = default;

    Prompt &prompt;

    // A message box; gives the button code.
    int ShowMessage(const QString &text, int style, const QString &title = Title);
    void ShowError(const QString &text);
    void ShowWarning(const QString &text);
    void ShowInfo(const QString &text);
    // The context, then the fault's number and description on a line of their own.
    void ShowFault(qint16 number, const QString &description, const QString &context);
};
