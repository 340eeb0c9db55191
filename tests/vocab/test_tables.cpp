// The fixed word tables, letter for letter: each is what a combo, a list or a summary shows
// for the value stored in a gene, so a single wrong letter reaches the user.
#include "vocab/ReferenceTables.h"

#include <QtTest>

using Side = ReferenceTables::Attachment;

namespace {
// "Cell(first)" + suffix up to "Cell(last)" + suffix, as table rows.
QStringList Cells(int first, int last, const char *suffix)
{
    QStringList rows;
    for (int n = first; n <= last; ++n)
        rows << QStringLiteral("Cell(%1)%2").arg(n).arg(QLatin1String(suffix));
    return rows;
}
QStringList Rows(const char *joined) { return QString::fromUtf8(joined).split(QLatin1Char('|')); }
} // namespace

class TestTables : public QObject
{
    Q_OBJECT
    ReferenceTables t;

private slots:
    void initTestCase() { t.Build(); }

    void wording_data()
    {
        QTest::addColumn<QStringList>("table");
        QTest::addColumn<QStringList>("expected");
        QTest::newRow("species") << t.SpeciesNames << Rows("Melk|Brannoch|Tolvane|Quorrel|");
        QTest::newRow("eggs") << t.EggVarietyNames << Rows(
            "Light green with pale blue patches|Chicken egg|Orange and yellow patterned|Planet earth texture|Dairy cow patterned|"
            "Yellow, red and magenta patterned|White with red freckles|Polished shiney blue and murkey green|"
            "Bright blue with white swirls|Polished marble|Checker board|Light blue swirly (A1)|Light green speckled (A1)|"
            "Green (A1)|Purple speckled (A1)|Red with yellow bits (A1)|Light blue spotty (A1)|");
        QTest::newRow("gene kinds") << t.GeneTypeNames + t.BrainGeneNames + t.BiochemistryGeneNames + t.CreatureGeneNames + t.OrganGeneNames
                                    << Rows("Brain|Biochemistry|Creature|Organ|Lobe|Brain Organ|Chemical Receptor|Chemical Emitter|"
                                            "Chemical Reaction|Chemical Half-Life|Chemical Initial Concentration|Stimulus|Genus|"
                                            "Appearance|Pose|Gait|Instinct|Pigment|Pigment Bleed|Organ");
        QTest::newRow("stages") << t.LifeStageNames << Rows("Embryo|Child|Adolescent|Youth|Adult|Old|Senile|-Invalid-");
        QTest::newRow("genotype") << t.GenotypeCategoryNames << Rows(
            "Chemical Emitters|Chemical Receptors|Chemical Reactions|Initial Chemical Concentrations|Stimuli|Appearance|Poses|"
            "Instincts|Gaits|Pigmentation|Organs|Total Male Specific Genes|Total Female Specific Genes|"
            "Total carried (not expressed) genes|END");
        QTest::newRow("half-lives") << t.HalfLifeNames << Rows(
            "Instantly|0.4 secs|1 sec|3 secs|5 secs|10 secs|20 secs|40 secs|80 secs|2.5 mins|5 mins|10 mins|20 mins|40 mins|"
            "80 mins|2.5 hrs|5 hrs|10 hrs|20 hrs|3 days|6 days|12 days|24 days|48 days|96 days|112 days|224 days|448 days|"
            "896 days|13 years|26 years|52 years");
        QTest::newRow("rule tokens") << t.SVRuleTokens << Rows(
            "<end>|0|1|64|255|chem 0|chem 1|chem 2|chem 3|state|output|thres|type 0|type 1|anded 0|anded 1|input|conduct|"
            "Suscept|STW|LTW|strength|32|128|rnd const|chem 4|chem 5|leak in|leak out|curr src leak in|TRUE|PLUS|MINUS|"
            "TIMES|INCR|DECR|FALSE|multiply|average|move twrds|random|<ERROR>");
        QTest::newRow("drives") << t.TargetLoci(Side::Emitter, 1, 5) << Rows(
            "PAIN|NEEDFORPLEASURE|HUNGER|COLDNESS|HOTNESS|TIREDNESS|SLEEPINESS|LONELINESS|OVERCROWDEDNESS|FEAR|BOREDOM|"
            "ANGER|SEX DRIVE|INJURY|SUFFOCATION|THIRST|STRESS");
        QTest::newRow("stimuli") << t.StimulusNames << Rows(
            "Disappointment|Pointer pats me|Creature pats me|Pointer slaps me|Creature slaps me|It is approaching|"
            "It is retreating|I bump into wall|Object comes into view|Unrecognised word|Heard user speak|Heard creature speak|"
            "I am quiescent (periodic)|I've Activated1|I've Activated2|I've Deactivated|I am approaching (periodic)|"
            "I have retreated|I have Got|I have Dropped|I've stated need|I am Resting (periodic)|I am sleeping (periodic)|"
            "I am travelling (periodic)|I've been pushed|I've been hit|I've eaten something|<spare action>|"
            "involuntary action 0|involuntary action 1|involuntary action 2|involuntary action 3|involuntary action 4|"
            "involuntary action 5|involuntary action 6|involuntary action 7|Approaching edge|Retreating from edge|"
            "Falling through air|Impact post fall|Pointer has spoken 'Yes'|Creature has spoken 'Yes'|"
            "Pointer has spoken 'No'|Creature has spoken 'No'|I've performed a hit|I've mated");
        QTest::newRow("senses") << t.SenseNames << Rows(
            "<none>|I've been patted|I've been slapped|I've bumped a wall|I am near a wall|I am in a vehicle|User has spoken|"
            "Creature has spoken|Own kind has spoken|Audible event|Visible event|IT is approaching|IT is retreating|"
            "IT is near to me|IT is Active|IT is an object|IT is a creature|IT is my sibling|IT is my parent|IT is my child|"
            "IT is opposite sex|IT has pushed me|IT has hit me|<spare4>|<spare5>|<spare6>|<spare7>|<spare8>|<spare9>|"
            "Approaching an edge|Retreating from an edge|Falling through the air|Hitting the ground post fall");
        QTest::newRow("actions") << t.ActionNames << Rows(
            "Default (quiescent)|Activate 1 it|Activate2 it|Deactivate it|Approach it|Retreat frm it|Get it|Drop all|"
            "Say what you need|Rest|Travel west|Travel east|Eat it|Hit it|<unallocated1>|<unallocated2>");
        // Lobes as the tissues of the brain: eight names, then numbers up to 31.
        QTest::newRow("brain tissues") << t.TargetTissues(0).mid(0, 9) + t.TargetTissues(0).mid(31) << Rows(
            "Perceptible i/ps|Drive i/ps|Stim source i/ps|Verb i/ps|Noun i/ps|General Sensory i/ps|Decision o/ps|"
            "Attention/Seek o/ps|Lobe 8|Lobe 31");
        QTest::newRow("targets and tissues") << t.OrganTargetNames + t.TargetTissues(1) + t.TargetTissues(2) << Rows(
            "Brain|Creature|Current Organ|Somatic|Circulatory|Reproductive|Immune|Sensorimotor|Drive levels|<no tissue>");
        QTest::newRow("brain emitter loci") << t.TargetLoci(Side::Emitter, 0, 31)
                                            << Rows("Lobe activity|# Loose dens/cells type0|# Loose dens/cells type1") + Cells(0, 39, " Output");
        QTest::newRow("brain receptor loci") << t.TargetLoci(Side::Receptor, 0, 0) << Rows(
            "Threshold|Leakage|Gain|Den(0) relax susceptibility|Den(0) relax STW|Den(0) relax LTW|Den(0) Strength gain rate|"
            "Den(0) Strength loss rate|Den(1) relax susceptibility|Den(1) relax STW|Den(1) relax LTW|"
            "Den(1) Strength gain rate|Den(1) Strength loss rate|Chemical 0|Chemical 1|Chemical 2|Chemical 3|Chemical 4|"
            "Chemical 5") + Cells(0, 236, " State");
        QTest::newRow("creature receptor loci") << t.TargetLoci(Side::Receptor, 1, 0) + t.TargetLoci(Side::Receptor, 1, 2)
                                                       + t.TargetLoci(Side::Receptor, 1, 3) + t.TargetLoci(Side::Receptor, 2, 9) << Rows(
            "become a child|become adolescent|become youth|become adult|become old|become senile|die of old age|"
            "Become fertile if high|Receptive to sperm if >0|Chance of mutation|Degree of mutation|Die if non-zero!|"
            "Clock Rate|Repair Rate|Injury");
        QTest::newRow("creature emitter loci") << t.TargetLoci(Side::Emitter, 1, 0) + t.TargetLoci(Side::Emitter, 1, 2)
                                                      + t.TargetLoci(Side::Emitter, 1, 3) + t.TargetLoci(Side::Emitter, 2, 0) << Rows(
            "Muscle energy used|I am fertile (egg/sperm ready)|I am pregnant (egg&sperm ready)|"
            "I'm dead (post-mortem chemistry)|Clock Rate|Repair Rate|Life force");
        QTest::newRow("circulatory loci") << t.TargetLoci(Side::Receptor, 1, 1).mid(6) + t.TargetLoci(Side::Emitter, 1, 1).mid(7)
                                          << Rows("Floating recep-emit 6|Floating recep-emit 7|Floating recep-emit 7");
        QTest::newRow("sensorimotor receptor loci") << t.TargetLoci(Side::Receptor, 1, 4).mid(7) << Rows(
            "Involuntary Action 7|<normal walk gait (DO NOT USE)>|Special gait 1|Special gait 2|Special gait 3|"
            "Special gait 4|Special gait 5|Special gait 6|Special gait 7|Special gait 8|Special gait 9|Special gait 10|"
            "Special gait 11|Special gait 12|Special gait 13|Special gait 14|Special gait 15");
        QTest::newRow("sensorimotor emitter loci") << t.TargetLoci(Side::Emitter, 1, 4) << Rows(
            "Permanently Active (255)|I'm Asleep (255)|Air is this cold|Air is this hot|Light level|Crowdedness|"
            "Ambient Radiation|Time of day|Season|Air quality (0 Underwater, 124+ Indoors)|"
            "How steep is the slope I'm facing (UP)|How steep is the slope I'm facing (DOWN)|"
            "Speed of wind coming towards me|Speed of wind coming from behind");
    }

    void wording()
    {
        QFETCH(QStringList, table);
        QTEST(table, "expected");
    }
};

QTEST_GUILESS_MAIN(TestTables)
#include "test_tables.moc"
