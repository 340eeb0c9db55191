#pragma once
#include <QString>
#include <QStringList>
#include <memory>

class Session;
class Gene;

// The gene list's words and the commands that change the GeneList, without any widget:
// the Gene Editor tab reads the selection, calls these and then rewrites its rows.
// Every refusal is told to the user here, through the session's messages.
namespace GeneCommands {

constexpr int ColumnCount = 8;
// Genes the new-gene command will make; one fewer than CreateGene allows.
constexpr int NewGeneLimit = 899;

// The row key of a gene: its Numeric_ID in three digits with leading zeros.
QString RowKey(int numericId);

// The kind of a gene in words, e.g. "Biochemistry: Chemical Receptor (Glucose)".
// The target in brackets is added only for receptors, emitters, initial concentrations
// and poses, and only when withTarget is set.
QString DescribeGene(const Session &session, const Gene &gene, bool withTarget);

// The eight texts of a gene's row: number, generation, ID, switch-on stage, sex,
// mutability weighting, caption, kind.
QStringList RowTexts(const Session &session, const Gene &gene);

// A species gene can't be deleted, wherever it stands.
bool IsSpeciesGene(const Gene &gene);

// Removes gene n after asking (unless quietly), renumbers the genes behind it and asks for
// a full refresh. Gives the removed gene (whose editor may still be open), or nothing when
// the delete was refused or cancelled.
std::unique_ptr<Gene> DeleteGene(Session &session, int n, bool quietly);
// The gene number to select after a delete of gene n, whatever the delete gave.
int SelectionAfterDelete(const Session &session, int n);

// The tests of a single move, in their order, with their messages. True: the move may go on.
bool MayMoveDown(Session &session, int n);
bool MayMoveUp(Session &session, int n);
// Exchanges the genes of two slots; each takes the Numeric_ID of its new slot.
void SwapGenes(Session &session, int a, int b);

// The edit, rename and change-ID commands on gene n (-1: none selected).
void EditGene(Session &session, int n);
void RenameGene(Session &session, int n);
void ChangeID(Session &session, int n);

// The new-gene command with an empty genome: offers a new genome. True: genes exist, so
// the new-gene dialog may open.
bool MayOpenNewGeneForm(Session &session);
// The kind for a row of the new-gene dialog's list; false for the Genus row and rows
// outside the list.
bool KindOfNewGeneRow(int row, quint8 &type, quint8 &subType);
// Checks the limit and the row, then makes the gene interactively and updates the genome
// space figure. True: a gene was added at the end of the GeneList.
bool CreateGeneOfRow(Session &session, int row);

} // namespace GeneCommands
