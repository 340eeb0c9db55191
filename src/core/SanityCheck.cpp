#include "core/SanityCheck.h"

#include "base/Text.h"
#include "core/Gene.h"
#include "core/Session.h"

bool AreDuplicates(const Gene &a, const Gene &b)
{
    return &a != &b && a.GeneType == b.GeneType && a.GeneSubType == b.GeneSubType && a.ID == b.ID
           && a.Generation == b.Generation;
}

int SanityCheck(Session &session)
{
    Prompt &prompt = session.prompt;
    prompt.ProgressLoad(QStringLiteral("Please Wait"));
    prompt.ProgressSetValue(0);
    prompt.ProgressShow();
    const QString before = session.StatusPanel[1];
    session.SetStatusPanel(1, QStringLiteral("Processing..."));

    const int count = session.GeneCount;
    const auto caption = [&session](const Gene &g) {
        return session.CaptionStore.GetCaption(g.GeneType, g.GeneSubType, g.ID);
    };
    int errors = 0; // one for each box shown
    for (int i = 0; i < count; ++i) {
        prompt.Yield();
        prompt.Yield();
        prompt.ProgressSetValue(int(Text::RoundHalfEven(100.0 * i / count)));
        prompt.ProgressSetStatus(QStringLiteral("Working on gene ") + QString::number(i) + QStringLiteral(" of ")
                                 + QString::number(count));
        const Gene *a = session.GeneAt(i);
        if (!a)
            continue;
        for (int j = 0; j < count; ++j) {
            const Gene *b = session.GeneAt(j);
            if (!b || i == j || !AreDuplicates(*a, *b))
                continue;
            ++errors;
            session.ShowError(QStringLiteral("Caution. Duplicate ID for gene #") + QString::number(a->ID)
                              + QStringLiteral(" (") + caption(*a) + QStringLiteral(")") + Text::CRLF
                              + QStringLiteral("Duplicate is gene #") + QString::number(j) + QStringLiteral(" (")
                              + caption(*b) + QStringLiteral(")"));
        }
    }

    prompt.ProgressUnload();
    session.SetStatusPanel(1, before);
    session.ShowInfo(QStringLiteral("Total errors (duplicates) found = ") + QString::number(errors));
    return errors;
}
