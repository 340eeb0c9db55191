// The notes' RTF: what the writer produces, what the reader makes of our own and of foreign
// sources, and that no source text can upset it.
#include "RtfTestKit.h"
#include "base/SingleByteText.h"

using namespace Rtf;

class TestRtf : public QObject
{
    Q_OBJECT

private slots:
    void roundTrips()
    {
        const Runs runs = {R("Plain, "), R("bold", true), R(" bold italic", true, true), R(" under\n", false, false, true),
                           R("5 apples at 14pt", false, false, false, 28), // a digit right after \fs
                           R("\tbox size\t\ttabs"), R("\n\nbraces {x} \\ \u00e9a", false, true),
                           R("all three", true, true, true, 18)};
        const QString source = Write(runs);
        QVERIFY(IsRtf(source));
        // Only printable ASCII and line ends, so a single-byte file carries it.
        QVERIFY2(QRegularExpression(QStringLiteral("^[\\x20-\\x7e\\r\\n]*$")).match(source).hasMatch(), qPrintable(source));
        QCOMPARE(Read(source), runs);

        // Empty runs and neighbours of one format come back merged.
        QCOMPARE(Read(Write({R("a", true), R(QString(), false, true), R("b", true)})), Runs{R("ab", true)});

        // Every single-byte value survives, and so does a character beyond 16 bits.
        QByteArray all;
        for (int i = 0; i < 256; ++i)
            all.append(char(i));
        const Runs back = Read(Write({R(SingleByteText::Decode(all), true)}));
        QCOMPARE(back.size(), 1);
        QCOMPARE(SingleByteText::Encode(back.first().text), all);
        QVERIFY(back.first().bold);
        const QString withPair = Write({R(QStringLiteral("\U0001F600"))});
        QVERIFY(withPair.contains(QStringLiteral("\\u-10179?\\u-8704?")));
        QCOMPARE(PlainText(Read(withPair)), QStringLiteral("\U0001F600"));
        QVERIFY(Write({R("\u00e9\u20ac\u03a9{}\\")}).contains(QStringLiteral("\\'e9\\'80\\u937?\\{\\}\\\\")));
    }

    void readsForeignSources()
    {
        // As a rich text box of the old program would have stored it.
        const QString box = QStringLiteral(
            "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang1033{\\fonttbl{\\f0\\fnil\\fcharset0 MS Sans Serif;}}\r\n"
            "{\\colortbl ;\\red255\\green0\\blue0;}\r\n{\\*\\generator Riched20 5.50.99.2014;}"
            "\\viewkind4\\uc1\\pard\\cf1\\f0\\fs17 Plain \\b bold\\b0  \\i it\\i0\\par\r\n"
            "\\ul under\\ulnone\\tab x\\'e9\\u8364?\\par\r\n}\r\n");
        QCOMPARE(Read(box), Runs({R("Plain ", 0, 0, 0, 17), R("bold", 1, 0, 0, 17), R(" ", 0, 0, 0, 17),
                                  R("it", 0, 1, 0, 17), R("\n", 0, 0, 0, 17), R("under", 0, 0, 1, 17),
                                  R("\tx\u00e9\u20ac\n", 0, 0, 0, 17)}));

        // Groups keep their formatting to themselves; \plain resets; symbols, \uc, skipped groups.
        const QString misc = QStringLiteral(
            "{\\rtf1 a{\\b b{\\i c}d}e\\b\\i\\fs30 f\\plain g\\emdash\\~\\\\"
            "\\uc0\\u937 \\uc2\\u937??h\\u-4064?{\\*\\unknown hidden}{\\pict 0a0b}\\-i\\bin3 xyzj}");
        QCOMPARE(Read(misc), Runs({R("a"), R("b", true), R("c", true, true), R("d", true), R("e"),
                                   R("f", true, true, false, 30), R("g\u2014\u00a0\\\u03a9\u03a9h\uf020ij")}));
    }

    void plainTextAndMalformedSources()
    {
        // Not RTF (even with a blank before the brace): one plain run, line ends made paragraphs.
        QVERIFY(!IsRtf(QStringLiteral(" {\\rtf1 x}")));
        QCOMPARE(Read(QStringLiteral("a\r\nb\rc\nd {\\rtf1 x}")), Runs{R("a\nb\nc\nd {\\rtf1 x}")});

        const QString deep = QStringLiteral("{\\rtf1 ") + QString(10000, QLatin1Char('{')) + QStringLiteral("\\b x")
            + QString(10000, QLatin1Char('}')) + QStringLiteral("y}");
        // The deep group's bold ends with the group even past the depth that is tracked.
        QCOMPARE(Read(deep), Runs({R("x", true), R("y")}));
    }

    // Sources cut short or with numbers out of bounds: the text that can be read, no more.
    void damagedSources_data()
    {
        QTest::addColumn<QString>("source");
        QTest::addColumn<QString>("text");
        QTest::newRow("bare header") << "{\\rtf" << "";
        QTest::newRow("lone backslash") << "{\\rtf1 a\\" << "a";
        QTest::newRow("bad hex") << "{\\rtf1 a\\'zzb" << "azzb";
        QTest::newRow("huge unicode") << "{\\rtf1 \\u99999999999999999999?b\\u70000 cd" << "bd";
        QTest::newRow("extra braces") << "{\\rtf1 x}}}} after {{{ more" << "x after  more";
        QTest::newRow("huge bin") << "{\\rtf1 \\bin999999999 x}" << "";
        QTest::newRow("negative size") << "{\\rtf1 \\fs-5 x\\fs x}" << "xx";
        QTest::newRow("long word") << "{\\rtf1 \\" + QString(5000, QLatin1Char('a')) + " z}" << "z";
    }

    void damagedSources()
    {
        QFETCH(QString, source);
        QTEST(PlainText(Read(source)), "text");
    }
};

QTEST_GUILESS_MAIN(TestRtf)
#include "test_rtf.moc"
