#include "Habitat.h"

#include "base/AutoPrompt.h"
#include "core/Session.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>

#include <unistd.h>

namespace {
// The stand-in's answer to every question of the genome reader: yes.
using YesPrompt = AutoPrompt;

} // namespace

Habitat::Habitat(const HabitatOptions &o, QObject *parent) : QObject(parent), options(o), log(o.logFile)
{
    log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text);
}

void Habitat::Log(const QString &method, const QStringList &fields, const QString &outcome, const QString &detail)
{
    QJsonArray line{method};
    for (const QString &f : fields)
        line.append(f);
    line.append(outcome);
    if (!detail.isEmpty())
        line.append(detail);
    log.write(QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n');
    log.flush();
}

bool Habitat::Misbehave(const QString &method, const QStringList &fields)
{
    auto told = [&](const QSet<QString> &set) { return set.contains(method) || set.contains(QStringLiteral("all")); };
    if (method == options.quitOn) {
        Log(method, fields, QStringLiteral("quit"));
        log.close();
        ::_exit(0); // gone from the bus without a word, as a crashing game would be
    }
    if (told(options.hang)) {
        setDelayedReply(true); // and never send it
        Log(method, fields, QStringLiteral("hang"));
        return true;
    }
    // Each line is written before its answer goes out, so that whoever reads the answer
    // finds the line already there.
    if (told(options.reject)) {
        Log(method, fields, QStringLiteral("refused"));
        sendErrorReply(QStringLiteral("org.arkenfold.Habitat.Error.Refused"),
                       QStringLiteral("The game refused the %1 transaction").arg(method));
        return true;
    }
    if (told(options.garbage)) {
        Log(method, fields, QStringLiteral("garbage"));
        setDelayedReply(true);
        connection().send(message().createReply(QVariantList{quint32(42), QStringLiteral("garbage")}));
        return true;
    }
    return false;
}

bool Habitat::RefuseItem(const QString &method, const QStringList &fields)
{
    // "Macro" is the one item the game has; a poke or request to any other is an error, as
    // a real game may answer it.
    if (fields.value(1) == QLatin1String("Macro"))
        return false;
    Log(method, fields, QStringLiteral("refused"));
    sendErrorReply(QStringLiteral("org.arkenfold.Habitat.Error.NoSuchItem"),
                   QStringLiteral("The game has no item '%1'").arg(fields.value(1)));
    return true;
}

bool Habitat::Initiate(const QString &topic)
{
    if (Misbehave(QStringLiteral("Initiate"), {topic, QString(), QString()}))
        return false;
    Log(QStringLiteral("Initiate"), {topic, QString(), QString()}, options.decline ? QStringLiteral("declined") : QStringLiteral("ok"));
    return !options.decline;
}

void Habitat::Execute(const QString &topic, const QString &command)
{
    if (Misbehave(QStringLiteral("Execute"), {topic, QString(), command}))
        return;
    // The only macro the stand-in looks into: an egg must find its genome file.
    const bool egg = command.contains(QStringLiteral("gene tokn wisp"));
    Log(QStringLiteral("Execute"), {topic, QString(), command}, QStringLiteral("ok"), egg ? CheckEgg() : QString());
}

void Habitat::Poke(const QString &topic, const QString &item, const QString &text)
{
    if (Misbehave(QStringLiteral("Poke"), {topic, item, text}))
        return;
    if (RefuseItem(QStringLiteral("Poke"), {topic, item, text}))
        return;
    Log(QStringLiteral("Poke"), {topic, item, text}, QStringLiteral("ok"));
}

QString Habitat::Request(const QString &topic, const QString &item)
{
    if (Misbehave(QStringLiteral("Request"), {topic, item, QString()}))
        return QString();
    if (RefuseItem(QStringLiteral("Request"), {topic, item, QString()}))
        return QString();
    Log(QStringLiteral("Request"), {topic, item, options.reply}, QStringLiteral("ok"));
    return options.reply;
}

void Habitat::Terminate(const QString &topic)
{
    if (Misbehave(QStringLiteral("Terminate"), {topic, QString(), QString()}))
        return;
    Log(QStringLiteral("Terminate"), {topic, QString(), QString()}, QStringLiteral("ok"));
}

QString Habitat::CheckEgg() const
{
    const QString path = QDir(options.geneticsDirectory).filePath(QStringLiteral("wisp.gen"));
    QFile file(path);
    if (!file.exists())
        return QStringLiteral("egg: wisp.gen missing");
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("egg: wisp.gen unreadable");
    const QByteArray bytes = file.read(::GenomeImage::Size + 1);
    if (bytes.size() > ::GenomeImage::Size)
        return QStringLiteral("egg: wisp.gen too long");

    YesPrompt prompt;
    Session session(prompt);
    std::copy(bytes.cbegin(), bytes.cend(), reinterpret_cast<char *>(session.GenomeImage.Bytes.data()));
    session.GenomeImage.WriteCursor = int(bytes.size());
    if (!session.DecodeGenome())
        return QStringLiteral("egg: wisp.gen does not decode");
    QString detail = QStringLiteral("egg: decoded %1 genes, %2 bytes").arg(session.GeneCount).arg(bytes.size());
    if (prompt.messages > 0)
        detail += QStringLiteral(", %1 messages answered").arg(prompt.messages);
    return detail;
}
