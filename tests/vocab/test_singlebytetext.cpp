// Single-byte file text: every byte value must come back as it went in.
#include "base/SingleByteText.h"

#include <QtTest>

class TestSingleByteText : public QObject
{
    Q_OBJECT

private slots:
    void everyByteRoundTrips()
    {
        QByteArray all(256, '\0');
        for (int i = 0; i < 256; ++i)
            all[i] = char(i);
        const QString text = SingleByteText::Decode(all);
        QCOMPARE(text.size(), 256);
        QCOMPARE(SingleByteText::Encode(text), all);
    }

    void windows1252Characters()
    {
        QCOMPARE(SingleByteText::Decode(QByteArray("\x80\xe9\x9f", 3)), QStringLiteral("\u20ac\u00e9\u0178"));
        QCOMPARE(SingleByteText::Encode(QStringLiteral("\u20ac caf\u00e9")), QByteArray("\x80 caf\xe9"));
        // A character the code page lacks becomes a question mark, one byte for one character.
        QCOMPARE(SingleByteText::Encode(QStringLiteral("a\u4e2db")), QByteArray("a?b"));
    }
};

QTEST_GUILESS_MAIN(TestSingleByteText)
#include "test_singlebytetext.moc"
