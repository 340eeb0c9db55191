#pragma once
#include <QStringList>

// The fixed vocabularies: read-only, index base 0, the row being the value stored in a gene.
struct ReferenceTables
{
    QStringList GeneTypeNames;
    QStringList LifeStageNames;
    QStringList SpeciesNames;

    // Fills every table.
    void Build();
};
