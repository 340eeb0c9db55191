// Feeds arbitrary bytes to the name-list file reader. The first byte chooses the shape: odd,
// the 21-entry script list; even, a 257-entry chemical or pose list. An odd first byte from
// 0xF1 up also sends the bytes through a file on disk and the script list's loader, which
// must agree with the reader and report a short file, and only a short file. Only the script
// list goes that way: a loader reads into a buffer as long as the longest list could be, and
// the 34 MB of a chemical or pose list cost tens of milliseconds a run under the sanitizers.
// The rest is the file. Whatever the reader makes of it writes back to the very bytes it came
// from, and that reads again to the same entries and writes back identically.
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/NameLists.h"
#include "base/SingleByteText.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace {

// What the entries hold before the read, first array then second: an entry the reader
// leaves alone must still hold it. Built once; the copies share the text.
const std::vector<QString> &Before(int entries)
{
    static std::vector<QString> lists[2];
    std::vector<QString> &before = lists[entries == NameLists::ScriptEntries ? 1 : 0];
    if (before.empty())
        for (int n = 0; n < 2 * entries; ++n)
            before.push_back(n < entries ? QString::number(n)
                                         : QStringLiteral("caption ") + QString::number(n - entries));
    return before;
}

// The reader alone: it takes whole entries from the front and nothing else.
void DecodeAndRoundTrip(const QByteArray &bytes, int entries)
{
    const std::vector<QString> &before = Before(entries);
    std::vector<QString> first(before.begin(), before.begin() + entries), second(before.begin() + entries, before.end());
    const int read = NameLists::DecodeListFile(bytes, first.data(), second.data(), entries);
    FUZZ_CHECK(read >= 0 && read <= 2 * entries);

    // A read entry took its length field and a byte per character.
    qsizetype consumed = 0;
    for (int n = 0; n < 2 * entries; ++n) {
        const QString &e = n < entries ? first[size_t(n)] : second[size_t(n - entries)];
        if (n < read)
            consumed += 2 + e.size();
        else
            FUZZ_CHECK(e == before[size_t(n)]);
    }
    FUZZ_CHECK(consumed <= bytes.size());
    if (read < 2 * entries) {
        // It stopped where no whole entry was left.
        const QByteArray rest = bytes.mid(consumed);
        FUZZ_CHECK(rest.size() < 2 || (quint8(rest[0]) | quint8(rest[1]) << 8) > rest.size() - 2);
    }

    // The entries read write back to the very bytes they came from (every byte value survives
    // the single-byte text); the untouched ones follow.
    const QByteArray written = NameLists::EncodeListFile(first.data(), second.data(), entries);
    FUZZ_CHECK(written.left(consumed) == bytes.left(consumed));
    FUZZ_CHECK(read < 2 * entries || written.size() == consumed);

    std::vector<QString> first2(first.size()), second2(second.size());
    FUZZ_CHECK(NameLists::DecodeListFile(written, first2.data(), second2.data(), entries) == 2 * entries);
    FUZZ_CHECK(first2 == first && second2 == second);
    FUZZ_CHECK(NameLists::EncodeListFile(first2.data(), second2.data(), entries) == written);
}

// The same bytes as the script list's file: the loader fills the list as the reader does
// over the defaults, and a file that ends inside the list is reported as such.
void ThroughTheLoader(const QByteArray &bytes)
{
    static QTemporaryDir dir;
    FUZZ_CHECK(dir.isValid());
    const QString path = dir.path() + QStringLiteral("/scriptnames.txt");
    {
        QFile file(path);
        FUZZ_CHECK(file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size());
    }

    // The lists live for the whole run; both start from the defaults, as a load does.
    static RecordingPrompt prompt, quiet;
    static UserMessages messages(prompt), quietMessages(quiet);
    static const QString folder = dir.path(), none;
    static NameLists got(messages, folder), want(quietMessages, none);
    prompt.messages = 0;
    // Both start as fresh lists do, whatever the input before left in them.
    for (NameLists *l : {&got, &want}) {
        l->ScriptNames.fill(QString());
        l->ScriptMacros.fill(QString());
        l->ScriptResults.fill(QString());
    }
    want.SetScriptDefaults();
    const int read =
        NameLists::DecodeListFile(bytes, want.ScriptNames.data(), want.ScriptMacros.data(), NameLists::ScriptEntries);
    // The loader makes the program's folder the current one; the fuzzer's own paths are
    // relative to where it started.
    const QString cwd = QDir::currentPath();
    got.LoadScriptList();
    QDir::setCurrent(cwd);

    FUZZ_CHECK(got.ScriptNames == want.ScriptNames && got.ScriptMacros == want.ScriptMacros
          && got.ScriptResults == want.ScriptResults);
    if (read == 2 * NameLists::ScriptEntries) {
        FUZZ_CHECK(prompt.messages == 0);
    } else {
        FUZZ_CHECK(prompt.messages == 1 && prompt.style == 16);
        FUZZ_CHECK(prompt.text.endsWith(QStringLiteral("\n\rDescription: Error ID 62 (Input past end of file: ") + path
                                   + QLatin1Char(')')));
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data + 1), qsizetype(size - 1));
    const int entries = (data[0] & 1) ? NameLists::ScriptEntries : NameLists::ListEntries;
    DecodeAndRoundTrip(bytes, entries);
    if (entries == NameLists::ScriptEntries && data[0] >= 0xF0)
        ThroughTheLoader(bytes);
    return 0;
}
