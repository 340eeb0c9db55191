#pragma once
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <memory>

// A private place for the settings of one test: both the per-user preferences and the
// game's machine-wide key are redirected into a temporary folder.
class SettingsSandbox
{
public:
    SettingsSandbox();
    QString UserFolder() const { return dir.path() + QStringLiteral("/user"); }
    QString SystemFolder() const { return dir.path() + QStringLiteral("/system"); }
    // Writes a value of the game's key (Company/Product.ini, group Version).
    void SetGameValue(const QString &company, const QString &product, const QString &version,
                      const QString &name, const QString &value);
    QString path() const { return dir.path(); }

private:
    QTemporaryDir dir;
};

class ScriptedPrompt;
class Session;

// A fresh test case: a new settings sandbox, the prompt's queue and record cleared, and a new
// session speaking through it, whose program folder is the sandbox.
void FreshSession(std::unique_ptr<SettingsSandbox> &sandbox, ScriptedPrompt &prompt,
                  std::unique_ptr<Session> &session);

namespace TestFiles {
bool Write(const QString &path, const QByteArray &bytes);
QByteArray Read(const QString &path);
}
