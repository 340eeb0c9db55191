#pragma once
#include "core/GeneKind.h"

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

class Session;

// How the value of a field reads: the number, and beside it the word the editor shows for it.
enum class FieldShow : quint8 {
    Number,          // the number alone
    Bit,             // "on" or "off" (a one-bit mask)
    Choice,          // a word from the field's own list, else the number alone
    Chemical,        // a chemical of the ChemicalList
    Pose,            // a pose of the PoseList
    GaitPose,        // 0 "<empty>", else a pose
    Lobe,            // a lobe by its name, "Lobe n" from 8 on
    InstinctLobe,    // 0 "<NOT USED>", else a lobe
    InstinctNeurone, // a cell of the lobe in the byte before it
    Tissue,          // by the organ in body byte 0
    ReceptorLocus,   // by the organ and tissue in body bytes 0 and 1
    EmitterLocus,
    Time,            // a time slider's value and its half-life text
    LifeStage,
    Sex,             // "B", "M", "F" from bits 8 and 16
    Stimulus,
    Sense,           // 255 "<none>", else a neurone of the sensory lobe
    Action,
    GaitDrive,       // "Normal gait", "Special gait n"
    Species,
    Variety,         // the letter A to Z
    Text,            // single-byte characters
    Rule,            // twelve rule tokens
};

// One field of a gene record as an editor names it: where its bytes stand, which bits of them
// it covers, and how its value reads. Header fields count from the start of the record, body
// fields from the start of the body; every bit of every record byte but the token, the kind,
// the ID and the Generation belongs to exactly one field of its kind.
struct GeneField
{
    QString name;
    bool header = false;
    int offset = 0; // in the body, or in the record for a header field
    int length = 1;
    quint8 mask = 0xFF;
    FieldShow show = FieldShow::Number;
    QStringList choices; // the words of a Choice field, by value
    int chemical = -1;   // a half-life: the chemical it is of
};

namespace GeneFields {

constexpr int BodyStart = 11; // record offset of body byte 0: "gene", kind, ID, Generation, three more

// The header fields that every kind shares, then the body fields of each kind in file order.
const QVector<GeneField> &Header();
const QVector<GeneField> &Body(GeneKind kind);

// The bytes of a field in a record (masked); empty if the record is too short.
QByteArray FieldBytes(const GeneField &field, const QByteArray &record);
bool Differs(const GeneField &field, const QByteArray &a, const QByteArray &b);

// The field's name as shown: a half-life names its chemical.
QString FieldName(const Session &session, const GeneField &field);
// The value of the field in a record, in words where the editor has words, e.g. "5 (Glucose)".
QString ValueText(const Session &session, const GeneField &field, const QByteArray &record);

} // namespace GeneFields
