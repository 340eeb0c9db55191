// The fixed word tables: each is what a combo, a list or a summary shows for the value stored
// in a gene. Each table's length and a few rows at its ends and its seams tell a wrong table,
// a row lost or shifted, or a numbered row miscounted; the brain emitter loci are checked
// whole.
#include "vocab/ReferenceTables.h"

#include <QtTest>

using Side = ReferenceTables::Attachment;

class TestTables : public QObject
{
    Q_OBJECT
    ReferenceTables t;

    // A row of wording_data: the table's length and its rows at the given places.
    static void Row(const char *name, const QStringList &table, std::initializer_list<int> rows, const char *expected)
    {
        QStringList picked{QString::number(table.size())};
        for (int row : rows)
            picked << table.value(row, QStringLiteral("<missing>"));
        QTest::newRow(name) << picked.join(QLatin1Char('|')) << QString::fromUtf8(expected);
    }
    // The loci of the creature's tissues, one after another.
    QStringList Loci(Side side, std::initializer_list<int> tissues) const
    {
        QStringList loci;
        for (int tissue : tissues)
            loci += t.TargetLoci(side, 1, tissue);
        return loci;
    }

private slots:
    void initTestCase() { t.Build(); }

    void wording_data()
    {
        QTest::addColumn<QString>("picked");
        QTest::addColumn<QString>("expected");
        Row("species", t.SpeciesNames, {0, 3, 4}, "5|Melk|Quorrel|");
        Row("eggs", t.EggVarietyNames, {0, 11, 17}, "18|Light green with pale blue patches|Light blue swirly (A1)|");
        const QStringList kinds = t.GeneTypeNames + t.BrainGeneNames + t.BiochemistryGeneNames + t.CreatureGeneNames;
        Row("gene kinds", kinds + t.OrganGeneNames, {3, 5, 10, 19},
            "20|Organ|Brain Organ|Chemical Initial Concentration|Organ");
        Row("stages", t.LifeStageNames, {0, 2, 7}, "8|Embryo|Adolescent|-Invalid-");
        Row("genotype", t.GenotypeCategoryNames, {0, 13, 14},
            "15|Chemical Emitters|Total carried (not expressed) genes|END");
        Row("half-lives", t.HalfLifeNames, {0, 9, 31}, "32|Instantly|2.5 mins|52 years");
        Row("rule tokens", t.SVRuleTokens, {0, 24, 29, 41}, "42|<end>|rnd const|curr src leak in|<ERROR>");
        Row("drives", t.TargetLoci(Side::Emitter, 1, 5), {0, 12, 16}, "17|PAIN|SEX DRIVE|STRESS");
        Row("stimuli", t.StimulusNames, {0, 27, 45}, "46|Disappointment|<spare action>|I've mated");
        Row("senses", t.SenseNames, {0, 23, 32}, "33|<none>|<spare4>|Hitting the ground post fall");
        Row("actions", t.ActionNames, {0, 5, 15}, "16|Default (quiescent)|Retreat frm it|<unallocated2>");
        // Lobes as the tissues of the brain: eight names, then numbers up to 31.
        Row("brain tissues", t.TargetTissues(0), {0, 7, 8, 31}, "32|Perceptible i/ps|Attention/Seek o/ps|Lobe 8|Lobe 31");
        Row("targets and tissues", t.OrganTargetNames + t.TargetTissues(1) + t.TargetTissues(2), {0, 2, 3, 8, 9},
            "10|Brain|Current Organ|Somatic|Drive levels|<no tissue>");
        QStringList emitterLoci = {"Lobe activity", "# Loose dens/cells type0", "# Loose dens/cells type1"};
        for (int n = 0; n < 40; ++n)
            emitterLoci << QStringLiteral("Cell(%1) Output").arg(n);
        QTest::newRow("brain emitter loci") << t.TargetLoci(Side::Emitter, 0, 31).join('|') << emitterLoci.join('|');
        Row("brain receptor loci", t.TargetLoci(Side::Receptor, 0, 0), {0, 3, 12, 18, 19, 58, 59, 255},
            "256|Threshold|Den(0) relax susceptibility|Den(1) Strength loss rate|Chemical 5|Cell(0) State|Cell(39) State|"
            "Cell(40) State|Cell(236) State");
        Row("creature receptor loci", Loci(Side::Receptor, {0, 2, 3}) + t.TargetLoci(Side::Receptor, 2, 9),
            {0, 6, 7, 11, 14}, "15|become a child|die of old age|Become fertile if high|Die if non-zero!|Injury");
        Row("creature emitter loci", Loci(Side::Emitter, {0, 2, 3}) + t.TargetLoci(Side::Emitter, 2, 0), {0, 2, 3, 6},
            "7|Muscle energy used|I am pregnant (egg&sperm ready)|I'm dead (post-mortem chemistry)|Life force");
        Row("circulatory loci", Loci(Side::Receptor, {1}) + Loci(Side::Emitter, {1}), {0, 7, 15},
            "16|Floating recep-emit 0|Floating recep-emit 7|Floating recep-emit 7");
        Row("sensorimotor receptor loci", Loci(Side::Receptor, {4}), {0, 8, 9, 23},
            "24|Involuntary Action 0|<normal walk gait (DO NOT USE)>|Special gait 1|Special gait 15");
        Row("sensorimotor emitter loci", Loci(Side::Emitter, {4}), {0, 9, 13},
            "14|Permanently Active (255)|Air quality (0 Underwater, 124+ Indoors)|Speed of wind coming from behind");
    }

    void wording()
    {
        QFETCH(QString, picked);
        QTEST(picked, "expected");
    }
};

QTEST_GUILESS_MAIN(TestTables)
#include "test_tables.moc"
