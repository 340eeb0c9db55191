#pragma once
#include "core/GeneKind.h"
#include "core/compare/GeneFields.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class Session;

// Two genomes side by side, gene by gene. Genes pair up by kind, ID and Generation (the n-th
// gene of a key on the left with the n-th of that key on the right), wherever they stand;
// a pair is the same or changed by its fields, and a gene without a partner is on one side only.
namespace GenomeCompare {

enum class PairState { Same, Changed, OnlyLeft, OnlyRight };

struct GenePair
{
    int left = -1, right = -1; // gene numbers; -1: none on that side
    GeneKind kind = GeneKind::BrainLobe;
    PairState state = PairState::Same;
    // The fields that differ, header fields first, each in file order.
    QVector<const GeneField *> changed;
};

struct Comparison
{
    // Left genes in their order, each right-only gene behind the left gene whose partner
    // stands last before it on the right.
    QVector<GenePair> pairs;
    int Count(PairState state) const;
};

// The records of a genome's genes as they stand (header and body, current format), in gene
// order. Neither the session's image nor an open editor is touched.
QVector<QByteArray> GeneRecords(Session &session);

Comparison Compare(const QVector<QByteArray> &left, const QVector<QByteArray> &right);
Comparison Compare(Session &left, Session &right);

// "same", "changed", "only left", "only right".
QString StateText(PairState state);

// Filters of the comparison window: differences only, and one kind (-1: every kind).
bool Shown(const GenePair &pair, bool differencesOnly, int kindIndex);

} // namespace GenomeCompare
