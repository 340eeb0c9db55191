// The fixed word tables: each is what a combo, a list or a summary shows for the value stored
// in a gene. Every table, as the program's lookups give it, reads as tables.txt beside this
// file: a wrong letter, a row lost or shifted, a numbered row miscounted or a wrong table shows
// as the first line that differs.
#include "vocab/ReferenceTables.h"

#include <QtTest>

using Side = ReferenceTables::Attachment;

class TestTables : public QObject
{
    Q_OBJECT

private slots:
    void wording()
    {
        ReferenceTables t;
        t.Build();
        QStringList lines;
        const auto add = [&lines](const QString &name, const QStringList &rows) {
            lines << QLatin1Char('[') + name + QLatin1Char(']');
            for (int i = 0; i < rows.size(); ++i)
                lines << QString::number(i) + QLatin1Char(' ') + rows[i];
        };
        add("species", t.SpeciesNames);
        add("eggs", t.EggVarietyNames);
        add("gene types", t.GeneTypeNames);
        add("brain genes", t.BrainGeneNames);
        add("biochemistry genes", t.BiochemistryGeneNames);
        add("creature genes", t.CreatureGeneNames);
        add("organ genes", t.OrganGeneNames);
        add("life stages", t.LifeStageNames);
        add("genotype", t.GenotypeCategoryNames);
        add("half-lives", t.HalfLifeNames);
        add("rule tokens", t.SVRuleTokens);
        add("stimuli", t.StimulusNames);
        add("senses", t.SenseNames);
        add("actions", t.ActionNames);
        add("instinct lobes", t.InstinctLobeNames());
        for (int lobe = 0; lobe < 8; ++lobe)
            add(QStringLiteral("instinct neurones of lobe %1").arg(lobe), t.InstinctNeuroneNames(lobe));
        add("organ targets", t.OrganTargetNames);
        // One more target than there are: none of its own.
        for (int organ = 0; organ <= ReferenceTables::OrganTargetCount; ++organ) {
            const QStringList tissues = t.TargetTissues(organ);
            add(QStringLiteral("tissues of target %1").arg(organ), tissues);
            for (int tissue = 0; tissue <= tissues.size(); ++tissue) {
                if (organ == 0 && tissue != 0 && tissue != ReferenceTables::BrainTissueCount - 1)
                    continue; // every lobe has the same loci: the first and the last stand for all
                for (Side side : {Side::Receptor, Side::Emitter})
                    add(QStringLiteral("%1 loci of target %2 tissue %3")
                            .arg(side == Side::Receptor ? "receptor" : "emitter").arg(organ).arg(tissue),
                        t.TargetLoci(side, organ, tissue));
            }
        }

        QFile file(QStringLiteral(HELIX_TABLES_FILE));
        QVERIFY2(file.open(QIODevice::ReadOnly), "tables.txt is missing");
        const QStringList expected = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
        for (int i = 0; i < qMax(lines.size(), expected.size()); ++i)
            QVERIFY2(lines.value(i) == expected.value(i), qPrintable(QStringLiteral("line %1: \"%2\", expected \"%3\"")
                                                                      .arg(i + 1).arg(lines.value(i), expected.value(i))));
    }
};

QTEST_GUILESS_MAIN(TestTables)
#include "test_tables.moc"
