#include "settings/HelpTopics.h"

#include "core/GeneKind.h"

#include <algorithm>

namespace {

struct NamedContext
{
    const char *windowName;
    int context;
};

// The dialogs with a context number that are not gene editors.
constexpr NamedContext OtherDialogs[] = {
    {"frmSVRule", GeneKinds::HelpStateRule},
    {"frmChromosomeMap", HelpTopics::ChromosomeMap},
    {"frmOptions", HelpTopics::Options},
    {"NewGeneForm", HelpTopics::NewGene},
};

// The pages of the main window's tabs, in tab order.
constexpr const char *TabAnchors[] = {"tab-cover", "tab-genotype", "tab-geneeditor", "tab-organview",
                                      "tab-biochemistry", "tab-poses", "tab-export"};

} // namespace

namespace HelpTopics {

QString ContentsAnchor() { return QStringLiteral("contents"); }

int ContextOf(const QString &windowName)
{
    for (int i = 0; i < GeneKinds::Count; ++i)
        if (windowName == QLatin1String(GeneKinds::At(i).dialogName))
            return GeneKinds::At(i).helpContext;
    for (const NamedContext &d : OtherDialogs)
        if (windowName == QLatin1String(d.windowName))
            return d.context;
    return 0;
}

QString AnchorOf(int context) { return context > 0 ? QString::number(context) : ContentsAnchor(); }

QString TabAnchor(int tab)
{
    if (tab < 0 || tab >= int(std::size(TabAnchors)))
        return ContentsAnchor();
    return QLatin1String(TabAnchors[tab]);
}

QList<int> AllContexts()
{
    QList<int> all;
    for (int i = 0; i < GeneKinds::Count; ++i)
        all << GeneKinds::At(i).helpContext;
    for (const NamedContext &d : OtherDialogs)
        all << d.context;
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

QStringList AllAnchors()
{
    QStringList all{ContentsAnchor()};
    for (int context : AllContexts())
        all << AnchorOf(context);
    for (const char *tab : TabAnchors)
        all << QLatin1String(tab);
    return all;
}

} // namespace HelpTopics
