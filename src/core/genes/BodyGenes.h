#pragma once
#include "core/Gene.h"

class clsStimulus : public Gene
{
public:
    explicit clsStimulus(Session &s);
    quint8 stimulus = 0, Significance = 0, Neu = 255, Intensity = 0, Features = 0;
    quint8 Chem[4] = {0, 0, 0, 0};
    quint8 amount[4] = {0, 0, 0, 0};

    int GetChem(int cid) const { return Chem[cid & 3]; }
    void SetChem(int cid, int value) { Chem[cid & 3] = quint8(value); }

protected:
    void Body(BodyIO &io) override;
};

// The genus gene: species and the monikers of both parents.
class clsSpecies : public Gene
{
public:
    explicit clsSpecies(Session &s);
    quint8 Genus = 0;
    QString Mum = QStringLiteral("EVE_");
    QString Dad = QStringLiteral("ADAM");

    void GetControls() override;

protected:
    void Body(BodyIO &io) override;
    void CheckMonikers();
};

class clsAppearance : public Gene
{
public:
    explicit clsAppearance(Session &s);
    quint8 Region = 0, Variety = 0, Genus = 0;

protected:
    void Body(BodyIO &io) override;
};

class clsPose : public Gene
{
public:
    explicit clsPose(Session &s);
    quint8 pose = 0;
    QString PoseString = QStringLiteral("XXXXXXXXXXXXXXX");

protected:
    void Body(BodyIO &io) override;
};

class clsGait : public Gene
{
public:
    explicit clsGait(Session &s);
    quint8 Drive = 0;
    quint8 Anim[8] = {0, 0, 0, 0, 0, 0, 0, 0};

protected:
    void Body(BodyIO &io) override;
};

class clsInstinct : public Gene
{
public:
    explicit clsInstinct(Session &s);
    quint8 lobe[3] = {0, 0, 0};
    quint8 Neu[3] = {0, 0, 0};
    quint8 Motor = 0, Reinforcer = 0, Reinforcement = 0;

protected:
    void Body(BodyIO &io) override;
};

class clsColour : public Gene
{
public:
    explicit clsColour(Session &s);
    quint8 Pigment = 0, Intensity = 128;

protected:
    void Body(BodyIO &io) override;
};

class clsColourBleed : public Gene
{
public:
    explicit clsColourBleed(Session &s);
    quint8 Rotation = 0, Swap = 128;

protected:
    void Body(BodyIO &io) override;
};

// Organ and brain organ: the same five bytes, two defaults apart.
class OrganGene : public Gene
{
public:
    quint8 ClockRate = 128, LTRateChange, LifeForce = 128, BiotickStartValue, ATPDamageCoefficient;

protected:
    OrganGene(Session &s, quint8 type, quint8 subType, quint8 ltRateChange, quint8 atpDamage);
    void Body(BodyIO &io) override;
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
