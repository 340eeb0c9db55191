#pragma once
#include <QMetaType>
#include <QString>
#include <QVariant>
#include <QtGlobal>

// A failure of the link layer: a number and a description. Number 0 means no failure.
struct LinkFailure
{
    qint16 number = 0;
    QString description;

    bool Raised() const { return number != 0; }
    void Clear() { number = 0; description.clear(); }
};

// The numbers the link layer gives its failures.
namespace LinkFailures {
constexpr qint16 NoBus = 281;      // there is no session bus to carry a conversation
constexpr qint16 NoServer = 282;   // nobody owns the service's name, or it declined the topic
constexpr qint16 Refused = 285;    // the server answered the transaction with an error
constexpr qint16 NoAnswer = 286;   // no reply came within the transport's bound
constexpr qint16 BadReply = 290;   // a reply of the wrong shape
constexpr qint16 ServerGone = 291; // the server left the bus during the conversation
constexpr qint16 NotOpen = 293;    // a transaction with no conversation open
}

// One client conversation with the running game over the session bus. The service
// "Habitat" is the bus name org.arkenfold.Habitat; the game serves the object /Habitat
// with the interface org.arkenfold.Habitat.Conversation (Initiate, Execute, Poke,
// Request, Terminate). Every call blocks the calling thread until the answer comes or the
// bus gives up on it.
class LinkTransport
{
public:
    static const QString BusNamePrefix; // "org.arkenfold."
    static const QString ObjectPath;    // "/Habitat"
    static const QString Interface;     // "org.arkenfold.Habitat.Conversation"

    // Opens a conversation. linkTopic is service and topic joined by '|', as in
    // "Habitat|HELIXBENCH.EXE". A server that is missing or declines gives NoServer.
    bool Open(const QString &linkTopic, LinkFailure &failure);
    // A command string for the server; no reply text.
    bool Execute(const QString &command, LinkFailure &failure);
    // Sends text to a named item.
    bool Poke(const QString &item, const QString &text, LinkFailure &failure);
    // Asks a named item for its text.
    bool Request(const QString &item, QString &reply, LinkFailure &failure);
    // Ends the conversation. Never waits for the server and never fails.
    void Close();

    bool IsOpen() const { return open; }
    QString BusName() const { return busName; }
    QString Topic() const { return topic; }

    // How long one call may wait for its answer, in milliseconds. -1, the default, leaves
    // the bound to the bus library (25 seconds); the workbench itself never sets one.
    void SetCallTimeout(int ms) { timeoutMs = ms; }
    int CallTimeout() const { return timeoutMs; }

private:
    // One blocking call on the conversation. With `expected` other than UnknownType the reply
    // must carry exactly one value of that type, given back in `value`.
    bool Transact(const QString &method, const QVariantList &arguments, bool opening,
                  QMetaType::Type expected, QVariant *value, LinkFailure &failure);

    bool open = false;
    QString busName;
    QString topic;
    int timeoutMs = -1;
};
