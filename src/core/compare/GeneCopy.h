#pragma once
#include <QVector>

class Session;

// Copies genes of another genome to the end of the open one, by the rules of the new-gene
// command: no second Genus gene, at most 899 genes, and room in the image without the
// out-of-space question. A copy keeps its ID unless a gene of its kind has it already, and
// then takes the lowest spare one; its caption and notes come along under its key. A copy
// that breaks a rule is refused whole, with a message, and copies nothing.
namespace GeneCopy {

// Gives the numbers of the new genes in the target, in order; empty if nothing was copied.
QVector<int> CopyGenes(Session &target, Session &source, const QVector<int> &genes);

// The bytes the genome takes up to the last gene when encoded: "dna2" and every record.
int EncodedLength(const Session &session);

} // namespace GeneCopy
