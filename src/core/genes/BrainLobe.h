#pragma once
#include "core/Gene.h"

// A lobe of the brain: a rectangle of neurones and two dendrite types (index 0 and 1).
class clsBrainLobe : public GeneBody<clsBrainLobe>
{
public:
    explicit clsBrainLobe(Session &s);

    quint8 x = 0, y = 0, Width = 1, Height = 1;
    quint8 Perceptible = 0, Threshold = 0, Leakage = 0, RestState = 0, Attenuation = 0;
    ::StateRule StateRule;
    quint8 Flags = 0;

    quint8 Source[2] = {0, 0};
    quint8 min[2] = {0, 0};
    quint8 max[2] = {0, 0};
    quint8 Spread[2] = {0, 0};
    quint8 FanWidth[2] = {0, 0};
    quint8 InitialLTWMin[2] = {0, 0};
    quint8 InitialLTWMax[2] = {0, 0};
    quint8 InitialStrengthMin[2] = {0, 0};
    quint8 InitialStrengthMax[2] = {0, 0};
    quint8 Migration[2] = {0, 0};
    quint8 RelaxSus[2] = {0, 0};
    quint8 RelaxSTW[2] = {0, 0};
    quint8 LTWRate[2] = {0, 0};
    quint8 GainStrength[2] = {0, 0};
    quint8 LoseStrength[2] = {0, 0};
    ::StateRule GainStrengthRule1, GainStrengthRule2;
    ::StateRule LoseStrengthRule1, LoseStrengthRule2;
    ::StateRule SusRule1, SusRule2;
    ::StateRule ReinforceRule1, ReinforceRule2;
    ::StateRule BPRule1, BPRule2;
    ::StateRule FPRule1, FPRule2;

    // Rules of dendrite type i by role, for code that walks both types alike.
    ::StateRule &GainRule(int i) { return i == 0 ? GainStrengthRule1 : GainStrengthRule2; }
    ::StateRule &LoseRule(int i) { return i == 0 ? LoseStrengthRule1 : LoseStrengthRule2; }
    ::StateRule &SusRule(int i) { return i == 0 ? SusRule1 : SusRule2; }
    ::StateRule &ReinforceRule(int i) { return i == 0 ? ReinforceRule1 : ReinforceRule2; }
    ::StateRule &BPRule(int i) { return i == 0 ? BPRule1 : BPRule2; }
    ::StateRule &FPRule(int i) { return i == 0 ? FPRule1 : FPRule2; }

    int NumNeus() const { return Width * Height; }
    int MinDens() const { return (min[0] + min[1]) * Width * Height; }
    int MaxDens() const { return (max[0] + max[1]) * Width * Height; }

    template <class IO> void Body(IO &io);
};
