#pragma once
#include <QString>

class Session;

// The commands that hand the workbench's own name data to the outside: the chemical list
// into the game's folder, and the present captions as the species' default captions.
namespace ListPublishing {

inline const QString ListFileName = QStringLiteral("allchemicals.str");
inline const QString BackupFileName = QStringLiteral("chemicals.bak");

// Asks, finds the game's main folder, copies the game's list to the backup (asking again
// if that fails) and writes the chemical list over the game's list. The new list is written
// beside the old one and renamed over it, so the old list stays whole until the new one is
// complete. Gives true when the new list is in place and nothing went wrong on the way.
bool InstallChemicalList(Session &session);

// Asks, then writes the caption store to the default caption file of the genome's species.
// Gives true when it came to the write.
bool MakeSpeciesCaptionFile(Session &session);

} // namespace ListPublishing
