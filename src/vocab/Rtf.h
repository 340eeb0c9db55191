#pragma once
#include <QList>
#include <QString>

// Rich text as the notes of a gene keep it: RTF source text. This reader and writer know
// the common part of RTF (text, paragraphs, tabs, bold, italic, underline, font size, the
// \'hh and \uN escapes, groups) and skip the rest (font and colour tables, pictures, every
// \* destination). The notes box works on the run model below.
namespace Rtf {

struct Run
{
    QString text;        // '\n' ends a paragraph, '\t' is a tab
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int halfPoints = 0;  // font size in half points (\fs); 0: the box's own size

    bool SameFormat(const Run &o) const
    {
        return bold == o.bold && italic == o.italic && underline == o.underline && halfPoints == o.halfPoints;
    }
    bool operator==(const Run &o) const { return text == o.text && SameFormat(o); }
    bool operator!=(const Run &o) const { return !(*this == o); }
};
using Runs = QList<Run>;

// True when the text is RTF source: it begins with "{\rtf".
bool IsRtf(const QString &source);

// The runs of a source text. A text that is not RTF is one plain run, its line ends
// (CR LF, CR or LF) made paragraph ends. Malformed RTF reads as far as it makes sense.
Runs Read(const QString &source);

// RTF source for the runs. The source holds only printable ASCII and CR LF; characters
// outside ASCII travel as \'hh (Windows-1252) or \uN, so the text survives a single-byte file.
QString Write(const Runs &runs);

// Adjacent runs of one format merged, empty runs dropped.
Runs Normalised(const Runs &runs);

// The text of the runs without formatting.
QString PlainText(const Runs &runs);

} // namespace Rtf
