#pragma once
#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

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

namespace TestFiles {
bool Write(const QString &path, const QByteArray &bytes);
QByteArray Read(const QString &path);
}
