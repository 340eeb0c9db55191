#include "vocab/ReferenceTables.h"

#include "base/Text.h"

// Gene kinds, genera, egg patterns, life stages and the rows of the genotype summary.
// SpeciesNames and EggVarietyNames end in an empty row, GenotypeCategoryNames in "END":
// lists built from them stop there.
void ReferenceTables::BuildKindTables()
{
    SpeciesNames = {"Melk", "Brannoch", "Tolvane", "Quorrel", ""};
    EggVarietyNames = {"Light green with pale blue patches", "Chicken egg", "Orange and yellow patterned",
        "Planet earth texture", "Dairy cow patterned", "Yellow, red and magenta patterned",
        "White with red freckles", "Polished shiney blue and murkey green", "Bright blue with white swirls",
        "Polished marble", "Checker board", "Light blue swirly (A1)", "Light green speckled (A1)",
        "Green (A1)", "Purple speckled (A1)", "Red with yellow bits (A1)", "Light blue spotty (A1)", ""};
    GeneTypeNames = {"Brain", "Biochemistry", "Creature", "Organ"};
    BrainGeneNames = {"Lobe", "Brain Organ"};
    BiochemistryGeneNames = {"Chemical Receptor", "Chemical Emitter", "Chemical Reaction",
        "Chemical Half-Life", "Chemical Initial Concentration"};
    CreatureGeneNames = {"Stimulus", "Genus", "Appearance", "Pose", "Gait", "Instinct", "Pigment",
        "Pigment Bleed"};
    OrganGeneNames = {"Organ"};
    LifeStageNames = {"Embryo", "Child", "Adolescent", "Youth", "Adult", "Old", "Senile", "-Invalid-"};
    GenotypeCategoryNames = {"Chemical Emitters", "Chemical Receptors", "Chemical Reactions",
        "Initial Chemical Concentrations", "Stimuli", "Appearance", "Poses", "Instincts", "Gaits",
        "Pigmentation", "Organs", "Total Male Specific Genes", "Total Female Specific Genes",
        "Total carried (not expressed) genes", "END"};
}

// Everything a gene editor or the organ view turns into words: half-lives, rule tokens,
// drives, stimuli, senses, actions, lobes, and the places receptors and emitters attach to.
void ReferenceTables::BuildGeneTables()
{
    HalfLifeNames = {"Instantly", "0.4 secs", "1 sec", "3 secs", "5 secs", "10 secs", "20 secs", "40 secs",
        "80 secs", "2.5 mins", "5 mins", "10 mins", "20 mins", "40 mins", "80 mins", "2.5 hrs", "5 hrs",
        "10 hrs", "20 hrs", "3 days", "6 days", "12 days", "24 days", "48 days", "96 days", "112 days",
        "224 days", "448 days", "896 days", "13 years", "26 years", "52 years"};
    SVRuleTokens = {"<end>", "0", "1", "64", "255", "chem 0", "chem 1", "chem 2", "chem 3", "state", "output",
        "thres", "type 0", "type 1", "anded 0", "anded 1", "input", "conduct", "Suscept", "STW", "LTW",
        "strength", "32", "128", "rnd const", "chem 4", "chem 5", "leak in", "leak out", "curr src leak in",
        "TRUE", "PLUS", "MINUS", "TIMES", "INCR", "DECR", "FALSE", "multiply", "average", "move twrds",
        "random", "<ERROR>"};
    DriveNames = {"PAIN", "NEEDFORPLEASURE", "HUNGER", "COLDNESS", "HOTNESS", "TIREDNESS", "SLEEPINESS",
        "LONELINESS", "OVERCROWDEDNESS", "FEAR", "BOREDOM", "ANGER", "SEX DRIVE", "INJURY", "SUFFOCATION",
        "THIRST", "STRESS"};
    StimulusNames = {"Disappointment", "Pointer pats me", "Creature pats me", "Pointer slaps me",
        "Creature slaps me", "It is approaching", "It is retreating", "I bump into wall",
        "Object comes into view", "Unrecognised word", "Heard user speak", "Heard creature speak",
        "I am quiescent (periodic)", "I've Activated1", "I've Activated2", "I've Deactivated",
        "I am approaching (periodic)", "I have retreated", "I have Got", "I have Dropped", "I've stated need",
        "I am Resting (periodic)", "I am sleeping (periodic)", "I am travelling (periodic)",
        "I've been pushed", "I've been hit", "I've eaten something", "<spare action>", "involuntary action 0",
        "involuntary action 1", "involuntary action 2", "involuntary action 3", "involuntary action 4",
        "involuntary action 5", "involuntary action 6", "involuntary action 7", "Approaching edge",
        "Retreating from edge", "Falling through air", "Impact post fall", "Pointer has spoken 'Yes'",
        "Creature has spoken 'Yes'", "Pointer has spoken 'No'", "Creature has spoken 'No'",
        "I've performed a hit", "I've mated"};
    SenseNames = {"<none>", "I've been patted", "I've been slapped", "I've bumped a wall", "I am near a wall",
        "I am in a vehicle", "User has spoken", "Creature has spoken", "Own kind has spoken", "Audible event",
        "Visible event", "IT is approaching", "IT is retreating", "IT is near to me", "IT is Active",
        "IT is an object", "IT is a creature", "IT is my sibling", "IT is my parent", "IT is my child",
        "IT is opposite sex", "IT has pushed me", "IT has hit me", "<spare4>", "<spare5>", "<spare6>",
        "<spare7>", "<spare8>", "<spare9>", "Approaching an edge", "Retreating from an edge",
        "Falling through the air", "Hitting the ground post fall"};
    ActionNames = {"Default (quiescent)", "Activate 1 it", "Activate2 it", "Deactivate it", "Approach it",
        "Retreat frm it", "Get it", "Drop all", "Say what you need", "Rest", "Travel west", "Travel east",
        "Eat it", "Hit it", "<unallocated1>", "<unallocated2>"};
    LobeNames = {"Perceptible i/ps", "Drive i/ps", "Stim source i/ps", "Verb i/ps", "Noun i/ps",
        "General Sensory i/ps", "Decision o/ps", "Attention/Seek o/ps"};
    OrganTargetNames = {"Brain", "Creature", "Current Organ"};
    BrainReceptorLoci = {"Threshold", "Leakage", "Gain", "Den(0) relax susceptibility", "Den(0) relax STW",
        "Den(0) relax LTW", "Den(0) Strength gain rate", "Den(0) Strength loss rate",
        "Den(1) relax susceptibility", "Den(1) relax STW", "Den(1) relax LTW", "Den(1) Strength gain rate",
        "Den(1) Strength loss rate", "Chemical 0", "Chemical 1", "Chemical 2", "Chemical 3", "Chemical 4",
        "Chemical 5"};
    for (int n = 0; n < 40; ++n)
        BrainReceptorLoci << QStringLiteral("Cell(") + QString::number(n) + QStringLiteral(") State");
    BrainEmitterLoci = {"Lobe activity", "# Loose dens/cells type0", "# Loose dens/cells type1"};
    for (int n = 0; n < 40; ++n)
        BrainEmitterLoci << QStringLiteral("Cell(") + QString::number(n) + QStringLiteral(") Output");
    OrganReceptorLoci = {"Clock Rate", "Repair Rate", "Injury"};
    OrganEmitterLoci = {"Clock Rate", "Repair Rate", "Life force"};
    TissueNames = {"Somatic", "Circulatory", "Reproductive", "Immune", "Sensorimotor", "Drive levels"};
    SomaticReceptorLoci = {"become a child", "become adolescent", "become youth", "become adult",
        "become old", "become senile", "die of old age"};
    SomaticEmitterLoci = {"Muscle energy used"};
    CirculatoryLoci.clear();
    for (int n = 0; n < 8; ++n)
        CirculatoryLoci << QStringLiteral("Floating recep-emit ") + QString::number(n);
    ReproductiveReceptorLoci = {"Become fertile if high", "Receptive to sperm if >0", "Chance of mutation",
        "Degree of mutation"};
    ReproductiveEmitterLoci = {"I am fertile (egg/sperm ready)", "I am pregnant (egg&sperm ready)"};
    ImmuneReceptorLoci = {"Die if non-zero!"};
    ImmuneEmitterLoci = {"I'm dead (post-mortem chemistry)"};
    SensorimotorReceptorLoci.clear();
    for (int n = 0; n < 8; ++n)
        SensorimotorReceptorLoci << QStringLiteral("Involuntary Action ") + QString::number(n);
    SensorimotorReceptorLoci << QStringLiteral("<normal walk gait (DO NOT USE)>");
    for (int n = 1; n <= 15; ++n)
        SensorimotorReceptorLoci << QStringLiteral("Special gait ") + QString::number(n);
    SensorimotorEmitterLoci = {"Permanently Active (255)", "I'm Asleep (255)", "Air is this cold",
        "Air is this hot", "Light level", "Crowdedness", "Ambient Radiation", "Time of day", "Season",
        "Air quality (0 Underwater, 124+ Indoors)", "How steep is the slope I'm facing (UP)",
        "How steep is the slope I'm facing (DOWN)", "Speed of wind coming towards me",
        "Speed of wind coming from behind"};
}

void ReferenceTables::Build()
{
    BuildKindTables();
    BuildGeneTables();
}

QString ReferenceTables::HalfLifeName(int value) const
{
    // Row = value / 8, rounded half to even; 252..255 would round past the last row.
    const long long row = Text::RoundHalfEven(qBound(0, value, 255) / 8.0);
    if (HalfLifeNames.isEmpty())
        return QString();
    return HalfLifeNames.at(int(qMin<long long>(row, HalfLifeNames.size() - 1)));
}

QString ReferenceTables::LobeName(int lobe) const
{
    if (lobe >= 0 && lobe < LobeNames.size())
        return LobeNames.at(lobe);
    return QStringLiteral("Lobe ") + QString::number(lobe);
}

// --- instinct conditions ---------------------------------------------------------------------

namespace {
const QString NotUsed = QStringLiteral("<NOT USED>");

// Forty numbered objects, each as prefix + "<ID " + n + ">".
QStringList NumberedIds(const QString &prefix)
{
    QStringList ids;
    for (int n = 0; n < 40; ++n)
        ids << prefix + QStringLiteral("<ID ") + QString::number(n) + QLatin1Char('>');
    return ids;
}
} // namespace

QStringList ReferenceTables::InstinctLobeNames() const
{
    return QStringList{NotUsed} + LobeNames.mid(1, 7);
}

QStringList ReferenceTables::InstinctNeuroneNames(int lobe) const
{
    switch (lobe) {
    case 1: // drives
        return DriveNames;
    case 2: // where a stimulus came from
        return NumberedIds(QString());
    case 3: { // verbs
        QStringList verbs;
        for (const QString &action : ActionNames)
            verbs << QStringLiteral("verb: ") + action;
        return verbs;
    }
    case 4: // nouns
        return NumberedIds(QStringLiteral("Noun: "));
    case 5: // the sensory lobe, without "<none>"
        return SenseNames.mid(1);
    case 6: // decisions
        return ActionNames;
    case 7: // what the creature attends to
        return NumberedIds(QStringLiteral(" IT is "));
    default:
        return {NotUsed};
    }
}

// --- Places of receptors and emitters --------------------------------------------------------

QStringList ReferenceTables::TargetTissues(int organ) const
{
    switch (organ) {
    case 0: {
        QStringList lobes;
        for (int i = 0; i < BrainTissueCount; ++i)
            lobes << LobeName(i);
        return lobes;
    }
    case 1:
        return TissueNames;
    case 2:
        return {QStringLiteral("<no tissue>")};
    default:
        return {};
    }
}

QStringList ReferenceTables::TargetLoci(Attachment side, int organ, int tissue) const
{
    const bool receptor = side == Attachment::Receptor;
    if (organ == 0)
        return tissue >= 0 && tissue < BrainTissueCount ? (receptor ? BrainReceptorTargetLoci() : BrainEmitterLoci)
                                                         : QStringList();
    if (organ == 2)
        return receptor ? OrganReceptorLoci : OrganEmitterLoci;
    if (organ != 1)
        return {};
    switch (tissue) {
    case 0:
        return receptor ? SomaticReceptorLoci : SomaticEmitterLoci;
    case 1:
        return CirculatoryLoci;
    case 2:
        return receptor ? ReproductiveReceptorLoci : ReproductiveEmitterLoci;
    case 3:
        return receptor ? ImmuneReceptorLoci : ImmuneEmitterLoci;
    case 4:
        return receptor ? SensorimotorReceptorLoci : SensorimotorEmitterLoci;
    case 5:
        return DriveNames;
    default:
        return {};
    }
}

QStringList ReferenceTables::BrainReceptorTargetLoci() const
{
    QStringList loci = BrainReceptorLoci;
    // The table ends with cell 39 at row 58; the rule goes on from row 59 with cell 40.
    for (int n = int(loci.size()); n < BrainReceptorLocusCount; ++n)
        loci << QStringLiteral("Cell(") + QString::number(n - 19) + QStringLiteral(") State");
    return loci;
}
