#pragma once
#include "base/AutoPrompt.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

// The fuzz targets' user: Yes and Ok to everything, so a reader runs every branch it can reach.
using FuzzPrompt = AutoPrompt;

// Keeps the last message, so a reported fault can be checked for what it says.
class RecordingPrompt : public FuzzPrompt
{
public:
    QString text;
    int style = 0;

    int Message(const QString &title, const QString &body, int s) override
    {
        text = body;
        style = s;
        return FuzzPrompt::Message(title, body, s);
    }
};

// The text of a fault message, put together here on its own so that it checks the program's:
// the context, LF CR, then the number (with its blank) and the description.
inline QString FaultText(const QString &context, int number, const QString &description)
{
    return context + QStringLiteral("\n\rDescription: Error ID ") + QString::number(number) + QStringLiteral(" (")
           + description + QLatin1Char(')');
}

// AddressSanitizer's settings for every target, unless ASAN_OPTIONS says otherwise. Recording
// the stack of every allocation costs a third of a genome input; a finding is reproduced from
// its saved input anyway, with ASAN_OPTIONS=malloc_context_size=30 to see where memory came from.
extern "C" const char *__asan_default_options() { return "malloc_context_size=0"; }

// A broken expectation is a finding: name it and stop.
#define FUZZ_CHECK(condition)                                                                    \
    do {                                                                                         \
        if (!(condition)) {                                                                      \
            std::fprintf(stderr, "%s:%d: expectation failed: %s\n", __FILE__, __LINE__, #condition); \
            std::abort();                                                                        \
        }                                                                                        \
    } while (0)
