#include "core/compare/GeneFields.h"

#include "base/SingleByteText.h"
#include "core/Session.h"

#include <cstring>
#include <map>

namespace GeneFields {

namespace {

// Builds one kind's table in file order; each call adds one field at the running offset
// unless the field shares the byte before it (bits of one flag byte).
class Table
{
public:
    QVector<GeneField> fields;
    int at = 0;

    Table &Add(const QString &name, FieldShow show = FieldShow::Number, int length = 1)
    {
        GeneField f;
        f.name = name, f.offset = at, f.length = length, f.show = show;
        fields.append(f);
        at += length;
        return *this;
    }
    Table &Choice(const QString &name, const QStringList &words)
    {
        Add(name, FieldShow::Choice);
        fields.last().choices = words;
        return *this;
    }
    // Bits of the byte just added split off into fields of their own; the byte's own
    // field keeps the bits no control names.
    Table &Bit(const QString &name, quint8 bit, FieldShow show = FieldShow::Bit, const QStringList &words = {})
    {
        GeneField f = fields.last();
        fields.last().mask &= quint8(~bit);
        f.name = name, f.mask = bit, f.show = show, f.choices = words;
        fields.insert(fields.size() - 1, f);
        return *this;
    }
    // A flag byte: its named bits, then "<name> (other bits)" for the rest.
    Table &Flags(const QString &name, const std::vector<std::pair<QString, quint8>> &bits)
    {
        Add(name + QStringLiteral(" (other bits)"));
        for (const auto &[bitName, bit] : bits)
            Bit(bitName, bit);
        return *this;
    }
};

const QStringList SpreadWords = {QStringLiteral("--- Flat"), QStringLiteral("/\\ Normal"), QStringLiteral("|\\ Saw"),
                                 QStringLiteral("/| waS")};
const QStringList MigrationWords = {QStringLiteral("Dendrites do not migrate"),
                                    QStringLiteral("Migrate if ANY dendrite is loose and this cell is firing"),
                                    QStringLiteral("Migrate when ALL dens are loose")};

QVector<GeneField> LobeFields()
{
    Table t;
    t.Add(QStringLiteral("X")).Add(QStringLiteral("Y")).Add(QStringLiteral("Width")).Add(QStringLiteral("Height"));
    t.Choice(QStringLiteral("Data copied to Perception Lobe?"),
             {QStringLiteral("No"), QStringLiteral("Yes"), QStringLiteral("Mutually exclusive")});
    t.Add(QStringLiteral("Nominal Threshold")).Add(QStringLiteral("Leakage rate"), FieldShow::Time);
    t.Add(QStringLiteral("Rest State")).Add(QStringLiteral("Input gain lo-hi"));
    t.Add(QStringLiteral("State Rule"), FieldShow::Rule, 12);
    t.Flags(QStringLiteral("Flags"), {{QStringLiteral("Winner Takes All (WTA)"), 1}, {QStringLiteral("Flag 2"), 2},
                                      {QStringLiteral("Flag 3"), 4}, {QStringLiteral("Flag 4"), 8}});
    for (int i = 0; i < 2; ++i) {
        const QString growth = QStringLiteral("D%1 growth: ").arg(i);
        const QString dynamics = i == 0 ? QStringLiteral("D0 Dynamics: ") : QStringLiteral("D1 dynamics: ");
        t.Add(growth + QStringLiteral("Source Lobe"), FieldShow::Lobe);
        t.Add(growth + QStringLiteral("Minimum #")).Add(growth + QStringLiteral("Maximum #"));
        t.Choice(growth + QStringLiteral("Spread"), SpreadWords);
        t.Add(growth + QStringLiteral("Fanout"));
        t.Add(growth + QStringLiteral("Min LTW")).Add(growth + QStringLiteral("Max LTW"));
        t.Add(growth + QStringLiteral("Min. Strength")).Add(growth + QStringLiteral("Max. Strength"));
        t.Choice(growth + QStringLiteral("Migration Rules"), MigrationWords);
        t.Add(dynamics + QStringLiteral("Relax Susceptibility"), FieldShow::Time);
        t.Add(dynamics + QStringLiteral("Relax STW"), FieldShow::Time);
        t.Add(dynamics + QStringLiteral("LTW gain rate")).Add(dynamics + QStringLiteral("Gain every"));
        t.Add(dynamics + QStringLiteral("Gain strength rule"), FieldShow::Rule, 12);
        t.Add(dynamics + QStringLiteral("Lose every"));
        t.Add(dynamics + QStringLiteral("Lose strength rule"), FieldShow::Rule, 12);
        t.Add(dynamics + QStringLiteral("Susceptibility rule"), FieldShow::Rule, 12);
        t.Add(dynamics + QStringLiteral("Reinforcement rule"), FieldShow::Rule, 12);
        t.Add(dynamics + QStringLiteral("Back prop rule"), FieldShow::Rule, 12);
        t.Add(dynamics + QStringLiteral("Forward prop rule"), FieldShow::Rule, 12);
    }
    return t.fields;
}

// Receptor and emitter share the place; the rest differs in order and words.
Table Attachment()
{
    Table t;
    t.Choice(QStringLiteral("Organ"), {QStringLiteral("Brain"), QStringLiteral("Creature"), QStringLiteral("Current Organ")});
    t.Add(QStringLiteral("Tissue"), FieldShow::Tissue);
    return t;
}

QVector<GeneField> ReceptorFields()
{
    Table t = Attachment();
    t.Add(QStringLiteral("Locus"), FieldShow::ReceptorLocus).Add(QStringLiteral("Chemical"), FieldShow::Chemical);
    t.Add(QStringLiteral("Threshold")).Add(QStringLiteral("Nominal")).Add(QStringLiteral("Gain"));
    t.Flags(QStringLiteral("Flags"), {{QStringLiteral("Output REDUCES with increased stimulation"), 1},
                                      {QStringLiteral("Digital (o/p=nominal+/-gain if sig > threshold"), 2}});
    return t.fields;
}

QVector<GeneField> EmitterFields()
{
    Table t = Attachment();
    t.Add(QStringLiteral("Locus"), FieldShow::EmitterLocus).Add(QStringLiteral("Chemical"), FieldShow::Chemical);
    t.Add(QStringLiteral("Threshold")).Add(QStringLiteral("Smpl Rate")).Add(QStringLiteral("Gain"));
    t.Flags(QStringLiteral("Flags"), {{QStringLiteral("Clear source byte after reading"), 1},
                                      {QStringLiteral("Invert input signal (s=255-s)"), 4}});
    t.Bit(QStringLiteral("Emitter Type"), 2, FieldShow::Choice, {QStringLiteral("Analogue"), QStringLiteral("Digital")});
    return t.fields;
}

QVector<GeneField> ReactionFields()
{
    Table t;
    const QString places[4] = {QStringLiteral("Reactant 1"), QStringLiteral("Reactant 2"), QStringLiteral("Product 1"),
                               QStringLiteral("Product 2")};
    for (const QString &p : places)
        t.Add(p + QStringLiteral(" amount")).Add(p, FieldShow::Chemical);
    t.Add(QStringLiteral("Reaction Rate"), FieldShow::Time);
    return t.fields;
}

QVector<GeneField> HalfLifeFields()
{
    Table t;
    for (int c = 0; c < 256; ++c) {
        t.Add(QStringLiteral("Half life of chemical %1").arg(c), FieldShow::Time);
        t.fields.last().chemical = c;
    }
    return t.fields;
}

QVector<GeneField> StimulusFields()
{
    Table t;
    t.Add(QStringLiteral("Stimulus"), FieldShow::Stimulus).Add(QStringLiteral("Significance"));
    t.Add(QStringLiteral("Sensory Neurone"), FieldShow::Sense).Add(QStringLiteral("Intensity"));
    t.Flags(QStringLiteral("Features"), {{QStringLiteral("Modulate using sensory signal"), 1},
                                         {QStringLiteral("Add offset to neu (eg. word#)"), 2},
                                         {QStringLiteral("Detected even if asleep"), 4}});
    for (int i = 1; i <= 4; ++i)
        t.Add(QStringLiteral("Chemical %1").arg(i), FieldShow::Chemical).Add(QStringLiteral("Amount %1").arg(i));
    return t.fields;
}

QVector<GeneField> BuildBody(GeneKind kind)
{
    Table t;
    switch (kind) {
    case GeneKind::BrainLobe: return LobeFields();
    case GeneKind::BrainOrgan:
    case GeneKind::Organ:
        t.Add(QStringLiteral("Clockrate")).Add(QStringLiteral("Organ vulnerability"));
        t.Add(QStringLiteral("Lifeforce start value")).Add(QStringLiteral("Biotick start"));
        t.Add(QStringLiteral("ATP Damage coeff."));
        break;
    case GeneKind::Receptor: return ReceptorFields();
    case GeneKind::Emitter: return EmitterFields();
    case GeneKind::Reaction: return ReactionFields();
    case GeneKind::HalfLives: return HalfLifeFields();
    case GeneKind::Inject: t.Add(QStringLiteral("Chemical"), FieldShow::Chemical).Add(QStringLiteral("Concentration")); break;
    case GeneKind::Stimulus: return StimulusFields();
    case GeneKind::Species:
        t.Add(QStringLiteral("Species of Creature"), FieldShow::Species);
        t.Add(QStringLiteral("Mothers genome moniker"), FieldShow::Text, 4);
        t.Add(QStringLiteral("Fathers genome moniker"), FieldShow::Text, 4);
        break;
    case GeneKind::Appearance:
        t.Choice(QStringLiteral("Body Area"), {QStringLiteral("Head"), QStringLiteral("Body"), QStringLiteral("Legs"),
                                               QStringLiteral("Arms"), QStringLiteral("Tail + create")});
        t.Add(QStringLiteral("Parts ID"), FieldShow::Variety).Add(QStringLiteral("Species of bodypart donor"), FieldShow::Species);
        break;
    case GeneKind::Pose:
        t.Add(QStringLiteral("Pose"), FieldShow::Pose).Add(QStringLiteral("Pose string (15)"), FieldShow::Text, 15);
        break;
    case GeneKind::Gait:
        t.Add(QStringLiteral("Gait"), FieldShow::GaitDrive);
        for (int i = 1; i <= 8; ++i)
            t.Add(QStringLiteral("Pose %1").arg(i), FieldShow::GaitPose);
        break;
    case GeneKind::Instinct:
        for (int i = 1; i <= 3; ++i)
            t.Add(QStringLiteral("Lobe %1").arg(i), FieldShow::InstinctLobe)
                .Add(QStringLiteral("Neurone %1").arg(i), FieldShow::InstinctNeurone);
        t.Add(QStringLiteral("Action"), FieldShow::Action).Add(QStringLiteral("Reward/punish chemical"), FieldShow::Chemical);
        t.Add(QStringLiteral("Reward/punish amount"));
        break;
    case GeneKind::Colour:
        t.Choice(QStringLiteral("Pigment"), {QStringLiteral("Red"), QStringLiteral("Green"), QStringLiteral("Blue")});
        t.Add(QStringLiteral("Intensity"));
        break;
    case GeneKind::ColourBleed: t.Add(QStringLiteral("Rotation")).Add(QStringLiteral("Swap")); break;
    }
    return t.fields;
}

QVector<GeneField> BuildHeader()
{
    Table t;
    t.at = 8;
    t.Add(QStringLiteral("Switch On"), FieldShow::LifeStage);
    // Bits 64 and 128 of the flags are cleared on every load and set by nothing.
    t.Flags(QStringLiteral("Mutability"), {{QStringLiteral("Mut."), 1}, {QStringLiteral("Dup"), 2},
                                           {QStringLiteral("Cut"), 4}, {QStringLiteral("Do not express (carry)"), 32}});
    t.Bit(QStringLiteral("Sex"), 24, FieldShow::Sex);
    t.Add(QStringLiteral("Degree"));
    for (GeneField &f : t.fields)
        f.header = true;
    return t.fields;
}

QString Named(int value, const QString &word) { return QString::number(value) + QStringLiteral(" (") + word + QStringLiteral(")"); }

QString Listed(int value, const QStringList &words)
{
    return value >= 0 && value < words.size() ? Named(value, words.at(value)) : QString::number(value);
}

int BodyByte(const QByteArray &record, int offset)
{
    const int at = BodyStart + offset;
    return at < record.size() ? quint8(record.at(at)) : 0;
}

QString TissueText(const Session &s, int organ, int tissue)
{
    if (organ == 0)
        return Named(tissue, s.Tables.LobeName(tissue));
    if (organ == 1)
        return Listed(tissue, s.Tables.TissueNames);
    return tissue == 0 ? Named(0, QStringLiteral("<no tissue>")) : QString::number(tissue);
}

QString LocusText(const Session &s, bool receptor, int organ, int tissue, int locus)
{
    const ReferenceTables &t = s.Tables;
    if (organ == 0) {
        if (receptor && locus >= t.BrainReceptorLoci.size())
            return Named(locus, QStringLiteral("Cell(%1) State").arg(locus - 19));
        return Listed(locus, receptor ? t.BrainReceptorLoci : t.BrainEmitterLoci);
    }
    if (organ == 2)
        return Listed(locus, receptor ? t.OrganReceptorLoci : t.OrganEmitterLoci);
    const QStringList *lists[6][2] = {
        {&t.SomaticEmitterLoci, &t.SomaticReceptorLoci},           {&t.CirculatoryLoci, &t.CirculatoryLoci},
        {&t.ReproductiveEmitterLoci, &t.ReproductiveReceptorLoci}, {&t.ImmuneEmitterLoci, &t.ImmuneReceptorLoci},
        {&t.SensorimotorEmitterLoci, &t.SensorimotorReceptorLoci}, {&t.DriveNames, &t.DriveNames},
    };
    return tissue < 6 ? Listed(locus, *lists[tissue][receptor ? 1 : 0]) : QString::number(locus);
}

// The cell names of an instinct's lobe, as the editor's neurone lists give them.
QString NeuroneText(const Session &s, int lobe, int cell)
{
    const ReferenceTables &t = s.Tables;
    switch (lobe) {
    case 0: return cell == 0 ? Named(0, QStringLiteral("<NOT USED>")) : QString::number(cell);
    case 1: return Listed(cell, t.DriveNames);
    case 2: return cell < 40 ? Named(cell, QStringLiteral("<ID %1>").arg(cell)) : QString::number(cell);
    case 3: return cell < t.ActionNames.size() ? Named(cell, QStringLiteral("verb: ") + t.ActionNames.at(cell)) : QString::number(cell);
    case 4: return cell < 40 ? Named(cell, QStringLiteral("Noun: <ID %1>").arg(cell)) : QString::number(cell);
    case 5: return cell + 1 < t.SenseNames.size() ? Named(cell, t.SenseNames.at(cell + 1)) : QString::number(cell);
    case 6: return Listed(cell, t.ActionNames);
    case 7: return cell < 40 ? Named(cell, QStringLiteral(" IT is <ID %1>").arg(cell)) : QString::number(cell);
    }
    return QString::number(cell);
}

QString RuleText(const Session &s, const QByteArray &bytes)
{
    int last = bytes.size() - 1;
    while (last >= 0 && bytes.at(last) == 0)
        --last;
    if (last < 0)
        return QStringLiteral("<undefined>");
    QStringList words;
    for (int i = 0; i <= last; ++i) {
        const int token = quint8(bytes.at(i));
        words << (token < s.Tables.SVRuleTokens.size() ? s.Tables.SVRuleTokens.at(token)
                                                       : QStringLiteral("E!(%1)").arg(token));
    }
    return words.join(QStringLiteral(" "));
}

} // namespace

const QVector<GeneField> &Header()
{
    static const QVector<GeneField> fields = BuildHeader();
    return fields;
}

const QVector<GeneField> &Body(GeneKind kind)
{
    static const std::map<GeneKind, QVector<GeneField>> tables = [] {
        std::map<GeneKind, QVector<GeneField>> all;
        for (int k = 0; k < GeneKinds::Count; ++k)
            all[GeneKinds::At(k).kind] = BuildBody(GeneKinds::At(k).kind);
        return all;
    }();
    return tables.at(kind);
}

QByteArray FieldBytes(const GeneField &f, const QByteArray &record)
{
    const int at = f.header ? f.offset : BodyStart + f.offset;
    if (at + f.length > record.size())
        return QByteArray();
    QByteArray bytes = record.mid(at, f.length);
    if (f.mask != 0xFF)
        bytes[0] = char(quint8(bytes.at(0)) & f.mask);
    return bytes;
}

bool Differs(const GeneField &f, const QByteArray &a, const QByteArray &b)
{
    const int at = f.header ? f.offset : BodyStart + f.offset;
    const bool inA = at + f.length <= a.size(), inB = at + f.length <= b.size();
    if (!inA || !inB)
        return inA != inB;
    if ((a.at(at) ^ b.at(at)) & f.mask)
        return true;
    return f.length > 1 && std::memcmp(a.constData() + at + 1, b.constData() + at + 1, size_t(f.length - 1)) != 0;
}

QString FieldName(const Session &s, const GeneField &f)
{
    if (f.chemical < 0)
        return f.name;
    const QString chemical = s.Lists.ChemicalNames[size_t(f.chemical)];
    return chemical.isEmpty() ? f.name : f.name + QStringLiteral(" (") + chemical + QStringLiteral(")");
}

QString ValueText(const Session &s, const GeneField &f, const QByteArray &record)
{
    const QByteArray bytes = FieldBytes(f, record);
    if (bytes.isEmpty())
        return QStringLiteral("-");
    if (f.show == FieldShow::Text)
        return QStringLiteral("\"") + SingleByteText::Decode(bytes) + QStringLiteral("\"");
    if (f.show == FieldShow::Rule)
        return RuleText(s, bytes);

    const int v = quint8(bytes.at(0));
    const ReferenceTables &t = s.Tables;
    switch (f.show) {
    case FieldShow::Bit: return v ? QStringLiteral("on") : QStringLiteral("off");
    case FieldShow::Choice: {
        // A choice over bits counts from the lowest bit of its mask.
        int shift = 0;
        while (shift < 8 && !((f.mask >> shift) & 1))
            ++shift;
        return Listed(v >> shift, f.choices);
    }
    case FieldShow::Chemical: {
        // A chemical without a name of its own is often listed under its number.
        const QString name = s.Lists.ChemicalNames[size_t(v)];
        return name.isEmpty() || name == QString::number(v) ? QString::number(v) : Named(v, name);
    }
    case FieldShow::Pose: {
        const QString name = s.Lists.PoseNames[size_t(v)];
        return name.isEmpty() ? QString::number(v) : Named(v, name);
    }
    case FieldShow::GaitPose: {
        const QString name = v == 0 ? QStringLiteral("<empty>") : s.Lists.PoseNames[size_t(v)];
        return name.isEmpty() ? QString::number(v) : Named(v, name);
    }
    case FieldShow::Lobe: return Named(v, t.LobeName(v));
    case FieldShow::InstinctLobe: return Named(v, v == 0 ? QStringLiteral("<NOT USED>") : t.LobeName(v));
    case FieldShow::InstinctNeurone: return NeuroneText(s, BodyByte(record, f.offset - 1), v);
    case FieldShow::Tissue: return TissueText(s, BodyByte(record, 0), v);
    case FieldShow::ReceptorLocus:
    case FieldShow::EmitterLocus:
        return LocusText(s, f.show == FieldShow::ReceptorLocus, BodyByte(record, 0), BodyByte(record, 1), v);
    case FieldShow::Time: return Named(v, t.HalfLifeName(v));
    case FieldShow::LifeStage: return Listed(v, t.LifeStageNames);
    case FieldShow::Sex:
        return (v & 8) && (v & 16) ? QStringLiteral("M (and F)") : (v & 8) ? QStringLiteral("M") : (v & 16) ? QStringLiteral("F") : QStringLiteral("B");
    case FieldShow::Stimulus: return Listed(v, t.StimulusNames);
    case FieldShow::Sense:
        return v == 255 ? Named(v, QStringLiteral("<none>"))
                        : v + 1 < t.SenseNames.size() ? Named(v, t.SenseNames.at(v + 1)) : QString::number(v);
    case FieldShow::Action: return Listed(v, t.ActionNames);
    case FieldShow::GaitDrive: return v == 0 ? Named(0, QStringLiteral("Normal gait")) : v < 16 ? Named(v, QStringLiteral("Special gait %1").arg(v)) : QString::number(v);
    case FieldShow::Species: return Listed(v, t.SpeciesNames.mid(0, 4));
    case FieldShow::Variety: return v < 26 ? Named(v, QString(QChar('A' + v))) : QString::number(v);
    default: return QString::number(v);
    }
}

} // namespace GeneFields
