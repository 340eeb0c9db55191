// Feeds arbitrary bytes to the pose list's loader as posename.txt; ListFileFuzz.h says what
// is checked. A pose name the file leaves empty becomes the pose's number.
#include "ListFileFuzz.h"

#include <cstdint>

namespace {

QString DefaultName(int i) { return i < NameLists::SlotsInUse ? QString::number(i) : QString(); }

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static ListFileFuzz fuzz({QStringLiteral("posename.txt"), NameLists::ListEntries,
                              QStringLiteral("Error reading pose names"), &NameLists::LoadPoseList,
                              [](NameLists &l) { return l.PoseNames.data(); },
                              [](NameLists &l) { return l.PoseCaptions.data(); }, DefaultName, true});
    fuzz.Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
