// Editors land on the screen's available area, at any scale: an editor's cascade step is moved
// back onto the area from wherever the main window stands, even off the screen, and an editor
// larger than the area is made to fit.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "widgets/Placement.h"

#include <QtTest>
#include <QtWidgets>

namespace {
QRect Area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

// A size given as a fraction of the available area, so that each row means the same at
// every scale.
QSize Part(const QSizeF &fraction)
{
    return QSize(int(Area().width() * fraction.width()), int(Area().height() * fraction.height()));
}
} // namespace

class TestPlacement : public QObject
{
    Q_OBJECT

private slots:
    void cascade_data()
    {
        QTest::addColumn<QPointF>("corner"); // where the main window stands, as a fraction of the area
        QTest::addColumn<QSizeF>("size");
        QTest::newRow("main window in the corner") << QPointF(0, 0) << QSizeF(0.4, 0.5);
        QTest::newRow("main window off the screen") << QPointF(-0.2, -0.1) << QSizeF(0.4, 0.5);
        QTest::newRow("editor larger than the screen") << QPointF(0.1, 0.1) << QSizeF(1.2, 1.3);
    }
    // Every one of the eleven steps stays on the area, and the twelfth is the first again; where
    // the cascade has room, each step stands one step further from the main window than the last.
    void cascade()
    {
        QFETCH(QPointF, corner);
        QFETCH(QSizeF, size);
        ScriptedPrompt prompt;
        Session session(prompt);
        session.PlacementStep = 999;
        const QRect area = Area();
        QWidget mainWindow;
        mainWindow.resize(Part(QSizeF(0.5, 0.5)));
        mainWindow.move(area.topLeft() + QPoint(int(area.width() * corner.x()), int(area.height() * corner.y())));
        const int step = Placement::TwipsToPixels(240, &mainWindow);
        for (int n = 0; n < 12; ++n) {
            QWidget editor;
            editor.resize(Part(size));
            Placement::PlaceEditor(session, &editor, &mainWindow);
            QCOMPARE(session.PlacementStep, n % 11);
            QVERIFY2(area.contains(editor.geometry()), qPrintable(QStringLiteral("step %1 at ").arg(n)
                                                                  + QDebug::toString(editor.geometry())));
            const QPoint wanted = mainWindow.pos() + QPoint(step, step) * (n % 11 + 2);
            if (corner.isNull() && area.contains(QRect(wanted, editor.size())))
                QCOMPARE(editor.pos(), wanted);
        }
    }
};

QTEST_MAIN(TestPlacement)
#include "test_placement.moc"
