// The chromosome map of a genome that fills the image (some 35,000 lines), plotted by the map
// dialog with its progress window, beside the floor: a bare QPainter drawing the same lines
// into an image of the same size, in the same run. Prints the ratio at the end.
// Run headless with QT_QPA_PLATFORM=offscreen.
#include "BenchGenome.h"
#include "RatioReporter.h"
#include "core/ChromosomeMap.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "tools/MapPicture.h"
#include "tools/frmChromosomeMap.h"
#include "widgets/QtPrompt.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWidget>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>
#include <utility>
#include <vector>

namespace {

// The lines a plot gives its surface, kept for the floor.
struct Recorder : ChromosomeMap::Surface
{
    struct Drawn
    {
        QRect rect;
        QColor colour;
    };
    QSize size;
    std::vector<Drawn> lines;

    int Width() const override { return size.width(); }
    int Height() const override { return size.height(); }
    void Clear() override { lines.clear(); }
    void Line(int x1, int x2, int y, const ChromosomeMap::Shade &s) override
    {
        lines.push_back({QRect(x1, y, x2 - x1, 1), QColor(s.red, s.green, s.blue)});
    }
};

// The progress window and the event processing of the program, but no message box: a
// message is counted and answered Yes or Ok, so that a run can show it was silent.
class BenchQtPrompt : public QtPrompt
{
public:
    int messages = 0;
    int Message(const QString &, const QString &, int style) override
    {
        ++messages;
        return (style & 15) == 3 || (style & 15) == 4 ? Yes : Ok;
    }
};

struct Rig
{
    BenchQtPrompt prompt;
    Session session{prompt};
    QWidget mainWindow;
    frmChromosomeMap *dialog = nullptr;
    Recorder recorded;
    int ticks = 0;

    Rig()
    {
        prompt.SetParentWindow(&mainWindow);
        BenchGenome::Build(session);
        FillImage();
        dialog = frmChromosomeMap::PlotChromosomeMap(session, &mainWindow);
        recorded.size = QSize(dialog->ChromosomePicture->Width(), dialog->ChromosomePicture->Height());
        ticks = ChromosomeMap::Plot(session, recorded);
    }

    // The benchmark genome holds 900 genes in some 21,000 bytes. Its last genes give way to
    // half-life genes (256 bytes of body each) until the image is nearly full, short of the
    // out-of-space question.
    void FillImage()
    {
        for (int replaced = 0;; ++replaced) {
            session.EncodeGenome();
            if (session.GenomeImage.WriteCursor > ::GenomeImage::PickleLimit - 300)
                break;
            // The new gene comes in at the end and takes the place of the last one not yet replaced.
            const int slot = session.GeneCount - 1 - replaced, last = session.GeneCount - 1;
            if (slot < 0)
                break;
            std::swap(session.GeneList[size_t(slot)], session.GeneList[size_t(last)]);
            session.GeneList[size_t(last)].reset();
            --session.GeneCount;
            if (!session.CreateGene(1, 3, false))
                break;
            std::swap(session.GeneList[size_t(slot)], session.GeneList[size_t(last)]);
            session.GeneAt(last)->Numeric_ID = last;
            Gene *g = session.GeneAt(slot);
            g->Numeric_ID = slot;
            g->ID = quint8(replaced + 1);
        }
    }
};

Rig *rig = nullptr;

// Update Now: progress window, encode, every line into the dialog's image, the progress bar and
// the events every 100 bytes, the picture brought up to date.
void BM_ChromosomeMap(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rig->dialog->UpdateNow());
    state.counters["lines"] = double(rig->session.GenomeImage.WriteCursor);
    state.counters["ticks"] = double(rig->ticks);
}
BENCHMARK(BM_ChromosomeMap)->Unit(benchmark::kMillisecond);

// The floor: the same lines with their colours, filled one by one into a cleared image of the
// same size and format by one painter.
void BM_ChromosomeMapFloor(benchmark::State &state)
{
    QImage image(rig->recorded.size, QImage::Format_RGB32);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        for (const Recorder::Drawn &l : rig->recorded.lines)
            painter.fillRect(l.rect, l.colour);
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
    state.counters["lines"] = double(rig->recorded.lines.size());
}
BENCHMARK(BM_ChromosomeMapFloor)->Unit(benchmark::kMillisecond);

// The floor for the lines that land in the image only: the same picture.
void BM_ChromosomeMapVisibleFloor(benchmark::State &state)
{
    QImage image(rig->recorded.size, QImage::Format_RGB32);
    std::vector<Recorder::Drawn> visible;
    for (const Recorder::Drawn &l : rig->recorded.lines)
        if (image.rect().intersects(l.rect))
            visible.push_back(l);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        for (const Recorder::Drawn &l : visible)
            painter.fillRect(l.rect, l.colour);
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
    state.counters["lines"] = double(visible.size());
}
BENCHMARK(BM_ChromosomeMapVisibleFloor)->Unit(benchmark::kMillisecond);

// The same floor drawn as pen lines, the other plain way to draw them.
void BM_ChromosomeMapPenFloor(benchmark::State &state)
{
    QImage image(rig->recorded.size, QImage::Format_RGB32);
    for (auto _ : state) {
        image.fill(Qt::white);
        QPainter painter(&image);
        for (const Recorder::Drawn &l : rig->recorded.lines) {
            painter.setPen(l.colour);
            painter.drawLine(l.rect.left(), l.rect.top(), l.rect.right(), l.rect.top());
        }
        painter.end();
        benchmark::DoNotOptimize(image.constBits());
    }
    state.counters["lines"] = double(rig->recorded.lines.size());
}
BENCHMARK(BM_ChromosomeMapPenFloor)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Rig theRig;
    rig = &theRig;
    std::printf("genome: %d genes, %d bytes, %d ticks, area %dx%d, %d messages\n", int(theRig.session.GeneCount),
                int(theRig.session.GenomeImage.WriteCursor), theRig.ticks, theRig.recorded.size.width(),
                theRig.recorded.size.height(), theRig.prompt.messages);

    RatioReporter reporter; // tabular, without colour codes
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Ratio("BM_ChromosomeMap", "BM_ChromosomeMapFloor");
    reporter.Ratio("BM_ChromosomeMap", "BM_ChromosomeMapVisibleFloor");
    reporter.Ratio("BM_ChromosomeMap", "BM_ChromosomeMapPenFloor");
    rig = nullptr;
    benchmark::Shutdown();
    return 0;
}
