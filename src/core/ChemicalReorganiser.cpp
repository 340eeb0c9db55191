#include "core/ChemicalReorganiser.h"

#include "base/Text.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"

namespace {
constexpr int FirstMovable = 1, LastMovable = 255;
constexpr int Chemicals = NameLists::SlotsInUse; // 0..255

bool Movable(long long n) { return n >= FirstMovable && n <= LastMovable; }

// The genes whose fields hold chemical numbers: receptors, emitters, reactions, half-lives,
// initial concentrations and stimuli. No other kind is touched.
bool HoldsChemicals(const Gene &g)
{
    return dynamic_cast<const clsReceptor *>(&g) || dynamic_cast<const clsEmitter *>(&g)
           || dynamic_cast<const clsReaction *>(&g) || dynamic_cast<const clsHalfLives *>(&g)
           || dynamic_cast<const clsInject *>(&g) || dynamic_cast<const clsStimulus *>(&g);
}

// The four chemical slots of a stimulus or a reaction, through their accessors.
template <typename G> void RenumberSlots(G &gene, const ChemicalReorganiser &map)
{
    for (int k = 0; k < 4; ++k) {
        const int c = gene.GetChem(k);
        if (map.MoveMarked[size_t(c)])
            gene.SetChem(k, map.NewNumber[size_t(c)]);
    }
}

template <typename G> void RenumberChem(G &gene, const ChemicalReorganiser &map)
{
    if (map.MoveMarked[gene.Chem])
        gene.Chem = quint8(map.NewNumber[gene.Chem]);
}
} // namespace

void ChemicalReorganiser::Clear()
{
    for (int i = FirstMovable; i <= LastMovable; ++i) {
        NewNumber[size_t(i)] = 0;
        MoveMarked[size_t(i)] = false;
    }
}

int ChemicalReorganiser::RecordMove(const QString &oldText, const QString &newText)
{
    const long long old = Text::RoundHalfEven(NameLists::NumericValue(oldText));
    if (!Movable(old)) {
        session.ShowError(QStringLiteral("Invalid chemical"));
        return 0;
    }
    const long long target = Text::RoundHalfEven(NameLists::NumericValue(newText));
    if (!Movable(target)) {
        session.ShowError(QStringLiteral("Can't change to ") + QString::number(target));
        return 0;
    }
    // A target can be taken once; this also refuses the number a chemical has already been given.
    for (int i = 1; i < Entries; ++i) {
        if (NewNumber[size_t(i)] == target) {
            session.ShowInfo(QStringLiteral("Chemical ") + QString::number(i) + QStringLiteral(" (")
                             + session.Lists.ChemicalNames[size_t(i)] + QStringLiteral(") is already changed to use this"));
            return 0;
        }
    }
    NewNumber[size_t(old)] = qint16(target);
    MoveMarked[size_t(old)] = true;
    return int(target);
}

bool ChemicalReorganiser::CarryOut(const std::function<void()> &fillChemicalView)
{
    const QString &nl = Text::CRLF;
    const QString question = QStringLiteral("Are you absolutely sure you wish to do this?") + nl + nl
                             + QStringLiteral("If you click YES, the current genome will be reorganised") + nl
                             + QStringLiteral("to match the new arrangement, and then the chemical list") + nl
                             + QStringLiteral("itself will be changed. This could cause serious problems!");
    if (session.ShowMessage(question, 35) != Prompt::Yes)
        return false;

    // An open editor holds its own copy of its gene's fields: take them in first, so that the
    // renumbering sees the user's edits and no old number is written back at close.
    QList<Gene *> edited;
    for (int i = 0; i < session.GeneCount; ++i) {
        Gene *g = session.GeneAt(i);
        if (g && g->IsOpen && g->View && HoldsChemicals(*g)) {
            g->GetControls();
            edited.append(g);
        }
    }

    CompleteMap();
    RenumberGenes();
    MoveListEntries();
    session.Lists.ChemicalsChanged = true;
    RestoreEmptyNames();
    if (fillChemicalView)
        fillChemicalView();

    // The editors show the renumbered genes, their chemicals under the new names.
    for (Gene *g : edited)
        if (g->IsOpen && g->View)
            g->SetControls();

    session.ShowInfo(QStringLiteral("Operation probably complete. Who knows."));
    return true;
}

void ChemicalReorganiser::CompleteMap()
{
    // A named chemical stays where it is; a free slot, whose name is a number, goes nowhere.
    for (int i = 0; i < Chemicals; ++i)
        if (!MoveMarked[size_t(i)])
            NewNumber[size_t(i)] = NameLists::NumericValue(session.Lists.ChemicalNames[size_t(i)]) == 0 ? qint16(i) : 0;
}

void ChemicalReorganiser::RenumberGenes()
{
    // The half-life tables are rebuilt through one scratch table for the whole run: it starts
    // at 0 and is not cleared between genes, so a slot that no chemical maps to takes what
    // the previous half-life gene left there.
    std::array<int, Entries> scratch{};
    for (int n = 0; n < session.GeneCount; ++n) {
        Gene *g = session.GeneAt(n);
        if (auto *s = dynamic_cast<clsStimulus *>(g)) {
            RenumberSlots(*s, *this);
        } else if (auto *r = dynamic_cast<clsReaction *>(g)) {
            RenumberSlots(*r, *this);
        } else if (auto *rc = dynamic_cast<clsReceptor *>(g)) {
            RenumberChem(*rc, *this);
        } else if (auto *e = dynamic_cast<clsEmitter *>(g)) {
            RenumberChem(*e, *this);
        } else if (auto *in = dynamic_cast<clsInject *>(g)) {
            RenumberChem(*in, *this);
        } else if (auto *h = dynamic_cast<clsHalfLives *>(g)) {
            // Every chemical's value goes to its new number: the free slots' values all land
            // on slot 0, the last one winning.
            for (int i = 0; i < Chemicals; ++i)
                scratch[size_t(NewNumber[size_t(i)] & 255)] = h->GetChem(i);
            for (int i = 0; i < Chemicals; ++i)
                h->SetChem(i, scratch[size_t(i)]);
        }
    }
}

void ChemicalReorganiser::MoveListEntries()
{
    NameLists &lists = session.Lists;
    std::array<QString, Chemicals> names, captions;
    // A later chemical wins a slot that two are mapped to.
    for (int i = FirstMovable; i <= LastMovable; ++i) {
        const int to = NewNumber[size_t(i)];
        if (to > 0 && to < Chemicals) {
            names[size_t(to)] = lists.ChemicalNames[size_t(i)];
            captions[size_t(to)] = lists.ChemicalCaptions[size_t(i)];
        }
    }
    for (int i = 0; i < Chemicals; ++i) {
        lists.ChemicalNames[size_t(i)] = names[size_t(i)];
        lists.ChemicalCaptions[size_t(i)] = captions[size_t(i)];
    }
}

void ChemicalReorganiser::RestoreEmptyNames()
{
    for (int i = 0; i < Chemicals; ++i)
        NameLists::ChemicalListText(i, session.Lists.ChemicalNames[size_t(i)]);
}
