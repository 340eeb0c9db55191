#include "widgets/QtPrompt.h"

#include "widgets/ProcessingForm.h"

#include <QApplication>
#include <QFileDialog>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>
#include <QScreen>

namespace {

// The window a box belongs to: the dialog the user is working in when there is one, so that
// the box stands over it, else the main window.
QWidget *Owner(QWidget *mainWindow)
{
    if (QWidget *modal = QApplication::activeModalWidget())
        return modal;
    if (QWidget *active = QApplication::activeWindow())
        return active;
    return mainWindow;
}

// Gives the window that raised a box, and the control that had the focus in it, the focus
// back once the box has gone.
class FocusKeeper
{
public:
    FocusKeeper(QWidget *owner) : window(owner), control(owner ? owner->focusWidget() : nullptr) {}
    ~FocusKeeper()
    {
        if (!window || !window->isVisible())
            return;
        window->raise();
        window->activateWindow();
        if (control)
            control->setFocus(Qt::OtherFocusReason);
    }

private:
    QPointer<QWidget> window;
    QPointer<QWidget> control;
};

// The width a box needs to show its title whole in the title bar beside the window
// manager's buttons.
int TitleWidth(const QWidget *box, const QString &title)
{
    QFont font = box->font();
    font.setBold(true);
    const QFontMetrics fm(font);
    return fm.horizontalAdvance(title) + 6 * fm.height();
}

} // namespace

int QtPrompt::Message(const QString &title, const QString &text, int style)
{
    QWidget *owner = Owner(parent);
    FocusKeeper keeper(owner);
    QMessageBox box(owner);
    box.setWindowTitle(title);
    // Line breaks arrive as CR LF (or LF CR); show each pair as one break.
    QString shown = text;
    shown.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(QLatin1String("\n\r"), QLatin1String("\n"));
    box.setText(shown);
    switch (style & 0x70) {
    case 16: box.setIcon(QMessageBox::Critical); break;
    case 32: box.setIcon(QMessageBox::Question); break;
    case 48: box.setIcon(QMessageBox::Warning); break;
    case 64: box.setIcon(QMessageBox::Information); break;
    default: box.setIcon(QMessageBox::NoIcon); break;
    }
    switch (style & 0x0F) {
    case 3:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        box.setDefaultButton(QMessageBox::Yes);
        break;
    case 4:
        box.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        box.setDefaultButton(QMessageBox::Yes);
        break;
    default:
        box.setStandardButtons(QMessageBox::Ok);
        break;
    }
    // A message box sizes itself to its text: a spacer keeps it as wide as its title. It goes in
    // last, since setting the text or the icon lays the box out anew.
    if (auto *grid = qobject_cast<QGridLayout *>(box.layout()))
        grid->addItem(new QSpacerItem(TitleWidth(&box, title), 0, QSizePolicy::Minimum, QSizePolicy::Fixed),
                      grid->rowCount(), 0, 1, grid->columnCount());
    switch (box.exec()) {
    case QMessageBox::Yes: return Yes;
    case QMessageBox::No: return No;
    case QMessageBox::Ok: return Ok;
    default: return (style & 0x0F) == 4 ? No : (style & 0x0F) == 0 ? Ok : Cancel;
    }
}

QString QtPrompt::InputBox(const QString &title, const QString &prompt, const QString &preset)
{
    QWidget *owner = Owner(parent);
    FocusKeeper keeper(owner);
    QInputDialog box(owner);
    box.setWindowTitle(title);
    box.setLabelText(prompt);
    box.setTextValue(preset);
    // Wide enough for its title and for the prompt on one line, within half the screen; a
    // longer prompt wraps.
    const QFontMetrics fm(box.font());
    int want = TitleWidth(&box, title);
    for (const QString &line : prompt.split(QLatin1Char('\n')))
        want = qMax(want, fm.horizontalAdvance(line) + 4 * fm.height());
    const int limit = box.screen() ? box.screen()->availableGeometry().width() / 2 : 640;
    if (want > limit)
        for (QLabel *label : box.findChildren<QLabel *>())
            label->setWordWrap(true);
    // The dialog's layout sets its own minimum: the text box, on a row of its own, carries the width.
    if (auto *edit = box.findChild<QLineEdit *>())
        edit->setMinimumWidth(qMin(want, limit));
    return box.exec() == QDialog::Accepted ? box.textValue() : QString();
}

QString QtPrompt::OpenFileName(const QString &title, const QString &folder, const QString &filter,
                               const QString &defaultSuffix)
{
    QFileDialog dialog(parent, title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptOpen);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(defaultSuffix);
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty() ? dialog.selectedFiles().first()
                                                                                   : QString();
}

QString QtPrompt::SaveFileName(const QString &title, const QString &folder, const QString &filter,
                               const QString &defaultSuffix)
{
    QFileDialog dialog(parent, title, folder, filter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setDefaultSuffix(defaultSuffix);
    return dialog.exec() == QDialog::Accepted && !dialog.selectedFiles().isEmpty() ? dialog.selectedFiles().first()
                                                                                   : QString();
}

void QtPrompt::ProgressLoad(const QString &title)
{
    delete progress;
    progress = new ProcessingForm(parent);
    progress->setWindowTitle(title);
}

void QtPrompt::ProgressShow()
{
    if (progress) {
        progress->show();
        progress->raise();
    }
}

bool QtPrompt::ProgressVisible() const { return progress && progress->isVisible(); }

void QtPrompt::ProgressSetValue(int value)
{
    if (progress)
        progress->SetProgress(qBound(0, value, 100));
}

void QtPrompt::ProgressSetStatus(const QString &text)
{
    if (progress)
        progress->StatusLabel->setText(text);
}

void QtPrompt::ProgressUnload()
{
    delete progress;
}

void QtPrompt::Yield() { QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); }
