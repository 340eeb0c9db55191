#pragma once
#include "core/Genotype.h"

#include <QWidget>

class Session;
class HelixbenchForm;
class QLabel;
class QTreeWidget;

// The Genotype tab: genes counted by category beside the mutation template, and the brain
// lobes. Recounted by RefreshViews and, when the genome has changed since, on entering the tab.
class GenotypeTab : public QWidget
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

private:
    Session &session;
    HelixbenchForm &mainWindow;
};
