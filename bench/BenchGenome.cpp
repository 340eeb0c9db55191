#include "BenchGenome.h"

#include "core/Gene.h"
#include "core/Session.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"

#include <algorithm>
#include <cstring>

namespace {

// A small deterministic generator: the same genome on every run.
class Numbers
{
public:
    int Next(int lo, int hi)
    {
        state = state * 6364136223846793005ULL + 1442695040888963407ULL;
        return lo + int((state >> 33) % quint64(hi - lo + 1));
    }
    quint8 Byte(int lo = 0, int hi = 255) { return quint8(Next(lo, hi)); }

private:
    quint64 state = 0x5eed;
};

StateRule MakeRule(Numbers &n)
{
    std::array<quint8, 12> r{};
    for (quint8 &t : r)
        t = n.Byte(0, 41);
    return r;
}

class Builder
{
public:
    explicit Builder(Session &s) : s(s) {}

    template <typename T> T *Add(int type, int subType)
    {
        if (!s.CreateGene(quint8(type), quint8(subType), false))
            return nullptr;
        Gene *g = s.GeneAt(s.GeneCount - 1);
        g->ID = quint8(++ids[type][subType]);
        g->Generation = n.Byte(0, 3);
        g->SwitchOn = n.Byte(0, 6);
        g->Mutability = n.Byte(0, 63);
        g->MutabilityWeighting = n.Byte();
        return static_cast<T *>(g);
    }

    void Lobe()
    {
        auto *l = Add<clsBrainLobe>(0, 0);
        l->x = n.Byte(0, 63);
        l->y = n.Byte(0, 63);
        l->Width = n.Byte(1, 64);
        l->Height = n.Byte(1, 64);
        l->Perceptible = n.Byte(0, 2);
        l->Threshold = n.Byte();
        l->Leakage = n.Byte();
        l->RestState = n.Byte();
        l->Attenuation = n.Byte();
        l->StateRule = MakeRule(n);
        l->Flags = n.Byte(0, 15);
        for (int i = 0; i < 2; ++i) {
            l->Source[i] = n.Byte(0, 8);
            l->min[i] = n.Byte(0, 8);
            l->max[i] = n.Byte(l->min[i], 16);
            l->Spread[i] = n.Byte(0, 3);
            l->FanWidth[i] = n.Byte(0, 8);
            l->InitialLTWMin[i] = n.Byte();
            l->InitialLTWMax[i] = n.Byte(l->InitialLTWMin[i], 255);
            l->InitialStrengthMin[i] = n.Byte();
            l->InitialStrengthMax[i] = n.Byte(l->InitialStrengthMin[i], 255);
            l->Migration[i] = n.Byte(0, 2);
            l->RelaxSus[i] = n.Byte();
            l->RelaxSTW[i] = n.Byte();
            l->LTWRate[i] = n.Byte();
            l->GainStrength[i] = n.Byte();
            l->LoseStrength[i] = n.Byte();
            l->GainRule(i) = MakeRule(n);
            l->LoseRule(i) = MakeRule(n);
            l->SusRule(i) = MakeRule(n);
            l->ReinforceRule(i) = MakeRule(n);
            l->BPRule(i) = MakeRule(n);
            l->FPRule(i) = MakeRule(n);
        }
    }

    void Organ(bool brain)
    {
        OrganGene *o = brain ? static_cast<OrganGene *>(Add<clsBorgan>(0, 1)) : Add<clsOrgan>(3, 0);
        o->ClockRate = n.Byte();
        o->LTRateChange = n.Byte();
        o->LifeForce = n.Byte();
        o->BiotickStartValue = n.Byte();
        o->ATPDamageCoefficient = n.Byte();
    }

    void Receptor()
    {
        auto *r = Add<clsReceptor>(1, 0);
        r->Organ = n.Byte(0, 2);
        r->Tissue = n.Byte(0, 5);
        r->Locus = n.Byte(0, 23);
        r->Chem = n.Byte();
        r->Threshold = n.Byte();
        r->Nominal = n.Byte();
        r->Gain = n.Byte();
        r->Flags = n.Byte(0, 3);
    }

    void Emitter()
    {
        auto *e = Add<clsEmitter>(1, 1);
        e->Organ = n.Byte(0, 2);
        e->Tissue = n.Byte(0, 5);
        e->Locus = n.Byte(0, 13);
        e->Chem = n.Byte();
        e->Threshold = n.Byte();
        e->Rate = n.Byte(1, 255);
        e->Gain = n.Byte();
        e->Flags = n.Byte(0, 7);
    }

    void Reaction()
    {
        auto *r = Add<clsReaction>(1, 2);
        for (int i = 0; i < 4; ++i) {
            r->Conc[i] = n.Byte(1, 16);
            r->Chem[i] = n.Byte();
        }
        r->Rate = n.Byte();
    }

    void HalfLives()
    {
        auto *h = Add<clsHalfLives>(1, 3);
        for (quint8 &v : h->HalfLife)
            v = n.Byte();
    }

    void Inject()
    {
        auto *i = Add<clsInject>(1, 4);
        i->Chem = n.Byte();
        i->Conc = n.Byte();
    }

    void Stimulus()
    {
        auto *st = Add<clsStimulus>(2, 0);
        st->stimulus = n.Byte(0, 45);
        st->Significance = n.Byte();
        st->Neu = n.Byte();
        st->Intensity = n.Byte();
        st->Features = n.Byte(0, 7);
        for (int i = 0; i < 4; ++i) {
            st->Chem[i] = n.Byte();
            st->amount[i] = n.Byte();
        }
    }

    void Species()
    {
        auto *sp = Add<clsSpecies>(2, 1);
        sp->Genus = n.Byte(0, 3);
        sp->Mum = QStringLiteral("Wx3q");
        sp->Dad = QStringLiteral("Rv7a");
    }

    void Appearance()
    {
        auto *a = Add<clsAppearance>(2, 2);
        a->Region = n.Byte(0, 4);
        a->Variety = n.Byte(0, 25);
        a->Genus = n.Byte(0, 3);
    }

    void Pose()
    {
        auto *p = Add<clsPose>(2, 3);
        p->pose = n.Byte();
        QString text;
        for (int i = 0; i < 15; ++i)
            text += QChar(n.Next(32, 90));
        p->PoseString = text;
    }

    void Gait()
    {
        auto *g = Add<clsGait>(2, 4);
        g->Drive = n.Byte(0, 15);
        for (quint8 &a : g->Anim)
            a = n.Byte();
    }

    void Instinct()
    {
        auto *in = Add<clsInstinct>(2, 5);
        for (int i = 0; i < 3; ++i) {
            in->lobe[i] = n.Byte(0, 7);
            in->Neu[i] = n.Byte();
        }
        in->Motor = n.Byte(0, 15);
        in->Reinforcer = n.Byte();
        in->Reinforcement = n.Byte();
    }

    void Pigment()
    {
        auto *c = Add<clsColour>(2, 6);
        c->Pigment = n.Byte(0, 2);
        c->Intensity = n.Byte();
    }

    void Bleed()
    {
        auto *b = Add<clsColourBleed>(2, 7);
        b->Rotation = n.Byte();
        b->Swap = n.Byte();
    }

private:
    Session &s;
    Numbers n;
    int ids[4][8] = {};
};

} // namespace

namespace BenchGenome {

void Build(Session &session)
{
    session.ClearGeneList();
    session.GenomeImage.ReadCursor = ::GenomeImage::ReadLimit; // CreateGene reads zeros here
    Builder b(session);
    b.Species();
    for (int i = 0; i < 4; ++i)
        b.Appearance();
    for (int i = 0; i < 9; ++i)
        b.Lobe();
    for (int i = 0; i < 4; ++i)
        b.Organ(true);
    // Ten organs, each followed by the receptors, emitters and reactions that belong to it.
    for (int organ = 0; organ < 10; ++organ) {
        b.Organ(false);
        for (int i = 0; i < 20; ++i)
            b.Receptor();
        for (int i = 0; i < 12; ++i)
            b.Emitter();
        for (int i = 0; i < 15; ++i)
            b.Reaction();
    }
    b.HalfLives();
    for (int i = 0; i < 30; ++i)
        b.Inject();
    for (int i = 0; i < 60; ++i)
        b.Stimulus();
    for (int i = 0; i < 6; ++i)
        b.Appearance();
    for (int i = 0; i < 200; ++i)
        b.Pose();
    for (int i = 0; i < 20; ++i)
        b.Gait();
    for (int i = 0; i < 70; ++i)
        b.Instinct();
    for (int i = 0; i < 10; ++i)
        b.Pigment();
    for (int i = 0; i < 5; ++i)
        b.Bleed();
    session.GenomeImage.ReadCursor = 0;
}

QByteArray FileBytes(Session &session)
{
    session.EncodeGenome();
    return QByteArray(reinterpret_cast<const char *>(session.GenomeImage.Bytes.data()), ::GenomeImage::Size);
}

void PutFile(Session &session, const QByteArray &bytes)
{
    ::GenomeImage &img = session.GenomeImage;
    const size_t n = std::min(size_t(bytes.size()), img.Bytes.size());
    std::memcpy(img.Bytes.data(), bytes.constData(), n);
    int last = ::GenomeImage::ReadLimit - 1;
    while (last >= 0 && img.Bytes[size_t(last)] == 0)
        --last;
    img.WriteCursor = last + 1;
}

} // namespace BenchGenome
