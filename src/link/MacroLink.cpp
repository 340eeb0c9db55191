#include "link/MacroLink.h"

#include "core/Session.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>

const QString MacroLink::Service = QStringLiteral("Habitat");
const QString MacroLink::Item = QStringLiteral("Macro");

MacroLink::MacroLink(Session &s, QLineEdit &buffer, QLabel &label) : session(s), dde(buffer), status(label) {}

QString MacroLink::ProgramTopic()
{
    // Asked at every open, so a renamed program file gives a new topic.
    return QFileInfo(QCoreApplication::applicationFilePath()).completeBaseName().toUpper() + QStringLiteral(".EXE");
}

void MacroLink::SetStatus(const QString &text) { status.setText(text); }

bool MacroLink::OpenMacroLink()
{
    session.MacroResult.clear();
    dde.clear();
    const QString linkTopic = Service + QLatin1Char('|') + ProgramTopic();
    LinkFailure failure;
    if (transport.Open(linkTopic, failure)) {
        SetStatus(QStringLiteral("Link established"));
        return true;
    }
    if (failure.number == LinkFailures::NoServer)
        session.ShowError(QStringLiteral("Cannot contact Arkenfold application"));
    else
        session.ShowFault(failure.number, failure.description, QStringLiteral("Error making DDE link with Arkenfold"));
    SetStatus(QStringLiteral("Disconnected"));
    transport.Close();
    return false;
}

void MacroLink::CloseMacroLink() { transport.Close(); }

bool MacroLink::ExecuteMacro(const QString &macro)
{
    LinkFailure failure;
    if (transport.Execute(macro, failure))
        return true;
    session.ShowFault(failure.number, failure.description, QStringLiteral("Error injecting macro"));
    return false;
}

bool MacroLink::PokeMacro(const QString &macro, LinkFailure &failure)
{
    dde.setText(macro);
    return transport.Poke(Item, dde.text(), failure);
}

bool MacroLink::ReadMacroResult(LinkFailure &failure)
{
    QString reply;
    if (!transport.Request(Item, reply, failure))
        return false;
    dde.setText(reply);
    session.MacroResult = dde.text();
    return true;
}
