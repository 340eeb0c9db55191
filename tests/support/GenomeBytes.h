#pragma once
#include <QByteArray>

// Builds the bytes of genome files for tests.
namespace GenomeBytes {

inline QByteArray Hex(const char *hex) { return QByteArray::fromHex(hex); }

// "gene" and a header: the given kind and ID, Generation 9, SwitchOn 3, Mutability 0x15 and,
// unless in the older format, MutabilityWeighting 0x77.
inline QByteArray Header(int type, int subType, int id = 1, bool older = false)
{
    QByteArray h("gene");
    for (int b : {type, subType, id, 9, 3, 0x15})
        h += char(b);
    if (!older)
        h += char(0x77);
    return h;
}

// A whole file in the current format: "dna2", the genes as given, "gend".
inline QByteArray File(const QByteArray &genes) { return "dna2" + genes + "gend"; }

} // namespace GenomeBytes
