// Feeds arbitrary bytes to the reader of gene notes, as an annotation comes out of a caption
// file: single-byte text that may be RTF source or plain text. Whatever the reader makes of
// it, the writer turns into printable ASCII source that survives the caption file and reads
// back to the same runs.
#include "FuzzPrompt.h"
#include "base/SingleByteText.h"
#include "vocab/Rtf.h"

#include <cstdint>

namespace {

void Run(const QByteArray &bytes)
{
    const QString source = SingleByteText::Decode(bytes);
    const Rtf::Runs runs = Rtf::Read(source);
    for (qsizetype i = 0; i < runs.size(); ++i) {
        FUZZ_CHECK(!runs[i].text.isEmpty() && runs[i].halfPoints >= 0);
        FUZZ_CHECK(i == 0 || !runs[i].SameFormat(runs[i - 1])); // neighbours of one format are merged
    }
    const QString written = Rtf::Write(runs);
    FUZZ_CHECK(Rtf::IsRtf(written));
    for (QChar c : written)
        FUZZ_CHECK((c.unicode() >= 0x20 && c.unicode() < 0x7F) || c == QLatin1Char('\r') || c == QLatin1Char('\n'));
    FUZZ_CHECK(SingleByteText::Decode(SingleByteText::Encode(written)) == written);
    // The same runs write the same source, so reading it back to the same runs closes the circle.
    FUZZ_CHECK(Rtf::Read(written) == runs);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    Run(QByteArray::fromRawData(reinterpret_cast<const char *>(data), qsizetype(size)));
    return 0;
}
