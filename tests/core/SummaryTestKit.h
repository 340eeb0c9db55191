#pragma once
// What the summary and gene command tests share: genes appended straight to the list (no editor,
// no checks) with their ID, marks and caption, and the mutation template's gene counts.
#include "core/Gene.h"
#include "core/Session.h"

namespace SummaryTestKit {

template <typename T = Gene>
T &Add(Session &s, int type, int subType, int id = 1, const QString &caption = {}, quint8 mutability = 0)
{
    Gene *g = MakeGene(s, type, subType).release();
    g->ID = quint8(id);
    g->Mutability = mutability;
    g->Numeric_ID = s.GeneCount;
    s.GeneList[size_t(s.GeneCount++)].reset(g);
    if (!caption.isEmpty())
        s.CaptionStore.SetCaption(type, subType, id, caption);
    return static_cast<T &>(*g);
}

inline void SetTemplate(Session &s)
{
    s.Template.DefaultGeneCounts = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
}

} // namespace SummaryTestKit
