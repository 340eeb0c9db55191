#pragma once
#include <QElapsedTimer>
#include <QTimer>
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

    // Sets the progress bar. A loop that sets it many times a frame doesn't redraw it each
    // time (each new value redraws the bar at once): a value that comes within a frame of the
    // last one shown waits for the end of that frame, and the latest value then shows.
    void SetProgress(int value);

private:
    static constexpr int FrameMs = 16;
    QElapsedTimer sinceShown;
    QTimer pending;
    int pendingValue = 0;
};
