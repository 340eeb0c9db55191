#include "core/GeneCommands.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"

#include <utility>

namespace GeneCommands {

namespace {

QString ThreeDigits(int value) { return QStringLiteral("%1").arg(value, 3, 10, QLatin1Char('0')); }

QString CaptionOf(const Session &s, const Gene &g)
{
    return s.CaptionStore.GetCaption(g.GeneType, g.GeneSubType, g.ID);
}

// The chemical or pose a gene acts on, for the four kinds that have one. The kind is read
// from the gene's pair; the class only gives the field.
bool TargetOf(const Session &s, const Gene &g, QString &target)
{
    const int kind = g.GeneType * 256 + g.GeneSubType;
    const clsReceptor *r = kind == 0x100 ? dynamic_cast<const clsReceptor *>(&g) : nullptr;
    const clsEmitter *e = kind == 0x101 ? dynamic_cast<const clsEmitter *>(&g) : nullptr;
    const clsInject *i = kind == 0x104 ? dynamic_cast<const clsInject *>(&g) : nullptr;
    const clsPose *p = kind == 0x203 ? dynamic_cast<const clsPose *>(&g) : nullptr;
    if (r)
        target = s.Lists.ChemicalNames[r->Chem];
    else if (e)
        target = s.Lists.ChemicalNames[e->Chem];
    else if (i)
        target = s.Lists.ChemicalNames[i->Chem];
    else if (p)
        target = s.Lists.PoseNames[p->pose];
    else
        return false;
    return true;
}

// The kind of the new-gene dialog's rows, in list order; the Genus row has none.
struct NewGeneRow
{
    int type, subType;
};
const NewGeneRow NewGeneRows[] = {
    {0, 0}, {1, 0}, {1, 1}, {1, 2}, {1, 3}, {1, 4}, {2, 0}, {-1, -1},
    {2, 2}, {2, 3}, {2, 4}, {2, 5}, {2, 6}, {2, 7}, {3, 0}, {0, 1},
};
constexpr int GenusRow = 7;
constexpr int NewGeneRowCount = int(sizeof(NewGeneRows) / sizeof(NewGeneRows[0]));

} // namespace

QString RowKey(int numericId)
{
    return (QStringLiteral("000") + QString::number(numericId)).right(3);
}

QString DescribeGene(const Session &s, const Gene &g, bool withTarget)
{
    const ReferenceTables &t = s.Tables;
    if (g.GeneType >= 4)
        return QStringLiteral("<unknown type ") + Text::Str(g.GeneType) + QStringLiteral(">: <ignored ")
               + Text::Str(g.GeneSubType) + QStringLiteral(">");

    QString text = t.GeneTypeNames.value(g.GeneType) + QStringLiteral(": ");
    const QStringList *kinds[] = {&t.BrainGeneNames, &t.BiochemistryGeneNames, &t.CreatureGeneNames,
                                  &t.OrganGeneNames};
    const QStringList &names = *kinds[g.GeneType];
    if (g.GeneSubType < names.size())
        text += names.at(g.GeneSubType);
    else
        text += QStringLiteral("<unknown id") + Text::Str(g.GeneSubType) + QStringLiteral(">");

    QString target;
    if (withTarget && TargetOf(s, g, target))
        text += QStringLiteral(" (") + target + QStringLiteral(")");
    return text;
}

QStringList RowTexts(const Session &s, const Gene &g)
{
    const QStringList &stages = s.Tables.LifeStageNames;
    // A stage outside the table shows its last row, the mark of a bad value.
    const QString stage = g.SwitchOn < stages.size() ? stages.at(g.SwitchOn) : stages.value(stages.size() - 1);

    QString sex = QStringLiteral("-");
    if (g.Mutability & 8)
        sex = QStringLiteral("m");
    else if (g.Mutability & 16)
        sex = QStringLiteral("f");

    QString weighting = QString::number(g.MutabilityWeighting);
    if (g.Mutability & 32) // carried, not expressed
        weighting = QStringLiteral("(") + weighting + QStringLiteral(")");

    return {RowKey(g.Numeric_ID), QString::number(g.Generation), ThreeDigits(g.ID), stage, sex, weighting,
            CaptionOf(s, g), DescribeGene(s, g, true)};
}

bool IsSpeciesGene(const Gene &g) { return g.Is(GeneKind::Species); }

std::unique_ptr<Gene> DeleteGene(Session &s, int n, bool quietly)
{
    Gene *g = s.GeneAt(n);
    if (!g)
        return nullptr;
    if (IsSpeciesGene(*g)) {
        s.ShowError(QStringLiteral("You cannot delete the species/sex gene"));
        return nullptr;
    }
    if (!quietly) {
        const int answer = s.ShowMessage(QStringLiteral("Permanently delete gene '") + CaptionOf(s, *g)
                                             + QStringLiteral("'?"),
                                         35);
        if (answer != Prompt::Yes)
            return nullptr;
    }

    std::unique_ptr<Gene> removed = std::move(s.GeneList[size_t(n)]);
    for (int i = n; i <= s.GeneCount - 2; ++i) {
        s.GeneList[size_t(i)] = std::move(s.GeneList[size_t(i) + 1]);
        s.GeneList[size_t(i)]->Numeric_ID = qint16(i);
    }
    --s.GeneCount;

    // When no gene bears the deleted gene's key any more, empty its record, so that a
    // later gene that takes the freed ID doesn't inherit the old note. A key without a
    // record is left alone (no record is added), and so is a full store, which would
    // refuse the change with a message of its own.
    const int type = removed->GeneType, subType = removed->GeneSubType, id = removed->ID;
    bool shared = false;
    for (int i = 0; i < s.GeneCount && !shared; ++i) {
        const Gene *o = s.GeneList[size_t(i)].get();
        shared = o->GeneType == type && o->GeneSubType == subType && o->ID == id;
    }
    CaptionStore &store = s.CaptionStore;
    const bool hasRecord = store.GetCaption(type, subType, id) != QLatin1String("<no caption>")
                           || store.GetAnnotation(type, subType, id) != QLatin1String("<no annotation>");
    if (!shared && hasRecord && store.CaptionCount < CaptionStore::InUse) {
        store.SetAnnotation(type, subType, id, QString());
        store.SetCaption(type, subType, id, QString());
    }

    s.RefreshViews();
    return removed;
}

int SelectionAfterDelete(const Session &s, int n) { return n > s.GeneCount - 1 ? s.GeneCount - 1 : n; }

bool MayMoveDown(Session &s, int n)
{
    if (n == 0) {
        s.ShowError(QStringLiteral("Cannot move gene 0 ANYWHERE"));
        return false;
    }
    if (n == s.GeneCount - 1) {
        s.ShowError(QStringLiteral("Can't move this gene down further"));
        return false;
    }
    if (n == -1) {
        s.ShowWarning(QStringLiteral("No gene is selected to move"));
        return false;
    }
    if (n < 0 || n >= s.GeneCount) { // a number the list no longer has
        s.ShowError(QStringLiteral("Can't move this gene down further"));
        return false;
    }
    return true;
}

bool MayMoveUp(Session &s, int n)
{
    if (n == 0 || n == 1) {
        s.ShowError(QStringLiteral("Cannot move this gene further up"));
        return false;
    }
    if (n < 0 || n >= s.GeneCount) {
        s.ShowWarning(QStringLiteral("No gene is selected to move"));
        return false;
    }
    return true;
}

void SwapGenes(Session &s, int a, int b)
{
    std::swap(s.GeneList[size_t(a)], s.GeneList[size_t(b)]);
    s.GeneList[size_t(a)]->Numeric_ID = qint16(a);
    s.GeneList[size_t(b)]->Numeric_ID = qint16(b);
}

void EditGene(Session &s, int n)
{
    Gene *g = s.GeneAt(n);
    if (!g) {
        s.ShowWarning(QStringLiteral("No gene selected"));
        return;
    }
    if (IsValidGeneKind(g->GeneType, g->GeneSubType))
        g->OpenView();
    else
        s.ShowError(QStringLiteral("No editor available for gene type '") + DescribeGene(s, *g, false)
                    + QStringLiteral("'"));
}

void RenameGene(Session &s, int n)
{
    Gene *g = s.GeneAt(n);
    if (!g) {
        s.ShowWarning(QStringLiteral("No gene selected"));
        return;
    }
    const QString caption = CaptionOf(s, *g);
    const QString answer = s.prompt.InputBox(QStringLiteral("Rename Gene"),
                                             QStringLiteral("Rename Gene '") + caption + QStringLiteral("'"), caption);
    if (!answer.isEmpty())
        s.CaptionStore.SetCaption(g->GeneType, g->GeneSubType, g->ID, answer);
    s.RefreshGeneRow(n);
}

void ChangeID(Session &s, int n)
{
    Gene *g = s.GeneAt(n);
    if (!g) {
        s.ShowWarning(QStringLiteral("No gene selected"));
        return;
    }
    const QString old = QString::number(g->ID);
    const QString answer = s.prompt.InputBox(QStringLiteral("Change ID"),
                                             QStringLiteral("Change ID for '") + old + QStringLiteral("'"), old);
    if (answer.isEmpty())
        return;
    // The ID is one byte in the file: a value it can't hold is refused, not folded.
    const long long id = Text::RoundHalfEven(Text::Val(answer));
    if (id < 0 || id > 255) {
        s.ShowError(QStringLiteral("A gene ID must be a number from 0 to 255, and '") + answer
                    + QStringLiteral("' is not.") + Text::CRLF + QStringLiteral("The gene keeps its ID ") + old
                    + QStringLiteral("."));
        return;
    }
    g->ID = quint8(id);
    s.RefreshGeneRow(n);

    // The new ID stands even if it collides; each gene of the kind that bears it is named.
    for (int i = 0; i < s.GeneCount; ++i) {
        const Gene *o = s.GeneList[size_t(i)].get();
        if (i == n || o->GeneType != g->GeneType || o->GeneSubType != g->GeneSubType || o->ID != g->ID)
            continue;
        s.ShowError(QStringLiteral("Caution. Duplicate ID for ") + QString::number(g->ID) + QStringLiteral(" found:")
                    + Text::CRLF + QStringLiteral("Gene # is ") + QString::number(i) + QStringLiteral(" (")
                    + CaptionOf(s, *o) + QStringLiteral(")"));
    }
}

bool MayOpenNewGeneForm(Session &s)
{
    if (s.GeneCount != 0)
        return true;
    if (s.ShowMessage(QStringLiteral("No valid genome initialised. Do you want me to do this for you?"), 35)
        == Prompt::Yes)
        s.NewGenome();
    return false;
}

bool KindOfNewGeneRow(int row, quint8 &type, quint8 &subType)
{
    if (row < 0 || row >= NewGeneRowCount || row == GenusRow)
        return false;
    type = quint8(NewGeneRows[row].type);
    subType = quint8(NewGeneRows[row].subType);
    return true;
}

bool CreateGeneOfRow(Session &s, int row)
{
    if (s.GeneCount >= NewGeneLimit) {
        s.ShowError(QStringLiteral("Reached the limit of ") + QStringLiteral("900") + QStringLiteral(" genes."));
        return false;
    }
    quint8 type = 0, subType = 0;
    if (row == GenusRow) {
        s.ShowWarning(QStringLiteral("Cannot create second Genus gene"));
        return false;
    }
    if (!KindOfNewGeneRow(row, type, subType)) {
        s.ShowWarning(QStringLiteral("Can't create a gene of type ") + QString::number(row));
        return false;
    }
    if (!s.CreateGene(type, subType, true))
        return false;
    s.ShowGenomeSpace(true);
    return true;
}

} // namespace GeneCommands
