// What the editor tests share: a fresh session per case with the editors registered on a
// main window, a prompt that fails on anything unexpected, lookups of controls by name and
// a driver for the modal dialogs an editor opens.
#pragma once
#include "core/Gene.h"
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

// What a combo shows: the selected item's text, or in brackets the grey text standing in for
// a value its list has no item for.
inline QString ComboShown(QComboBox *c)
{
    return c->currentIndex() >= 0 ? c->currentText() : "(" + c->placeholderText() + ")";
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
    template <typename E = GeneEditor> static E *Open(Gene *g)
    {
        g->OpenView();
        return dynamic_cast<E *>(g->View);
    }
};
