#pragma once
// Bindings between an editor's controls and the fields of the gene it shows. Each binding
// knows how to show its field in its control(s) and how to store the control back; a list
// of them shows every field in the order bound and stores every field the same way, so
// each field of a kind is copied by one line.
#include <QString>
#include <QtGlobal>

#include <functional>
#include <vector>

class QAbstractButton;
class QAbstractSlider;
class QComboBox;
class QLineEdit;
class QWidget;
class TimeSlider;

// Where a bound field lives in the gene being edited. It is asked anew each time, since the
// gene is known only once the editor shows it; null means there is no gene to copy.
using ByteRef = std::function<quint8 *()>;
using TextRef = std::function<QString *()>;

// How a combo shows a stored byte and which byte its selection stores.
struct ComboMap
{
    // The item to select for a stored value, given the number of items. An item outside the
    // list selects nothing.
    std::function<int(int value, int count)> toItem = [](int value, int) { return value; };
    // The value a selected item stores. Nothing selected comes as item -1.
    std::function<int(int item)> fromItem = [](int item) { return qMax(0, item); };
    // Showing writes the value of the selected item back into the gene at once: a stored
    // value that the list cannot show is corrected on opening, even if the editor is then
    // cancelled.
    bool writeBack = false;
    // With nothing selected (a stored value the list has no item for, and the user has picked
    // none), storing leaves the gene's value as it is instead of storing fromItem(-1).
    bool keepUnshown = false;

    // The item index is the value. A value beyond the list selects nothing; nothing selected
    // stores 0.
    static ComboMap Index() { return {}; }
    // The value modulo the number of items.
    static ComboMap Modulo();
    // A value beyond the list shows the last item, and the gene takes that value.
    static ComboMap FoldToLast();
    // Item 0 stands for the value none (e.g. "<none>" for 255); item n is the value n - 1.
    static ComboMap NoneFirst(int none = 255);
    // The item index is the value; a value beyond the list selects nothing and is kept.
    static ComboMap IndexKeepingUnshown();
};

// One button of a bit field: checked when the bit of mask is set. A pair of options that
// share a bit names the option to select when the bit is clear in whenClear (an option in an
// exclusive group cannot simply be unchecked).
struct BitButton
{
    QAbstractButton *button;
    quint8 mask;
    QAbstractButton *whenClear = nullptr;
};

class Bindings
{
public:
    // An option group whose selected index is the value. A value with no option selects the
    // option fallback, or with KeepSelection leaves the group as it stands. Storing gives the
    // index of the first selected option, 0 if none is.
    static constexpr int KeepSelection = -1;
    // What storing a bit field does with the bits that no button shows.
    enum class OtherBits { Lost, Kept };

    // Combo item <-> byte, by the map (the item index by default).
    void Combo(QComboBox *combo, ByteRef field, ComboMap map = ComboMap::Index());
    // Slider (or scroll bar) value <-> byte. A value outside the range shows at its end.
    void Slider(QAbstractSlider *slider, ByteRef field);
    // Time slider position <-> byte: position = byte / 8 rounded half to even; stores position * 8.
    void Time(TimeSlider *slider, ByteRef field);
    // Check boxes (or options) <-> bits of one byte, shown in the order given.
    void Bits(ByteRef field, std::vector<BitButton> buttons, OtherBits others = OtherBits::Lost);
    // Option i selected <-> value i.
    void Options(std::vector<QAbstractButton *> options, ByteRef field, int fallback = KeepSelection);
    // An optional rate: 0 means none. A rate above 0 puts the slider there, enables it and
    // checks the box; 0 parks the slider at 1, disables it and unchecks the box. Stores the
    // slider if the box is checked, else 0. The box's own toggling enables or disables the
    // slider and the controls in alsoEnabled (rule button, label) from the start.
    void Rate(QAbstractButton *box, QAbstractSlider *slider, ByteRef field,
              std::vector<QWidget *> alsoEnabled = {});
    // Number box <-> byte: the value in decimal; stores the box's number clamped to 0..255.
    void Number(QLineEdit *box, ByteRef field);
    // Text box <-> string of at most maxLength characters (the box's limit).
    void Text(QLineEdit *box, TextRef field, int maxLength);
    // Code of the editor's own that runs at this place in the order: show when the controls
    // are filled, store (if given) when they are read. For lists that refill others, labels
    // that show a rule, folding on opening.
    void Step(std::function<void()> show, std::function<void()> store = {});

    // Fills every bound control from its field, in the order bound.
    void Show() const;
    // Reads every bound control into its field, in the order bound.
    void Store() const;

    int Count() const { return int(list.size()); }

private:
    struct Binding
    {
        std::function<void()> show, store;
    };
    std::vector<Binding> list;
};

// --- Sliders that keep what they cannot show -------------------------------------------------
// Slider value <-> byte, like Bindings::Slider, except that a stored value outside the
// slider's range (shown at the nearer end) is kept on storing until the slider is moved or
// acted on (an arrow, a key, a click in the trough, even at its end).
void SliderKeepingUnshown(Bindings &bind, QAbstractSlider *slider, ByteRef field);
