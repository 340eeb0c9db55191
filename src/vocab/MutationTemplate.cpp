#include "vocab/MutationTemplate.h"

#include "core/Session.h"

MutationTemplate::MutationTemplate(Session &s) : session(s)
{
    const qint32 presets[14] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
    for (int i = 0; i < 14; ++i)
        DefaultGeneCounts[size_t(i)] = presets[i];
}

// Placeholder until the template file is built: the presets stand.
void MutationTemplate::LoadDefaultTemplate() {}
bool MutationTemplate::SaveDefaultTemplate() { return true; }
