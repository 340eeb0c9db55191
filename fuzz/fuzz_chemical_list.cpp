// Feeds arbitrary bytes to the chemical list's loader as chemicals.txt; ListFileFuzz.h says
// what is checked.
#include "ListFileFuzz.h"

#include <cstdint>

namespace {

QString DefaultName(int i)
{
    if (i == 0)
        return QStringLiteral("<none>");
    return i < NameLists::SlotsInUse ? QString::number(i) : QString();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static ListFileFuzz fuzz({QStringLiteral("chemicals.txt"), NameLists::ListEntries,
                              QStringLiteral("Error reading chemical list"), &NameLists::LoadChemicalList,
                              [](NameLists &l) { return l.ChemicalNames.data(); },
                              [](NameLists &l) { return l.ChemicalCaptions.data(); }, DefaultName});
    fuzz.Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
