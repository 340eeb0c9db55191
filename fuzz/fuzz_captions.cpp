// Feeds arbitrary bytes to the caption store as the caption file beside a genome, through
// the load the program runs after it has read the genome. The bytes are walked here on their
// own, and the store must agree with them:
// - the fault message says what stopped the read (a file cut short, a type tag other than 2),
//   and a whole file gives none;
// - the count in use is the file's, within 0 to 1798, and never counts a record that didn't
//   arrive whole;
// - the store writes back the records it read byte for byte (the reserved field as 0),
//   empty records behind them, and that reads again to the same store and the same bytes.
// One store serves the whole run: a read replaces its table, and before each input its count
// goes back to 0, as it does when a genome is abandoned.
#include "FuzzFiles.h"
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/CaptionStore.h"

#include <QBuffer>
#include <algorithm>
#include <cstdint>

namespace {

constexpr int RecordHead = 12;

quint16 U16(const QByteArray &b, qsizetype at)
{
    const auto *p = reinterpret_cast<const quint8 *>(b.constData()) + at;
    return quint16(p[0] | p[1] << 8);
}

void Run(const QByteArray &bytes)
{
    static RecordingPrompt prompt;
    static UserMessages messages(prompt);
    static const QStringList species;
    static CaptionStore store(messages, FuzzFiles::Folder(), species, {}, {});
    static QByteArray expected;

    const QString file = FuzzFiles::Write(QStringLiteral("pet.gno"), bytes);
    store.CaptionCount = 0;
    prompt.messages = 0;
    FuzzFiles::InProgramFolder([] { store.LoadUniqueCaptions(FuzzFiles::Folder() + QStringLiteral("/pet.gen")); });

    const QString context = QStringLiteral("Error reading caption file '") + file + QLatin1Char('\'');
    const QString pastEnd = FaultText(context, 62, QStringLiteral("Input past end of file"));
    if (bytes.size() < 4) {
        // Not even the head: the table isn't touched.
        FUZZ_CHECK(prompt.messages == 1 && prompt.text == pastEnd);
        FUZZ_CHECK(store.CaptionCount == 0);
        return;
    }
    if (U16(bytes, 0) != CaptionStore::FileTag) {
        FUZZ_CHECK(prompt.messages == 1 && prompt.text == FaultText(context, 13, QStringLiteral("Type mismatch")));
        FUZZ_CHECK(store.CaptionCount == 0);
        // The table was emptied all the same.
        expected = QByteArray(4 + CaptionStore::Records * RecordHead, '\0');
        expected[0] = char(CaptionStore::FileTag);
        FUZZ_CHECK(store.FileBytes() == expected);
        return;
    }

    // The records that arrived whole, as the store writes them: the reserved field as 0.
    expected.resize(0);
    expected.append(bytes.constData(), 4);
    qsizetype pos = 4;
    int whole = 0;
    while (whole < CaptionStore::Records) {
        if (bytes.size() - pos < 10)
            break;
        const qsizetype caption = U16(bytes, pos + 8);
        if (bytes.size() - pos - 10 - caption < 2)
            break;
        const qsizetype annotation = U16(bytes, pos + 10 + caption);
        const qsizetype length = RecordHead + caption + annotation;
        if (bytes.size() - pos < length)
            break;
        expected.append(bytes.constData() + pos, 6).append(2, '\0').append(bytes.constData() + pos + 8, length - 8);
        pos += length;
        ++whole;
    }
    expected.append(qsizetype(CaptionStore::Records - whole) * RecordHead, '\0');

    const int count = std::clamp(int(qint16(U16(bytes, 2))), 0, int(CaptionStore::InUse));
    if (whole == CaptionStore::Records) {
        FUZZ_CHECK(prompt.messages == 0);
        FUZZ_CHECK(store.CaptionCount == count);
    } else {
        FUZZ_CHECK(prompt.messages == 1 && prompt.text == pastEnd);
        FUZZ_CHECK(store.CaptionCount == std::min(count, whole));
    }
    expected[2] = char(store.CaptionCount & 0xFF);
    expected[3] = char(store.CaptionCount >> 8);

    QByteArray written = store.FileBytes();
    FUZZ_CHECK(written == expected);
    QBuffer again(&written);
    again.open(QIODevice::ReadOnly);
    const qint16 before = store.CaptionCount;
    FUZZ_CHECK(!store.Read(again).Failed());
    FUZZ_CHECK(store.CaptionCount == before);
    FUZZ_CHECK(store.FileBytes() == written);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
