// The genome's file commands and the two drivers between the image and the gene list.
#include "core/Gene.h"
#include "core/Session.h"
#include "base/FileFault.h"
#include "base/Text.h"
#include "base/SingleByteText.h"

#include <QFile>
#include <QFileInfo>

#include <cmath>

using Text::CRLF;

bool Session::DecodeGenome()
{
    ::GenomeImage &img = GenomeImage;
    for (auto &slot : GeneList)
        slot.reset();
    GeneCount = 0;
    img.CorrectedErrors = 0;
    img.ReadCursor = 0;

    if (CompatibilityMode.WarnsBeforeLoading()) {
        // Fixed texts are single literals, lines joined by CR LF: a load builds nothing for them.
        const int answer = ShowMessage(QStringLiteral("WARNING. Arkenfold 1 compatibility mode is enabled.\r\n"
                                                      "This will allow you to load a Arkenfold 1 genome into\r\n"
                                                      "this application. This WILL CAUSE problems should you\r\n"
                                                      "wish to inject this genome into Arkenfold 2. Are you\r\n"
                                                      "really sure you want to do this?"),
                                       4, QStringLiteral("Compatibility Mode Warning"));
        if (answer != Prompt::Yes)
            return false;
    } else if (img.GetGenomeToken() != "dna2") {
        ShowError(QStringLiteral("This is not a Arkenfold 2 Verdant DNA file."));
        return false;
    }

    const BodyFormat format = LoadFormat();
    for (;;) {
        prompt.Yield();
        if (prompt.ProgressVisible() && img.WriteCursor != 0)
            prompt.ProgressSetValue(int(double(img.ReadCursor) / img.WriteCursor * 90.0));

        const int start = img.ReadCursor;
        GenomeToken token = img.GetGenomeToken();
        if (token == "gend")
            break;
        if (token != "gene") {
            const int answer = ShowMessage(
                QStringLiteral("ERROR. Corrupted genome. Expected 'gene', found") + CRLF + QStringLiteral("'")
                    + SingleByteText::Decode(token.Text())
                    + QStringLiteral("'. Do you wish me to skip the offending gene and") + CRLF
                    + QStringLiteral("attempt to continue anyway? This could result in") + CRLF
                    + QStringLiteral("a bad genome."),
                4, QStringLiteral("Gene #") + QString::number(GeneCount) + QStringLiteral(" is corrupted"));
            if (answer != Prompt::Yes)
                return false;
            const std::optional<GenomeToken> found = img.ResyncGenome(start);
            if (!found) {
                ShowError(QStringLiteral("Unable to lock onto valid data. Operation aborted."));
                return false;
            }
            token = *found;
            if (token == "gend")
                break;
        }

        const quint8 type = img.GetGenomeByte(0, 3);
        const quint8 subType = img.GetGenomeByte(0, 255);
        if (!IsValidGeneKind(type, subType)) {
            ShowError(QStringLiteral("Invalid Genome. Sub-type ") + QString::number(subType)
                      + QStringLiteral("is not a valid") + CRLF + QStringLiteral("sub type for gene type ")
                      + QString::number(type));
            return false;
        }
        if (!CreateGene(type, subType, false)) {
            ShowError(QStringLiteral("Can't create gene number #") + QString::number(GeneCount) + QStringLiteral("."));
            return false;
        }
        Gene *g = GeneList[size_t(GeneCount - 1)].get();
        {
            BodyReader header(img, format);
            g->Header(header, Gene::HeaderFields::Rest);
        }
        g->SetMembers();
    }

    if (img.CorrectedErrors != 0)
        ShowInfo(Text::Str(img.CorrectedErrors) + QStringLiteral(" genetic error(s) were corrected automatically"));
    return true;
}

void Session::EncodeGenome()
{
    if (GeneCount == 0)
        return;
    if (CompatibilityMode.SwitchesOffOnEncode()) {
        ShowInfo(QStringLiteral("This genome has been converted to Arkenfold 2 format.\r\n"
                                "I have to switch compatibility mode off. Use\r\n"
                                "'Advanced Options' to switch it back on."));
        CompatibilityMode = QStringLiteral("0");
    }
    ::GenomeImage &img = GenomeImage;
    img.WriteCursor = 0;
    img.PutGenomeToken("dna2");
    for (int i = 0; i < GeneCount; ++i) {
        GeneList[size_t(i)]->GetMembers();
        if (img.WriteCursor > ::GenomeImage::PickleLimit) {
            const int answer = ShowMessage(QStringLiteral("A bad situation has occurred. Out of genome RAM\r\n"
                                                          "whilst storing genome. Continuing with this operation\r\n"
                                                          "is likely to cause the Helixbench to crash. Click\r\n"
                                                          "'YES' if you'd like to try anyway."),
                                           4, QStringLiteral("Now we're pickled"));
            if (answer != Prompt::Yes)
                break;
        }
    }
    img.PutGenomeToken("gend");
}

void Session::ClearGeneList()
{
    for (int i = 0; i < GeneCount; ++i)
        GeneList[size_t(i)].reset();
    CaptionStore.CaptionCount = 0;
    GeneCount = 0;
    GenomeImage.WriteCursor = 0;
}

bool Session::AbandonGenome()
{
    if (GeneCount > 1) {
        if (ShowMessage(QStringLiteral("This operation will abandon the existing genome. Sure?"), 35) != Prompt::Yes)
            return false;
    }
    for (int i = 0; i < GeneCount; ++i) {
        Gene *g = GeneList[size_t(i)].get();
        if (g && g->IsOpen && g->View)
            g->View->RequestClose();
        if (g && g->IsOpen) // a view that did not close by itself still ends here
            g->CloseView();
    }
    for (int i = 0; i < GeneCount; ++i)
        GeneList[size_t(i)].reset();
    CaptionStore.CaptionCount = 0;
    GeneCount = 0;
    GenomeImage.WriteCursor = 0;
    emit GenomeWindowsMustClose();
    return true;
}

QString Session::GenomeDialogFolder()
{
    if (!LastGenomeDirectory.isEmpty())
        return LastGenomeDirectory;
    const QString folder = ReadGameSetting(QStringLiteral("Genetics Directory"));
    if (folder == ErrorMark) {
        ShowError(QStringLiteral("Error reading registry key -- defaulting") + CRLF + QStringLiteral("to current directory."));
        return AppDirectory;
    }
    return NormalisePath(folder);
}

namespace {
// The folder part of a chosen file name, with its trailing separator; empty if the name
// has no file title.
bool SplitChosenName(const QString &name, QString &folder)
{
    if (name.isEmpty() || name == QLatin1String("*.gen"))
        return false;
    const int slash = name.lastIndexOf(QLatin1Char('/'));
    if (slash == name.size() - 1)
        return false;
    folder = name.left(slash + 1);
    return true;
}
} // namespace

bool Session::LoadGenome()
{
    if (!AbandonGenome())
        return false;
    RefreshViews();
    ShowGenomeSpace(false);
    ShowGenomeName(QStringLiteral("No genome loaded"));

    const QString folder = GenomeDialogFolder();
    const QString name = prompt.OpenFileName(QStringLiteral("Open Genome File"), folder,
                                             GenomeFilter, QStringLiteral("gen"));
    QString chosenFolder;
    if (!SplitChosenName(name, chosenFolder))
        return false;
    LastGenomeDirectory = chosenFolder;
    return LoadGenomeFile(name);
}

bool Session::LoadGenomeFile(const QString &name)
{
    const QFileInfo info(name);
    if (!info.exists()) {
        ShowError(QStringLiteral("Can't find file '") + name + QStringLiteral("'"));
        return false;
    }
    if (info.size() > ::GenomeImage::Size) {
        ShowError(QStringLiteral("File exceeds maximum length for genome (") + QStringLiteral("36000")
                  + QStringLiteral(" bytes)") + CRLF + QStringLiteral("Operation aborted"));
        return false;
    }
    QFile file(name);
    QByteArray content;
    if (file.open(QIODevice::ReadOnly))
        content = file.read(::GenomeImage::Size + 1);
    if (!file.isOpen() || file.error() != QFileDevice::NoError || content.size() > ::GenomeImage::Size) {
        ShowError(QStringLiteral("Can't read file '") + name + QStringLiteral("'") + CRLF + file.errorString());
        ShowGenomeName(QStringLiteral("No genome loaded"));
        ShowGenomeSpace(false);
        return false;
    }
    // A shorter file fills only its own length; the rest of the image keeps its bytes.
    std::copy(content.cbegin(), content.cend(), reinterpret_cast<char *>(GenomeImage.Bytes.data()));

    prompt.ProgressLoad(QStringLiteral("Please Wait"));
    prompt.ProgressSetValue(0);
    prompt.ProgressShow();
    SetStatusPanel(1, QStringLiteral("Processing.."));

    int last = ::GenomeImage::ReadLimit - 1;
    while (last >= 0 && GenomeImage.Bytes[size_t(last)] == 0)
        --last;
    GenomeImage.WriteCursor = last + 1;

    if (!DecodeGenome()) {
        ClearGeneList();
        prompt.ProgressUnload();
        ShowGenomeName(QStringLiteral("No genome loaded"));
        ShowGenomeSpace(false);
        return false;
    }
    if (UseDefaultCaptions.Forced()) {
        SetStatusPanel(2, QStringLiteral("(FORCING DEFAULT CAPTIONS)"));
        CaptionStore.LoadDefaultCaptions();
    } else {
        SetStatusPanel(2, QStringLiteral("(Normal Captions)"));
        CaptionStore.LoadUniqueCaptions(name);
    }
    if (prompt.ProgressVisible()) {
        prompt.ProgressSetValue(0);
        prompt.Yield();
        prompt.Yield();
    }
    RefreshViews();
    prompt.ProgressUnload();
    ShowGenomeName(name);
    ShowGenomeSpace(false);
    return true;
}

void Session::SaveGenomeAs()
{
    if (GeneCount == 0) {
        ShowError(QStringLiteral("No genome to save!"));
        return;
    }
    const QString folder = GenomeDialogFolder();
    const QString name = prompt.SaveFileName(QStringLiteral("Save Genome File As"), folder,
                                             GenomeFilter, QStringLiteral("gen"));
    QString chosenFolder;
    if (!SplitChosenName(name, chosenFolder))
        return;
    LastGenomeDirectory = chosenFolder;
    SaveGenomeFile(name);
}

Session::ImageWrite Session::WriteImageFile(const QString &path, QString *errorText)
{
    // Put in place of the target only when whole: a failed save leaves the old file whole.
    // The file is the image and nothing more, whatever stood there before, so that a saved
    // genome always loads again.
    const QByteArray bytes(reinterpret_cast<const char *>(GenomeImage.Bytes.data()), ::GenomeImage::Size);
    FileFault fault;
    switch (SmallFiles::ReplaceFile(path, bytes, fault, errorText)) {
    case SmallFiles::Replaced::NotOpened: return ImageWrite::OpenFailed;
    case SmallFiles::Replaced::NotWritten: return ImageWrite::WriteFailed;
    case SmallFiles::Replaced::Done: break;
    }
    return ImageWrite::Written;
}

bool Session::SaveGenomeFile(const QString &name)
{
    EncodeGenome();
    QString error;
    switch (WriteImageFile(name, &error)) {
    case ImageWrite::OpenFailed:
        ShowInfo(QStringLiteral("Error opening file:") + CRLF + name);
        return false;
    case ImageWrite::WriteFailed:
        ShowInfo(QStringLiteral("Error writing file:") + CRLF + name + CRLF + error);
        return false;
    case ImageWrite::Written:
        break;
    }
    if (!UseDefaultCaptions.Forced()) {
        SetStatusPanel(2, QStringLiteral("(Normal Captions)"));
        CaptionStore.SaveUniqueCaptions(name);
    } else {
        SetStatusPanel(2, QStringLiteral("(FORCING DEFAULT CAPTIONS)"));
        CaptionStore.SaveDefaultCaptions();
    }
    Lists.SavePoseList();
    Lists.SaveChemicalList();
    ShowGenomeName(name);
    ShowGenomeSpace(false);
    return true;
}

void Session::NewGenome()
{
    std::unique_ptr<Gene> species(MakeGene(*this, GeneKind::Species));
    Gene *g = species.get();
    GeneList[0] = std::move(species);
    GeneCount = 1;
    g->Generation = 0;
    g->GeneType = 2;
    g->GeneSubType = 1;
    g->ID = quint8(qMax(0, SpareGeneID(2, 1)));
    CaptionStore.SetCaption(2, 1, g->ID, QStringLiteral("001 Header Gene"));
    g->OpenView();
    emit GenotypeCountersReset();
    RefreshViews();
    SetStatusPanel(1, QStringLiteral("Un-named Genome"));
}

void Session::ShowGenomeName(const QString &text)
{
    SetStatusPanel(1, text.size() > 20 ? QStringLiteral("...") + text.right(20) : text);
}

void Session::ShowGenomeSpace(bool reencode)
{
    if (reencode)
        EncodeGenome();
    const long long used = Text::RoundHalfEven(100.0 * GenomeImage.WriteCursor / 36000.0);
    SetStatusPanel(2, QString::number(100 - used) + QStringLiteral("% genome space remaining"));
}
