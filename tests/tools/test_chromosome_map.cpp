// The chromosome map: the dialog, read back from the image it draws into (its lines, ticks
// and columns), and how long it stands.
#include "BenchGenome.h"
#include "ToolTestKit.h"
#include "core/ChromosomeMap.h"
#include "tools/MapPicture.h"
#include "tools/frmChromosomeMap.h"

#include <QPushButton>
#include <QtTest>

using namespace ChromosomeMap;

class TestChromosomeMap : public QObject, ToolBench
{
    Q_OBJECT

    QWidget owner;
    const QRgb Black = qRgb(0, 0, 0), White = MapPicture::Background.rgb(), FirstLine = qRgb(167, 150, 167); // the magic's 'd'

    // The ticks in a picture: its black pixels, a tick's length to each.
    int Ticks(const QImage &image) const
    {
        const QRgb *pixels = reinterpret_cast<const QRgb *>(image.constBits());
        return int(std::count(pixels, pixels + image.width() * image.height(), Black)) / TickLength;
    }

    // Appends n genes of a small kind whose bodies don't spell "gene", and opens the map.
    QPointer<frmChromosomeMap> OpenMap(int n)
    {
        for (int i = 0; i < n; ++i)
            session->CreateGene(1, 2, false);
        return frmChromosomeMap::PlotChromosomeMap(*session, &owner);
    }

private slots:
    void init() { Start(false); }
    void cleanup()
    {
        qDeleteAll(owner.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
        QVERIFY(Finish());
    }

    // With no genes there is no map; a map stands until its genome goes.
    void aMapNeedsGenesAndGoesWithTheGenome()
    {
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!OpenMap(0) && !owner.findChild<frmChromosomeMap *>());
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Not enough genes to plot chromosome map"));
        QPointer<frmChromosomeMap> dialog = OpenMap(1);
        QVERIFY(dialog->isVisible() && session->AbandonGenome());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
    }

    // Opening encodes, then plots into an image the size of the area: a line W wide for each
    // byte from row 5 down, a tick beside every gene token. A repaint or a second open doesn't
    // plot again; Update Now does, and a close asked for while it lets events run waits for
    // the plot's end.
    void dialog()
    {
        session->GenomeImage.WriteCursor = 5000; // what the image held before isn't drawn
        session->GenomeImage.Bytes.fill(255);
        QPointer<frmChromosomeMap> dialog = OpenMap(4);
        const QImage &image = dialog->ChromosomePicture->Image();
        QCOMPARE(dialog->windowTitle() + '|' + prompt.progressTitle, QString("Chromosome Map|Building Chromosome Map"));
        // "dna2gene": the first line at row 5 over pixels 5 to 17, the first tick at row 12
        // over pixels 19 to 22.
        QCOMPARE(QVector<QRgb>({image.pixel(4, 5), image.pixel(5, 5), image.pixel(17, 5), image.pixel(18, 5)}),
                 QVector<QRgb>({White, FirstLine, FirstLine, White}));
        QCOMPARE(QVector<QRgb>({image.pixel(18, 12), image.pixel(19, 12), image.pixel(22, 12), image.pixel(23, 12)}),
                 QVector<QRgb>({White, Black, Black, White}));
        QCOMPARE(Ticks(image), 4);

        const int loads = prompt.progressLoads, fw = dialog->ChromosomePicture->frameWidth();
        QCOMPARE(dialog->ChromosomePicture->grab().toImage().pixel(5 + fw, 5 + fw), FirstLine);
        QCOMPARE(QList<int>({OpenMap(1) == dialog, prompt.progressLoads - loads, Ticks(image)}), QList<int>({1, 0, 4}));
        QTimer::singleShot(0, dialog, [&] { dialog->close(); });
        QTest::mouseClick(dialog->UpdateNowCommand, Qt::LeftButton);
        QCOMPARE(Ticks(image), 5);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
    }

    // A full genome: a column ends at row 340 and the next begins 6 right of its end; the
    // columns run on past the right edge (the 26th is the last that fits), and are clipped.
    void fullGenome()
    {
        BenchGenome::Build(*session);
        const QImage &image = OpenMap(0)->ChromosomePicture->Image();
        QVERIFY(image.pixel(5, 340) != White && image.pixel(5, 341) == White);
        QVERIFY(image.pixel(23, 5) == White && image.pixel(24, 5) != White && image.pixel(5 + 25 * 19 + 6, 5) != White);
        QVERIFY(Ticks(image) > 50 && Ticks(image) < BenchGenome::Genes);
    }
};

QTEST_MAIN(TestChromosomeMap)
#include "test_chromosome_map.moc"
