#include "vocab/ReferenceTables.h"

void ReferenceTables::Build()
{
    GeneTypeNames = {"Brain", "Biochemistry", "Creature", "Organ"};
    LifeStageNames = {"Embryo", "Child", "Adolescent", "Youth", "Adult", "Old", "Senile", "-Invalid-"};
    SpeciesNames = {"Melk", "Brannoch", "Tolvane", "Quorrel"};
}
