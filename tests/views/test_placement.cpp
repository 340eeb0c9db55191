// Windows land on the screen's available area, at any scale: a centred window that fits is
// centred on it, one that doesn't is made to fit; an editor's cascade step is moved back onto
// the area from wherever the main window stands, even off the screen.
#include "core/Session.h"
#include "support/ScriptedPrompt.h"
#include "widgets/Placement.h"

#include <QtTest>
#include <QtWidgets>

namespace {
QRect Area() { return QGuiApplication::primaryScreen()->availableGeometry(); }

// A size given as a fraction of the available area, so that each row means the same at
// every scale.
QSize Part(double w, double h) { return QSize(int(Area().width() * w), int(Area().height() * h)); }
} // namespace

class TestPlacement : public QObject
{
    Q_OBJECT

private slots:
    void centred_data()
    {
        QTest::addColumn<double>("w");
        QTest::addColumn<double>("h");
        QTest::newRow("small") << 0.5 << 0.4;
        QTest::newRow("wider than the screen") << 1.5 << 0.5;
        QTest::newRow("taller than the screen") << 0.5 << 1.6;
        QTest::newRow("larger both ways") << 2.25 << 2.0;
    }
    void centred()
    {
        QFETCH(double, w);
        QFETCH(double, h);
        QWidget window;
        window.resize(Part(w, h));
        Placement::CentreForm(&window);
        const QRect area = Area();
        QVERIFY2(area.contains(window.geometry()), qPrintable(QStringLiteral("%1,%2 %3x%4 on %5x%6").arg(window.x())
            .arg(window.y()).arg(window.width()).arg(window.height()).arg(area.width()).arg(area.height())));
        // What fitted keeps its size and stands in the middle.
        if (w <= 1)
            QCOMPARE(window.width(), Part(w, h).width());
        if (h <= 1)
            QCOMPARE(window.height(), Part(w, h).height());
        QVERIFY(qAbs(window.geometry().center().x() - area.center().x()) <= 1);
        QVERIFY(qAbs(window.geometry().center().y() - area.center().y()) <= 1);
    }

    // A window never shown is centred with a frame counted, so that once shown it fits, frame
    // and all: its own once its platform window is made (where the platform tells it then),
    // else that of the window on screen.
    void centredCountsTheFrame_data()
    {
        QTest::addColumn<bool>("otherShown");
        QTest::newRow("its own frame, platform window made") << false;
        QTest::newRow("the frame of the window on screen") << true;
    }
    void centredCountsTheFrame()
    {
        QFETCH(bool, otherShown);
        QWidget shown;
        if (otherShown) {
            shown.resize(Part(0.3, 0.3));
            shown.show();
            QApplication::setActiveWindow(&shown);
            QVERIFY(QTest::qWaitForWindowExposed(&shown));
        }
        QWidget window;
        window.resize(Part(1.5, 1.5));
        if (!otherShown)
            window.winId();
        Placement::CentreForm(&window);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QVERIFY(Area().contains(window.frameGeometry()));
    }

    void cascade_data()
    {
        QTest::addColumn<double>("mainX");
        QTest::addColumn<double>("mainY");
        QTest::addColumn<double>("w");
        QTest::addColumn<double>("h");
        QTest::newRow("main window in the corner") << 0.0 << 0.0 << 0.4 << 0.5;
        QTest::newRow("main window near the far corner") << 0.9 << 0.9 << 0.4 << 0.5;
        QTest::newRow("main window off the screen") << -0.2 << -0.1 << 0.4 << 0.5;
        QTest::newRow("editor larger than the screen") << 0.1 << 0.1 << 1.2 << 1.3;
    }
    // Every one of the eleven steps stays on the area; where the cascade has room, each step
    // stands one step further from the main window than the last.
    void cascade()
    {
        QFETCH(double, mainX);
        QFETCH(double, mainY);
        QFETCH(double, w);
        QFETCH(double, h);
        ScriptedPrompt prompt;
        Session session(prompt);
        session.PlacementStep = 999;
        const QRect area = Area();
        QWidget mainWindow;
        mainWindow.resize(Part(0.5, 0.5));
        mainWindow.move(area.topLeft() + QPoint(int(area.width() * mainX), int(area.height() * mainY)));
        const int step = Placement::TwipsToPixels(240, &mainWindow);
        for (int n = 0; n < 11; ++n) {
            QWidget editor;
            editor.resize(Part(w, h));
            Placement::PlaceEditor(session, &editor, &mainWindow);
            QCOMPARE(session.PlacementStep, n);
            QVERIFY2(area.contains(editor.geometry()), qPrintable(QStringLiteral("step %1 at %2,%3 %4x%5").arg(n)
                .arg(editor.x()).arg(editor.y()).arg(editor.width()).arg(editor.height())));
            const QPoint wanted = mainWindow.pos() + QPoint(step, step) * (n + 2);
            if (mainX == 0 && mainY == 0 && wanted.x() + editor.width() <= area.right() + 1
                && wanted.y() + editor.height() <= area.bottom() + 1)
                QCOMPARE(editor.pos(), wanted);
        }
    }
};

QTEST_MAIN(TestPlacement)
#include "test_placement.moc"
