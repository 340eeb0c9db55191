#include "link/LinkTransport.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusReply>

const QString LinkTransport::BusNamePrefix = QStringLiteral("org.arkenfold.");
const QString LinkTransport::ObjectPath = QStringLiteral("/Habitat");
const QString LinkTransport::Interface = QStringLiteral("org.arkenfold.Habitat.Conversation");

namespace {
bool BusReady(QDBusConnection &bus, LinkFailure &failure)
{
    if (bus.isConnected())
        return true;
    failure.number = LinkFailures::NoBus;
    failure.description = bus.lastError().message();
    if (failure.description.isEmpty())
        failure.description = QStringLiteral("No session bus is available");
    return false;
}

bool NameHasOwner(QDBusConnection &bus, const QString &name)
{
    QDBusConnectionInterface *daemon = bus.interface();
    if (!daemon)
        return false;
    const QDBusReply<bool> owned = daemon->isServiceRegistered(name);
    return owned.isValid() && owned.value();
}

// Gives an error reply its number. While opening, a server that is gone or never was
// is the "no server" case; later it is a server that quit in the middle.
LinkFailure FailureOf(QDBusConnection &bus, const QDBusMessage &reply, const QString &busName, bool opening)
{
    LinkFailure failure;
    const QDBusError error(reply);
    failure.description = error.message().isEmpty() ? error.name() : error.message();
    const qint16 gone = opening ? LinkFailures::NoServer : LinkFailures::ServerGone;
    // With auto-start off, the daemon answers a call to a name nobody owns with
    // NameHasNoOwner, which Qt files under "other".
    if (error.name() == QLatin1String("org.freedesktop.DBus.Error.NameHasNoOwner")) {
        failure.number = gone;
        return failure;
    }
    switch (error.type()) {
    case QDBusError::ServiceUnknown:
        failure.number = gone;
        break;
    case QDBusError::NoReply:
    case QDBusError::Timeout:
    case QDBusError::TimedOut:
        // A server that left without answering shows up as "no reply" too.
        failure.number = NameHasOwner(bus, busName) ? LinkFailures::NoAnswer : gone;
        break;
    case QDBusError::Disconnected:
        failure.number = LinkFailures::NoBus;
        break;
    default:
        failure.number = LinkFailures::Refused;
        break;
    }
    return failure;
}

QDBusMessage Call(const QString &busName, const QString &method, const QVariantList &arguments)
{
    QDBusMessage call = QDBusMessage::createMethodCall(busName, LinkTransport::ObjectPath,
                                                       LinkTransport::Interface, method);
    call.setAutoStartService(false); // the game is started by its player, never by the bus
    call.setArguments(arguments);
    return call;
}

bool NotOpen(LinkFailure &failure)
{
    failure.number = LinkFailures::NotOpen;
    failure.description = QStringLiteral("No conversation is open");
    return false;
}
} // namespace

bool LinkTransport::Transact(const QString &method, const QVariantList &arguments, bool opening,
                             QMetaType::Type expected, QVariant *value, LinkFailure &failure)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!BusReady(bus, failure))
        return false;
    const QDBusMessage reply = bus.call(Call(busName, method, arguments), QDBus::Block, timeoutMs);
    if (reply.type() != QDBusMessage::ReplyMessage) {
        failure = FailureOf(bus, reply, busName, opening);
        return false;
    }
    if (expected == QMetaType::UnknownType)
        return true;
    const QVariantList values = reply.arguments();
    if (values.size() != 1 || values[0].typeId() != expected) {
        failure.number = LinkFailures::BadReply;
        failure.description = QStringLiteral("%1 was answered with the signature '%2' instead of '%3'")
                                  .arg(method, reply.signature(),
                                       expected == QMetaType::Bool ? QStringLiteral("b") : QStringLiteral("s"));
        return false;
    }
    *value = values[0];
    return true;
}

bool LinkTransport::Open(const QString &linkTopic, LinkFailure &failure)
{
    failure.Clear();
    if (open)
        Close();
    const int bar = linkTopic.indexOf(QLatin1Char('|'));
    const QString service = bar < 0 ? linkTopic : linkTopic.left(bar);
    busName = BusNamePrefix + service;
    topic = bar < 0 ? QString() : linkTopic.mid(bar + 1);

    QVariant accepted;
    if (!Transact(QStringLiteral("Initiate"), {topic}, true, QMetaType::Bool, &accepted, failure))
        return false;
    if (!accepted.toBool()) {
        failure.number = LinkFailures::NoServer;
        failure.description = QStringLiteral("%1 declined the topic '%2'").arg(busName, topic);
        return false;
    }
    open = true;
    return true;
}

bool LinkTransport::Execute(const QString &command, LinkFailure &failure)
{
    failure.Clear();
    if (!open)
        return NotOpen(failure);
    return Transact(QStringLiteral("Execute"), {topic, command}, false, QMetaType::UnknownType, nullptr, failure);
}

bool LinkTransport::Poke(const QString &item, const QString &text, LinkFailure &failure)
{
    failure.Clear();
    if (!open)
        return NotOpen(failure);
    return Transact(QStringLiteral("Poke"), {topic, item, text}, false, QMetaType::UnknownType, nullptr, failure);
}

bool LinkTransport::Request(const QString &item, QString &text, LinkFailure &failure)
{
    failure.Clear();
    if (!open)
        return NotOpen(failure);
    QVariant answer;
    if (!Transact(QStringLiteral("Request"), {topic, item}, false, QMetaType::QString, &answer, failure))
        return false;
    text = answer.toString();
    return true;
}

void LinkTransport::Close()
{
    if (!open)
        return;
    open = false;
    // Sent without waiting: a server that hangs or has gone cannot hold the close up.
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (bus.isConnected())
        bus.send(Call(busName, QStringLiteral("Terminate"), {topic}));
}
