#pragma once
#include <QString>

// File names that differ only in case name the same file, as on the system the genome
// files come from ("chemicals.txt" read, "Chemicals.txt" written).
namespace FileNames {

// The path of the file called name inside folder. An existing file whose name matches in
// any case is the file (an exact match wins; among several others the first in name
// order); otherwise the path takes name as the caller spells it. An empty folder means
// the current directory.
QString ResolveFileName(const QString &folder, const QString &name);

// The same for a whole path: the folder part is kept as given, the last part is resolved.
QString ResolveFilePath(const QString &path);

} // namespace FileNames

using FileNames::ResolveFileName;
