#pragma once
#include "base/Text.h"

#include <QString>

// A preference that the store keeps as text ("0", "1", or whatever a hand-edited file holds).
// The text is written back exactly as it was read; each step that looks at it asks the
// question it needs, and the names below say which question that is.
class StoredSwitch
{
public:
    StoredSwitch(const QString &text = QStringLiteral("0"))
        : text(text), exactlyOne(text == QLatin1String("1")), notExactlyZero(text != QLatin1String("0")) {}
    StoredSwitch(const char *text) : StoredSwitch(QString::fromLatin1(text)) {}

    const QString &Text() const { return text; }
    bool operator==(const QString &other) const { return text == other; }
    bool operator!=(const QString &other) const { return text != other; }

    // What a check box shows for it: the number the text begins with, rounded half to even,
    // is odd ("1", "3", " 1.2"; not "0", "2", "", "yes").
    bool Checked() const { return Text::RoundHalfEven(Text::Val(text)) % 2 != 0; }
    // What a check box stores.
    static QString FromCheckBox(bool on) { return on ? QStringLiteral("1") : QStringLiteral("0"); }

protected:
    // Worked out once, as the text is set: a load asks them for every gene.
    bool IsExactlyOne() const { return exactlyOne; }
    bool IsNotExactlyZero() const { return notExactlyZero; }

private:
    QString text;
    bool exactlyOne;
    bool notExactlyZero;
};

// "Compatibility": genomes of the first game. Two steps look only for "1", two for
// anything that is not "0".
class CompatibilitySetting : public StoredSwitch
{
public:
    using StoredSwitch::StoredSwitch;

    // "1": a load warns and asks before it goes on, and does not look for the magic.
    bool WarnsBeforeLoading() const { return IsExactlyOne(); }
    // "1": an appearance gene is read in the older two-byte layout, without its Genus.
    bool ReadsOlderAppearance() const { return IsExactlyOne(); }
    // Not "0": rules are read as 8 bytes and the header carries no mutability weighting.
    bool ReadsOlderGenes() const { return IsNotExactlyZero(); }
    // Not "0": an encode tells the user the genome was converted and switches the setting off.
    bool SwitchesOffOnEncode() const { return IsNotExactlyZero(); }
};

// "Use Default Captions": only "1" makes loads and saves use the species' default captions.
class DefaultCaptionsSetting : public StoredSwitch
{
public:
    using StoredSwitch::StoredSwitch;

    bool Forced() const { return IsExactlyOne(); }
};
