#pragma once
#include <QString>
#include <array>
#include <functional>

class Session;

// Moves chemicals to new numbers in one go. The user records moves one at a time (a
// chemical and the number it is to take); carrying them out rewrites every chemical
// reference of the open genome and then moves the names and descriptions of the chemical
// list to their new places.
//
// The map lives as long as the dialog that collects it: carrying it out completes it (every
// chemical not moved maps to itself when named, to 0 when free) and leaves it so, and a
// second run applies that same map again.
class ChemicalReorganiser
{
public:
    static constexpr int Entries = 257; // chemicals 0..256; 1..255 can move

    explicit ChemicalReorganiser(Session &session) : session(session) {}

    // The number each chemical moves to; 0 means no new place.
    std::array<qint16, Entries> NewNumber{};
    // The user gave this chemical a new number.
    std::array<bool, Entries> MoveMarked{};

    // Forgets every recorded move (chemicals 1 to 255).
    void Clear();

    // Records that the chemical shown as oldText is to move to the number typed as newText.
    // Refuses, with a message, a chemical outside 1..255, a target outside 1..255 and a target
    // that some chemical has already been given. Gives the new number, or 0 when refused.
    int RecordMove(const QString &oldText, const QString &newText);

    // Asks first; on Yes completes the map, renumbers the genes, moves the list entries,
    // marks the list changed, has the chemical view filled anew (fillChemicalView, may be
    // empty) and says it is done. Gives false when the user did not answer Yes (nothing
    // changed then).
    // Open editors of chemical genes hand their controls to their genes before the genes are
    // renumbered, and show the renumbered genes once the list has moved, so that neither an
    // edit nor an old number survives in them.
    bool CarryOut(const std::function<void()> &fillChemicalView = {});

    // The steps of CarryOut after the question, each on its own.
    void CompleteMap();
    void RenumberGenes();
    void MoveListEntries();
    // An empty name gets its text back as the chemical view gives it (its number, or
    // "<nothing>" for chemical 0): a slot that nothing moved to becomes a free slot again.
    void RestoreEmptyNames();

private:
    Session &session;
};
