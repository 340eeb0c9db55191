#include "editors/EditorBinding.h"

#include "editors/EditorCommon.h"

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QComboBox>
#include <QLineEdit>

#include <memory>

ComboMap ComboMap::Modulo()
{
    ComboMap m;
    m.toItem = [](int value, int count) { return count > 0 ? value % count : -1; };
    return m;
}

ComboMap ComboMap::FoldToLast()
{
    ComboMap m;
    m.toItem = [](int value, int count) { return value < count ? value : count - 1; };
    m.writeBack = true;
    return m;
}

ComboMap ComboMap::NoneFirst(int none)
{
    ComboMap m;
    m.toItem = [none](int value, int) { return value == none ? 0 : value + 1; };
    m.fromItem = [none](int item) { return item <= 0 ? none : item - 1; };
    return m;
}

ComboMap ComboMap::IndexKeepingUnshown()
{
    ComboMap m;
    m.keepUnshown = true;
    return m;
}

void Bindings::Combo(QComboBox *combo, ByteRef field, ComboMap map)
{
    list.push_back({[=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        const int item = map.toItem(*v, combo->count());
                        combo->setCurrentIndex(item >= 0 && item < combo->count() ? item : -1);
                        if (map.writeBack && combo->currentIndex() >= 0)
                            *v = quint8(map.fromItem(combo->currentIndex()));
                    },
                    [=] {
                        quint8 *v = field();
                        if (!v || (map.keepUnshown && combo->currentIndex() < 0))
                            return;
                        *v = quint8(map.fromItem(combo->currentIndex()));
                    }});
}

void Bindings::Slider(QAbstractSlider *slider, ByteRef field)
{
    list.push_back({[=] {
                        if (quint8 *v = field())
                            slider->setValue(*v);
                    },
                    [=] {
                        if (quint8 *v = field())
                            *v = quint8(slider->value());
                    }});
}

void Bindings::Time(TimeSlider *slider, ByteRef field)
{
    list.push_back({[=] {
                        if (quint8 *v = field())
                            slider->SetStoredValue(*v);
                    },
                    [=] {
                        if (quint8 *v = field())
                            *v = quint8(slider->StoredValue());
                    }});
}

void Bindings::Bits(ByteRef field, std::vector<BitButton> buttons, OtherBits others)
{
    quint8 shown = 0;
    for (const BitButton &b : buttons)
        shown |= b.mask;
    list.push_back({[=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        for (const BitButton &b : buttons) {
                            if (*v & b.mask)
                                b.button->setChecked(true);
                            else if (b.whenClear)
                                b.whenClear->setChecked(true);
                            else
                                b.button->setChecked(false);
                        }
                    },
                    [=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        quint8 bits = others == OtherBits::Kept ? quint8(*v & ~shown) : quint8(0);
                        for (const BitButton &b : buttons)
                            if (b.button->isChecked())
                                bits |= b.mask;
                        *v = bits;
                    }});
}

void Bindings::Options(std::vector<QAbstractButton *> options, ByteRef field, int fallback)
{
    list.push_back({[=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        if (*v < options.size())
                            options[*v]->setChecked(true);
                        else if (fallback >= 0 && size_t(fallback) < options.size())
                            options[size_t(fallback)]->setChecked(true);
                    },
                    [=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        *v = 0;
                        for (size_t i = 0; i < options.size(); ++i)
                            if (options[i]->isChecked()) {
                                *v = quint8(i);
                                break;
                            }
                    }});
}

void Bindings::Rate(QAbstractButton *box, QAbstractSlider *slider, ByteRef field, std::vector<QWidget *> alsoEnabled)
{
    QObject::connect(box, &QAbstractButton::toggled, slider, [slider, alsoEnabled](bool on) {
        slider->setEnabled(on);
        for (QWidget *w : alsoEnabled)
            w->setEnabled(on);
    });
    list.push_back({[=] {
                        quint8 *v = field();
                        if (!v)
                            return;
                        // The box is set last: its own event then does the rest of the enabling.
                        const bool on = *v > 0;
                        slider->setValue(on ? *v : 1);
                        slider->setEnabled(on);
                        box->setChecked(on);
                    },
                    [=] {
                        if (quint8 *v = field())
                            *v = box->isChecked() ? quint8(slider->value()) : quint8(0);
                    }});
}

void Bindings::Number(QLineEdit *box, ByteRef field)
{
    list.push_back({[=] {
                        if (quint8 *v = field())
                            box->setText(QString::number(*v));
                    },
                    [=] {
                        if (quint8 *v = field())
                            *v = quint8(ByteBoxValue(box));
                    }});
}

void Bindings::Text(QLineEdit *box, TextRef field, int maxLength)
{
    box->setMaxLength(maxLength);
    list.push_back({[=] {
                        if (QString *s = field())
                            box->setText(*s);
                    },
                    [=] {
                        if (QString *s = field())
                            *s = box->text();
                    }});
}

void Bindings::Step(std::function<void()> show, std::function<void()> store)
{
    list.push_back({std::move(show), std::move(store)});
}

void Bindings::Show() const
{
    for (const Binding &b : list)
        if (b.show)
            b.show();
}

void Bindings::Store() const
{
    for (const Binding &b : list)
        if (b.store)
            b.store();
}

// --- Sliders that keep what they cannot show -------------------------------------------------

void SliderKeepingUnshown(Bindings &bind, QAbstractSlider *slider, ByteRef field)
{
    // Whether the slider has moved or been acted on since it last showed its field.
    auto touched = std::make_shared<bool>(false);
    QObject::connect(slider, &QAbstractSlider::valueChanged, slider, [touched] { *touched = true; });
    QObject::connect(slider, &QAbstractSlider::actionTriggered, slider, [touched] { *touched = true; });
    bind.Step(
        [=] {
            if (quint8 *v = field()) {
                slider->setValue(*v);
                *touched = false;
            }
        },
        [=] {
            quint8 *v = field();
            if (!v)
                return;
            const bool shown = *v >= slider->minimum() && *v <= slider->maximum();
            if (shown || *touched)
                *v = quint8(slider->value());
        });
}
