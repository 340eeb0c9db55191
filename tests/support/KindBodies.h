#pragma once
// A body of every gene kind, and the genome image filled from bytes and read back.
#include "core/Session.h"
#include "support/GenomeBytes.h"

#include <QList>
#include <algorithm>

namespace GenomeBytes {

// Twelve bytes counting up from `first`.
inline QByteArray Rule(int first)
{
    QByteArray r(12, char(first));
    for (int j = 0; j < 12; ++j)
        r[j] = char(first + j);
    return r;
}

// A lobe body with every field in range; the blocks of the two dendrite types start at 22 and 109.
inline QByteArray LobeBody()
{
    QByteArray b = Hex("3F014002 02 0A0B0C0D") + Rule(0xA0) + Hex("0F");
    for (int i = 0; i < 2; ++i) {
        // Source, min, max, Spread, FanWidth, InitialLTWMin/Max, InitialStrengthMin/Max, Migration,
        // RelaxSus, RelaxSTW, LTWRate, GainStrength, gain rule, LoseStrength, then the lose,
        // susceptibility, reinforcement, back and forward propagation rules.
        b += QByteArray(1, char(3 + i)) + Hex("05") + char(9 + i) + Hex("0308 0102 00FF 02 14151617")
             + Rule(0x10 + 0x60 * i) + Hex("18");
        for (int r = 2; r <= 6; ++r)
            b += Rule(0x10 * r + 0x60 * i);
    }
    return b;
}

// A kind, a body with its values in range, and the body of a fresh object (an organ's biotick as 0).
struct Kind { const char *name; int type, subType; QByteArray body, defaults; };

inline QList<Kind> Kinds()
{
    QByteArray halfLives;
    for (int i = 0; i < 256; ++i)
        halfLives += char(i * 7);
    return {
        {"clsBrainLobe", 0, 0, LobeBody(), Hex("00000101") + QByteArray(192, '\0')},
        {"clsBorgan", 0, 1, Hex("0504030201"), Hex("800A800002")},
        {"clsReceptor", 1, 0, Hex("0211223344006603"), Hex("000000000000FF00")},
        {"clsEmitter", 1, 1, Hex("01112233440F6607"), Hex("000000000001FF00")},
        {"clsReaction", 1, 2, Hex("010510060207030800"), Hex("010001000100010020")},
        {"clsHalfLives", 1, 3, halfLives, QByteArray(255, char(0xFF)) + '\0'},
        {"clsInject", 1, 4, Hex("2142"), Hex("0000")},
        {"clsStimulus", 2, 0, Hex("2D10FE20070102030405060708"), Hex("0000FF00000000000000000000")},
        {"clsSpecies", 2, 1, Hex("03") + "MUM1DAD2", Hex("00") + "EVE_ADAM"},
        {"clsAppearance", 2, 2, Hex("051903"), Hex("000000")},
        {"clsPose", 2, 3, Hex("2A") + "AB Z@# 09XYZ?=!", Hex("00") + "XXXXXXXXXXXXXXX"},
        {"clsGait", 2, 4, Hex("0F0102030405060708"), QByteArray(9, '\0')},
        {"clsInstinct", 2, 5, Hex("0710062005300F4050"), QByteArray(9, '\0')},
        {"clsColour", 2, 6, Hex("02FF"), Hex("0080")},
        {"clsColourBleed", 2, 7, Hex("1020"), Hex("0080")},
        {"clsOrgan", 3, 0, Hex("0102030405"), Hex("8014800080")},
    };
}

// Puts the bytes of a genome file into a zeroed image and decodes them.
inline bool DecodeBytes(Session &session, const QByteArray &bytes)
{
    std::fill(session.GenomeImage.Bytes.begin(), session.GenomeImage.Bytes.end(), 0);
    std::copy(bytes.begin(), bytes.end(), reinterpret_cast<char *>(session.GenomeImage.Bytes.data()));
    session.GenomeImage.WriteCursor = int(bytes.size());
    return session.DecodeGenome();
}

// The first count bytes of the image.
inline QByteArray ImageBytes(const Session &session, int count)
{
    return QByteArray(reinterpret_cast<const char *>(session.GenomeImage.Bytes.data()), count);
}

} // namespace GenomeBytes
