#pragma once
// Controls that the reaction, half-life and initial concentration editors share: a chemical
// combo of editor size, and a time slider with captions spread along it.
#include <QString>

#include <initializer_list>

class ChemicalCombo;
class QComboBox;
class QWidget;
class Session;
class TimeSlider;

// A combo of the 256 chemicals under its control name, as wide as the longest chemical name
// within limits.
ChemicalCombo *MakeChemicalCombo(Session &session, QWidget *parent, const QString &name);

// The slider with a row of captions beneath it: the first at its left end, the last at its
// right end, any between them spaced evenly.
QWidget *CaptionedTimeSlider(TimeSlider *slider, std::initializer_list<const char *> captions);
