// Two 900-gene genomes compared and the comparison window filled, beside its floor: the same
// rows filled into a bare QTreeWidget in the same run. Prints the ratio at the end.
// Run headless with QT_QPA_PLATFORM=offscreen.
#include "BenchGenome.h"
#include "RatioReporter.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "core/compare/OtherGenome.h"
#include "core/genes/Biochemistry.h"
#include "core/genes/BodyGenes.h"
#include "core/genes/BrainLobe.h"
#include "views/GenomeCompareForm.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <memory>

namespace {

struct Rig
{
    BenchPrompt prompt;
    Session session{prompt};
    QTemporaryDir folder;
    std::unique_ptr<GenomeCompareForm> window;

    // The rows the window shows: texts and parent (-1: top level).
    struct Row
    {
        int parent;
        QStringList texts;
    };
    std::vector<Row> rows;

    Rig()
    {
        session.Tables.Build();
        for (int c = 1; c < 256; ++c)
            session.Lists.ChemicalNames[size_t(c)] = QStringLiteral("Chemical %1").arg(c);
        BenchGenome::Build(session);
        for (int i = 0; i < session.GeneCount; ++i) {
            const Gene *g = session.GeneAt(i);
            session.CaptionStore.SetCaption(g->GeneType, g->GeneSubType, g->ID, QStringLiteral("Gene %1").arg(i));
        }
        const QString parent = Write(QStringLiteral("parent.gen"));

        // The child: a field changed in every 30th gene, and two genes renumbered.
        for (int i = 1; i < session.GeneCount; i += 30) {
            Gene *g = session.GeneAt(i);
            g->MutabilityWeighting = quint8(g->MutabilityWeighting + 1);
            if (auto *r = dynamic_cast<clsReceptor *>(g))
                r->Chem = quint8(r->Chem + 1);
            if (auto *l = dynamic_cast<clsBrainLobe *>(g))
                l->Width = quint8(l->Width % 64 + 1);
        }
        session.GeneAt(100)->ID = 250;
        session.GeneAt(500)->ID = 251;
        const QString child = Write(QStringLiteral("child.gen"));

        session.LoadGenomeFile(parent);
        auto other = std::make_unique<OtherGenome>(session);
        other->Read(child);
        window = std::make_unique<GenomeCompareForm>(session, std::move(other));
        const QTreeWidget *tree = window->CompareListView;
        for (int i = 0; i < tree->topLevelItemCount(); ++i) {
            const QTreeWidgetItem *item = tree->topLevelItem(i);
            rows.push_back({-1, Texts(item)});
            const int self = int(rows.size()) - 1;
            for (int c = 0; c < item->childCount(); ++c)
                rows.push_back({self, Texts(item->child(c))});
        }
    }

    QString Write(const QString &name)
    {
        const QString path = folder.filePath(name);
        QFile file(path);
        if (file.open(QIODevice::WriteOnly))
            file.write(BenchGenome::FileBytes(session));
        file.close();
        session.CaptionStore.SaveUniqueCaptions(path);
        return path;
    }

    static QStringList Texts(const QTreeWidgetItem *item)
    {
        QStringList texts;
        for (int c = 0; c < item->columnCount(); ++c)
            texts << item->text(c);
        return texts;
    }
};

Rig *rig = nullptr;

// Both genomes' records, the matching, the differences, and the list filled with all rows.
void BM_CompareAndFill(benchmark::State &state)
{
    for (auto _ : state)
        rig->window->Recompare();
    state.counters["rows"] = double(rig->rows.size());
}
BENCHMARK(BM_CompareAndFill)->Unit(benchmark::kMicrosecond);

// The floor: the same rows into a bare tree widget, detached and added in one batch.
void BM_CompareAndFillFloor(benchmark::State &state)
{
    QTreeWidget tree;
    tree.setColumnCount(6);
    for (auto _ : state) {
        tree.clear();
        std::vector<QTreeWidgetItem *> items;
        items.reserve(rig->rows.size());
        QList<QTreeWidgetItem *> topLevel;
        for (const Rig::Row &r : rig->rows) {
            auto *item = new QTreeWidgetItem(r.texts);
            if (r.parent < 0)
                topLevel.append(item);
            else
                items[size_t(r.parent)]->addChild(item);
            items.push_back(item);
        }
        tree.addTopLevelItems(topLevel);
    }
    state.counters["rows"] = double(rig->rows.size());
}
BENCHMARK(BM_CompareAndFillFloor)->Unit(benchmark::kMicrosecond);

// The parts of the work, for where the time goes: the records of both genomes, the matching
// and differences, and the fill of the list from a comparison.
void BM_Records(benchmark::State &state)
{
    for (auto _ : state) {
        benchmark::DoNotOptimize(GenomeCompare::GeneRecords(rig->session));
        benchmark::DoNotOptimize(GenomeCompare::GeneRecords(rig->window->Other().Genome()));
    }
}
BENCHMARK(BM_Records)->Unit(benchmark::kMicrosecond);
void BM_Match(benchmark::State &state)
{
    auto a = GenomeCompare::GeneRecords(rig->session), b = GenomeCompare::GeneRecords(rig->window->Other().Genome());
    for (auto _ : state)
        benchmark::DoNotOptimize(GenomeCompare::Compare(a, b));
}
BENCHMARK(BM_Match)->Unit(benchmark::kMicrosecond);
void BM_Fill(benchmark::State &state)
{
    for (auto _ : state)
        rig->window->FillList();
}
BENCHMARK(BM_Fill)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Rig theRig;
    rig = &theRig;
    const auto &c = theRig.window->Result();
    std::printf("genomes: %d and %d genes; %d pairs (%d changed, %d only left, %d only right), %zu rows\n",
                int(theRig.session.GeneCount), int(theRig.window->Other().Genome().GeneCount), int(c.pairs.size()),
                c.Count(GenomeCompare::PairState::Changed), c.Count(GenomeCompare::PairState::OnlyLeft),
                c.Count(GenomeCompare::PairState::OnlyRight), theRig.rows.size());

    RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Ratio("BM_CompareAndFill", "BM_CompareAndFillFloor");
    rig = nullptr;
    benchmark::Shutdown();
    return 0;
}
