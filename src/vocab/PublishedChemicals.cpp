#include "vocab/PublishedChemicals.h"

#include "base/SingleByteText.h"

namespace PublishedChemicals {

QByteArray AllChemicalsFile(const NameLists &lists)
{
    QByteArray bytes;
    bytes.append(char(Count & 0xFF));
    bytes.append(char(Count >> 8));
    for (int i = 0; i < Count; ++i) {
        const QByteArray name = SingleByteText::Encode(lists.ChemicalNames[size_t(i)]).left(MaxNameBytes);
        bytes.append(char(name.size()));
        bytes.append(name);
    }
    return bytes;
}

QString ChemicalTable(const NameLists &lists)
{
    QString text;
    const QChar tab(u'\t');
    for (int i = 1; i < Count; ++i)
        text += QString::number(i) + tab + lists.ChemicalNames[size_t(i)] + tab + lists.ChemicalCaptions[size_t(i)]
                + QChar(u'\n');
    return text;
}

} // namespace PublishedChemicals
