#pragma once
#include <QLayout>
#include <QList>

// Lays its items left to right at their size hints and starts a new row when the next one
// would pass the right edge, so that a row of buttons and labels stays whole in a narrow
// window and takes one line in a wide one. An item given a stretch takes the rest of its row.
class FlowLayout : public QLayout
{
public:
    explicit FlowLayout(QWidget *parent = nullptr);
    ~FlowLayout() override;

    void addWidget(QWidget *w, int stretch = 0);
    void addItem(QLayoutItem *item) override;
    int count() const override { return int(items.size()); }
    QLayoutItem *itemAt(int index) const override { return items.value(index); }
    QLayoutItem *takeAt(int index) override;
    Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return Arrange(QRect(0, 0, width, 0), false); }
    QSize minimumSize() const override;
    QSize sizeHint() const override;
    void setGeometry(const QRect &rect) override;

private:
    QList<QLayoutItem *> items;
    QList<int> stretches;
    int Arrange(const QRect &rect, bool apply) const;
    int Gap() const;
    static int HeightAt(QLayoutItem *item, int width);
};
