#pragma once
#include "core/Genotype.h"
#include "widgets/LazyPage.h"

#include <QList>
#include <QStringList>

class Session;
class HelixbenchForm;
class QLabel;
class QTreeWidget;

// The Genotype tab: genes counted by category beside the mutation template, and the brain
// lobes. Recounted by RefreshViews and, when the genome has changed since, on entering the tab.
// Its lists are made when the tab is first shown; a count before that is kept as the rows it
// would have shown.
class GenotypeTab : public LazyPage
{
    Q_OBJECT
public:
    GenotypeTab(Session &session, HelixbenchForm &mainWindow);

    // The main window calls this after it has changed to this tab: recounts under the
    // progress window if SummaryStale is set.
    void EnterTab();
    // Recounts the genome, shows both lists and clears SummaryStale.
    void CountGenotype();
    // Rebuilds both lists and both labels from the counters.
    void ShowGenotype();

    // The counters of the last count; zeroed when a new genome starts.
    Genotype::GenotypeCounts GenotypeCounts;

    QTreeWidget *GenotypeListView = nullptr;
    QLabel *GeneticSummaryLabel = nullptr;
    QTreeWidget *BrainLobeListView = nullptr;
    QLabel *BrainLobeSummaryLabel = nullptr;

protected:
    void BuildPage() override;

private:
    // What the lists and labels show, ready to be put into them.
    struct Shown
    {
        QList<QStringList> categories, lobes;
        QString geneticSummary, lobeSummary;
    };
    void Show(const Shown &shown);
    Shown pending;
    bool hasPending = false;

    Session &session;
    HelixbenchForm &mainWindow;
};
