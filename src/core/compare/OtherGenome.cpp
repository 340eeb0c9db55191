#include "core/compare/OtherGenome.h"

#include "base/Messages.h"
#include "core/Session.h"

#include <QFile>

namespace {
const QString CompatibilityTitle = QStringLiteral("Compatibility Mode Warning");
}

int CollectingPrompt::Message(const QString &title, const QString &text, int style)
{
    const int answer = AutoPrompt::Message(title, text, style);
    notes.append({title, text, style, answer});
    return answer;
}

OtherGenome::OtherGenome(const Session &like) : session(std::make_unique<Session>(prompt))
{
    Session &s = *session;
    s.AppDirectory = like.AppDirectory;
    s.UseDefaultCaptions = like.UseDefaultCaptions;
    s.Tables.Build();
}

OtherGenome::~OtherGenome() = default;

bool OtherGenome::Read(const QString &name)
{
    fileName = name;
    QFile file(name);
    const QByteArray start = file.open(QIODevice::ReadOnly) ? file.read(4) : QByteArray();
    file.close();
    older = start != "dna2" && start == "gene";
    session->CompatibilityMode = older ? QStringLiteral("1") : QStringLiteral("0");

    loaded = session->LoadGenomeFile(name);
    // The question of the older format was asked for the load's sake, not the user's.
    if (older && !prompt.notes.isEmpty() && prompt.notes.first().title == CompatibilityTitle)
        prompt.notes.removeFirst();
    return loaded;
}

QStringList OtherGenome::Messages() const
{
    QStringList lines;
    if (older)
        lines << QStringLiteral("The file does not begin with 'dna2': it was read in the older format.");
    for (const CollectingPrompt::Note &n : prompt.notes) {
        QString text = n.text;
        text.replace(QLatin1String("\r\n"), QLatin1String(" ")).replace(QLatin1String("\n\r"), QLatin1String(" "));
        if (n.title != UserMessages::Title)
            text = n.title + QStringLiteral(": ") + text;
        const int buttons = n.style & 15;
        if (buttons == 3 || buttons == 4)
            text += n.answer == Prompt::Yes ? QStringLiteral(" [answered Yes]") : QStringLiteral(" [answered No]");
        lines << text;
    }
    return lines;
}
