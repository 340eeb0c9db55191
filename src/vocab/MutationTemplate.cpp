#include "vocab/MutationTemplate.h"

#include "base/FileFault.h"
#include "base/FileNames.h"
#include "base/Text.h"

#include <QDir>
#include <QFileInfo>

namespace {
const QString TemplateFile = QStringLiteral("mutations.txt");
constexpr int FileBytes = MutationTemplate::Rows * 4;
}

MutationTemplate::MutationTemplate(UserMessages &messages, const QString &appDirectory)
    : messages(messages), appDirectory(appDirectory)
{
    SetPresets();
}

void MutationTemplate::SetPresets()
{
    const qint32 presets[PresetRows] = {27, 43, 59, 8, 26, 4, 104, 19, 8, 12, 0, 8, 12, 0};
    for (int i = 0; i < PresetRows; ++i)
        DefaultGeneCounts[size_t(i)] = presets[i];
}

QByteArray MutationTemplate::Encode() const
{
    QByteArray bytes;
    bytes.reserve(FileBytes);
    for (qint32 v : DefaultGeneCounts) {
        const quint32 u = quint32(v);
        for (int shift = 0; shift < 32; shift += 8)
            bytes.append(char((u >> shift) & 0xFF));
    }
    return bytes;
}

int MutationTemplate::Decode(const QByteArray &bytes)
{
    const int rows = int(qMin<qsizetype>(bytes.size() / 4, Rows));
    for (int r = 0; r < rows; ++r) {
        quint32 u = 0;
        for (int b = 0; b < 4; ++b)
            u |= quint32(quint8(bytes[r * 4 + b])) << (8 * b);
        DefaultGeneCounts[size_t(r)] = qint32(u);
    }
    return rows;
}

QString MutationTemplate::FilePath() const
{
    QString folder = appDirectory;
    if (folder.isEmpty())
        folder = QDir::currentPath();
    return ResolveFileName(folder, TemplateFile);
}

bool MutationTemplate::EnterAppDirectory() const
{
    return appDirectory.isEmpty() || QDir::setCurrent(appDirectory);
}

void MutationTemplate::LoadDefaultTemplate()
{
    bool failed = !EnterAppDirectory();
    if (!failed) {
        const QString path = FilePath();
        if (QFileInfo::exists(path)) {
            QByteArray bytes;
            FileFault fault;
            // A file that can't be read, or ends before its last number, keeps what was read.
            failed = !SmallFiles::ReadFront(path, FileBytes, bytes, fault) || Decode(bytes) < Rows;
        } else {
            SaveDefaultTemplate(); // reports its own failure
        }
    }
    if (failed) {
        messages.ShowError(
            QStringLiteral("An error occurred loading an internal file. I shall now attempt to correct this."));
        SaveDefaultTemplate();
    }
}

bool MutationTemplate::SaveDefaultTemplate()
{
    FileFault fault;
    if (!EnterAppDirectory()) {
        fault = FileFault::AtPath(FileFault::PathNotFound, appDirectory);
    } else if (SmallFiles::WriteOverFront(FilePath(), Encode(), fault)) {
        return true;
    }
    messages.ShowFault(fault.Number, fault.Description,
                      QStringLiteral("An error occured saving the default mutation values.") + Text::CRLF
                          + QStringLiteral("It is recommended you quit and restart the Helixbench."));
    return false;
}
