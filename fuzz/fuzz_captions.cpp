// Feeds arbitrary bytes to the caption file reader and to the RTF reader of the notes. The
// first byte chooses (even: a caption file, odd: an annotation); the rest is the input.
// Whatever either reader makes of it must write back to something that reads again to the
// very same content.
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/CaptionStore.h"
#include "vocab/Rtf.h"
#include "base/SingleByteText.h"

#include <QBuffer>
#include <cstdint>
#include <cstdlib>

namespace {

void Check(bool condition)
{
    if (!condition)
        std::abort();
}

void CaptionFile(const QByteArray &bytes)
{
    // One store for the whole run: a read replaces the whole table, so nothing of the input
    // before survives into this one. The store needs no session, only a message sink.
    static FuzzPrompt prompt;
    static UserMessages messages(prompt);
    static const QString folder;
    static const QStringList species;
    static CaptionStore cs(messages, folder, species, {}, {});
    prompt.messages = 0;

    QByteArray input = bytes;
    QBuffer in(&input);
    in.open(QIODevice::ReadOnly);
    const FileFault fault = cs.Read(in);
    Check(!fault.Failed() || !fault.Description.isEmpty());
    Check(cs.CaptionCount >= 0 && cs.CaptionCount <= CaptionStore::InUse);

    // What was read writes out as a whole file, which reads back whole and unchanged.
    QByteArray written = cs.FileBytes();
    Check(written.size() >= 4 + CaptionStore::Records * 12);
    const qint16 count = cs.CaptionCount;
    QBuffer again(&written);
    again.open(QIODevice::ReadOnly);
    Check(!cs.Read(again).Failed());
    Check(cs.CaptionCount == count);
    Check(cs.FileBytes() == written);
    Check(prompt.messages == 0);
}

void Annotation(const QByteArray &bytes)
{
    // An annotation comes from a caption file as single-byte text.
    const QString source = SingleByteText::Decode(bytes);
    const Rtf::Runs runs = Rtf::Read(source);
    for (const Rtf::Run &r : runs)
        Check(!r.text.isEmpty() && r.halfPoints >= 0);
    const QString written = Rtf::Write(runs);
    for (QChar c : written)
        Check((c.unicode() >= 0x20 && c.unicode() < 0x7F) || c == QLatin1Char('\r') || c == QLatin1Char('\n'));
    // The source survives the caption file's text, and reads back to the same runs.
    Check(SingleByteText::Decode(SingleByteText::Encode(written)) == written);
    Check(Rtf::Read(written) == runs);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    if (data[0] & 1)
        Annotation(bytes);
    else
        CaptionFile(bytes);
    return 0;
}
