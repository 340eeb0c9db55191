#include "core/genes/BodyGenes.h"

#include "core/GeneBody.h"

#include "core/Session.h"

#include <QRandomGenerator>
#include <cmath>

clsStimulus::clsStimulus(Session &s) : GeneBody(s, 2, 0) {}

template <class IO> void clsStimulus::Body(IO &io)
{
    io.Byte(stimulus);
    io.Byte(Significance);
    io.Byte(Neu);
    io.Byte(Intensity);
    io.Byte(Features);
    for (int i = 0; i < 4; ++i) {
        io.Byte(Chem[i]);
        io.Byte(amount[i]);
    }
}

clsSpecies::clsSpecies(Session &s) : GeneBody(s, 2, 1) {}

void clsSpecies::CheckMonikers()
{
    Dad = session.CheckMoniker(Dad, QStringLiteral("D"));
    Mum = session.CheckMoniker(Mum, QStringLiteral("M"));
}

template <class IO> void clsSpecies::Body(IO &io)
{
    io.Byte(Genus, 0, 3);
    // A bad moniker is replaced before it is written, and the member keeps the result.
    if (!io.reading)
        CheckMonikers();
    io.Chars(Mum, 4);
    io.Chars(Dad, 4);
    if (io.reading)
        CheckMonikers();
}

void clsSpecies::GetControls()
{
    Gene::GetControls();
    CheckMonikers();
}

clsAppearance::clsAppearance(Session &s) : GeneBody(s, 2, 2) {}

template <class IO> void clsAppearance::Body(IO &io)
{
    io.Byte(Region, 0, 5);
    io.Byte(Variety, 0, 25);
    if (!io.olderAppearance)
        io.Byte(Genus, 0, 3);
}

clsPose::clsPose(Session &s) : GeneBody(s, 2, 3) {}

template <class IO> void clsPose::Body(IO &io)
{
    io.Byte(pose);
    if (!io.reading && PoseString.size() != 15)
        PoseString = (PoseString.left(15) + QStringLiteral("XXXXXXXXXXXXXXX")).left(15);
    io.Chars(PoseString, 15, 32, 90);
}

clsGait::clsGait(Session &s) : GeneBody(s, 2, 4) {}

template <class IO> void clsGait::Body(IO &io)
{
    io.Byte(Drive, 0, 15);
    for (quint8 &a : Anim)
        io.Byte(a);
}

clsInstinct::clsInstinct(Session &s) : GeneBody(s, 2, 5) {}

template <class IO> void clsInstinct::Body(IO &io)
{
    for (int i = 0; i < 3; ++i) {
        io.Byte(lobe[i], 0, 7);
        io.Byte(Neu[i]);
    }
    io.Byte(Motor, 0, 15);
    io.Byte(Reinforcer);
    io.Byte(Reinforcement);
}

clsColour::clsColour(Session &s) : GeneBody(s, 2, 6) {}

template <class IO> void clsColour::Body(IO &io)
{
    io.Byte(Pigment, 0, 2);
    io.Byte(Intensity);
}

clsColourBleed::clsColourBleed(Session &s) : GeneBody(s, 2, 7) {}

template <class IO> void clsColourBleed::Body(IO &io)
{
    io.Byte(Rotation);
    io.Byte(Swap);
}

OrganGene::OrganGene(Session &s, quint8 type, quint8 subType, quint8 ltRateChange, quint8 atpDamage)
    : GeneBody(s, type, subType), LTRateChange(ltRateChange), ATPDamageCoefficient(atpDamage)
{
    // A new organ starts its biotick at a random point; a load replaces it at once.
    BiotickStartValue = quint8(std::lround(QRandomGenerator::global()->generateDouble() * 255.0));
}

template <class IO> void OrganGene::Body(IO &io)
{
    io.Byte(ClockRate);
    io.Byte(LTRateChange);
    io.Byte(LifeForce);
    io.Byte(BiotickStartValue);
    io.Byte(ATPDamageCoefficient);
}

clsOrgan::clsOrgan(Session &s) : OrganGene(s, 3, 0, 20, 128) {}

clsBorgan::clsBorgan(Session &s) : OrganGene(s, 0, 1, 10, 2) {}

template class GeneBody<clsStimulus>;
template class GeneBody<clsSpecies>;
template class GeneBody<clsAppearance>;
template class GeneBody<clsPose>;
template class GeneBody<clsGait>;
template class GeneBody<clsInstinct>;
template class GeneBody<clsColour>;
template class GeneBody<clsColourBleed>;
template class GeneBody<OrganGene>;
