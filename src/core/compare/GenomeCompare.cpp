#include "core/compare/GenomeCompare.h"

#include "core/Gene.h"
#include "core/Session.h"

#include <QHash>
#include <algorithm>
#include <memory>

namespace GenomeCompare {

namespace {

// Kind, ID and Generation: record bytes 4 to 7.
quint32 Key(const QByteArray &record)
{
    if (record.size() < 8)
        return 0xFFFFFFFFu;
    return quint32(quint8(record.at(4))) << 24 | quint32(quint8(record.at(5))) << 16 | quint32(quint8(record.at(6))) << 8
           | quint8(record.at(7));
}

GeneKind KindOf(const QByteArray &record)
{
    const GeneKindInfo *k = record.size() >= 6 ? GeneKinds::Find(quint8(record.at(4)), quint8(record.at(5))) : nullptr;
    return k ? k->kind : GeneKind::BrainLobe;
}

void Diff(GenePair &pair, const QByteArray &a, const QByteArray &b)
{
    for (const GeneField &f : GeneFields::Header())
        if (GeneFields::Differs(f, a, b))
            pair.changed.append(&f);
    for (const GeneField &f : GeneFields::Body(pair.kind))
        if (GeneFields::Differs(f, a, b))
            pair.changed.append(&f);
    pair.state = pair.changed.isEmpty() ? PairState::Same : PairState::Changed;
}

} // namespace

int Comparison::Count(PairState state) const
{
    return int(std::count_if(pairs.cbegin(), pairs.cend(), [state](const GenePair &p) { return p.state == state; }));
}

QVector<QByteArray> GeneRecords(Session &s)
{
    auto scratch = std::make_unique<GenomeImage>();
    QVector<QByteArray> records;
    records.reserve(s.GeneCount);
    for (int i = 0; i < s.GeneCount; ++i) {
        scratch->WriteCursor = 0;
        s.GeneList[size_t(i)]->WriteRecord(*scratch);
        records.append(QByteArray(reinterpret_cast<const char *>(scratch->Bytes.data()), scratch->WriteCursor));
    }
    return records;
}

Comparison Compare(const QVector<QByteArray> &left, const QVector<QByteArray> &right)
{
    // The right genes of each key, in their order, taken from the front as left genes claim them.
    QHash<quint32, QVector<int>> waiting;
    for (int j = right.size() - 1; j >= 0; --j)
        waiting[Key(right.at(j))].append(j);
    QVector<int> partnerOfRight(right.size(), -1);

    struct Placed
    {
        int anchor, order;
        GenePair pair;
    };
    QVector<Placed> placed;
    placed.reserve(left.size() + right.size());
    for (int i = 0; i < left.size(); ++i) {
        GenePair pair;
        pair.left = i;
        pair.kind = KindOf(left.at(i));
        auto it = waiting.find(Key(left.at(i)));
        if (it != waiting.end() && !it->isEmpty()) {
            pair.right = it->takeLast();
            partnerOfRight[pair.right] = i;
            Diff(pair, left.at(i), right.at(pair.right));
        } else {
            pair.state = PairState::OnlyLeft;
        }
        placed.append({i, -1, pair});
    }
    int anchor = -1; // the left partner of the last paired right gene seen
    for (int j = 0; j < right.size(); ++j) {
        if (partnerOfRight[j] >= 0) {
            anchor = partnerOfRight[j];
            continue;
        }
        GenePair pair;
        pair.right = j;
        pair.kind = KindOf(right.at(j));
        pair.state = PairState::OnlyRight;
        placed.append({anchor, j, pair});
    }
    std::stable_sort(placed.begin(), placed.end(), [](const Placed &a, const Placed &b) {
        return a.anchor != b.anchor ? a.anchor < b.anchor : a.order < b.order;
    });

    Comparison c;
    c.pairs.reserve(placed.size());
    for (const Placed &p : placed)
        c.pairs.append(p.pair);
    return c;
}

Comparison Compare(Session &left, Session &right) { return Compare(GeneRecords(left), GeneRecords(right)); }

QString StateText(PairState state)
{
    switch (state) {
    case PairState::Same: return QStringLiteral("same");
    case PairState::Changed: return QStringLiteral("changed");
    case PairState::OnlyLeft: return QStringLiteral("only left");
    case PairState::OnlyRight: return QStringLiteral("only right");
    }
    return QString();
}

bool Shown(const GenePair &pair, bool differencesOnly, int kindIndex)
{
    if (differencesOnly && pair.state == PairState::Same)
        return false;
    return kindIndex < 0 || GeneKinds::IndexOf(pair.kind) == kindIndex;
}

} // namespace GenomeCompare
