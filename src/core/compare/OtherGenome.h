#pragma once
#include "base/AutoPrompt.h"

#include <QList>
#include <QString>
#include <memory>

class Session;

// A user who is not there: answers as AutoPrompt does (Yes to each question, so that a
// damaged file is recovered as far as a load can) and keeps every message for a window.
class CollectingPrompt : public AutoPrompt
{
public:
    struct Note
    {
        QString title, text;
        int style = 0, answer = 0;
    };
    QList<Note> notes;

    CollectingPrompt() { defaultInput.clear(); }
    int Message(const QString &title, const QString &text, int style) override;
};

// A genome read from a file beside the open one, into a session of its own: its own image,
// gene list and captions, read with the same folding and recovery as a load, its messages
// collected rather than shown. The open session is only looked at, for its preferences.
class OtherGenome
{
public:
    explicit OtherGenome(const Session &like);
    ~OtherGenome();

    // Reads the file (and its captions). A file that does not begin with "dna2" but with a
    // gene is read in the older format. False: the load failed and no gene was kept.
    bool Read(const QString &fileName);

    Session &Genome() { return *session; }
    const Session &Genome() const { return *session; }
    QString FileName() const { return fileName; }
    bool Loaded() const { return loaded; }
    bool OlderFormat() const { return older; }
    // Each message of the read as a line: its title unless it is the usual one, its text
    // on one line, and the answer that a question got.
    QStringList Messages() const;

private:
    CollectingPrompt prompt;
    std::unique_ptr<Session> session;
    QString fileName;
    bool loaded = false, older = false;
};
