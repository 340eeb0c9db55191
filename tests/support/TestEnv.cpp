#include "support/TestEnv.h"

#include "core/Session.h"
#include "support/ScriptedPrompt.h"

#include <QDir>
#include <QFile>
#include <QSettings>

SettingsSandbox::SettingsSandbox()
{
    QDir().mkpath(UserFolder());
    QDir().mkpath(SystemFolder());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, UserFolder());
    QSettings::setPath(QSettings::IniFormat, QSettings::SystemScope, SystemFolder());
}

void FreshSession(std::unique_ptr<SettingsSandbox> &sandbox, ScriptedPrompt &prompt,
                  std::unique_ptr<Session> &session)
{
    sandbox.reset(new SettingsSandbox);
    prompt.Clear();
    session.reset(new Session(prompt));
    session->AppDirectory = sandbox->path();
}

void SettingsSandbox::SetGameValue(const QString &company, const QString &product, const QString &version,
                                   const QString &name, const QString &value)
{
    QSettings key(QSettings::IniFormat, QSettings::SystemScope, company, product);
    key.setValue(version + QLatin1Char('/') + name, value);
    key.sync();
}

namespace TestFiles {
bool Write(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QByteArray Read(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}
} // namespace TestFiles
