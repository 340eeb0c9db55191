#include "core/genes/Biochemistry.h"

clsReceptor::clsReceptor(Session &s) : Gene(s, 1, 0) {}

void clsReceptor::Body(BodyIO &io)
{
    io.Byte(Organ, 0, 2);
    io.Byte(Tissue);
    io.Byte(Locus);
    io.Byte(Chem);
    io.Byte(Threshold);
    io.Byte(Nominal);
    io.Byte(Gain);
    io.Byte(Flags);
}

clsEmitter::clsEmitter(Session &s) : Gene(s, 1, 1) {}

void clsEmitter::Body(BodyIO &io)
{
    io.Byte(Organ, 0, 2);
    io.Byte(Tissue);
    io.Byte(Locus);
    io.Byte(Chem);
    io.Byte(Threshold);
    io.Byte(Rate, 1, 255);
    io.Byte(Gain);
    io.Byte(Flags);
}

clsReaction::clsReaction(Session &s) : Gene(s, 1, 2) {}

void clsReaction::Body(BodyIO &io)
{
    for (int i = 0; i < 4; ++i) {
        io.Byte(Conc[i], 1, 16);
        io.Byte(Chem[i]);
    }
    io.Byte(Rate);
}

clsHalfLives::clsHalfLives(Session &s) : Gene(s, 1, 3)
{
    for (int i = 0; i < 255; ++i)
        HalfLife[i] = 255;
    HalfLife[255] = 0;
}

void clsHalfLives::Body(BodyIO &io)
{
    for (quint8 &h : HalfLife)
        io.Byte(h);
}

clsInject::clsInject(Session &s) : Gene(s, 1, 4) {}

void clsInject::Body(BodyIO &io)
{
    io.Byte(Chem);
    io.Byte(Conc);
}
