#pragma once
// Shared by the RTF and notes tests: a short way to write a run, and runs printed readably
// when a comparison fails.
#include "vocab/Rtf.h"

#include <QtTest>

namespace Rtf {

inline Run R(const QString &text, bool bold = false, bool italic = false, bool underline = false, int halfPoints = 0)
{
    Run r;
    r.text = text;
    r.bold = bold;
    r.italic = italic;
    r.underline = underline;
    r.halfPoints = halfPoints;
    return r;
}

// Found by QCOMPARE through argument-dependent lookup.
inline char *toString(const Run &r)
{
    return QTest::toString(QStringLiteral("[%1%2%3%4|%5]")
                               .arg(r.bold ? "b" : "", r.italic ? "i" : "", r.underline ? "u" : "")
                               .arg(r.halfPoints)
                               .arg(r.text));
}

} // namespace Rtf
