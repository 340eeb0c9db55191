#pragma once
#include "base/Messages.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <array>


// How many genes of each category a standard genome has. Rows 0 to 13 follow the rows of
// the genotype categories; rows 14 to 40 mean nothing, are 0 and travel through the file.
// The file mutations.txt holds the 41 numbers as 4-byte little-endian integers (164
// bytes), in spite of its name.
class MutationTemplate
{
public:
    static constexpr int Rows = 41;
    static constexpr int PresetRows = 14;
    // The template reports through messages; mutations.txt lies in appDirectory.
    MutationTemplate(UserMessages &messages, const QString &appDirectory);

    std::array<qint32, Rows> DefaultGeneCounts{};

    // Fills the array from mutations.txt in the program's folder, or writes the file when
    // there is none. A file that can't be read is reported and written anew.
    void LoadDefaultTemplate();
    // Writes the array over the front of mutations.txt; reports a failure.
    bool SaveDefaultTemplate();

    // Rows 0 to 13 back to their presets.
    void SetPresets();
    // The file's bytes for the array as it stands.
    QByteArray Encode() const;
    // Fills rows from the front of bytes, as many whole numbers as they hold (at most 41);
    // gives the number of rows filled.
    int Decode(const QByteArray &bytes);

private:
    QString FilePath() const;
    bool EnterAppDirectory() const;

    UserMessages &messages;
    const QString &appDirectory;
};
