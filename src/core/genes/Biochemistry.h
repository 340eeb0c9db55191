#pragma once
#include "core/Gene.h"

// Receptor and emitter share their place fields; only the order and range of the
// fifth and sixth bytes differ.
class clsReceptor : public GeneBody<clsReceptor>
{
public:
    explicit clsReceptor(Session &s);
    quint8 Organ = 0, Tissue = 0, Locus = 0, Chem = 0;
    quint8 Threshold = 0, Nominal = 0, Gain = 255, Flags = 0;

    template <class IO> void Body(IO &io);
};

class clsEmitter : public GeneBody<clsEmitter>
{
public:
    explicit clsEmitter(Session &s);
    quint8 Organ = 0, Tissue = 0, Locus = 0, Chem = 0;
    quint8 Threshold = 0, Rate = 1, Gain = 255, Flags = 0;

    template <class IO> void Body(IO &io);
};

// Pairs 0 and 1 are the reactants, 2 and 3 the products; chemical 0 stands for nothing.
class clsReaction : public GeneBody<clsReaction>
{
public:
    explicit clsReaction(Session &s);
    quint8 Conc[4] = {1, 1, 1, 1};
    quint8 Chem[4] = {0, 0, 0, 0};
    quint8 Rate = 32;

    int GetConc(int cid) const { return Conc[cid & 3]; }
    int GetChem(int cid) const { return Chem[cid & 3]; }
    void SetChem(int cid, int amount) { Chem[cid & 3] = quint8(amount); }

    template <class IO> void Body(IO &io);
};

class clsHalfLives : public GeneBody<clsHalfLives>
{
public:
    explicit clsHalfLives(Session &s);
    quint8 HalfLife[256];

    int GetChem(int cid) const { return HalfLife[cid & 255]; }
    void SetChem(int cid, int amount) { HalfLife[cid & 255] = quint8(amount); }

    template <class IO> void Body(IO &io);
};

class clsInject : public GeneBody<clsInject>
{
public:
    explicit clsInject(Session &s);
    quint8 Chem = 0, Conc = 0;

    template <class IO> void Body(IO &io);
};
