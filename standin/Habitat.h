#pragma once
#include <QDBusContext>
#include <QFile>
#include <QObject>
#include <QSet>
#include <QString>

// What the stand-in was told to do on its command line.
struct HabitatOptions
{
    QString logFile;
    QString reply;            // the text every Request gets
    QSet<QString> hang;       // methods never answered ("all": every method)
    QSet<QString> reject;     // methods answered with an error
    QSet<QString> garbage;    // methods answered with a reply of the wrong shape
    QString quitOn;           // leaves the bus, unanswered, when this method arrives
    bool decline = false;     // Initiate answers false
    QString geneticsDirectory;
};

// The game's side of the conversation, served at /Habitat. Every transaction becomes one
// line of the log, a JSON array: method, topic, item, text, outcome and, for an egg, what
// became of wisp.gen.
class Habitat : public QObject, protected QDBusContext
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.arkenfold.Habitat.Conversation")
public:
    explicit Habitat(const HabitatOptions &options, QObject *parent = nullptr);
    bool LogOpen() const { return log.isOpen(); }

public slots:
    bool Initiate(const QString &topic);
    void Execute(const QString &topic, const QString &command);
    void Poke(const QString &topic, const QString &item, const QString &text);
    QString Request(const QString &topic, const QString &item);
    void Terminate(const QString &topic);

private:
    // Handles the told misbehaviours; true if the call is answered (or not) that way.
    bool Misbehave(const QString &method, const QStringList &fields);
    // Refuses a poke or request to an item other than "Macro"; true when it did.
    bool RefuseItem(const QString &method, const QStringList &fields);
    void Log(const QString &method, const QStringList &fields, const QString &outcome,
             const QString &detail = QString());
    // Looks at wisp.gen in the genetics folder: is it there, and does it decode?
    QString CheckEgg() const;

    HabitatOptions options;
    QFile log;
};
