#pragma once
#include "base/Messages.h"
#include "core/BodyIO.h"
#include "core/GeneView.h"
#include "core/GenomeImage.h"
#include "core/Preferences.h"
#include "vocab/CaptionStore.h"
#include "vocab/MutationTemplate.h"
#include "vocab/NameLists.h"
#include "vocab/ReferenceTables.h"

#include <QObject>
#include <QString>
#include <array>
#include <memory>

class Gene;

// Everything that exists once per run: the genome in both its forms, the vocabularies,
// the preferences and the shared flags. The windows hear of changes through its signals;
// it speaks to the user only through its Prompt.
class Session : public QObject, public UserMessages
{
    Q_OBJECT
public:
    static constexpr int MaxGenes = 900;
    static constexpr int GeneSlots = 901;
    static const QString ErrorMark;        // "<<ERROR>>"
    static const QString GenomeFilter;     // "Verdant DNA (*.gen)"

    explicit Session(Prompt &prompt, QObject *parent = nullptr);
    ~Session() override;

    // The gene objects in file order; slot i holds the gene whose Numeric_ID is i.
    std::array<std::unique_ptr<Gene>, GeneSlots> GeneList;
    qint16 GeneCount = 0;
    Gene *GeneAt(int index) const { return index >= 0 && index < GeneCount ? GeneList[size_t(index)].get() : nullptr; }

    // Preferences and paths.
    QString AppDirectory;
    QString LastGenomeDirectory;
    DefaultCaptionsSetting UseDefaultCaptions;
    CompatibilitySetting CompatibilityMode;
    QString RegistryCompany = QStringLiteral("Kelmoth Technology");
    QString RegistryProduct = QStringLiteral("Arkenfold 2");
    QString RegistryVersion = QStringLiteral("1.0");
    QString HelpFile;

    // Shared flags.
    bool QuitConfirm = false;
    qint16 EditorCount = 0;
    bool SummaryStale = false, OrganViewStale = false;
    qint16 PlacementStep = 999;
    bool NotesAccepted = false;
    QString NotesText;
    QString MacroResult;
    qint32 LayEggOffset = 0;

    // The editors layer sets this; OpenView uses it to create a gene's editor.
    GeneViewFactory EditorFactory;

    // What the status bar panels (1..3) and the main title show.
    QString StatusPanel[4];
    QString MainTitle;

    // --- status and title -------------------------------------------------------------
    void SetStatusPanel(int panel, const QString &text);
    void SetMainTitle(const QString &text);

    // --- genome file and codec ---------------------------------------------------------
    bool DecodeGenome();
    // The layout a load reads, as the compatibility setting asks.
    BodyFormat LoadFormat() const
    {
        return {CompatibilityMode.ReadsOlderGenes(), CompatibilityMode.ReadsOlderAppearance()};
    }
    void EncodeGenome();
    void ClearGeneList();
    bool AbandonGenome();
    bool LoadGenome();
    // Reads a file into the image and decodes it (the part of LoadGenome after the dialog).
    bool LoadGenomeFile(const QString &fileName);
    void SaveGenomeAs();
    // Encodes and writes the genome to fileName, then its captions and the lists.
    bool SaveGenomeFile(const QString &fileName);
    // Writes the image as it stands to path, aside and renamed into place, without messages.
    enum class ImageWrite { Written, OpenFailed, WriteFailed };
    ImageWrite WriteImageFile(const QString &path, QString *errorText = nullptr);
    void NewGenome();
    void ShowGenomeName(const QString &text);
    void ShowGenomeSpace(bool reencode);
    // Folder the genome file dialogs start in.
    QString GenomeDialogFolder();

    // --- genes --------------------------------------------------------------------------
    bool CreateGene(quint8 type, quint8 subType, bool interactive);
    int SpareGeneID(quint8 type, quint8 subType);
    void CloseAllViews();
    QString CheckMoniker(const QString &moniker, const QString &side);
    void CountEditorWindow(Gene *gene);
    // Announce changes to the windows.
    void RefreshViews();
    void RefreshGeneRow(int numericId);

    // --- settings -----------------------------------------------------------------------
    void LoadSettings();
    bool SaveSettings();
    QString ReadGameSetting(const QString &name);
    static QString NormalisePath(const QString &text);
    // The first-run welcome: shown once, then "Installed" is "yes".
    void WelcomeFirstRun();

    // --- vocabularies ---------------------------------------------------------------------
    void BuildReferenceTables();
    // The Genus of the genome's first gene (a genus or appearance gene), else -1.
    int HeadGenus() const;

    // Owned vocabularies (declared last: their type names are the member names).
    ::GenomeImage GenomeImage;
    ::ReferenceTables Tables;
    ::CaptionStore CaptionStore{*this, AppDirectory, Tables.SpeciesNames, [this] { return HeadGenus(); },
                                [this](const QString &note) { SetStatusPanel(2, note); }};
    ::NameLists Lists{*this, AppDirectory};
    ::MutationTemplate Template{*this, AppDirectory};

signals:
    void ViewsRefreshRequested();
    void GeneRowChanged(int numericId);
    void StatusPanelChanged(int panel, const QString &text);
    void MainTitleChanged(const QString &title);
    // The chromosome map and the new-gene dialog must close (a genome was abandoned).
    void GenomeWindowsMustClose();
    // The genotype summary's per-kind counters start again from 0 (a new genome).
    void GenotypeCountersReset();
    // Start-up, once the lists are loaded: fill the chemical and pose views with their counts.
    void ListViewsMustFill();
    // Start-up, right after: fill the script view and its label and the egg controls.
    void ExportViewsMustFill();
};
