#pragma once
#include "base/Prompt.h"

#include <QStringList>
#include <cstdio>

// A user who is never asked anything in person: Yes to every question, Ok to every message,
// the next queued text (else defaultInput) to every input box, Cancel to every file dialog.
// Headless programs (the stand-in game, the data generator, benchmarks, fuzz targets) run
// the session with it; it counts the messages so that a caller can check a run was silent.
class AutoPrompt : public Prompt
{
public:
    int messages = 0;
    bool echo = false; // write each message to standard error
    QStringList inputs;
    QString defaultInput = QStringLiteral("x");

    int Message(const QString &title, const QString &text, int style) override
    {
        ++messages;
        if (echo)
            std::fprintf(stderr, "%s: %s\n", qPrintable(title), qPrintable(text));
        const int buttons = style & 15;
        return buttons == 3 || buttons == 4 ? Yes : Ok;
    }
    QString InputBox(const QString &, const QString &, const QString &) override
    {
        return inputs.isEmpty() ? defaultInput : inputs.takeFirst();
    }
    QString OpenFileName(const QString &, const QString &, const QString &, const QString &) override { return {}; }
    QString SaveFileName(const QString &, const QString &, const QString &, const QString &) override { return {}; }
    void ProgressLoad(const QString &) override { visible = false; }
    void ProgressShow() override { visible = true; }
    bool ProgressVisible() const override { return visible; }
    void ProgressSetValue(int) override {}
    void ProgressSetStatus(const QString &) override {}
    void ProgressUnload() override { visible = false; }
    void Yield() override {}

private:
    bool visible = false;
};
