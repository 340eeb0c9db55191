// Feeds arbitrary bytes to the mutation template reader. With the first byte odd they also
// go to disk as mutations.txt and through the template's loader, which must take what the
// reader takes and mend a short file, and only a short file; the rest is the file. Whatever
// the reader makes of it writes back to the bytes it came from, and that reads again to the
// same numbers and writes back identically.
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/MutationTemplate.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr int FileBytes = MutationTemplate::Rows * 4;

// What a row holds before the read: a row the reader leaves alone must still hold it.
qint32 Before(int row) { return -1000 - row; }

// The reader alone: it takes whole numbers from the front, at most one per row.
void DecodeAndRoundTrip(const QByteArray &bytes)
{
    // The templates live for the whole run; every row is set before each read.
    static FuzzPrompt prompt;
    static UserMessages messages(prompt);
    static const QString folder;
    static MutationTemplate t(messages, folder), u(messages, folder);
    for (int r = 0; r < MutationTemplate::Rows; ++r)
        t.DefaultGeneCounts[size_t(r)] = Before(r);

    const int rows = t.Decode(bytes);
    FUZZ_CHECK(rows == int(std::min<qsizetype>(bytes.size() / 4, MutationTemplate::Rows)));
    for (int r = rows; r < MutationTemplate::Rows; ++r)
        FUZZ_CHECK(t.DefaultGeneCounts[size_t(r)] == Before(r));

    // The rows read write back to the bytes they came from, whatever their sign.
    const QByteArray written = t.Encode();
    FUZZ_CHECK(written.size() == FileBytes);
    FUZZ_CHECK(written.left(rows * 4) == bytes.left(rows * 4));

    FUZZ_CHECK(u.Decode(written) == MutationTemplate::Rows);
    FUZZ_CHECK(u.DefaultGeneCounts == t.DefaultGeneCounts);
    FUZZ_CHECK(u.Encode() == written);
}

// The same bytes as mutations.txt: the loader takes what the reader takes over the presets;
// a file too short for every row is reported and written anew, a whole one is left alone.
void ThroughTheLoader(const QByteArray &bytes)
{
    static QTemporaryDir dir;
    FUZZ_CHECK(dir.isValid());
    const QString path = dir.path() + QStringLiteral("/mutations.txt");
    {
        QFile file(path);
        FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    }

    static RecordingPrompt prompt;
    static FuzzPrompt quiet;
    static UserMessages messages(prompt), quietMessages(quiet);
    static const QString folder = dir.path(), none;
    static MutationTemplate loaded(messages, folder), expected(quietMessages, none);
    prompt.messages = 0;
    // Both start as a fresh template does: zeros, then the presets.
    for (MutationTemplate *m : {&loaded, &expected}) {
        m->DefaultGeneCounts.fill(0);
        m->SetPresets();
    }
    // The loader makes the program's folder the current one; the fuzzer's own paths are
    // relative to where it started.
    const QString cwd = QDir::currentPath();
    loaded.LoadDefaultTemplate();
    QDir::setCurrent(cwd);

    expected.Decode(bytes);
    FUZZ_CHECK(loaded.DefaultGeneCounts == expected.DefaultGeneCounts);
    if (bytes.size() >= FileBytes) {
        FUZZ_CHECK(prompt.messages == 0);
    } else {
        FUZZ_CHECK(prompt.messages == 1 && prompt.style == 16);
        FUZZ_CHECK(prompt.text
              == QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this."));
    }

    QFile file(path);
    FUZZ_CHECK(file.open(QIODevice::ReadOnly));
    FUZZ_CHECK(file.readAll() == loaded.Encode() + bytes.mid(FileBytes));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    DecodeAndRoundTrip(bytes);
    if (data[0] & 1)
        ThroughTheLoader(bytes);
    return 0;
}
