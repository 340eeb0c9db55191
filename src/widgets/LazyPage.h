#pragma once
#include <QWidget>

// A page of a tab set whose widgets are made the first time they are needed (the page is
// first shown, or a command needs them), and kept from then on. Until then the page is an
// empty widget, cheap to make at start-up; what it would show meanwhile the subclass keeps
// aside and puts in when it builds.
class LazyPage : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;

    bool IsBuilt() const { return built; }
    // Makes the page's widgets once; later calls do nothing. Showing the page calls it.
    void EnsureBuilt();

    void setVisible(bool visible) override;

signals:
    // The widgets have just been made.
    void Built();

protected:
    virtual void BuildPage() = 0;

private:
    bool built = false;
};
