#pragma once
#include "core/Gene.h"

class clsStimulus : public GeneBody<clsStimulus>
{
public:
    explicit clsStimulus(Session &s);
    quint8 stimulus = 0, Significance = 0, Neu = 255, Intensity = 0, Features = 0;
    quint8 Chem[4] = {0, 0, 0, 0};
    quint8 amount[4] = {0, 0, 0, 0};

    int GetChem(int cid) const { return Chem[cid & 3]; }
    void SetChem(int cid, int value) { Chem[cid & 3] = quint8(value); }

    template <class IO> void Body(IO &io);
};

// The genus gene: species and the monikers of both parents.
class clsSpecies : public GeneBody<clsSpecies>
{
public:
    explicit clsSpecies(Session &s);
    quint8 Genus = 0;
    QString Mum = QStringLiteral("EVE_");
    QString Dad = QStringLiteral("ADAM");

    void GetControls() override;
    template <class IO> void Body(IO &io);

protected:
    void CheckMonikers();
};

class clsAppearance : public GeneBody<clsAppearance>
{
public:
    explicit clsAppearance(Session &s);
    quint8 Region = 0, Variety = 0, Genus = 0;

    template <class IO> void Body(IO &io);
};

class clsPose : public GeneBody<clsPose>
{
public:
    explicit clsPose(Session &s);
    quint8 pose = 0;
    QString PoseString = QStringLiteral("XXXXXXXXXXXXXXX");

    template <class IO> void Body(IO &io);
};

class clsGait : public GeneBody<clsGait>
{
public:
    explicit clsGait(Session &s);
    quint8 Drive = 0;
    quint8 Anim[8] = {0, 0, 0, 0, 0, 0, 0, 0};

    template <class IO> void Body(IO &io);
};

class clsInstinct : public GeneBody<clsInstinct>
{
public:
    explicit clsInstinct(Session &s);
    quint8 lobe[3] = {0, 0, 0};
    quint8 Neu[3] = {0, 0, 0};
    quint8 Motor = 0, Reinforcer = 0, Reinforcement = 0;

    template <class IO> void Body(IO &io);
};

class clsColour : public GeneBody<clsColour>
{
public:
    explicit clsColour(Session &s);
    quint8 Pigment = 0, Intensity = 128;

    template <class IO> void Body(IO &io);
};

class clsColourBleed : public GeneBody<clsColourBleed>
{
public:
    explicit clsColourBleed(Session &s);
    quint8 Rotation = 0, Swap = 128;

    template <class IO> void Body(IO &io);
};

// Organ and brain organ: the same five bytes, two defaults apart.
class OrganGene : public GeneBody<OrganGene>
{
public:
    quint8 ClockRate = 128, LTRateChange, LifeForce = 128, BiotickStartValue, ATPDamageCoefficient;

    template <class IO> void Body(IO &io);

protected:
    OrganGene(Session &s, quint8 type, quint8 subType, quint8 ltRateChange, quint8 atpDamage);
};

class clsOrgan : public OrganGene
{
public:
    explicit clsOrgan(Session &s);
};

class clsBorgan : public OrganGene
{
public:
    explicit clsBorgan(Session &s);
};
