#include "widgets/QtPrompt.h"

#include "widgets/ProcessingForm.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QProgressBar>

int QtPrompt::Message(const QString &title, const QString &text, int style)
{
    QMessageBox box(parent);
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
    switch (box.exec()) {
    case QMessageBox::Yes: return Yes;
    case QMessageBox::No: return No;
    case QMessageBox::Ok: return Ok;
    default: return (style & 0x0F) == 4 ? No : (style & 0x0F) == 0 ? Ok : Cancel;
    }
}

QString QtPrompt::InputBox(const QString &title, const QString &prompt, const QString &preset)
{
    bool ok = false;
    const QString text = QInputDialog::getText(parent, title, prompt, QLineEdit::Normal, preset, &ok);
    return ok ? text : QString();
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
