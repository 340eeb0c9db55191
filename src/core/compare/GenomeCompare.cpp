#include "core/compare/GenomeCompare.h"

#include "core/Gene.h"
#include "core/Session.h"

#include <QHash>
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

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
    if (a == b) { // most pairs: no field to look at
        pair.state = PairState::Same;
        return;
    }
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
    // The right genes sorted by key, each key's in their order; a left gene claims the next
    // unclaimed one of its key.
    std::vector<std::pair<quint32, int>> byKey;
    byKey.reserve(size_t(right.size()));
    for (int j = 0; j < right.size(); ++j)
        byKey.emplace_back(Key(right.at(j)), j);
    std::sort(byKey.begin(), byKey.end());
    QHash<quint32, size_t> next; // the next unclaimed place of each key in byKey
    next.reserve(right.size());
    for (size_t k = byKey.size(); k-- > 0;)
        next.insert(byKey[k].first, k);
    QVector<int> partnerOfRight(right.size(), -1);

    QVector<GenePair> pairs;
    pairs.reserve(left.size() + right.size());
    // Where each pair goes: behind its anchor (a left gene number, -1 for the top), in order.
    struct Place
    {
        int anchor, order, pair;
        bool operator<(const Place &o) const { return anchor != o.anchor ? anchor < o.anchor : order < o.order; }
    };
    std::vector<Place> places;
    places.reserve(size_t(left.size() + right.size()));
    for (int i = 0; i < left.size(); ++i) {
        GenePair pair;
        pair.left = i;
        pair.kind = KindOf(left.at(i));
        const quint32 key = Key(left.at(i));
        const auto it = next.find(key);
        if (it != next.end() && *it < byKey.size() && byKey[*it].first == key) {
            pair.right = byKey[(*it)++].second;
            partnerOfRight[pair.right] = i;
            Diff(pair, left.at(i), right.at(pair.right));
        } else {
            pair.state = PairState::OnlyLeft;
        }
        places.push_back({i, -1, int(pairs.size())});
        pairs.append(std::move(pair));
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
        places.push_back({anchor, j, int(pairs.size())});
        pairs.append(std::move(pair));
    }
    std::sort(places.begin(), places.end());

    Comparison c;
    c.pairs.reserve(pairs.size());
    for (const Place &p : places)
        c.pairs.append(std::move(pairs[p.pair]));
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
