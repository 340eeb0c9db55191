#pragma once
#include "core/BodyIO.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <array>

class Gene;
class Session;

// The genotype summary: genes counted by category beside the mutation template, and the
// brain lobes with their sizes and state rules.
namespace Genotype {

// Rows of the category table shown; the table itself ends with the mark "END".
constexpr int Categories = 14;
inline const QString EndMark = QStringLiteral("END");

// The category row that counts a gene of this kind, or -1 (half-lives, pigment bleed, the
// genus gene, brain lobes and brain organs have none).
int KindCategory(int type, int subType);

// One 16-bit counter per category row and one for brain lobes. Rows 11 to 13 count the sex
// and carry marks across all kinds, so a gene may be counted twice or three times.
struct GenotypeCounts
{
    std::array<qint16, Categories> rows{};
    qint16 lobes = 0;

    void Reset();
    void Add(const Gene &gene);
};

// Recounts the genome into counts. While the progress window is visible it yields and
// updates the bar before each gene.
void CountGenome(Session &session, GenotypeCounts &counts);

// "Mutations from template": "-" for an absent category, else |count - template|.
QString TemplateDifference(int count, qint32 templateCount);

// The rows of the breakdown list: name, count with a blank before it, difference.
QList<QStringList> CategoryRows(const Session &session, const GenotypeCounts &counts);

// A lobe's state rule for the list: tokens up to the first 0 among entries 0..7, each
// followed by ":"; "<undefined>" for no rule, "<empty>" for a rule that starts with 0.
// A token beyond the table shows as its last row.
QString StateRuleSummary(const StateRule &rule, const QStringList &tokens);

// The rows of the brain list in gene order, and the neurones and lobes they add up to.
struct LobeTable
{
    QList<QStringList> rows;
    long long neurones = 0;
    int lobes = 0;
};
LobeTable LobeRows(const Session &session);

QString GeneticSummaryText(int geneCount);
QString BrainLobeSummaryText(long long neurones, int lobes);

} // namespace Genotype
