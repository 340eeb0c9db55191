// The pigment, pigment bleed, organ and brain organ editors: every byte in its own control and
// back, the sliders' large step and read-outs (those an opening moves from 128, each move, none
// for the life force) and the number boxes tidied on every change.
#include "EditorTestKit.h"

class TestColourOrgan : public QObject
{
    Q_OBJECT
    EditorTestKit kit;

private slots:
    void init() { kit.Init(); }
    void cleanup() { kit.Cleanup(); }

    void controls_data()
    {
        EditorTestKit::ControlColumns();
        QTest::newRow("pigment") << 2 << 6 << "02 07" << QStringList{"lstPigment=1", "scrIntensity=250"}
                                 << "Slider: 7 | lstPigment:Blue>Green | scrIntensity:7>250 Slider: 250" << "01 fa";
        QTest::newRow("pigment bleed") << 2 << 7 << "00 80" << QStringList{"scrRotation=255", "scrSwap=3"}
                                       << "Slider: 0 | scrRotation:0>255 Slider: 255 | scrSwap:128>3 Slider: 3"
                                       << "ff 03";
        const QStringList organ = {"scrClockRate=255", "scrLTRateChange=16", "scrLifeForce=77", "BioTickText=999",
                                   "ATPText=-7"};
        QTest::newRow("organ, 999 and -7 typed")
            << 3 << 0 << "01 02 03 04 05" << organ
            << "Slider: 2 | scrClockRate:1>255 Slider: 255 | scrLTRateChange:2>16 Slider: 16 | scrLifeForce:3>77 | "
               "BioTickText:4>255 | ATPText:5>7" << "ff 10 4d ff 07";
        const QStringList brainOrgan = {"scrClockRate=0", "scrLTRateChange=30", "scrLifeForce=40", "BioTickText=abc",
                                        "ATPText=12.5"};
        QTest::newRow("brain organ, abc and 12.5 typed")
            << 0 << 1 << "fa 80 00 ff 06" << brainOrgan
            << "Slider: 250 | scrClockRate:250>0 Slider: 0 | scrLTRateChange:128>30 Slider: 30 | scrLifeForce:0>40 | "
               "BioTickText:255>0 | ATPText:6>12" << "00 1e 28 00 0c";
    }
    void controls() { kit.CheckControls(); }

    // Every slider of the four moves by 16 with a click in its trough.
    void largeStep()
    {
        const QRegularExpression named(QStringLiteral("^scr"));
        for (auto [type, subType] : {std::pair(2, 6), {2, 7}, {3, 0}})
            for (QScrollBar *bar : kit.Open(kit.Add(type, subType))->findChildren<QScrollBar *>(named))
                QCOMPARE(bar->pageStep(), 16);
    }
};

QTEST_MAIN(TestColourOrgan)
#include "test_colour_organ.moc"
