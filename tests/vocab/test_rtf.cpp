// The notes' RTF: what the writer produces, what the reader makes of our own and of foreign
// sources, and that no source text can upset it.
#include "vocab/Rtf.h"
#include "vocab/SingleByteText.h"

#include <QtTest>

using Rtf::Run;
using Rtf::Runs;

namespace {

Run R(const QString &text, bool bold = false, bool italic = false, bool underline = false, int halfPoints = 0)
{
    Run r;
    r.text = text;
    r.bold = bold;
    r.italic = italic;
    r.underline = underline;
    r.halfPoints = halfPoints;
    return r;
}

QString Describe(const Runs &runs)
{
    QStringList parts;
    for (const Run &r : runs)
        parts << QStringLiteral("[%1%2%3%4|%5]")
                     .arg(r.bold ? "b" : "", r.italic ? "i" : "", r.underline ? "u" : "")
                     .arg(r.halfPoints)
                     .arg(r.text);
    return parts.join(QString());
}

bool PrintableAscii(const QString &source)
{
    for (QChar c : source)
        if (!((c.unicode() >= 0x20 && c.unicode() < 0x7F) || c == QLatin1Char('\r') || c == QLatin1Char('\n')))
            return false;
    return true;
}

} // namespace

class TestRtf : public QObject
{
    Q_OBJECT

private slots:
    void roundTripsFormatting()
    {
        const Runs runs = {
            R(QStringLiteral("Plain start, ")),
            R(QStringLiteral("bold"), true),
            R(QStringLiteral(" bold italic"), true, true),
            R(QStringLiteral(" underlined\n"), false, false, true),
            R(QStringLiteral("5 apples at 14pt"), false, false, false, 28), // a digit after \fs
            R(QStringLiteral("  two blanks, big bold"), true, false, false, 40),
            R(QStringLiteral("\tback to the box's size\t\tand tabs")),
            R(QStringLiteral("\n\nbraces {x} and \\backslash\\ and \u00e9a"), false, true),
            R(QStringLiteral("all three"), true, true, true, 18),
            R(QStringLiteral("\n")),
        };
        const QString source = Rtf::Write(runs);
        QVERIFY(Rtf::IsRtf(source));
        QVERIFY2(PrintableAscii(source), qPrintable(source));
        QCOMPARE(Describe(Rtf::Read(source)), Describe(runs));
        QVERIFY(Rtf::Read(source) == runs);

        // Empty runs and neighbours of one format come back merged.
        const Runs split = {R(QStringLiteral("a"), true), R(QString(), false, true), R(QStringLiteral("b"), true)};
        QCOMPARE(Describe(Rtf::Read(Rtf::Write(split))), Describe({R(QStringLiteral("ab"), true)}));
        QVERIFY(Rtf::Read(Rtf::Write({})).isEmpty());
    }

    void escapesInTheSource()
    {
        const QString source = Rtf::Write({R(QStringLiteral("\u00e9\u20ac\u03a9{}\\"))});
        QVERIFY(source.contains(QStringLiteral("\\'e9\\'80\\u937?\\{\\}\\\\")));
        QVERIFY(source.contains(QStringLiteral("\\ansicpg1252")));
        // Characters beyond the 16-bit range travel as two negative \uN numbers.
        const QString smile = QStringLiteral("\U0001F600");
        const QString withPair = Rtf::Write({R(smile)});
        QVERIFY(withPair.contains(QStringLiteral("\\u-10179?\\u-8704?")));
        QCOMPARE(Rtf::PlainText(Rtf::Read(withPair)), smile);
    }

    void everyByteValueSurvives()
    {
        QByteArray all;
        for (int i = 0; i < 256; ++i)
            all.append(char(i));
        const QString text = SingleByteText::Decode(all);
        QCOMPARE(text.size(), 256);
        QCOMPARE(SingleByteText::Encode(text), all);

        // Through RTF source, and that source through the single-byte file text unchanged.
        const QString source = Rtf::Write({R(text, true)});
        QVERIFY(PrintableAscii(source));
        QCOMPARE(SingleByteText::Decode(SingleByteText::Encode(source)), source);
        const Runs back = Rtf::Read(source);
        QCOMPARE(back.size(), 1);
        QCOMPARE(SingleByteText::Encode(back.first().text), all);
        QVERIFY(back.first().bold);
    }

    void readsForeignSources()
    {
        // As a rich text box of the old program would have stored it.
        const QString box = QStringLiteral(
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans Serif;}}\r\n"
            "{\\colortbl ;\\red255\\green0\\blue0;}\r\n{\\*\\generator Riched20 5.50.99.2014;}"
            "\\viewkind4\\uc1\\pard\\cf1\\f0\\fs17 Plain \\b bold\\b0  \\i it\\i0\\par\r\n"
            "\\ul under\\ulnone\\tab x\\'e9\\u8364?\\par\r\n}\r\n");
        const Runs expected = {R(QStringLiteral("Plain "), false, false, false, 17),
                               R(QStringLiteral("bold"), true, false, false, 17),
                               R(QStringLiteral(" "), false, false, false, 17),
                               R(QStringLiteral("it"), false, true, false, 17),
                               R(QStringLiteral("\n"), false, false, false, 17),
                               R(QStringLiteral("under"), false, false, true, 17),
                               R(QStringLiteral("\tx\u00e9\u20ac\n"), false, false, false, 17)};
        QCOMPARE(Describe(Rtf::Read(box)), Describe(expected));

        // Groups keep their formatting to themselves; \plain resets; symbols and \uc.
        const QString misc = QStringLiteral(
            "{\\rtf1 a{\\b b{\\i c}d}e\\b\\i\\fs30 f\\plain g\\emdash\\~\\\\"
            "\\uc0\\u937 \\uc2\\u937??h\\u-4064?{\\*\\unknown hidden}{\\pict 0a0b}\\-i\\bin3 xyzj}");
        const Runs miscExpected = {R(QStringLiteral("a")), R(QStringLiteral("b"), true),
                                   R(QStringLiteral("c"), true, true), R(QStringLiteral("d"), true),
                                   R(QStringLiteral("e")), R(QStringLiteral("f"), true, true, false, 30),
                                   R(QStringLiteral("g\u2014\u00a0\\\u03a9\u03a9h\uf020ij"))};
        QCOMPARE(Describe(Rtf::Read(misc)), Describe(miscExpected));
    }

    void plainTextAnnotations()
    {
        QCOMPARE(Describe(Rtf::Read(QStringLiteral("<no annotation>"))),
                 Describe({R(QStringLiteral("<no annotation>"))}));
        QCOMPARE(Rtf::PlainText(Rtf::Read(QStringLiteral("a\r\nb\rc\nd{\\b x}"))), QStringLiteral("a\nb\nc\nd{\\b x}"));
        QVERIFY(Rtf::Read(QString()).isEmpty());
        QVERIFY(!Rtf::IsRtf(QStringLiteral(" {\\rtf1 leading blank}")));
        QCOMPARE(Rtf::PlainText(Rtf::Read(QStringLiteral(" {\\rtf1 x}"))), QStringLiteral(" {\\rtf1 x}"));
    }

    void malformedSources()
    {
        struct Case
        {
            QString source, text;
        };
        const QString deep = QStringLiteral("{\\rtf1 ") + QString(10000, QLatin1Char('{')) + QStringLiteral("\\b x")
            + QString(10000, QLatin1Char('}')) + QStringLiteral("y}");
        const QList<Case> cases = {
            {QStringLiteral("{\\rtf"), QString()},
            {QStringLiteral("{\\rtf1 a\\"), QStringLiteral("a")},
            {QStringLiteral("{\\rtf1 a\\'"), QStringLiteral("a")},
            {QStringLiteral("{\\rtf1 a\\'4"), QStringLiteral("a")},
            {QStringLiteral("{\\rtf1 a\\'zzb"), QStringLiteral("azzb")},
            {QStringLiteral("{\\rtf1 a\\u"), QStringLiteral("a")},
            {QStringLiteral("{\\rtf1 \\u99999999999999999999?b\\u70000 cd"), QStringLiteral("bd")},
            {QStringLiteral("{\\rtf1 x}}}} after {{{ more"), QStringLiteral("x after  more")},
            {QStringLiteral("{\\rtf1 \\bin999999999 x}"), QString()},
            {QStringLiteral("{\\rtf1 \\fs-5 x\\fs x}"), QStringLiteral("xx")},
            {QStringLiteral("{\\rtf1 \\") + QString(5000, QLatin1Char('a')) + QStringLiteral(" z}"), QStringLiteral("z")},
            {deep, QStringLiteral("xy")},
        };
        for (const Case &c : cases)
            QCOMPARE(Rtf::PlainText(Rtf::Read(c.source)), c.text);
        // The deep group's bold ends with the group even past the depth that is tracked.
        QCOMPARE(Describe(Rtf::Read(deep)), Describe({R(QStringLiteral("x"), true), R(QStringLiteral("y"))}));
    }
};

QTEST_GUILESS_MAIN(TestRtf)
#include "test_rtf.moc"
