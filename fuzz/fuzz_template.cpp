// Feeds arbitrary bytes to the mutation template's loader as mutations.txt. The loader takes
// the whole numbers at the front over the presets, at most one for each of the 41 rows; a file
// too short for every row is reported and written anew from what the rows then hold (its
// bytes behind the 164 kept), a whole one is left alone. The numbers read write back to the
// bytes they came from, whatever their sign, and read again to the same numbers.
#include "FuzzFiles.h"
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/MutationTemplate.h"

#include <QFile>
#include <algorithm>
#include <cstdint>

namespace {

constexpr int FileBytes = MutationTemplate::Rows * 4;
constexpr qint32 Presets[MutationTemplate::PresetRows] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};

// Row r as the file's bytes give it, or as a fresh template holds it when they end before it.
qint32 Expected(const QByteArray &bytes, int r)
{
    if (bytes.size() >= (r + 1) * 4) {
        const auto *b = reinterpret_cast<const uchar *>(bytes.constData()) + r * 4;
        return qint32(quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24);
    }
    return r < MutationTemplate::PresetRows ? Presets[r] : 0;
}

void Run(const QByteArray &bytes)
{
    static RecordingPrompt prompt;
    static UserMessages messages(prompt);
    static MutationTemplate loaded(messages, FuzzFiles::Folder()), again(messages, FuzzFiles::Folder());

    const QString path = FuzzFiles::Write(QStringLiteral("mutations.txt"), bytes);
    // As a fresh template starts: zeros, then the presets.
    loaded.DefaultGeneCounts.fill(0);
    loaded.SetPresets();
    prompt.messages = 0;
    FuzzFiles::InProgramFolder([] { loaded.LoadDefaultTemplate(); });

    for (int r = 0; r < MutationTemplate::Rows; ++r)
        FUZZ_CHECK(loaded.DefaultGeneCounts[size_t(r)] == Expected(bytes, r));
    if (bytes.size() >= FileBytes) {
        FUZZ_CHECK(prompt.messages == 0);
    } else {
        FUZZ_CHECK(prompt.messages == 1 && prompt.style == 16);
        FUZZ_CHECK(prompt.text
                   == QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this."));
    }

    const QByteArray written = loaded.Encode();
    FUZZ_CHECK(written.size() == FileBytes);
    const qsizetype read = std::min<qsizetype>(bytes.size() / 4 * 4, FileBytes);
    FUZZ_CHECK(written.left(read) == bytes.left(read));
    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::ReadOnly));
    FUZZ_CHECK(file.readAll() == (bytes.size() >= FileBytes ? bytes : written));

    FUZZ_CHECK(again.Decode(written) == MutationTemplate::Rows);
    FUZZ_CHECK(again.DefaultGeneCounts == loaded.DefaultGeneCounts);
    FUZZ_CHECK(again.Encode() == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
