#pragma once
#include "core/Prompt.h"

// A user who answers Yes to every question and Ok to every message, gives "x" to every
// input box and cancels every file dialog: it lets a reader run every branch it can reach.
class FuzzPrompt : public Prompt
{
public:
    int messages = 0;

    int Message(const QString &, const QString &, int style) override
    {
        ++messages;
        const int buttons = style & 15;
        return buttons == 3 || buttons == 4 ? Yes : Ok;
    }
    QString InputBox(const QString &, const QString &, const QString &) override { return QStringLiteral("x"); }
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
