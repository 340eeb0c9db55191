#include "core/compare/GeneCopy.h"

#include "base/Text.h"
#include "core/Gene.h"
#include "core/GeneCommands.h"
#include "core/Session.h"

#include <memory>

namespace GeneCopy {

namespace {

constexpr int RecordHead = 11; // "gene" and the seven header bytes

bool HasRecord(const CaptionStore &store, int type, int subType, int id)
{
    for (int i = 0; i < store.CaptionCount; ++i) {
        const CaptionStore::CaptionRecord &r = store.RecordAt(i);
        if (r.GeneType == type && r.GeneSubType == subType && r.ID == id)
            return true;
    }
    return false;
}

QString ThreeDigits(int value) { return QStringLiteral("%1").arg(value, 3, 10, QLatin1Char('0')); }

bool IdTakenByOther(const Session &s, const Gene &g)
{
    for (int i = 0; i < s.GeneCount; ++i) {
        const Gene *o = s.GeneList[size_t(i)].get();
        if (o != &g && o->GeneType == g.GeneType && o->GeneSubType == g.GeneSubType && o->ID == g.ID)
            return true;
    }
    return false;
}

// The caption and notes of the source gene under the copy's key. A caption that begins with
// the old ID in three digits, as captions made here do, takes the new one.
void CarryCaption(Session &target, const Session &source, const Gene &from, const Gene &copy)
{
    const int type = copy.GeneType, subType = copy.GeneSubType;
    if (!HasRecord(source.CaptionStore, type, subType, from.ID)) {
        // No text of its own: it must not show the text another gene left under this key.
        if (HasRecord(target.CaptionStore, type, subType, copy.ID)) {
            target.CaptionStore.SetAnnotation(type, subType, copy.ID, QString());
            target.CaptionStore.SetCaption(type, subType, copy.ID, QString());
        }
        return;
    }
    QString caption = source.CaptionStore.GetCaption(type, subType, from.ID);
    const QString oldPrefix = ThreeDigits(from.ID) + QLatin1Char(' ');
    if (copy.ID != from.ID && caption.startsWith(oldPrefix))
        caption = ThreeDigits(copy.ID) + caption.mid(3);
    target.CaptionStore.SetCaption(type, subType, copy.ID, caption);
    target.CaptionStore.SetAnnotation(type, subType, copy.ID, source.CaptionStore.GetAnnotation(type, subType, from.ID));
}

} // namespace

int EncodedLength(const Session &s)
{
    int length = 4; // "dna2"
    for (int i = 0; i < s.GeneCount; ++i)
        length += RecordHead + s.GeneList[size_t(i)]->BodyLength();
    return length;
}

QVector<int> CopyGenes(Session &target, Session &source, const QVector<int> &genes)
{
    QVector<Gene *> from;
    for (int n : genes)
        if (Gene *g = source.GeneAt(n))
            from.append(g);
    if (from.isEmpty())
        return {};

    // An empty genome is offered a new one first, as the new-gene command does.
    if (target.GeneCount == 0) {
        GeneCommands::MayOpenNewGeneForm(target);
        if (target.GeneCount == 0)
            return {};
    }
    for (const Gene *g : from)
        if (GeneCommands::IsSpeciesGene(*g)) {
            target.ShowWarning(QStringLiteral("Cannot create second Genus gene"));
            return {};
        }
    const int count = int(from.size());
    if (target.GeneCount + count > GeneCommands::NewGeneLimit) {
        target.ShowError(QStringLiteral("Reached the limit of ") + QStringLiteral("900") + QStringLiteral(" genes.")
                         + Text::CRLF + QStringLiteral("The genome has ") + QString::number(target.GeneCount)
                         + QStringLiteral(" genes, and ") + QString::number(count)
                         + QStringLiteral(" more would pass it. Nothing was copied."));
        return {};
    }
    int need = 0;
    for (const Gene *g : from)
        need += RecordHead + g->BodyLength();
    const int used = EncodedLength(target);
    if (used + need > GenomeImage::PickleLimit) {
        target.ShowError(QStringLiteral("Not enough genome space to copy ") + QString::number(count)
                         + QStringLiteral(" gene(s): they need ") + QString::number(need) + QStringLiteral(" bytes, and ")
                         + QString::number(qMax(0, GenomeImage::PickleLimit - used))
                         + QStringLiteral(" are left.") + Text::CRLF + QStringLiteral("Nothing was copied."));
        return {};
    }

    // Each gene goes through a scratch image: written as it stands, read back into a new
    // object of the target's, folded as a load folds.
    auto scratch = std::make_unique<GenomeImage>();
    QVector<int> added;
    for (Gene *g : from) {
        scratch->WriteCursor = 0;
        g->WriteRecord(*scratch);
        std::unique_ptr<Gene> copy = MakeGene(target, g->GeneType, g->GeneSubType);
        scratch->ReadCursor = 6; // behind the token and the kind
        copy->ReadRecord(*scratch);

        Gene *c = copy.get();
        c->Numeric_ID = target.GeneCount;
        target.GeneList[size_t(target.GeneCount)] = std::move(copy);
        ++target.GeneCount;
        if (IdTakenByOther(target, *c)) {
            c->ID = 0; // as a new gene stands in the list while its ID is chosen
            c->ID = quint8(qMax(0, target.SpareGeneID(c->GeneType, c->GeneSubType)));
        }
        CarryCaption(target, source, *g, *c);
        added.append(c->Numeric_ID);
    }
    target.ShowGenomeSpace(true);
    target.SummaryStale = true;
    target.OrganViewStale = true;
    return added;
}

} // namespace GeneCopy
