// The chromosome map: the geometry and colours of the plot on a surface that records what
// it is given, then the dialog, read back from the image it draws into.
#include "BenchGenome.h"
#include "core/ChromosomeMap.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "support/ShownText.h"
#include "support/TestEnv.h"
#include "tools/MapPicture.h"
#include "tools/frmChromosomeMap.h"

#include <QPointer>
#include <QPushButton>
#include <QtTest>

using namespace ChromosomeMap;

namespace {

// A surface that keeps every line it is given. Its height can change after a number of
// looks at it, as an area resized during the plot would.
struct RecordingSurface : Surface
{
    struct Drawn
    {
        int x1, x2, y;
        Shade shade;
    };
    int width = 497, height = 345;
    int shrinkAfter = -1, shrunkHeight = 0; // from this look at the height on
    mutable int heightLooks = 0;
    int clears = 0;
    QVector<Drawn> lines;

    int Width() const override { return width; }
    int Height() const override
    {
        const int look = heightLooks++;
        return shrinkAfter >= 0 && look >= shrinkAfter ? shrunkHeight : height;
    }
    void Clear() override
    {
        ++clears;
        lines.clear();
    }
    void Line(int x1, int x2, int y, const Shade &shade) override { lines.append({x1, x2, y, shade}); }

    // The lines of the bytes, ticks left out; and the ticks.
    QVector<Drawn> Bytes() const { return Filter(false); }
    QVector<Drawn> Ticks() const { return Filter(true); }
    QVector<Drawn> Filter(bool ticks) const
    {
        QVector<Drawn> out;
        for (const Drawn &l : lines)
            if ((l.shade == Shade{}) == ticks)
                out.append(l);
        return out;
    }
};

// Appends n genes of one small kind, IDs 1..n, all fields 0 (so no body spells "gene").
void AddGenes(Session &session, int n, quint8 type = 1, quint8 subType = 2)
{
    for (int i = 0; i < n; ++i) {
        QVERIFY(session.CreateGene(type, subType, false));
        Gene *g = session.GeneAt(session.GeneCount - 1);
        g->ID = quint8(i + 1);
        g->Generation = g->SwitchOn = g->Mutability = g->MutabilityWeighting = 0;
    }
}

// Horizontal runs of black pixels in an image: the ticks that lie inside it.
int BlackRuns(const QImage &image)
{
    int runs = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == qRgb(0, 0, 0) && (x == 0 || image.pixel(x - 1, y) != qRgb(0, 0, 0)))
                ++runs;
    return runs;
}

} // namespace

class TestChromosomeMap : public QObject
{
    Q_OBJECT

    ScriptedPrompt prompt;
    std::unique_ptr<SettingsSandbox> sandbox;
    std::unique_ptr<Session> session;
    QWidget owner;

private slots:
    void init() { FreshSession(sandbox, prompt, session); }
    void cleanup()
    {
        QVERIFY2(prompt.AllAnswered(), "a queued answer was not asked for");
        for (QWidget *w : owner.findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
            delete w;
    }

    // --- the plot's numbers --------------------------------------------------------------

    void shade_data()
    {
        QTest::addColumn<int>("byte");
        QTest::addColumn<int>("c");
        QTest::addColumn<int>("g");
        QTest::newRow("0: the lightest") << 0 << 200 << 180;
        QTest::newRow("1: a third rounds down") << 1 << 200 << 180;
        QTest::newRow("2: two thirds round up") << 2 << 199 << 179;
        QTest::newRow("100: the d of the magic") << 100 << 167 << 150;
        QTest::newRow("45: g 166.5 to even 166") << 45 << 185 << 166;
        QTest::newRow("225: g 112.5 to even 112") << 225 << 125 << 112;
        QTest::newRow("255: the darkest, g 103.5 to even 104") << 255 << 115 << 104;
    }
    void shade()
    {
        QFETCH(int, byte);
        QFETCH(int, c);
        QFETCH(int, g);
        const Shade s = LineShade(quint8(byte));
        QCOMPARE(QVector<int>({s.red, s.green, s.blue}), QVector<int>({c, g, c}));
    }

    void columnWidth_data()
    {
        QTest::addColumn<int>("areaWidth");
        QTest::addColumn<int>("w");
        QTest::newRow("the designed area, 497 inside") << 497 << 13;
        QTest::newRow("12.5 to even 12") << 475 << 12;
        QTest::newRow("13.5 to even 14") << 513 << 14;
        QTest::newRow("just above a half") << 476 << 13;
        QTest::newRow("1.5 to even 2") << 57 << 2;
        QTest::newRow("0.5 to even 0") << 19 << 0;
        QTest::newRow("nothing") << 0 << 0;
    }
    void columnWidth()
    {
        QFETCH(int, areaWidth);
        QTEST(ColumnWidth(areaWidth), "w");
    }

    // Only "gene" ends in a tick, beside its last letter, wherever it stands.
    void ticks_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<QVector<int>>("ticked");
        QTest::newRow("gene") << QByteArray("gene") << QVector<int>{3};
        QTest::newRow("gend has none") << QByteArray("xgenegendgene") << QVector<int>{4, 12};
        QTest::newRow("back to back") << QByteArray("genegene") << QVector<int>{3, 7};
        QTest::newRow("a false start") << QByteArray("gengene") << QVector<int>{6};
        QTest::newRow("capitals are other bytes") << QByteArray("GENEgenE") << QVector<int>{};
        QTest::newRow("too short") << QByteArray("ene") << QVector<int>{};
    }
    void ticks()
    {
        QFETCH(QByteArray, bytes);
        Walker walker(13);
        QVector<int> ticked;
        for (int i = 0; i < bytes.size(); ++i)
            if (walker.Next(quint8(bytes[i]), 345).tick)
                ticked.append(i);
        QTEST(ticked, "ticked");
    }

    // --- the plot on a surface -------------------------------------------------------------

    // Every byte of the encoded genome is one line, in columns W + 6 apart that wrap below
    // the height less 5; each gene token gets a black tick in the gap right of its column.
    void plotGeometry()
    {
        AddGenes(*session, 3);
        RecordingSurface surface;
        surface.height = 30; // rows 5 to 25: 21 lines a column
        const int ticks = Plot(*session, surface);
        const GenomeImage &image = session->GenomeImage;
        const QVector<RecordingSurface::Drawn> bytes = surface.Bytes(), tickLines = surface.Ticks();
        QCOMPARE(bytes.size(), image.WriteCursor);
        QVERIFY(image.WriteCursor > 21 * 2); // the genome takes more than two columns
        for (int i = 0; i < bytes.size(); ++i) {
            const int x = 5 + (i / 21) * (13 + 6), y = 5 + i % 21;
            const RecordingSurface::Drawn &l = bytes[i];
            QVERIFY2(l.x1 == x && l.x2 == x + 13 && l.y == y && l.shade == LineShade(image.Bytes[size_t(i)]),
                     qPrintable(QStringLiteral("byte %1").arg(i)));
        }
        QCOMPARE(bytes[0].shade, (Shade{167, 150, 167})); // 'd' at row 5
        // The ticks: one per gene, beside the last 'e' of each token.
        QCOMPARE(ticks, 3);
        QCOMPARE(tickLines.size(), 3);
        int seen = 0;
        for (int i = 3; i < bytes.size(); ++i)
            if (QByteArray(reinterpret_cast<const char *>(&image.Bytes[size_t(i - 3)]), 4) == "gene") {
                const RecordingSurface::Drawn &t = tickLines[seen++];
                QVERIFY(t.y == bytes[i].y && t.x1 == bytes[i].x1 + 14 && t.x2 == bytes[i].x1 + 18);
            }
        QCOMPARE(seen, 3);
        QCOMPARE(surface.clears, 1);
        QVERIFY(prompt.shown.isEmpty());
    }

    // The height is looked at anew for every byte: an area that shrinks mid-plot wraps the
    // present column at once.
    void heightFollowedAtEveryByte()
    {
        AddGenes(*session, 6);
        RecordingSurface surface;
        surface.shrinkAfter = 50; // bytes 0..49 see 345, from byte 50 on 20
        surface.shrunkHeight = 20;
        Plot(*session, surface);
        const QVector<RecordingSurface::Drawn> bytes = surface.Bytes();
        QVERIFY(bytes.size() > 62);
        QCOMPARE(bytes[50].y, 55); // drawn where it was due, then the column ends
        QCOMPARE(bytes[51].x1, 5 + 19);
        QCOMPARE(bytes[51].y, 5);
        QCOMPARE(bytes[51 + 11].y, 5); // rows 5 to 15 from then on
        QCOMPARE(bytes[51 + 11].x1, 5 + 2 * 19);
    }

    // The map shows what would go to a file now: it encodes first, whatever the image held.
    void encodesFirst()
    {
        AddGenes(*session, 2);
        session->GenomeImage.WriteCursor = 5000;
        session->GenomeImage.Bytes.fill(255);
        RecordingSurface surface;
        Plot(*session, surface);
        QCOMPARE(surface.Bytes().size(), session->GenomeImage.WriteCursor);
        QVERIFY(session->GenomeImage.WriteCursor < 5000);
        QCOMPARE(surface.Bytes()[0].shade, LineShade('d'));
        QCOMPARE(surface.Bytes().last().shade, LineShade('d')); // of "gend"
    }

    // The progress window: titled, shown from the start, a look every 100 bytes, unloaded.
    void progressWindow()
    {
        AddGenes(*session, 20);
        RecordingSurface surface;
        const int loadsBefore = prompt.progressLoads, yieldsBefore = prompt.yields;
        Plot(*session, surface);
        const int count = session->GenomeImage.WriteCursor;
        QVERIFY(count > 300);
        QCOMPARE(prompt.progressTitle, QStringLiteral("Building Chromosome Map"));
        QCOMPARE(prompt.progressLoads - loadsBefore, 1);
        QVERIFY(!prompt.progressLoaded);
        QCOMPARE(prompt.yields - yieldsBefore, 2 + (count + 99) / 100);
        const int lastLook = (count - 1) / 100 * 100;
        QCOMPARE(prompt.progressValue, qRound(lastLook * 100.0 / count));
    }

    // A genome dropped while the map stayed open: nothing to draw, no message.
    void droppedGenomeDrawsNothing()
    {
        AddGenes(*session, 2);
        session->ClearGeneList();
        RecordingSurface surface;
        QCOMPARE(Plot(*session, surface), 0);
        QVERIFY(surface.lines.isEmpty() && surface.clears == 1 && prompt.shown.isEmpty() && !prompt.progressLoaded);
    }

    // --- the dialog ----------------------------------------------------------------------

    void noGenesNoDialog()
    {
        const int loadsBefore = prompt.progressLoads;
        prompt.AnswerMessage(Prompt::Ok);
        QVERIFY(!frmChromosomeMap::PlotChromosomeMap(*session, &owner));
        QCOMPARE(ShownText(prompt.Last()), ShownText("Helixbench", 64, "Not enough genes to plot chromosome map"));
        QVERIFY(!owner.findChild<frmChromosomeMap *>());
        QCOMPARE(prompt.progressLoads, loadsBefore);
    }

    // Opening plots into an image the size of the area; the picture shows that image, and a
    // repaint, a resize or a second open doesn't plot again.
    void dialogPlotsAndKeepsItsPicture()
    {
        AddGenes(*session, 4);
        const int loadsBefore = prompt.progressLoads;
        QPointer<frmChromosomeMap> dialog = frmChromosomeMap::PlotChromosomeMap(*session, &owner);
        QVERIFY(dialog && dialog->isVisible() && !dialog->isModal() && dialog->windowTitle() == "Chromosome Map");
        MapPicture *picture = dialog->findChild<MapPicture *>(QStringLiteral("ChromosomePicture"));
        QVERIFY(picture && dialog->findChild<QPushButton *>("UpdateNowCommand")
                && dialog->findChild<QPushButton *>("CloseCommand")->text() == "&Close");
        QCOMPARE(picture->size(), QSize(501, 349));
        QCOMPARE(picture->Image().size(), QSize(picture->Width(), picture->Height()));
        QCOMPARE(picture->Image().pixel(5, 5), qRgb(167, 150, 167));
        QCOMPARE(picture->Image().pixel(4, 5), MapPicture::Background.rgb());
        QCOMPARE(BlackRuns(picture->Image()), 4);
        QCOMPARE(prompt.progressLoads - loadsBefore, 1);

        // What is on screen is the image, inside the frame.
        const int fw = picture->frameWidth();
        QCOMPARE(picture->grab().toImage().pixel(5 + fw, 5 + fw), qRgb(167, 150, 167));

        // Smaller, then larger again: nothing plots, nothing is lost.
        dialog->resize(dialog->width() - 200, dialog->height() - 150);
        QCoreApplication::processEvents();
        dialog->resize(dialog->width() + 400, dialog->height() + 300);
        QCoreApplication::processEvents();
        QVERIFY(picture->Width() > 497);
        QCOMPARE(picture->Image().pixel(5, 5), qRgb(167, 150, 167));
        QCOMPARE(BlackRuns(picture->Image()), 4);
        QCOMPARE(frmChromosomeMap::PlotChromosomeMap(*session, &owner), dialog.data());
        QCOMPARE(prompt.progressLoads - loadsBefore, 1);

        // The map follows the genome only when asked: Update Now plots anew, at the new width.
        AddGenes(*session, 1);
        QCOMPARE(BlackRuns(picture->Image()), 4);
        QTest::mouseClick(dialog->UpdateNowCommand, Qt::LeftButton);
        QCOMPARE(prompt.progressLoads - loadsBefore, 2);
        QCOMPARE(BlackRuns(picture->Image()), 5);
        QCOMPARE(picture->Image().size(), QSize(picture->Width(), picture->Height()));

        QTest::mouseClick(dialog->CloseCommand, Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
        QVERIFY(prompt.shown.isEmpty());
    }

    // Update Now after the genome was dropped clears the picture and draws nothing; a genome
    // that is abandoned closes the map.
    void droppedAndAbandonedGenome()
    {
        AddGenes(*session, 1);
        QPointer<frmChromosomeMap> dialog = frmChromosomeMap::PlotChromosomeMap(*session, &owner);
        session->ClearGeneList();
        dialog->UpdateNow();
        const QImage cleared = dialog->ChromosomePicture->Image();
        QCOMPARE(cleared.pixel(5, 5), MapPicture::Background.rgb());
        QCOMPARE(BlackRuns(cleared), 0);

        AddGenes(*session, 1);
        QVERIFY(session->AbandonGenome()); // one gene: no question
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
    }

    // While the plot lets events run, the picture can be painted from what is drawn so far;
    // a close asked for then waits for the plot's end.
    void eventsDuringPlot()
    {
        AddGenes(*session, 30);
        QPointer<frmChromosomeMap> dialog = frmChromosomeMap::PlotChromosomeMap(*session, &owner);
        // Each pass of the event loop fires the timer once: the fifth is the third look at
        // the progress window inside the loop, 200 bytes into the plot.
        QTimer passes;
        int fired = 0;
        bool midPlot = false;
        QImage shown;
        connect(&passes, &QTimer::timeout, dialog, [&] {
            if (++fired != 5)
                return;
            midPlot = dialog->Plotting();
            shown = dialog->ChromosomePicture->grab().toImage();
            dialog->close();
        });
        passes.start(0);
        dialog->UpdateNow();
        passes.stop();
        QVERIFY(midPlot && dialog);
        const int fw = dialog->ChromosomePicture->frameWidth();
        QCOMPARE(shown.pixel(5 + fw, 5 + fw), qRgb(167, 150, 167));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(dialog.isNull());
    }

    void fullGenomeDialog()
    {
        BenchGenome::Build(*session);
        QPointer<frmChromosomeMap> dialog = frmChromosomeMap::PlotChromosomeMap(*session, &owner);
        QVERIFY(dialog);
        const QImage &image = dialog->ChromosomePicture->Image();
        QCOMPARE(image.pixel(5, 5), qRgb(167, 150, 167));
        // Columns run on past the right edge: what fits is there, the rest is clipped.
        const int visible = BlackRuns(image);
        QVERIFY(visible > 50 && visible < BenchGenome::Genes);
        QVERIFY(image.pixel(5 + 25 * 19 + 6, 5) != MapPicture::Background.rgb()); // the last column that fits
        QVERIFY(prompt.shown.isEmpty());
    }
};

QTEST_MAIN(TestChromosomeMap)
#include "test_chromosome_map.moc"
