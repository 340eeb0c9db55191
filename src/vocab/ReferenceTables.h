#pragma once
#include <QString>
#include <QStringList>

// The fixed vocabularies: read-only, index base 0, the row being the value stored in a gene
// or chosen in a control. Built once at start-up and never changed.
struct ReferenceTables
{
    // Kinds and categories.
    QStringList SpeciesNames;          // 4 genera, then an empty row
    QStringList EggVarietyNames;       // 17 egg patterns, then an empty row
    QStringList GeneTypeNames;         // by GeneType
    QStringList BrainGeneNames;        // by GeneSubType of type 0
    QStringList BiochemistryGeneNames; // ... of type 1
    QStringList CreatureGeneNames;     // ... of type 2
    QStringList OrganGeneNames;        // ... of type 3
    QStringList LifeStageNames;        // by SwitchOn; row 7 only shows a bad value
    QStringList GenotypeCategoryNames; // 14 summary rows, then "END"

    // Words for gene fields.
    QStringList HalfLifeNames;  // 32 rows, see HalfLifeName
    QStringList SVRuleTokens;   // 41 tokens, row 41 is the error row
    QStringList DriveNames;
    QStringList StimulusNames;
    QStringList SenseNames;
    QStringList ActionNames;
    QStringList LobeNames;        // lobes 0..7; others are "Lobe " + number
    QStringList OrganTargetNames; // target of a receptor or emitter
    QStringList TissueNames;      // tissues of target 1

    // Loci, by target and tissue.
    QStringList BrainReceptorLoci, BrainEmitterLoci;
    QStringList OrganReceptorLoci, OrganEmitterLoci;
    QStringList SomaticReceptorLoci, SomaticEmitterLoci;
    QStringList CirculatoryLoci; // receptors and emitters alike
    QStringList ReproductiveReceptorLoci, ReproductiveEmitterLoci;
    QStringList ImmuneReceptorLoci, ImmuneEmitterLoci;
    QStringList SensorimotorReceptorLoci, SensorimotorEmitterLoci;

    static constexpr int LifeStageCount = 7;   // stages in LifeStageNames
    static constexpr int SVRuleTokenCount = 41; // tokens in SVRuleTokens; row 41 is "<ERROR>"

    // Fills every table.
    void Build();
    // The two halves of Build, in the order start-up needs them.
    void BuildKindTables();
    void BuildGeneTables();

    // Text of a half-life value 0..255: row value / 8, rounded half to even; values that
    // would round past the last row show the last row.
    QString HalfLifeName(int value) const;
    // Name of a lobe number: its row of LobeNames, or "Lobe " + number.
    QString LobeName(int lobe) const;

    // The conditions of an instinct. Lobe 0, the perceptible lobe, stands for no condition:
    // "<NOT USED>", then the names of lobes 1 to 7, so that the row is the lobe number.
    QStringList InstinctLobeNames() const;
    // The neurones of lobe 1 to 7 as an instinct's condition names them, row = neurone
    // number; for lobe 0 (and any other) the single row "<NOT USED>".
    QStringList InstinctNeuroneNames(int lobe) const;

    // --- Places of receptors and emitters: organ target, tissue, locus ---------------------
    // Each level's rows are the values stored in the gene, in the order of its list.
    static constexpr int OrganTargetCount = 3;
    static constexpr int BrainTissueCount = 32;      // lobes 0..31
    static constexpr int BrainReceptorLocusCount = 256;
    enum class Attachment { Receptor, Emitter };
    // The tissues under an organ target: the 32 lobe names for the brain, TissueNames for the
    // creature, the one "<no tissue>" for the current organ; none for any other target.
    QStringList TargetTissues(int organ) const;
    // The loci under an organ target and tissue. Every lobe has the same loci; the current
    // organ's do not depend on the tissue. None for a target or tissue with no row.
    QStringList TargetLoci(Attachment side, int organ, int tissue) const;
    // BrainReceptorLoci carried on to 256 rows: row n from 59 on is "Cell(" + (n - 19) + ") State".
    QStringList BrainReceptorTargetLoci() const;
};
