#include "core/Gene.h"

#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"

#include <QSet>

namespace {

const GeneKindInfo KindTable[GeneKinds::Count] = {
    {0, 0, "clsBrainLobe", "Brain Lobe", 196},
    {0, 1, "clsBorgan", "Brain Organ", 5},
    {1, 0, "clsReceptor", "Receptor", 8},
    {1, 1, "clsEmitter", "Emitter", 8},
    {1, 2, "clsReaction", "Reaction", 9},
    {1, 3, "clsHalfLives", "Half-lives", 256},
    {1, 4, "clsInject", "Initial Concentration", 2},
    {2, 0, "clsStimulus", "Stimulus", 13},
    {2, 1, "clsSpecies", "Genus", 9},
    {2, 2, "clsAppearance", "Appearance", 3},
    {2, 3, "clsPose", "Pose", 16},
    {2, 4, "clsGait", "Gait", 9},
    {2, 5, "clsInstinct", "Instinct", 9},
    {2, 6, "clsColour", "Pigment", 2},
    {2, 7, "clsColourBleed", "Pigment Bleed", 2},
    {3, 0, "clsOrgan", "Organ", 5},
};

} // namespace

namespace GeneKinds {

const GeneKindInfo *Find(int type, int subType)
{
    for (const GeneKindInfo &k : KindTable)
        if (k.type == type && k.subType == subType)
            return &k;
    return nullptr;
}

const GeneKindInfo &At(int index) { return KindTable[qBound(0, index, Count - 1)]; }

Gene *Make(Session &s, int type, int subType)
{
    switch (type * 16 + subType) {
    case 0x00: return new clsBrainLobe(s);
    case 0x01: return new clsBorgan(s);
    case 0x10: return new clsReceptor(s);
    case 0x11: return new clsEmitter(s);
    case 0x12: return new clsReaction(s);
    case 0x13: return new clsHalfLives(s);
    case 0x14: return new clsInject(s);
    case 0x20: return new clsStimulus(s);
    case 0x21: return new clsSpecies(s);
    case 0x22: return new clsAppearance(s);
    case 0x23: return new clsPose(s);
    case 0x24: return new clsGait(s);
    case 0x25: return new clsInstinct(s);
    case 0x26: return new clsColour(s);
    case 0x27: return new clsColourBleed(s);
    case 0x30: return new clsOrgan(s);
    default: return nullptr;
    }
}

} // namespace GeneKinds

bool IsValidGeneKind(quint8 type, quint8 subType)
{
    return type < GeneKinds::TypeCount && subType < GeneKinds::SubTypeCount[type];
}

QString ClampByteText(const QString &text)
{
    const long long v = Text::RoundHalfEven(std::abs(Text::Val(text)));
    return QString::number(qMin(v, 255LL));
}

// --- the gene protocol -------------------------------------------------------------------

Gene::Gene(Session &s, quint8 type, quint8 subType) : session(s), GeneType(type), GeneSubType(subType) {}

Gene::~Gene()
{
    if (View) {
        GeneView *v = View;
        View = nullptr;
        IsOpen = false;
        v->Dispose();
    }
}

int Gene::BodyLength() const
{
    const GeneKindInfo *k = GeneKinds::Find(GeneType, GeneSubType);
    return k ? k->bodyBytes : 0;
}

void Gene::SetMembers()
{
    BodyIO io(session.GenomeImage, true, session.CompatibilityMode.ReadsOlderGenes(),
              session.CompatibilityMode.ReadsOlderAppearance());
    Body(io);
}

void Gene::PutGeneHeader()
{
    GenomeImage &img = session.GenomeImage;
    img.PutGenomeToken(QByteArrayLiteral("gene"));
    for (quint8 b : {GeneType, GeneSubType, ID, Generation, SwitchOn, Mutability, MutabilityWeighting})
        img.PutGenomeByte(b);
}

void Gene::GetMembers()
{
    // An encode takes what an open editor shows now, whether or not it is later cancelled.
    if (IsOpen)
        GetControls();
    PutGeneHeader();
    BodyIO io(session.GenomeImage, false);
    Body(io);
}

void Gene::SetControls()
{
    if (View)
        View->SetControls();
}

void Gene::GetControls()
{
    if (View)
        View->GetControls();
}

void Gene::OpenView()
{
    WriteChanges = true;
    if (IsOpen) {
        if (View)
            View->BringToFront();
        return;
    }
    if (!session.EditorFactory)
        return;
    GeneView *view = session.EditorFactory(*this);
    if (!view)
        return;
    View = view;
    IsOpen = true;
    View->SetEditorCaption();
    if (GeneType == 1 && GeneSubType <= 2)
        View->ShowGeneOrgan();
    session.CountEditorWindow(this);
    SetControls();
    if (GeneType == 0 && GeneSubType == 0 && View)
        View->ShowSVRules();
}

void Gene::CloseView()
{
    if (!IsOpen)
        return;
    if (WriteChanges)
        GetControls();
    WriteChanges = true;
    GeneView *v = View;
    View = nullptr;
    IsOpen = false;
    if (v)
        v->Dispose();
    session.CountEditorWindow(nullptr);
    session.RefreshGeneRow(Numeric_ID);
}

// --- module routines on genes ------------------------------------------------------------

bool Session::CreateGene(quint8 type, quint8 subType, bool interactive)
{
    if (GeneCount >= MaxGenes) {
        ShowError(QStringLiteral("Terminal error processing new gene, out of gene space.") + Text::CRLF
                  + QStringLiteral("Maximum # of genes is ") + QStringLiteral("900") + QStringLiteral("."));
        return false;
    }
    const GeneKindInfo *kind = GeneKinds::Find(type, subType);
    std::unique_ptr<Gene> gene(kind ? GeneKinds::Make(*this, type, subType) : nullptr);
    if (!gene) {
        ShowError(QStringLiteral("Error: trying to create a gene of type ") + QString::number(type)
                  + QStringLiteral(" and subtype ") + QString::number(subType)
                  + QStringLiteral(" when no such type or subtype is known to me!"));
        return false;
    }
    const QString factory = QString::fromLatin1(kind->factoryName);
    QString answer;
    if (interactive) {
        answer = prompt.InputBox(QStringLiteral("Name Gene"),
                                 QStringLiteral("Enter a caption for new ") + factory
                                     + QStringLiteral(" gene or press 'Ok' for default name '<no caption> - ")
                                     + factory + QStringLiteral("'"),
                                 QStringLiteral("<no caption>"));
        if (answer.isEmpty())
            return false;
    }
    Gene *g = gene.get();
    g->Numeric_ID = GeneCount;
    GeneList[size_t(GeneCount)] = std::move(gene);
    ++GeneCount;
    g->GeneType = type;
    g->GeneSubType = subType;
    if (interactive) {
        g->ID = quint8(qMax(0, SpareGeneID(type, subType)));
        g->Generation = 0;
        g->MutabilityWeighting = 128;
        CaptionStore.SetCaption(type, subType, g->ID,
                                QStringLiteral("%1 ").arg(g->ID, 3, 10, QLatin1Char('0')) + answer
                                    + QStringLiteral(" - ") + factory);
        g->OpenView();
    } else {
        g->ID = GenomeImage.GetGenomeByte(0, 255);
        g->Generation = GenomeImage.GetGenomeByte(0, 255);
    }
    return true;
}

int Session::SpareGeneID(quint8 type, quint8 subType)
{
    bool taken[256] = {};
    for (int i = 0; i < GeneCount; ++i) {
        const Gene *g = GeneList[size_t(i)].get();
        if (g && g->GeneType == type && g->GeneSubType == subType)
            taken[g->ID] = true;
    }
    for (int id = 0; id < 256; ++id)
        if (!taken[id])
            return id;
    ShowError(QStringLiteral("No spare gene ID's available.") + Text::LFCR
              + QStringLiteral("Captions and annotations will become confused."));
    return -1;
}

void Session::CloseAllViews()
{
    for (int i = 0; i < GeneCount; ++i)
        if (Gene *g = GeneList[size_t(i)].get(); g && g->IsOpen)
            g->CloseView();
}

QString Session::CheckMoniker(const QString &moniker, const QString &side)
{
    const bool father = side == QLatin1String("D");
    const QString label = father ? QStringLiteral("Father") : QStringLiteral("Mother");
    const QString replacement = father ? QStringLiteral("ADAM") : QStringLiteral("EVE_");
    if (moniker.size() != 4) {
        ShowError(label + QStringLiteral("'s moniker is incorrect length. Should be 4") + Text::CRLF
                  + QStringLiteral("but is actually ") + QString::number(moniker.size())
                  + QStringLiteral(" characters.") + Text::CRLF + QStringLiteral("It has been corrected to: ")
                  + replacement);
        return replacement;
    }
    int bad = 0;
    for (QChar c : moniker)
        if (c.unicode() < 32 || c.unicode() > 126)
            ++bad;
    if (bad > 0) {
        ShowError(label + QStringLiteral("'s moniker has ") + QString::number(bad)
                  + QStringLiteral(" bad character(s).") + Text::CRLF
                  + QStringLiteral("It has been corrected to: ") + replacement);
        return replacement;
    }
    return moniker;
}

void Session::CountEditorWindow(Gene *gene)
{
    if (gene) {
        if (gene->View)
            gene->View->ShowEditor();
        ++EditorCount;
    } else if (EditorCount >= 1) {
        --EditorCount;
    }
    QString rest;
    if (EditorCount == 0)
        rest = QStringLiteral("no windows open)");
    else if (EditorCount == 1)
        rest = QStringLiteral("1 window open)");
    else
        rest = Text::Str(EditorCount) + QStringLiteral(" windows open)");
    SetMainTitle(Title + QStringLiteral(" (") + rest);
    ShowGenomeSpace(false);
}
