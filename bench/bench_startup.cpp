// Start-up to the first painted main window, beside its floor: a bare QMainWindow with a
// tab widget of seven empty tabs and a status bar, of the same size, shown and painted the
// same way. Prints the ratio at the end.
//
// One start-up is what main() does, headless: session and main window, the editor factories,
// Startup() against a folder holding the shipped data files, show, and events until the
// window has been painted once; then the window and the session are destroyed again, so
// each round starts from nothing. The floor's window is destroyed too.
//
// The settings go to a temporary folder, never to the user's own. One start-up outside the
// timing answers the welcome of a first run, so the timed ones are those of a returning
// user and must not say anything.
// Run headless with QT_QPA_PLATFORM=offscreen.
#include "BenchGenome.h"
#include "RatioReporter.h"
#include "core/Session.h"
#include "editors/EditorRegistry.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QFileInfo>
#include <QMainWindow>
#include <QStatusBar>
#include <QTabWidget>
#include <QTemporaryDir>
#include <QTimer>
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>

namespace {

// Notes the first paint event of the window it watches. The backing store paints a window
// parent first, children after, and hands the frame on once all of them are done, all in the
// one call that delivered this event: once the event loop returns after it, the first frame
// of the whole window is complete.
class PaintWatch : public QObject
{
public:
    bool painted = false;
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            painted = true;
        return false;
    }
};

// Shows the window and runs the event loop until the window has been painted once. The
// loop sleeps between events, so waiting for the platform costs no CPU time.
void ShowUntilPainted(QWidget &window)
{
    PaintWatch watch;
    window.installEventFilter(&watch);
    window.show();
    while (!watch.painted)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    window.removeEventFilter(&watch);
}

struct Rig
{
    SettingsSandbox settings; // first: no QSettings may reach the user's own files
    QTemporaryDir appFolder;
    QSize windowSize;
    QString fault;

    Rig()
    {
        // The shipped data files, as they stand beside an installed program.
        const QDir data(QFileInfo(QStringLiteral(__FILE__)).absolutePath() + QStringLiteral("/../data"));
        const QStringList files = data.entryList(QDir::Files);
        if (files.isEmpty()) {
            fault = QStringLiteral("no data files in ") + data.absolutePath();
            return;
        }
        for (const QString &f : files)
            if (!QFile::copy(data.filePath(f), QDir(appFolder.path()).filePath(f))) {
                fault = QStringLiteral("cannot copy ") + f;
                return;
            }

        // The first start-up: it answers the welcome, and it shows that the window is painted
        // at all on this platform (else the timed rounds would wait for ever).
        BenchPrompt prompt;
        Session session(prompt);
        HelixbenchForm form(session);
        RegisterEditors(session, &form);
        form.Startup(appFolder.path());
        if (prompt.messages != 1) // the welcome, and nothing else
            fault = QStringLiteral("the first start-up showed %1 messages, not just the welcome").arg(prompt.messages);
        PaintWatch watch;
        form.installEventFilter(&watch);
        form.show();
        const QDeadlineTimer deadline(10000);
        QTimer wake;
        wake.start(100);
        while (!watch.painted && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        if (!watch.painted && fault.isEmpty())
            fault = QStringLiteral("the main window was never painted (platform %1)").arg(QGuiApplication::platformName());
        windowSize = form.size();
    }
};

Rig *rig = nullptr;

void BM_Startup(benchmark::State &state)
{
    int spoken = 0;
    for (auto _ : state) {
        BenchPrompt prompt;
        prompt.echo = true; // a timed start-up says nothing; if it does, show what
        Session session(prompt);
        HelixbenchForm form(session);
        RegisterEditors(session, &form);
        form.Startup(rig->appFolder.path());
        ShowUntilPainted(form);
        spoken += prompt.messages;
    }
    if (spoken > 0)
        state.SkipWithError("start-up showed messages (on standard error)");
}
BENCHMARK(BM_Startup)->Unit(benchmark::kMillisecond);

void BM_StartupFloor(benchmark::State &state)
{
    static const char *const tabs[] = {"Cover", "Genotype", "Gene Editor", "Organ View", "Biochemistry", "Poses", "Export"};
    for (auto _ : state) {
        QMainWindow window;
        auto *tabWidget = new QTabWidget(&window);
        for (const char *t : tabs)
            tabWidget->addTab(new QWidget, QString::fromLatin1(t));
        window.setCentralWidget(tabWidget);
        window.statusBar();
        window.resize(rig->windowSize);
        ShowUntilPainted(window);
    }
}
BENCHMARK(BM_StartupFloor)->Unit(benchmark::kMillisecond);

// The offscreen platform warns at every window it shows that it cannot pass size hints on;
// a line on the terminal per round would time the terminal. Everything else gets through.
QtMessageHandler passOn = nullptr;
void DropSizeHintWarning(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type == QtWarningMsg && text == QLatin1String("This plugin does not support propagateSizeHints()"))
        return;
    if (passOn)
        passOn(type, context, text);
    else
        std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

} // namespace

int main(int argc, char **argv)
{
    passOn = qInstallMessageHandler(DropSizeHintWarning);
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Helixbench"));
    benchmark::Initialize(&argc, argv);
    const QString startFolder = QDir::currentPath(); // Startup() moves into the application folder
    {
        Rig theRig;
        if (!theRig.fault.isEmpty()) {
            std::fprintf(stderr, "bench_startup: %s\n", qPrintable(theRig.fault));
            return 1;
        }
        rig = &theRig;
        std::printf("window %d x %d, platform %s\n", theRig.windowSize.width(), theRig.windowSize.height(),
                    qPrintable(QGuiApplication::platformName()));

        RatioReporter reporter; // tabular, without colour codes
        benchmark::RunSpecifiedBenchmarks(&reporter);
        reporter.Ratio("BM_Startup", "BM_StartupFloor");
        rig = nullptr;
        QDir::setCurrent(startFolder);
    }
    benchmark::Shutdown();
    return 0;
}
