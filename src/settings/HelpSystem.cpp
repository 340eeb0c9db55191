#include "settings/HelpSystem.h"

#include "settings/HelpTopics.h"
#include "settings/HelpWindow.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMetaMethod>

HelpSystem::HelpSystem(QObject *parent) : QObject(parent) {}

HelpWindow *HelpSystem::Window() const { return window.data(); }

HelpSystem::~HelpSystem()
{
    if (qApp)
        qApp->removeEventFilter(this);
    delete window.data();
}

void HelpSystem::Register(const QString &helpFilePath)
{
    path = helpFilePath;
    qApp->removeEventFilter(this);
    qApp->installEventFilter(this);
}

void HelpSystem::ShowHelpContents() { ShowHelpAnchor(HelpTopics::ContentsAnchor()); }

void HelpSystem::ShowHelpTopic(int context) { ShowHelpAnchor(HelpTopics::AnchorOf(context)); }

bool HelpSystem::ShowHelpAnchor(const QString &anchor)
{
    const QStringList anchors = HelpDocument::Anchors(path);
    if (anchors.isEmpty())
        return false;
    if (!window)
        window = new HelpWindow;
    QWidget *modal = QApplication::activeModalWidget();
    if (modal && modal != window && !modal->isAncestorOf(window))
        LendTo(modal);
    window->ShowAnchor(path, anchors.contains(anchor) ? anchor : HelpTopics::ContentsAnchor());
    return true;
}

void HelpSystem::LendTo(QWidget *modal)
{
    GiveBack();
    const QRect geometry = window->geometry();
    window->setParent(modal, Qt::Window);
    window->setGeometry(geometry);
    lender = modal;
}

void HelpSystem::GiveBack()
{
    if (!lender || !window)
        return;
    lender = nullptr;
    const bool visible = window->isVisible();
    const QRect geometry = window->geometry();
    window->setParent(nullptr, Qt::Window);
    window->setGeometry(geometry);
    if (visible)
        window->show();
}

bool HelpSystem::AnswerF1(QWidget *w)
{
    // A key pressed in a drop-down list belongs to the window the list drops from.
    if (w->windowType() == Qt::Popup && w->parentWidget())
        w = w->parentWidget()->window();
    static const QByteArray signal = QMetaObject::normalizedSignature("HelpRequested(int)");
    const int index = w->metaObject()->indexOfSignal(signal.constData());
    if (index >= 0) {
        const QMetaMethod slot = metaObject()->method(metaObject()->indexOfSlot("ShowHelpTopic(int)"));
        connect(w, w->metaObject()->method(index), this, slot, Qt::UniqueConnection);
        return false;
    }
    const QVariant topic = w->property("HelpTopic");
    if (topic.isValid())
        ShowHelpAnchor(topic.toString());
    else
        ShowHelpTopic(HelpTopics::ContextOf(w->objectName()));
    return true;
}

bool HelpSystem::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->key() == Qt::Key_F1 && (key->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier
            && watched->isWidgetType())
            return AnswerF1(static_cast<QWidget *>(watched)->window());
    } else if (event->type() == QEvent::Hide && watched == lender) {
        GiveBack();
    }
    return QObject::eventFilter(watched, event);
}
