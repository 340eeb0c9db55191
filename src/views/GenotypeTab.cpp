#include "views/GenotypeTab.h"

#include "widgets/ColumnFit.h"

#include "core/Session.h"
#include "views/HelixbenchForm.h"

#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// A report list: columns with headers, whole-row selection, no sorting.
QTreeWidget *MakeReportList(QWidget *parent, const char *name, const QStringList &headers)
{
    auto *list = new QTreeWidget(parent);
    list->setObjectName(QString::fromLatin1(name));
    list->setColumnCount(int(headers.size()));
    list->setHeaderLabels(headers);
    list->setRootIsDecorated(false);
    list->setItemsExpandable(false);
    list->setUniformRowHeights(true);
    list->setSortingEnabled(false);
    list->setAllColumnsShowFocus(true);
    list->setSelectionBehavior(QAbstractItemView::SelectRows);
    list->setSelectionMode(QAbstractItemView::SingleSelection);
    ColumnFit::Install(list);
    return list;
}

// Replaces all rows of a report list in one batch.
void FillRows(QTreeWidget *list, const QList<QStringList> &rows)
{
    list->setUpdatesEnabled(false);
    list->clear();
    QList<QTreeWidgetItem *> items;
    items.reserve(rows.size());
    for (const QStringList &row : rows)
        items.append(new QTreeWidgetItem(row));
    list->addTopLevelItems(items);
    list->setUpdatesEnabled(true);
}

} // namespace

GenotypeTab::GenotypeTab(Session &s, HelixbenchForm &w) : session(s), mainWindow(w)
{
    connect(&session, &Session::ViewsRefreshRequested, this, [this] { CountGenotype(); });
    connect(&session, &Session::GenotypeCountersReset, this, [this] { GenotypeCounts.Reset(); });
}

void GenotypeTab::BuildPage()
{
    auto *layout = new QVBoxLayout(this);

    auto *frame1 = new QGroupBox(QStringLiteral("Genetic Breakdown"), this);
    frame1->setObjectName(QStringLiteral("GT_frame1"));
    auto *inner1 = new QVBoxLayout(frame1);
    GenotypeListView = MakeReportList(frame1, "GenotypeListView",
                                      {QStringLiteral("Type"), QStringLiteral("Total Present"),
                                       QStringLiteral("Mutations from template")});
    GenotypeListView->header()->resizeSection(0, 260);
    GeneticSummaryLabel = new QLabel(QStringLiteral("No Genome Loaded"), frame1);
    GeneticSummaryLabel->setObjectName(QStringLiteral("GeneticSummaryLabel"));
    inner1->addWidget(GenotypeListView, 1);
    inner1->addWidget(GeneticSummaryLabel);

    auto *frame2 = new QGroupBox(QStringLiteral("Brain"), this);
    frame2->setObjectName(QStringLiteral("GT_frame2"));
    auto *inner2 = new QVBoxLayout(frame2);
    BrainLobeListView = MakeReportList(frame2, "BrainLobeListView",
                                       {QStringLiteral("Lobe #"), QStringLiteral("Name"), QStringLiteral("Width"),
                                        QStringLiteral("Height"), QStringLiteral("Neurones"),
                                        QStringLiteral("State Rule")});
    BrainLobeListView->header()->resizeSection(1, 220);
    BrainLobeSummaryLabel = new QLabel(QStringLiteral("No Genome Loaded"), frame2);
    BrainLobeSummaryLabel->setObjectName(QStringLiteral("BrainLobeSummaryLabel"));
    inner2->addWidget(BrainLobeListView, 1);
    inner2->addWidget(BrainLobeSummaryLabel);

    // The two frames share the height equally.
    layout->addWidget(frame1, 1);
    layout->addWidget(frame2, 1);

    if (hasPending)
        Show(pending);
    pending = Shown();
    hasPending = false;
}

void GenotypeTab::CountGenotype()
{
    Genotype::CountGenome(session, GenotypeCounts);
    ShowGenotype();
    session.SummaryStale = false;
}

void GenotypeTab::ShowGenotype()
{
    // The texts are taken now, from the genome, captions and template as they stand, also
    // when the lists do not exist yet.
    const Genotype::LobeTable lobes = Genotype::LobeRows(session);
    Shown shown{Genotype::CategoryRows(session, GenotypeCounts), lobes.rows,
                Genotype::GeneticSummaryText(session.GeneCount),
                Genotype::BrainLobeSummaryText(lobes.neurones, lobes.lobes)};
    if (IsBuilt()) {
        Show(shown);
    } else {
        pending = std::move(shown);
        hasPending = true;
    }
}

void GenotypeTab::Show(const Shown &shown)
{
    FillRows(GenotypeListView, shown.categories);
    GeneticSummaryLabel->setText(shown.geneticSummary);
    FillRows(BrainLobeListView, shown.lobes);
    BrainLobeSummaryLabel->setText(shown.lobeSummary);
}

void GenotypeTab::EnterTab()
{
    if (!session.SummaryStale)
        return;
    Prompt &prompt = session.prompt;
    prompt.ProgressLoad(QStringLiteral("Updating genetic summary..."));
    prompt.ProgressShow();
    CountGenotype();
    if (prompt.ProgressVisible())
        prompt.ProgressSetValue(100);
    prompt.ProgressUnload();
}
