#pragma once
#include "base/Prompt.h"

#include <QPointer>

class QWidget;
class ProcessingForm;

// The prompts as Qt dialogs.
class QtPrompt : public Prompt
{
public:
    void SetParentWindow(QWidget *w) { parent = w; }

    int Message(const QString &title, const QString &text, int style) override;
    QString InputBox(const QString &title, const QString &prompt, const QString &preset) override;
    QString OpenFileName(const QString &title, const QString &folder, const QString &filter,
                         const QString &defaultSuffix) override;
    QString SaveFileName(const QString &title, const QString &folder, const QString &filter,
                         const QString &defaultSuffix) override;
    void ProgressLoad(const QString &title) override;
    void ProgressShow() override;
    bool ProgressVisible() const override;
    void ProgressSetValue(int value) override;
    void ProgressSetStatus(const QString &text) override;
    void ProgressUnload() override;
    void Yield() override;

private:
    QPointer<QWidget> parent;
    QPointer<ProcessingForm> progress;
};
