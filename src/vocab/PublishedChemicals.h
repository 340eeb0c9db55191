#pragma once
#include "vocab/NameLists.h"

#include <QByteArray>
#include <QString>

// The chemical list in the forms it takes outside the workbench: the game's own name file
// and a table of text for pasting elsewhere.
namespace PublishedChemicals {

constexpr int Count = NameLists::SlotsInUse; // 256 names, chemicals 0 to 255
constexpr int MaxNameBytes = 255;

// The game's "allchemicals.str": the count 256 in 16 bits, low byte first (00 01), then
// the names of chemicals 0 to 255, each a length byte and that many single-byte characters.
// No descriptions. A name too long for its length byte is cut at 255 bytes, so the numbering
// of the names behind it stays right.
QByteArray AllChemicalsFile(const NameLists &lists);

// One line for each chemical from 1 to 255: its number, a tab, its name, a tab, its
// description and a line feed. Chemical 0 is not listed.
QString ChemicalTable(const NameLists &lists);

} // namespace PublishedChemicals
