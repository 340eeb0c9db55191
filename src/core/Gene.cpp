#include "core/Gene.h"

#include "core/Session.h"
#include "base/Text.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BrainLobe.h"

#include <QSet>

std::unique_ptr<Gene> MakeGene(Session &s, GeneKind kind)
{
    switch (kind) {
    case GeneKind::BrainLobe: return std::make_unique<clsBrainLobe>(s);
    case GeneKind::BrainOrgan: return std::make_unique<clsBorgan>(s);
    case GeneKind::Receptor: return std::make_unique<clsReceptor>(s);
    case GeneKind::Emitter: return std::make_unique<clsEmitter>(s);
    case GeneKind::Reaction: return std::make_unique<clsReaction>(s);
    case GeneKind::HalfLives: return std::make_unique<clsHalfLives>(s);
    case GeneKind::Inject: return std::make_unique<clsInject>(s);
    case GeneKind::Stimulus: return std::make_unique<clsStimulus>(s);
    case GeneKind::Species: return std::make_unique<clsSpecies>(s);
    case GeneKind::Appearance: return std::make_unique<clsAppearance>(s);
    case GeneKind::Pose: return std::make_unique<clsPose>(s);
    case GeneKind::Gait: return std::make_unique<clsGait>(s);
    case GeneKind::Instinct: return std::make_unique<clsInstinct>(s);
    case GeneKind::Colour: return std::make_unique<clsColour>(s);
    case GeneKind::ColourBleed: return std::make_unique<clsColourBleed>(s);
    case GeneKind::Organ: return std::make_unique<clsOrgan>(s);
    }
    return nullptr;
}

std::unique_ptr<Gene> MakeGene(Session &s, int type, int subType)
{
    const GeneKindInfo *k = GeneKinds::Find(type, subType);
    return k ? MakeGene(s, k->kind) : nullptr;
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
    ReadBody(session.GenomeImage, session.LoadFormat());
}

void Gene::GetMembers()
{
    // An encode takes what an open editor shows now, whether or not it is later cancelled.
    if (IsOpen)
        GetControls();
    WriteRecord(session.GenomeImage);
}

void Gene::ReadRecord(GenomeImage &image)
{
    {
        BodyReader io(image, BodyFormat{});
        Header(io);
    }
    ReadBody(image, BodyFormat{});
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
    if (const GeneKindInfo *k = GeneKinds::Find(GeneType, GeneSubType); k && k->showsOrgan)
        View->ShowGeneOrgan();
    session.CountEditorWindow(this);
    SetControls();
    if (Is(GeneKind::BrainLobe) && View)
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
    std::unique_ptr<Gene> gene = kind ? MakeGene(*this, kind->kind) : nullptr;
    if (!gene) {
        ShowError(QStringLiteral("Error: trying to create a gene of type ") + QString::number(type)
                  + QStringLiteral(" and subtype ") + QString::number(subType)
                  + QStringLiteral(" when no such type or subtype is known to me!"));
        return false;
    }
    QString factory, answer;
    if (interactive) {
        factory = QString::fromLatin1(kind->factoryName);
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
        BodyReader io(GenomeImage, BodyFormat{});
        g->Header(io, Gene::HeaderFields::Identity);
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
