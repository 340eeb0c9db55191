#pragma once
#include "base/Prompt.h"

#include <QList>
#include <QQueue>
#include <QString>

// Answers each prompt from a queue of expected prompts and records everything shown.
// A prompt that nobody expected, or one of another kind than expected, fails the test.
class ScriptedPrompt : public Prompt
{
public:
    struct Shown
    {
        QString kind; // "message", "input", "open", "save"
        QString title;
        QString text;
        int style = 0;
    };

    // Queue the answer to the next prompt of the kind.
    ScriptedPrompt &AnswerMessage(int button) { return Queue(QStringLiteral("message"), button, {}); }
    ScriptedPrompt &AnswerInput(const QString &text) { return Queue(QStringLiteral("input"), 0, text); }
    ScriptedPrompt &AnswerOpen(const QString &fileName) { return Queue(QStringLiteral("open"), 0, fileName); }
    ScriptedPrompt &AnswerSave(const QString &fileName) { return Queue(QStringLiteral("save"), 0, fileName); }

    QList<Shown> shown;
    bool AllAnswered() const { return expected.isEmpty(); }
    // The texts of the messages shown, in order.
    QStringList MessageTexts() const;
    const Shown &Last() const { return shown.last(); }
    void Clear() { shown.clear(); expected.clear(); }

    // Progress window state, as a test sees it.
    QString progressTitle;
    bool progressLoaded = false, progressVisible = false;
    int progressValue = 0, progressLoads = 0, yields = 0;
    QString progressStatus;

    int Message(const QString &title, const QString &text, int style) override;
    QString InputBox(const QString &title, const QString &prompt, const QString &preset) override;
    QString OpenFileName(const QString &title, const QString &folder, const QString &filter,
                         const QString &defaultSuffix) override;
    QString SaveFileName(const QString &title, const QString &folder, const QString &filter,
                         const QString &defaultSuffix) override;
    void ProgressLoad(const QString &title) override;
    void ProgressShow() override { progressVisible = progressLoaded; }
    bool ProgressVisible() const override { return progressVisible; }
    void ProgressSetValue(int value) override { progressValue = value; }
    void ProgressSetStatus(const QString &text) override { progressStatus = text; }
    void ProgressUnload() override { progressLoaded = progressVisible = false; }
    void Yield() override;

    // The folder the last file dialog opened in.
    QString lastFolder;

private:
    struct Answer
    {
        QString kind;
        int button = 0;
        QString text;
    };
    QQueue<Answer> expected;
    ScriptedPrompt &Queue(const QString &kind, int button, const QString &text)
    {
        expected.enqueue({kind, button, text});
        return *this;
    }
    Answer Next(const QString &kind, const QString &title, const QString &text);
    // An open or save dialog: where it opened and what it offered, then the queued name.
    QString FileName(const QString &kind, const QString &title, const QString &folder, const QString &filter);
};
