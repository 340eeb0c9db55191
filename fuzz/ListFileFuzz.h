#pragma once
// A name-list file through its loader, as the program loads it at start-up: the bytes become
// the list's file in the program's folder, the loader fills the list from its defaults and
// the file, and the result is checked against the bytes, walked here on their own:
// - a file that ends inside the list gives exactly the fault message of a short file, a
//   whole list none;
// - the list writes back to the very entries it read (every byte value survives the
//   single-byte text), followed by the defaults of the entries the file didn't reach;
// - what was written reads again to the same entries, and a whole list writes back
//   identically.
// One list object serves the whole run; before each input only the entries the last one
// filled are emptied again, as a fresh list has them.
#include "FuzzFiles.h"
#include "FuzzPrompt.h"
#include "base/Messages.h"
#include "vocab/NameLists.h"

#include <QByteArray>
#include <QString>
#include <vector>

struct ListFile
{
    QString fileName;       // as the loader looks for it
    int entries;            // in each of the two arrays
    QString faultContext;   // of the message on a file that can't be read
    void (NameLists::*load)();
    QString *(*first)(NameLists &);
    QString *(*second)(NameLists &);
    // What the loader puts into entry i of the first array before it reads the file; the
    // second array starts empty.
    QString (*defaultName)(int i);
    // Names of slots 0 to 255 that the file leaves empty become the slot's number.
    bool emptyNameIsNumber = false;
    // Anything else the loader must leave as it is; may be null.
    bool (*untouched)(const NameLists &) = nullptr;
};

class ListFileFuzz
{
public:
    explicit ListFileFuzz(const ListFile &shape)
        : shape(shape), messages(prompt), lists(messages, FuzzFiles::Folder()),
          scratchFirst(size_t(shape.entries)), scratchSecond(size_t(shape.entries))
    {
        // The defaults as the file would hold them, and where each entry starts in it.
        for (int n = 0; n < 2 * shape.entries; ++n) {
            defaultStart.push_back(defaults.size());
            AppendEntry(defaults, n < shape.entries ? shape.defaultName(n).toLatin1() : QByteArray());
        }
        defaultStart.push_back(defaults.size());
    }

    void Run(const QByteArray &bytes)
    {
        const int all = 2 * shape.entries;
        const QString path = FuzzFiles::Write(shape.fileName, bytes);
        for (int n = 0; n < lastRead; ++n)
            Entry(lists, n).clear();
        prompt.messages = 0;
        FuzzFiles::InProgramFolder([this] { (lists.*shape.load)(); });

        // The entries in the bytes, with the text the list should hold for each.
        expected.resize(0);
        qsizetype pos = 0;
        int read = 0;
        while (read < all && bytes.size() - pos >= 2) {
            const qsizetype length = quint8(bytes[pos]) | quint8(bytes[pos + 1]) << 8;
            if (bytes.size() - pos - 2 < length)
                break;
            if (shape.emptyNameIsNumber && length == 0 && read < NameLists::SlotsInUse)
                AppendEntry(expected, QByteArray::number(read));
            else
                expected.append(bytes.constData() + pos, 2 + length);
            pos += 2 + length;
            ++read;
        }
        lastRead = read;
        const qsizetype readBytes = expected.size();
        expected.append(defaults.constData() + defaultStart[size_t(read)], defaults.size() - defaultStart[size_t(read)]);

        if (read == all) {
            FUZZ_CHECK(prompt.messages == 0);
        } else {
            FUZZ_CHECK(prompt.messages == 1 && prompt.style == 16);
            FUZZ_CHECK(prompt.text
                       == FaultText(shape.faultContext, 62, QStringLiteral("Input past end of file: ") + path));
        }
        FUZZ_CHECK(!shape.untouched || shape.untouched(lists));

        const QByteArray written = NameLists::EncodeListFile(shape.first(lists), shape.second(lists), shape.entries);
        FUZZ_CHECK(written == expected);

        // What was written reads again to the same entries: those read from the bytes here,
        // every entry for a whole list.
        const QByteArray front = read == all ? written : written.left(readBytes);
        FUZZ_CHECK(NameLists::DecodeListFile(front, scratchFirst.data(), scratchSecond.data(), shape.entries) == read);
        for (int n = 0; n < read; ++n)
            FUZZ_CHECK(ScratchEntry(n) == Entry(lists, n));
        if (read == all)
            FUZZ_CHECK(NameLists::EncodeListFile(scratchFirst.data(), scratchSecond.data(), shape.entries) == written);
    }

private:
    const ListFile shape;
    RecordingPrompt prompt;
    UserMessages messages;
    NameLists lists;
    std::vector<QString> scratchFirst, scratchSecond;
    QByteArray defaults, expected;
    std::vector<qsizetype> defaultStart;
    int lastRead = 0;

    QString &Entry(NameLists &l, int n)
    {
        return n < shape.entries ? shape.first(l)[n] : shape.second(l)[n - shape.entries];
    }
    const QString &ScratchEntry(int n) const
    {
        return n < shape.entries ? scratchFirst[size_t(n)] : scratchSecond[size_t(n - shape.entries)];
    }
    static void AppendEntry(QByteArray &to, const QByteArray &text)
    {
        to.append(char(text.size() & 0xFF));
        to.append(char(text.size() >> 8));
        to.append(text);
    }
};
