#include "vocab/Rtf.h"

#include "base/SingleByteText.h"

#include <QByteArray>
#include <QSet>
#include <QVector>

namespace Rtf {

namespace {

// Groups whose content is no text of the document.
const QSet<QString> &SkippedDestinations()
{
    static const QSet<QString> names = {
        QStringLiteral("fonttbl"),      QStringLiteral("colortbl"),   QStringLiteral("stylesheet"),
        QStringLiteral("info"),         QStringLiteral("pict"),       QStringLiteral("object"),
        QStringLiteral("header"),       QStringLiteral("headerl"),    QStringLiteral("headerr"),
        QStringLiteral("headerf"),      QStringLiteral("footer"),     QStringLiteral("footerl"),
        QStringLiteral("footerr"),      QStringLiteral("footerf"),    QStringLiteral("footnote"),
        QStringLiteral("listtable"),    QStringLiteral("listoverridetable"),
        QStringLiteral("revtbl"),       QStringLiteral("rsidtbl"),    QStringLiteral("generator"),
        QStringLiteral("xmlnstbl"),     QStringLiteral("themedata"),  QStringLiteral("colorschememapping"),
        QStringLiteral("latentstyles"), QStringLiteral("datastore"),  QStringLiteral("mmathPr"),
        QStringLiteral("fldinst"),      QStringLiteral("pgdsctbl"),   QStringLiteral("filetbl"),
        QStringLiteral("nonshppict"),   QStringLiteral("shp"),        QStringLiteral("bkmkstart"),
        QStringLiteral("bkmkend"),      QStringLiteral("field_inst"),
    };
    return names;
}

// Control words that stand for one character.
QChar SymbolWord(QStringView word)
{
    if (word == QLatin1String("emdash"))
        return QChar(0x2014);
    if (word == QLatin1String("endash"))
        return QChar(0x2013);
    if (word == QLatin1String("bullet"))
        return QChar(0x2022);
    if (word == QLatin1String("lquote"))
        return QChar(0x2018);
    if (word == QLatin1String("rquote"))
        return QChar(0x2019);
    if (word == QLatin1String("ldblquote"))
        return QChar(0x201C);
    if (word == QLatin1String("rdblquote"))
        return QChar(0x201D);
    return QChar();
}

struct GroupState
{
    bool bold = false, italic = false, underline = false;
    int halfPoints = 0;
    int unicodeSkip = 1; // \ucN: characters that stand in for each \uN
    bool skip = false;   // inside a destination that holds no text
};

int HexDigit(QChar c)
{
    const ushort u = c.unicode();
    if (u >= '0' && u <= '9')
        return u - '0';
    if (u >= 'a' && u <= 'f')
        return u - 'a' + 10;
    if (u >= 'A' && u <= 'F')
        return u - 'A' + 10;
    return -1;
}

bool IsAsciiLetter(QChar c)
{
    const ushort u = c.unicode();
    return (u >= 'a' && u <= 'z') || (u >= 'A' && u <= 'Z');
}

bool IsAsciiDigit(QChar c)
{
    const ushort u = c.unicode();
    return u >= '0' && u <= '9';
}

class Reader
{
public:
    explicit Reader(const QString &s) : s(s) {}

    Runs Parse()
    {
        while (pos < s.size()) {
            const QChar c = s[pos];
            if (c == QLatin1Char('{')) {
                ++pos;
                pendingSkip = 0;
                if (stack.size() < MaxDepth)
                    stack.append(state);
                else
                    ++overflow;
            } else if (c == QLatin1Char('}')) {
                ++pos;
                pendingSkip = 0;
                if (overflow > 0)
                    --overflow;
                else if (!stack.isEmpty())
                    state = stack.takeLast();
                // A stray closing brace at the outside is ignored.
            } else if (c == QLatin1Char('\\')) {
                ++pos;
                Control();
            } else if (c == QLatin1Char('\r') || c == QLatin1Char('\n')) {
                ++pos; // line ends of the source are no text
            } else {
                ++pos;
                Character(c);
            }
        }
        return Normalised(runs);
    }

private:
    static constexpr int MaxDepth = 4096;
    static constexpr int MaxWordLength = 32;

    const QString &s;
    int pos = 0;
    GroupState state;
    QVector<GroupState> stack;
    int overflow = 0;
    int pendingSkip = 0; // stand-in characters still to drop after a \uN
    Runs runs;

    void Emit(QChar c)
    {
        if (state.skip)
            return;
        Run format;
        format.bold = state.bold;
        format.italic = state.italic;
        format.underline = state.underline;
        format.halfPoints = state.halfPoints;
        if (runs.isEmpty() || !runs.last().SameFormat(format))
            runs.append(format);
        runs.last().text.append(c);
    }

    // A character of text, or a stand-in after \uN that is dropped.
    void Character(QChar c)
    {
        if (pendingSkip > 0) {
            --pendingSkip;
            return;
        }
        Emit(c);
    }

    void Control()
    {
        if (pos >= s.size())
            return;
        const QChar c = s[pos];
        if (IsAsciiLetter(c)) {
            Word();
            return;
        }
        ++pos;
        if (c == QLatin1Char('\'')) {
            int value = 0, digits = 0;
            while (digits < 2 && pos < s.size() && HexDigit(s[pos]) >= 0) {
                value = value * 16 + HexDigit(s[pos]);
                ++pos;
                ++digits;
            }
            if (digits == 2) {
                const char byte = char(value);
                Character(SingleByteText::Decode(QByteArrayView(&byte, 1)).at(0));
            }
            return;
        }
        if (c == QLatin1Char('\\') || c == QLatin1Char('{') || c == QLatin1Char('}')) {
            Character(c);
            return;
        }
        pendingSkip = 0;
        if (c == QLatin1Char('*'))
            state.skip = true; // an optional destination: none of them holds text for us
        else if (c == QLatin1Char('~'))
            Emit(QChar(0x00A0));
        else if (c == QLatin1Char('_'))
            Emit(QChar(0x2011));
        else if (c == QLatin1Char('\r') || c == QLatin1Char('\n'))
            Emit(QLatin1Char('\n'));
        // \- (optional hyphen), \| and the other symbols carry no text.
    }

    void Word()
    {
        const int start = pos;
        while (pos < s.size() && IsAsciiLetter(s[pos]))
            ++pos;
        const QStringView word = QStringView(s).mid(start, qMin(pos - start, MaxWordLength));
        bool hasParam = false;
        bool negative = false;
        long long param = 0;
        if (pos < s.size() && s[pos] == QLatin1Char('-') && pos + 1 < s.size() && IsAsciiDigit(s[pos + 1])) {
            negative = true;
            ++pos;
        }
        while (pos < s.size() && IsAsciiDigit(s[pos])) {
            hasParam = true;
            if (param < 100000000)
                param = param * 10 + (s[pos].unicode() - '0');
            ++pos;
        }
        if (negative)
            param = -param;
        if (pos < s.size() && s[pos] == QLatin1Char(' '))
            ++pos; // the delimiting blank belongs to the word

        if (word == QLatin1String("u")) {
            // A number outside the 16-bit range names no character; its stand-ins go all the same.
            if (hasParam && param >= -32768 && param <= 65535)
                Character(QChar(ushort(param < 0 ? param + 65536 : param)));
            pendingSkip = state.unicodeSkip;
            return;
        }
        pendingSkip = 0;
        if (word == QLatin1String("par") || word == QLatin1String("line") || word == QLatin1String("sect")
            || word == QLatin1String("page")) {
            Emit(QLatin1Char('\n'));
        } else if (word == QLatin1String("tab")) {
            Emit(QLatin1Char('\t'));
        } else if (word == QLatin1String("b")) {
            state.bold = !hasParam || param != 0;
        } else if (word == QLatin1String("i")) {
            state.italic = !hasParam || param != 0;
        } else if (word == QLatin1String("ul")) {
            state.underline = !hasParam || param != 0;
        } else if (word == QLatin1String("ulnone")) {
            state.underline = false;
        } else if (word == QLatin1String("fs")) {
            state.halfPoints = hasParam && param > 0 ? int(qMin(param, 3276LL)) : 0;
        } else if (word == QLatin1String("plain")) {
            state.bold = state.italic = state.underline = false;
            state.halfPoints = 0;
        } else if (word == QLatin1String("uc")) {
            state.unicodeSkip = hasParam ? int(qBound(0LL, param, 16LL)) : 1;
        } else if (word == QLatin1String("bin")) {
            // Raw bytes follow; they are no text.
            if (hasParam && param > 0)
                pos += int(qMin<long long>(param, s.size() - pos));
        } else if (SkippedDestinations().contains(word.toString())) {
            state.skip = true;
        } else {
            const QChar symbol = SymbolWord(word);
            if (!symbol.isNull())
                Emit(symbol);
        }
    }
};

class Writer
{
public:
    QString Write(const Runs &runs)
    {
        out = QStringLiteral("{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fnil\\fcharset0 Sans Serif;}}\r\n"
                             "\\uc1\\pard\\plain");
        delimit = true;
        for (const Run &run : runs) {
            if (run.text.isEmpty())
                continue;
            Format(run);
            for (QChar c : run.text)
                Character(c);
        }
        out += QLatin1Char('}');
        return out;
    }

private:
    QString out;
    bool delimit = false; // the last thing written was a control word that needs a blank
    Run current;          // format in force

    void ControlWord(const QString &word)
    {
        out += QLatin1Char('\\') + word;
        delimit = true;
    }

    void Format(const Run &run)
    {
        if (run.halfPoints != current.halfPoints) {
            if (run.halfPoints <= 0) {
                ControlWord(QStringLiteral("plain"));
                current = Run();
            } else {
                ControlWord(QStringLiteral("fs") + QString::number(run.halfPoints));
                current.halfPoints = run.halfPoints;
            }
        }
        if (run.bold != current.bold)
            ControlWord(run.bold ? QStringLiteral("b") : QStringLiteral("b0"));
        if (run.italic != current.italic)
            ControlWord(run.italic ? QStringLiteral("i") : QStringLiteral("i0"));
        if (run.underline != current.underline)
            ControlWord(run.underline ? QStringLiteral("ul") : QStringLiteral("ulnone"));
        current.bold = run.bold;
        current.italic = run.italic;
        current.underline = run.underline;
    }

    void Literal(QChar c)
    {
        if (delimit)
            out += QLatin1Char(' ');
        delimit = false;
        out += c;
    }

    void Character(QChar c)
    {
        const ushort u = c.unicode();
        if (c == QLatin1Char('\n')) {
            out += QLatin1String("\\par\r\n");
            delimit = false;
        } else if (c == QLatin1Char('\t')) {
            ControlWord(QStringLiteral("tab"));
        } else if (c == QLatin1Char('\\') || c == QLatin1Char('{') || c == QLatin1Char('}')) {
            out += QLatin1Char('\\');
            out += c;
            delimit = false;
        } else if (u >= 0x20 && u < 0x7F) {
            Literal(c);
        } else {
            // A character that one byte of the code page stands for travels as \'hh.
            const QByteArray byte = SingleByteText::Encode(QStringView(&c, 1));
            if (SingleByteText::Decode(byte).at(0) == c) {
                static const char hex[] = "0123456789abcdef";
                const quint8 b = quint8(byte[0]);
                out += QLatin1String("\\'");
                out += QLatin1Char(hex[b >> 4]);
                out += QLatin1Char(hex[b & 15]);
            } else {
                // \uN takes a signed 16-bit number; '?' stands in for readers without Unicode.
                out += QStringLiteral("\\u") + QString::number(qint16(u)) + QLatin1Char('?');
            }
            delimit = false;
        }
    }
};

} // namespace

bool IsRtf(const QString &source) { return source.startsWith(QLatin1String("{\\rtf")); }

Runs Read(const QString &source)
{
    if (!IsRtf(source)) {
        QString text = source;
        text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        text.replace(QLatin1Char('\r'), QLatin1Char('\n'));
        Runs plain;
        if (!text.isEmpty()) {
            Run r;
            r.text = text;
            plain.append(r);
        }
        return plain;
    }
    return Reader(source).Parse();
}

QString Write(const Runs &runs) { return Writer().Write(runs); }

Runs Normalised(const Runs &runs)
{
    Runs out;
    for (const Run &r : runs) {
        if (r.text.isEmpty())
            continue;
        if (!out.isEmpty() && out.last().SameFormat(r))
            out.last().text += r.text;
        else
            out.append(r);
    }
    return out;
}

QString PlainText(const Runs &runs)
{
    QString text;
    for (const Run &r : runs)
        text += r.text;
    return text;
}

} // namespace Rtf
