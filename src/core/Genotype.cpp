#include "core/Genotype.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/BrainLobe.h"

#include <cstdlib>

namespace Genotype {

int KindCategory(int type, int subType)
{
    switch (type * 256 + subType) {
    case 0x101: return 0;  // emitters
    case 0x100: return 1;  // receptors
    case 0x102: return 2;  // reactions
    case 0x104: return 3;  // initial concentrations
    case 0x200: return 4;  // stimuli
    case 0x202: return 5;  // appearance
    case 0x203: return 6;  // poses
    case 0x205: return 7;  // instincts
    case 0x204: return 8;  // gaits
    case 0x206: return 9;  // pigmentation
    case 0x300: return 10; // organs
    default: return -1;
    }
}

void GenotypeCounts::Reset()
{
    rows.fill(0);
    lobes = 0;
}

void GenotypeCounts::Add(const Gene &gene)
{
    // Each mark is tested on its own: a gene marked both male and female counts in both rows.
    if (gene.Mutability & 8)
        ++rows[11];
    if (gene.Mutability & 16)
        ++rows[12];
    if (gene.Mutability & 32)
        ++rows[13];
    if (gene.Is(GeneKind::BrainLobe))
        ++lobes;
    const int row = KindCategory(gene.GeneType, gene.GeneSubType);
    if (row >= 0)
        ++rows[size_t(row)];
}

void CountGenome(Session &session, GenotypeCounts &counts)
{
    counts.Reset();
    Prompt &prompt = session.prompt;
    for (int i = 0; i < session.GeneCount; ++i) {
        if (prompt.ProgressVisible()) {
            prompt.Yield();
            prompt.ProgressSetValue(int(Text::RoundHalfEven(90.0 * i / session.GeneCount)));
        }
        if (const Gene *gene = session.GeneAt(i))
            counts.Add(*gene);
    }
}

QString TemplateDifference(int count, qint32 templateCount)
{
    if (count == 0)
        return QStringLiteral("-");
    return QString::number(std::llabs(static_cast<long long>(count) - templateCount));
}

QList<QStringList> CategoryRows(const Session &session, const GenotypeCounts &counts)
{
    QList<QStringList> rows;
    const QStringList &names = session.Tables.GenotypeCategoryNames;
    for (int i = 0; i < names.size() && i < Categories && names[i] != EndMark; ++i) {
        const int count = counts.rows[size_t(i)];
        rows.append({names[i], Text::Str(count),
                     TemplateDifference(count, session.Template.DefaultGeneCounts[size_t(i)])});
    }
    return rows;
}

QString StateRuleSummary(const StateRule &rule, const QStringList &tokens)
{
    if (!rule)
        return QStringLiteral("<undefined>");
    if ((*rule)[0] == 0)
        return QStringLiteral("<empty>");
    QString text;
    for (int i = 0; i < 8; ++i) {
        const int token = (*rule)[size_t(i)];
        if (token == 0)
            break;
        text += (token < tokens.size() ? tokens[token] : tokens.value(tokens.size() - 1)) + QLatin1Char(':');
    }
    return text;
}

LobeTable LobeRows(const Session &session)
{
    LobeTable table;
    for (int i = 0; i < session.GeneCount; ++i) {
        const Gene *gene = session.GeneAt(i);
        if (!gene || !gene->Is(GeneKind::BrainLobe))
            continue;
        const auto &lobe = static_cast<const clsBrainLobe &>(*gene);
        const int neurones = lobe.Width * lobe.Height;
        table.rows.append({Text::Str(table.lobes),
                           session.CaptionStore.GetCaption(lobe.GeneType, lobe.GeneSubType, lobe.ID),
                           Text::Str(lobe.Width), Text::Str(lobe.Height), Text::Str(neurones),
                           StateRuleSummary(lobe.StateRule, session.Tables.SVRuleTokens)});
        table.neurones += neurones;
        ++table.lobes;
    }
    return table;
}

QString GeneticSummaryText(int geneCount) { return Text::Str(geneCount) + QStringLiteral(" gene(s) total."); }

QString BrainLobeSummaryText(long long neurones, int lobes)
{
    return Text::Str(neurones) + QStringLiteral(" neurones in ") + Text::Str(lobes) + QStringLiteral(" lobes");
}

} // namespace Genotype
