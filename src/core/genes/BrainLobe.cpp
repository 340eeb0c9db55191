#include "core/genes/BrainLobe.h"

#include "core/GeneBody.h"

clsBrainLobe::clsBrainLobe(Session &s) : GeneBody(s, 0, 0) {}

template <class IO> void clsBrainLobe::Body(IO &io)
{
    io.Byte(x, 0, 63);
    io.Byte(y, 0, 63);
    io.Byte(Width, 1, 64);
    io.Byte(Height, 1, 64);
    io.Byte(Perceptible, 0, 2);
    io.Byte(Threshold);
    io.Byte(Leakage);
    io.Byte(RestState);
    io.Byte(Attenuation);
    io.Rule(StateRule);
    io.Byte(Flags);
    for (int i = 0; i < 2; ++i) {
        io.Byte(Source[i]);
        io.Byte(min[i]);
        io.Byte(max[i], min[i], 255); // a maximum is never read below its minimum
        io.Byte(Spread[i], 0, 3);
        io.Byte(FanWidth[i], 0, 8);
        io.Byte(InitialLTWMin[i]);
        io.Byte(InitialLTWMax[i], InitialLTWMin[i], 255);
        io.Byte(InitialStrengthMin[i]);
        io.Byte(InitialStrengthMax[i], InitialStrengthMin[i], 255);
        io.Byte(Migration[i], 0, 2);
        io.Byte(RelaxSus[i]);
        io.Byte(RelaxSTW[i]);
        io.Byte(LTWRate[i]);
        io.Byte(GainStrength[i]);
        io.Rule(GainRule(i));
        io.Byte(LoseStrength[i]);
        io.Rule(LoseRule(i));
        io.Rule(SusRule(i));
        io.Rule(ReinforceRule(i));
        // The older format has no propagation rules; they stay as they are.
        if (!io.olderFormat) {
            io.Rule(BPRule(i));
            io.Rule(FPRule(i));
        }
    }
}

template class GeneBody<clsBrainLobe>;
