// habitat-standin: answers the workbench's conversations in place of the running game.
#include "Habitat.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDir>
#include <QSettings>

#include <cstdio>

namespace {
QSet<QString> Methods(const QString &list)
{
    QSet<QString> set;
    for (const QString &m : list.split(QLatin1Char(','), Qt::SkipEmptyParts))
        set.insert(m.trimmed());
    return set;
}
} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("habitat-standin"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Stands in for the running game on the session bus (org.arkenfold.Habitat, /Habitat).\n"
        "Methods for --hang, --reject and --garbage: Initiate, Execute, Poke, Request, Terminate, or all."));
    parser.addHelpOption();
    const QCommandLineOption logOption(QStringLiteral("log"), QStringLiteral("Append one line per transaction to <file>."), QStringLiteral("file"));
    const QCommandLineOption replyOption(QStringLiteral("reply"), QStringLiteral("Answer every Request with <text> (default: empty)."), QStringLiteral("text"));
    const QCommandLineOption hangOption(QStringLiteral("hang"), QStringLiteral("Never answer these methods."), QStringLiteral("methods"));
    const QCommandLineOption rejectOption(QStringLiteral("reject"), QStringLiteral("Answer these methods with an error."), QStringLiteral("methods"));
    const QCommandLineOption garbageOption(QStringLiteral("garbage"), QStringLiteral("Answer these methods with a reply of the wrong shape."), QStringLiteral("methods"));
    const QCommandLineOption quitOption(QStringLiteral("quit-on"), QStringLiteral("Leave the bus without answering when <method> arrives."), QStringLiteral("method"));
    const QCommandLineOption declineOption(QStringLiteral("decline"), QStringLiteral("Answer Initiate with false."));
    const QCommandLineOption geneticsOption(QStringLiteral("genetics"), QStringLiteral("The game's genome folder (default: ./Genetics)."), QStringLiteral("dir"));
    const QCommandLineOption mainOption(QStringLiteral("main"), QStringLiteral("The game's main folder (default: .)."), QStringLiteral("dir"));
    const QCommandLineOption settingsOption(QStringLiteral("settings-dir"), QStringLiteral("Folder of the machine-wide settings files (default: the system's)."), QStringLiteral("dir"));
    const QCommandLineOption companyOption(QStringLiteral("company"), QStringLiteral("First word of the game's key."), QStringLiteral("text"), QStringLiteral("Kelmoth Technology"));
    const QCommandLineOption productOption(QStringLiteral("product"), QStringLiteral("Second word of the game's key."), QStringLiteral("text"), QStringLiteral("Arkenfold 2"));
    const QCommandLineOption versionOption(QStringLiteral("version"), QStringLiteral("Third word of the game's key."), QStringLiteral("text"), QStringLiteral("1.0"));
    parser.addOptions({logOption, replyOption, hangOption, rejectOption, garbageOption, quitOption, declineOption,
                       geneticsOption, mainOption, settingsOption, companyOption, productOption, versionOption});
    parser.process(app);

    HabitatOptions options;
    options.logFile = parser.isSet(logOption) ? parser.value(logOption) : QStringLiteral("habitat-standin.log");
    options.reply = parser.value(replyOption);
    options.hang = Methods(parser.value(hangOption));
    options.reject = Methods(parser.value(rejectOption));
    options.garbage = Methods(parser.value(garbageOption));
    options.quitOn = parser.value(quitOption);
    options.decline = parser.isSet(declineOption);
    const QString genetics = parser.isSet(geneticsOption) ? parser.value(geneticsOption) : QStringLiteral("Genetics");
    const QString mainFolder = parser.isSet(mainOption) ? parser.value(mainOption) : QStringLiteral(".");
    QDir().mkpath(genetics);
    options.geneticsDirectory = QDir(genetics).absolutePath();

    // The game keeps where it lives in its own machine-wide settings file; the workbench
    // reads them from there.
    if (parser.isSet(settingsOption))
        QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, parser.value(settingsOption));
    {
        QSettings key(QSettings::IniFormat, QSettings::SystemScope, parser.value(companyOption), parser.value(productOption));
        const QString group = parser.value(versionOption) + QLatin1Char('/');
        key.setValue(group + QStringLiteral("Genetics Directory"), options.geneticsDirectory);
        key.setValue(group + QStringLiteral("Main Directory"), QDir(mainFolder).absolutePath());
        key.sync();
        if (key.status() != QSettings::NoError)
            std::fprintf(stderr, "habitat-standin: cannot write %s\n", qPrintable(key.fileName()));
    }

    Habitat habitat(options);
    if (!habitat.LogOpen()) {
        std::fprintf(stderr, "habitat-standin: cannot open the log %s\n", qPrintable(options.logFile));
        return 1;
    }
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        std::fprintf(stderr, "habitat-standin: no session bus: %s\n", qPrintable(bus.lastError().message()));
        return 1;
    }
    if (!bus.registerObject(QStringLiteral("/Habitat"), QStringLiteral("org.arkenfold.Habitat.Conversation"), &habitat,
                            QDBusConnection::ExportAllSlots)) {
        std::fprintf(stderr, "habitat-standin: cannot serve /Habitat\n");
        return 1;
    }
    if (!bus.registerService(QStringLiteral("org.arkenfold.Habitat"))) {
        std::fprintf(stderr, "habitat-standin: cannot own org.arkenfold.Habitat: %s\n",
                     qPrintable(bus.lastError().message()));
        return 1;
    }
    std::printf("ready\n");
    std::fflush(stdout);
    return app.exec();
}
