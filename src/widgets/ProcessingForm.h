#pragma once
#include <QWidget>

class QLabel;
class QProgressBar;

// The small progress window that long operations put up. It has no buttons and offers
// no way to cancel.
class ProcessingForm : public QWidget
{
    Q_OBJECT
public:
    explicit ProcessingForm(QWidget *parent = nullptr);
    QLabel *StatusLabel;
    QProgressBar *ProgressBar;
};
