#include "link/MacroLink.h"

#include "core/Session.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>

namespace {
// While a transaction waits for the game, which may take the bus's whole bound: the wait
// cursor and a word on the status label, painted before the call blocks and both put back
// however the transaction ends.
class Waiting
{
public:
    explicit Waiting(QLabel &label) : label(label), before(label.text())
    {
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
        label.setText(MacroLink::WaitingText);
        if (label.isVisible())
            label.repaint();
    }
    ~Waiting()
    {
        label.setText(before);
        QGuiApplication::restoreOverrideCursor();
    }
    Waiting(const Waiting &) = delete;
    Waiting &operator=(const Waiting &) = delete;

private:
    QLabel &label;
    QString before;
};
} // namespace

const QString MacroLink::WaitingText = QStringLiteral("Waiting for Arkenfold...");
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
    bool opened;
    {
        Waiting waiting(status);
        opened = transport.Open(linkTopic, failure);
    }
    if (opened) {
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
    bool done;
    {
        Waiting waiting(status);
        done = transport.Execute(macro, failure);
    }
    if (done)
        return true;
    session.ShowFault(failure.number, failure.description, QStringLiteral("Error injecting macro"));
    return false;
}

bool MacroLink::PokeMacro(const QString &macro, LinkFailure &failure)
{
    dde.setText(macro);
    Waiting waiting(status);
    return transport.Poke(Item, dde.text(), failure);
}

bool MacroLink::ReadMacroResult(LinkFailure &failure)
{
    QString reply;
    bool answered;
    {
        Waiting waiting(status);
        answered = transport.Request(Item, reply, failure);
    }
    if (!answered)
        return false;
    dde.setText(reply);
    session.MacroResult = dde.text();
    return true;
}
