#include "core/OrganLayout.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/Biochemistry.h"

#include <new>

namespace {

QString ChemicalName(const Session &s, int chem) { return s.Lists.ChemicalNames[size_t(chem & 255)]; }

QString Caption(const Session &s, const Gene &g) { return s.CaptionStore.GetCaption(g.GeneType, g.GeneSubType, g.ID); }

// A failure inside the walk: reported once by BuildOrganTree with its number and description.
struct WalkFault
{
    qint16 number;
    QString description;
};

// The three groups of an organ, in the order of GeneSubType 0, 1, 2.
struct Group
{
    const char *keyPrefix;
    const char *text;
    const QString &image;
};
const Group Groups[3] = {
    {"recep", "Receptors", OrganLayout::ReceptorImage},
    {"em", "Emitters", OrganLayout::EmitterImage},
    {"reac", "Reactions", OrganLayout::ReactionImage},
};

} // namespace

namespace OrganLayout {

bool IsOrganGene(const Gene &gene) { return gene.Is(GeneKind::Organ); }

bool IsMember(const Gene &gene)
{
    return gene.Is(GeneKind::Receptor) || gene.Is(GeneKind::Emitter) || gene.Is(GeneKind::Reaction);
}

QString SexMark(quint8 mutability)
{
    if (mutability & 8)
        return QStringLiteral("M ");
    if (mutability & 16)
        return QStringLiteral("F ");
    return QStringLiteral("B ");
}

// Appends the reaction's formula and half-life to text.
static void AppendReactionDetail(QString &text, const Session &session, const clsReaction &reaction)
{
    static const char *const Between[3] = {" + ", " --> ", " + "};
    for (int i = 0; i < 4; ++i) {
        if (i > 0)
            text += QLatin1String(Between[i - 1]);
        const int chem = reaction.GetChem(i);
        if (chem != 0) {
            text += QString::number(reaction.GetConc(i));
            text += ChemicalName(session, chem);
        } else {
            text += QLatin1String("<nothing>");
        }
    }
    text += QLatin1String(" (half life = ");
    text += session.Tables.HalfLifeName(reaction.Rate);
    text += QLatin1String(")  ");
}

QString ReactionDetail(const Session &session, const clsReaction &reaction)
{
    QString text;
    AppendReactionDetail(text, session, reaction);
    return text;
}

QString OrganGeneText(const Session &session, const Gene &gene)
{
    // Built in one buffer: the tree asks for hundreds of these per rebuild.
    QString text;
    text.reserve(128);
    const int n = gene.Numeric_ID;
    text += QLatin1Char('[');
    text += QLatin1Char(char('0' + n / 100 % 10));
    text += QLatin1Char(char('0' + n / 10 % 10));
    text += QLatin1Char(char('0' + n % 10));
    text += QLatin1String("] - ");
    text += SexMark(gene.Mutability);
    int chem = -1;
    if (gene.Is(GeneKind::Receptor))
        chem = static_cast<const clsReceptor &>(gene).Chem;
    else if (gene.Is(GeneKind::Emitter))
        chem = static_cast<const clsEmitter &>(gene).Chem;
    else if (gene.Is(GeneKind::Reaction))
        AppendReactionDetail(text, session, static_cast<const clsReaction &>(gene));
    if (chem >= 0) {
        text += QLatin1String("[Chem = ");
        text += ChemicalName(session, chem);
        text += QLatin1String("] ");
    }
    text += Caption(session, gene);
    return text;
}

QString OrganSummaryText(int emitters, int receptors, int reactions)
{
    return QStringLiteral("Emitters: ") + QString::number(emitters) + QStringLiteral(", Receptors: ")
           + QString::number(receptors) + QStringLiteral(", Reactions: ") + QString::number(reactions)
           + QStringLiteral(" (Total: ") + QString::number(emitters + receptors + reactions) + QStringLiteral(")");
}

QString StatusText(int members, int organs)
{
    return QStringLiteral("Total genes in organs: ") + QString::number(members) + QStringLiteral(" over ")
           + QString::number(organs) + QStringLiteral(" organs.");
}

} // namespace OrganLayout

const QString OrganTreeBuilder::FaultContext =
    QStringLiteral("Failure to maintain organ list. Please save your work and restart the Helixbench");

bool OrganTreeBuilder::BuildOrganTree(OrganTreeSink &tree)
{
    if (session.GeneCount == 0 || OrganTreeBusy)
        return false;
    OrganTreeBusy = true;
    try {
        Walk(tree);
    } catch (const WalkFault &fault) {
        session.ShowFault(fault.number, fault.description, FaultContext);
    } catch (const std::bad_alloc &) {
        session.ShowFault(7, QStringLiteral("Out of memory"), FaultContext);
    }
    session.OrganViewStale = false;
    OrganTreeBusy = false;
    return true;
}

void OrganTreeBuilder::Walk(OrganTreeSink &tree)
{
    using namespace OrganLayout;
    totals = Totals();
    tree.Clear();

    int organNode = -1;                  // the open organ, -1 before the first
    int groupNode[3] = {-1, -1, -1};     // its group nodes, by GeneSubType
    int groupCount[3] = {0, 0, 0};       // its genes, by GeneSubType
    int memberNumber = 0;                // g: running number of member genes
    bool firstSinceOrgan = true;         // first gene since the start or the last organ

    auto addSummary = [&] {
        tree.AddNode(organNode, QString(), OrganSummaryText(groupCount[1], groupCount[0], groupCount[2]),
                     InformationImage);
    };

    Prompt &prompt = session.prompt;
    for (int i = 0; i < session.GeneCount; ++i) {
        if (firstSinceOrgan && prompt.ProgressVisible()) {
            prompt.Yield();
            prompt.ProgressSetValue(int(Text::RoundHalfEven(90.0 * i / qMax<int>(1, session.GeneCount))));
        }
        firstSinceOrgan = false;
        // A yield may not change the genome, but a list that lost a gene must not crash the walk.
        const Gene *gene = session.GeneAt(i);
        if (!gene)
            throw WalkFault{91, QStringLiteral("Object variable or With block variable not set")};

        if (IsOrganGene(*gene)) {
            if (organNode >= 0)
                addSummary();
            organNode = tree.AddNode(-1, QStringLiteral("or") + QString::number(totals.organs),
                                     Caption(session, *gene), OrganImage);
            ++totals.organs;
            for (int t = 0; t < 3; ++t) {
                groupNode[t] = -1;
                groupCount[t] = 0;
            }
            firstSinceOrgan = true;
            continue;
        }
        if (organNode < 0 || !IsMember(*gene))
            continue;

        const int t = gene->GeneSubType;
        const Group &group = Groups[t];
        ++totals.members;
        if (groupNode[t] < 0)
            groupNode[t] = tree.AddNode(organNode,
                                        QLatin1String(group.keyPrefix) + QString::number(totals.organs - 1),
                                        QLatin1String(group.text), group.image);
        tree.AddNode(groupNode[t], QStringLiteral("voci") + QString::number(memberNumber++),
                     OrganGeneText(session, *gene), group.image);
        ++groupCount[t];
        if (t == 0)
            ++totals.receptors;
        else if (t == 1)
            ++totals.emitters;
        else
            ++totals.reactions;
    }
    if (organNode >= 0)
        addSummary();

    const int stats = tree.AddNode(-1, QStringLiteral("stat01"), QStringLiteral("Total genes in organ status"),
                                   InformationImage);
    tree.AddNode(stats, QStringLiteral("stat01_A"), QStringLiteral("Emitters: ") + QString::number(totals.emitters),
                 EmitterImage);
    tree.AddNode(stats, QStringLiteral("stat01_B"), QStringLiteral("Receptors: ") + QString::number(totals.receptors),
                 ReceptorImage);
    tree.AddNode(stats, QStringLiteral("stat01_C"), QStringLiteral("Reactions: ") + QString::number(totals.reactions),
                 ReactionImage);
    tree.AddNode(stats, QStringLiteral("stat01_D"),
                 QStringLiteral("Total genes in organs: ") + QString::number(totals.members), InformationImage);
    tree.AddNode(stats, QStringLiteral("stat01_E"),
                 QStringLiteral("Genes outside organs: ") + QString::number(session.GeneCount - totals.members),
                 InformationImage);

    tree.SetStatusText(StatusText(totals.members, totals.organs));
}
