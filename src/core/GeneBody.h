#pragma once
#include "core/Gene.h"

// The walks of a kind, made from its Body. Included only by the .cpp files of the kinds:
// each walker lives in the walk itself, where Body is inlined, so its cursor stays out of
// memory (see BodyIO.h).

template <class Kind> void GeneBody<Kind>::ReadBody(GenomeImage &image, BodyFormat format)
{
    BodyReader io(image, format);
    static_cast<Kind &>(*this).Body(io);
}

template <class Kind> void GeneBody<Kind>::WriteRecord(GenomeImage &image)
{
    BodyWriter io(image);
    Header(io);
    static_cast<Kind &>(*this).Body(io);
}
