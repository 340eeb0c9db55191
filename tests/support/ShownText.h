#pragma once
#include "support/ScriptedPrompt.h"

// A prompt as one text, "title|style|text", so that a test compares all three in one check.
inline QString ShownText(const ScriptedPrompt::Shown &s)
{
    return s.title + QLatin1Char('|') + QString::number(s.style) + QLatin1Char('|') + s.text;
}

inline QString ShownText(const QString &title, int style, const QString &text)
{
    return title + QLatin1Char('|') + QString::number(style) + QLatin1Char('|') + text;
}
