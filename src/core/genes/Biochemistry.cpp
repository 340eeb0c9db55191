#include "core/genes/Biochemistry.h"

#include "core/GeneBody.h"

#include <algorithm>

clsReceptor::clsReceptor(Session &s) : GeneBody(s, 1, 0) {}

template <class IO> void clsReceptor::Body(IO &io)
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

clsEmitter::clsEmitter(Session &s) : GeneBody(s, 1, 1) {}

template <class IO> void clsEmitter::Body(IO &io)
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

clsReaction::clsReaction(Session &s) : GeneBody(s, 1, 2) {}

template <class IO> void clsReaction::Body(IO &io)
{
    for (int i = 0; i < 4; ++i) {
        io.Byte(Conc[i], 1, 16);
        io.Byte(Chem[i]);
    }
    io.Byte(Rate);
}

clsHalfLives::clsHalfLives(Session &s) : GeneBody(s, 1, 3)
{
    std::fill_n(HalfLife, 255, quint8(255));
    HalfLife[255] = 0;
}

template <class IO> void clsHalfLives::Body(IO &io)
{
    io.Bytes(HalfLife, 256);
}

clsInject::clsInject(Session &s) : GeneBody(s, 1, 4) {}

template <class IO> void clsInject::Body(IO &io)
{
    io.Byte(Chem);
    io.Byte(Conc);
}

template class GeneBody<clsReceptor>;
template class GeneBody<clsEmitter>;
template class GeneBody<clsReaction>;
template class GeneBody<clsHalfLives>;
template class GeneBody<clsInject>;
