#pragma once
#include "link/LinkTransport.h"

#include <QString>

class Session;
class QLabel;
class QLineEdit;

// The workbench's line to the running game. Each command opens a conversation, does its
// one transaction or pair of transactions and closes it again.
class MacroLink
{
public:
    static const QString Service; // "Habitat"
    static const QString Item;    // "Macro"
    // Shown on the status label while a transaction waits for its answer, with the wait cursor.
    static const QString WaitingText; // "Waiting for Arkenfold..."

    // dde: the hidden text control that is the conversation's data buffer;
    // status: the InjectStatusLabel of the Export tab.
    MacroLink(Session &session, QLineEdit &dde, QLabel &status);

    // Opens a conversation; on failure reports it, shows "Disconnected" and returns false.
    bool OpenMacroLink();
    // Ends the conversation. Leaves the status words as they stand and reports nothing.
    void CloseMacroLink();
    // One execute transaction; a failure is reported here and gives false.
    bool ExecuteMacro(const QString &macro);
    // Sends the macro to the link's item; a failure is handed back in failure, unreported.
    bool PokeMacro(const QString &macro, LinkFailure &failure);
    // Asks the item "Macro" for the reply and keeps it in the session's MacroResult;
    // a failure is handed back in failure, unreported.
    bool ReadMacroResult(LinkFailure &failure);

    void SetStatus(const QString &text);

    // The topic: the program's file name without its extension, in upper case, + ".EXE".
    static QString ProgramTopic();

    LinkTransport &Transport() { return transport; }

private:
    Session &session;
    QLineEdit &dde;
    QLabel &status;
    LinkTransport transport;
};
