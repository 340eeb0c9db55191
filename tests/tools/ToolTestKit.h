#pragma once
// What the tool tests share: for each test a fresh session in a settings sandbox, speaking
// through a scripted prompt, and the main window over it for the tools reached through its
// menus and lists. At the end every prompt a test expected must have come.
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <memory>

class ToolBench
{
protected:
    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;

    void Start(bool withForm)
    {
        FreshSession(sandbox, prompt, session);
        if (withForm)
            (form = std::make_unique<HelixbenchForm>(*session))->BuildAllTabs();
    }
    // Ends a test: the window and the session go, and every expected prompt must have come.
    bool Finish()
    {
        form.reset();
        session.reset();
        return prompt.AllAnswered();
    }
    QString File(const QString &name) const { return sandbox->path() + QLatin1Char('/') + name; }
};
