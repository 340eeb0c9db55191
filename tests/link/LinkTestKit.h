#pragma once
// What the link tests share: a bench (session, main window, Export tab) and the stand-in
// game as a child process with its transaction log.
#include "core/Session.h"
#include "link/ExportTab.h"
#include "support/ScriptedPrompt.h"
#include "support/TestEnv.h"
#include "views/HelixbenchForm.h"

#include <QtDBus>
#include <QtTest>
#include <QtWidgets>

namespace LinkTestKit {

// A session with its main window, started as far as the Export tab needs: all script slots empty.
struct Bench
{
    explicit Bench(ScriptedPrompt &prompt)
        : session(new Session(prompt)), form(new HelixbenchForm(*session))
    {
        form->SSTab1->setCurrentIndex(6);
        tab = form->findChild<ExportTab *>();
        session->Tables.Build();
        std::fill_n(session->Lists.ScriptNames.begin(), ExportTab::ScriptSlots, ExportTab::EmptySlot);
        emit session->ExportViewsMustFill();
    }
    std::unique_ptr<Session> session;
    std::unique_ptr<HelixbenchForm> form;
    ExportTab *tab = nullptr;
};

// The stand-in game. Start() returns once it owns its bus name; Stop() once it has let go.
class Standin
{
public:
    explicit Standin(const QString &folder) : folder(folder) {}
    ~Standin() { Stop(); }
    QString Genetics() const { return folder + QStringLiteral("/Genetics"); }

    bool Start(const QStringList &extra = {})
    {
        Stop();
        QFile::remove(LogFile());
        process.reset(new QProcess);
        process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process->start(QCoreApplication::applicationDirPath() + QStringLiteral("/habitat-standin"),
                       QStringList{"--log", LogFile(), "--genetics", Genetics(), "--settings-dir", folder + "/system"} + extra);
        while (process->waitForReadyRead(10000) && !process->canReadLine()) {}
        return process->readLine().trimmed() == "ready";
    }

    void Stop()
    {
        if (!process)
            return;
        process->kill();
        process->waitForFinished(10000);
        process.reset();
        QTRY_VERIFY_WITH_TIMEOUT(!QDBusConnection::sessionBus().interface()->isServiceRegistered("org.arkenfold.Habitat").value(), 10000);
    }

    // One field of every transaction in the log, e.g. 0 for the methods in order. The fields:
    // method, topic, item, data, outcome (and the game's note).
    QStringList Column(int field) const
    {
        QStringList values;
        for (const QByteArray &line : TestFiles::Read(LogFile()).split('\n'))
            if (!line.isEmpty())
                values << QJsonDocument::fromJson(line).array().toVariantList().value(field).toString();
        return values;
    }
    // Waits for the closes: they are sent without waiting for the game.
    void WaitForTerminates(int count) const
    {
        QTRY_COMPARE_WITH_TIMEOUT(Column(0).count(QStringLiteral("Terminate")), count, 10000);
    }

private:
    QString LogFile() const { return folder + QStringLiteral("/standin.log"); }
    QString folder;
    std::unique_ptr<QProcess> process;
};

// A fault message: what was being done, then the error's number and description.
inline QString Fault(const QString &context, int number, const QString &description)
{ return context + QStringLiteral("\n\rDescription: Error ID %1 (%2)").arg(number).arg(description); }

} // namespace LinkTestKit
