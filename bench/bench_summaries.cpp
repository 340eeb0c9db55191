// On a 900-gene genome: a load from the file to filled views, and the organ tree and genotype
// summary rebuilds, each beside its floor: the same rows filled into bare QTreeWidgets in the
// same run. Prints the ratios at the end.
// Run headless with QT_QPA_PLATFORM=offscreen.
#include "BenchGenome.h"
#include "RatioReporter.h"
#include "core/Gene.h"
#include "core/Session.h"
#include "views/GenotypeTab.h"
#include "views/HelixbenchForm.h"
#include "views/OrganViewTab.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryDir>
#include <QTreeWidget>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <functional>
#include <map>
#include <memory>

namespace {

struct Rig
{
    BenchPrompt prompt;
    Session session{prompt};
    std::unique_ptr<HelixbenchForm> form;
    OrganViewTab *organ = nullptr;
    GenotypeTab *genotype = nullptr;

    // The rows each rebuild makes, for the floors: text and parent (-1: top level).
    struct Row
    {
        int parent;
        QStringList texts;
    };
    std::vector<Row> organRows, genotypeRows, lobeRows, geneRows;
    QTemporaryDir folder;
    QString genomeFile;

    Rig()
    {
        session.Tables.Build();
        const qint32 presets[14] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
        for (int i = 0; i < 14; ++i)
            session.Template.DefaultGeneCounts[size_t(i)] = presets[i];
        for (int c = 1; c < 256; ++c)
            session.Lists.ChemicalNames[size_t(c)] = QStringLiteral("Chemical %1").arg(c);
        BenchGenome::Build(session);
        // A well-kept genome: every gene has its caption, which every view looks up.
        for (int i = 0; i < session.GeneCount; ++i) {
            const Gene *g = session.GeneAt(i);
            session.CaptionStore.SetCaption(g->GeneType, g->GeneSubType, g->ID, QStringLiteral("Gene %1").arg(i));
        }
        form = std::make_unique<HelixbenchForm>(session);
        form->BuildAllTabs(); // the rebuilds below are timed on tabs that have been shown
        organ = form->findChild<OrganViewTab *>();
        genotype = form->findChild<GenotypeTab *>();
        organ->BuildOrganTree();
        genotype->CountGenotype();
        Snapshot(organ->OrganTreeView, organRows);
        Snapshot(form->findChild<QTreeWidget *>(QStringLiteral("GenotypeListView")), genotypeRows);
        Snapshot(form->findChild<QTreeWidget *>(QStringLiteral("BrainLobeListView")), lobeRows);

        // The same genome as a file, for the load; its rows as the gene list shows them.
        genomeFile = folder.filePath(QStringLiteral("bench.gen"));
        QFile file(genomeFile);
        if (file.open(QIODevice::WriteOnly))
            file.write(BenchGenome::FileBytes(session));
        file.close();
        session.CaptionStore.SaveUniqueCaptions(genomeFile);
        session.LoadGenomeFile(genomeFile);
        Snapshot(form->findChild<QTreeWidget *>(QStringLiteral("GeneListListView")), geneRows);
    }

    static void Snapshot(const QTreeWidget *tree, std::vector<Row> &rows)
    {
        std::function<void(const QTreeWidgetItem *, int)> walk = [&](const QTreeWidgetItem *item, int parent) {
            QStringList texts;
            for (int c = 0; c < item->columnCount(); ++c)
                texts << item->text(c);
            rows.push_back({parent, texts});
            const int self = int(rows.size()) - 1;
            for (int i = 0; i < item->childCount(); ++i)
                walk(item->child(i), self);
        };
        for (int i = 0; i < tree->topLevelItemCount(); ++i)
            walk(tree->topLevelItem(i), -1);
    }
};

Rig *rig = nullptr;

// The floor: the same rows, with their texts and parents, into a bare tree widget, made
// detached and added in one batch (the cheapest way the widget offers).
void FillBare(QTreeWidget &tree, const std::vector<Rig::Row> &rows)
{
    tree.clear();
    std::vector<QTreeWidgetItem *> items;
    items.reserve(rows.size());
    QList<QTreeWidgetItem *> topLevel;
    for (const Rig::Row &r : rows) {
        auto *item = new QTreeWidgetItem(r.texts);
        if (r.parent < 0)
            topLevel.append(item);
        else
            items[size_t(r.parent)]->addChild(item);
        items.push_back(item);
    }
    tree.addTopLevelItems(topLevel);
}

// Load: read and decode the file, captions, then the gene list, summary and organ tree, in a
// main window as start-up leaves it (on its cover, the other tabs not shown yet).
void BM_LoadToViews(benchmark::State &state)
{
    BenchPrompt prompt;
    Session session(prompt);
    session.Tables.Build();
    session.Template.DefaultGeneCounts = rig->session.Template.DefaultGeneCounts;
    session.Lists.ChemicalNames = rig->session.Lists.ChemicalNames;
    HelixbenchForm form(session);
    for (auto _ : state)
        benchmark::DoNotOptimize(session.LoadGenomeFile(rig->genomeFile));
    state.counters["genes"] = double(session.GeneCount);
    state.counters["captions"] = double(session.CaptionStore.CaptionCount);
}
BENCHMARK(BM_LoadToViews)->Unit(benchmark::kMicrosecond);

// The same load with every tab shown before: all the views are filled at once.
void BM_LoadToViewsAllShown(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rig->session.LoadGenomeFile(rig->genomeFile));
    state.counters["genes"] = double(rig->session.GeneCount);
}
BENCHMARK(BM_LoadToViewsAllShown)->Unit(benchmark::kMicrosecond);

void BM_LoadToViewsFloor(benchmark::State &state)
{
    QTreeWidget genes, organs, categories, lobes;
    genes.setColumnCount(8);
    categories.setColumnCount(3);
    lobes.setColumnCount(6);
    for (auto _ : state) {
        FillBare(genes, rig->geneRows);
        FillBare(organs, rig->organRows);
        FillBare(categories, rig->genotypeRows);
        FillBare(lobes, rig->lobeRows);
    }
    state.counters["genes"] = double(rig->geneRows.size());
}
BENCHMARK(BM_LoadToViewsFloor)->Unit(benchmark::kMicrosecond);

void BM_OrganTree(benchmark::State &state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(rig->organ->BuildOrganTree());
    state.counters["nodes"] = double(rig->organRows.size());
}
BENCHMARK(BM_OrganTree)->Unit(benchmark::kMicrosecond);

void BM_OrganTreeFloor(benchmark::State &state)
{
    QTreeWidget tree;
    for (auto _ : state)
        FillBare(tree, rig->organRows);
    state.counters["nodes"] = double(rig->organRows.size());
}
BENCHMARK(BM_OrganTreeFloor)->Unit(benchmark::kMicrosecond);

void BM_Genotype(benchmark::State &state)
{
    for (auto _ : state)
        rig->genotype->CountGenotype();
    state.counters["rows"] = double(rig->genotypeRows.size() + rig->lobeRows.size());
}
BENCHMARK(BM_Genotype)->Unit(benchmark::kMicrosecond);

void BM_GenotypeFloor(benchmark::State &state)
{
    QTreeWidget categories, lobes;
    categories.setColumnCount(3);
    lobes.setColumnCount(6);
    for (auto _ : state) {
        FillBare(categories, rig->genotypeRows);
        FillBare(lobes, rig->lobeRows);
    }
    state.counters["rows"] = double(rig->genotypeRows.size() + rig->lobeRows.size());
}
BENCHMARK(BM_GenotypeFloor)->Unit(benchmark::kMicrosecond);

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    Rig theRig;
    rig = &theRig;
    std::printf("genome: %d genes, organ tree %zu nodes, genotype %zu + %zu rows\n", int(theRig.session.GeneCount),
                theRig.organRows.size(), theRig.genotypeRows.size(), theRig.lobeRows.size());

    RatioReporter reporter; // tabular, without colour codes
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.Ratio("BM_LoadToViews", "BM_LoadToViewsFloor");
    reporter.Ratio("BM_LoadToViewsAllShown", "BM_LoadToViewsFloor");
    reporter.Ratio("BM_OrganTree", "BM_OrganTreeFloor");
    reporter.Ratio("BM_Genotype", "BM_GenotypeFloor");
    rig = nullptr;
    benchmark::Shutdown();
    return 0;
}
