// Feeds arbitrary bytes to the script list's loader as scriptnames.txt; ListFileFuzz.h says
// what is checked. The results of the scripts aren't in the file and stay empty.
#include "ListFileFuzz.h"

#include <algorithm>
#include <cstdint>

namespace {

QString DefaultName(int i) { return i < NameLists::ScriptsInUse ? QStringLiteral("<empty>") : QString(); }

bool NoResults(const NameLists &l)
{
    return std::all_of(l.ScriptResults.begin(), l.ScriptResults.end(), [](const QString &r) { return r.isEmpty(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static ListFileFuzz fuzz({QStringLiteral("scriptnames.txt"), NameLists::ScriptEntries,
                              QStringLiteral("Error reading script names"), &NameLists::LoadScriptList,
                              [](NameLists &l) { return l.ScriptNames.data(); },
                              [](NameLists &l) { return l.ScriptMacros.data(); }, DefaultName, false, NoResults});
    fuzz.Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
