// What the editor tests share: a fresh session per case with the editors registered on a
// main window, a prompt that fails on anything unexpected, lookups of controls by name, a
// driver for the modal dialogs an editor opens, controls set by name as a user sets them,
// and a gene's body set and read as bytes.
#pragma once
#include "core/Gene.h"
#include "core/GenomeImage.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "editors/GeneEditor.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

template <typename T> T *Child(QWidget *w, const QString &name)
{
    T *c = w ? w->findChild<T *>(name) : nullptr;
    if (!c)
        qWarning("no control %s", qPrintable(name));
    return c;
}

inline void FlushDeletes() { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

// Once the event loop runs (inside the dialog's exec), hands the modal dialog of type D to act.
template <typename D, typename F> void WhenModal(bool *seen, F act)
{
    *seen = false;
    QTimer::singleShot(0, [seen, act] {
        if (auto *d = qobject_cast<D *>(QApplication::activeModalWidget())) {
            act(d);
            *seen = true;
        }
    });
}

struct EditorTestKit
{
    std::unique_ptr<SettingsSandbox> sandbox;
    ScriptedPrompt prompt;
    std::unique_ptr<Session> session;
    std::unique_ptr<QWidget> mainWindow;

    void Init()
    {
        FreshSession(sandbox, prompt, session);
        session->Tables.Build();
        mainWindow.reset(new QWidget);
        mainWindow->resize(300, 200);
        mainWindow->move(40, 30);
        RegisterEditors(*session, mainWindow.get());
    }
    void Cleanup()
    {
        session->CloseAllViews();
        FlushDeletes();
        session.reset();
        mainWindow.reset();
        QVERIFY(prompt.AllAnswered());
    }
    // Appends a gene of the kind with the ID of its count, captioned if a caption is given.
    Gene *Add(int type, int subType, const QString &caption = QString())
    {
        if (!session->CreateGene(quint8(type), quint8(subType), false))
            return nullptr;
        Gene *g = session->GeneAt(session->GeneCount - 1);
        g->ID = quint8(session->GeneCount);
        if (!caption.isNull())
            session->CaptionStore.SetCaption(type, subType, g->ID, caption);
        return g;
    }
    // Sets controls of a dialog as a user would, in order, each entry "name=value", or just "name" to
    // read it: a combo's item, a slider's value, a box's text, a check box or option 1 or 0. Tells for
    // each "name:before>after", what the control showed and shows once set (a combo its item's text,
    // or in brackets the grey text standing in for a value its list has no item for), and the
    // read-out the change left on the status bar, if any.
    QString Enter(QWidget *dialog, const QStringList &entries)
    {
        auto shows = [](QWidget *w) {
            if (auto *c = qobject_cast<QComboBox *>(w))
                return c->currentIndex() >= 0 ? c->currentText() : "(" + c->placeholderText() + ")";
            if (auto *s = qobject_cast<QAbstractSlider *>(w))
                return QString::number(s->value());
            auto *t = qobject_cast<QLineEdit *>(w);
            return t ? t->text() : QString::number(w->property("checked").toInt());
        };
        QStringList told;
        for (const QString &entry : entries) {
            QWidget *w = Child<QWidget>(dialog, entry.section('=', 0, 0));
            if (!w)
                return "no control " + entry;
            QString line = entry.section('=', 0, 0) + ':' + shows(w);
            if (entry.contains('=')) {
                session->SetStatusPanel(2, QString());
                w->setProperty(w->inherits("QComboBox")         ? "currentIndex"
                               : w->inherits("QAbstractSlider") ? "value"
                               : w->inherits("QLineEdit")       ? "text"
                                                                : "checked",
                               entry.section('=', 1));
                line += '>' + shows(w) + (session->StatusPanel[2].isEmpty() ? QString() : ' ' + session->StatusPanel[2]);
            }
            told << line;
        }
        return told.join(QStringLiteral(" | "));
    }

    // A gene's body read from bytes in hex as a load reads it (folded into range), and the body an
    // encode would write, in hex.
    static void SetBody(Gene *g, const QString &hex)
    {
        auto image = std::make_unique<GenomeImage>();
        g->WriteRecord(*image); // its header, read back as it stands
        const QByteArray body = QByteArray::fromHex(hex.toLatin1());
        std::copy(body.begin(), body.end(), image->Bytes.begin() + image->WriteCursor - g->BodyLength());
        image->ReadCursor = 4 + 2; // behind the token and the kind
        g->ReadRecord(*image);
    }
    static QString Body(Gene *g)
    {
        auto image = std::make_unique<GenomeImage>();
        g->WriteRecord(*image);
        const auto *end = reinterpret_cast<const char *>(image->Bytes.data()) + image->WriteCursor;
        return QString::fromLatin1(QByteArray(end - g->BodyLength(), g->BodyLength()).toHex(' '));
    }

    template <typename E = GeneEditor> static E *Open(Gene *g)
    {
        g->OpenView();
        return dynamic_cast<E *>(g->View);
    }
};
