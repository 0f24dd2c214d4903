#include "control/settingsfile.h"

#include "control/panelidentity.h"

#include <QFileInfo>
#include <QLockFile>

namespace {

// Locks are held for milliseconds, by another panel that writes at the same moment.
constexpr int kWriteWaitMs = 500;
constexpr int kEmptyLockMs = 1000;

// What could not be written yet, and whether the last attempt to write was in vain: then the next one does not wait
// again, or an operator without storage would feel every change.
QVector<QPair<QString, QVariant>> unwritten;
bool wasInVain = false;

bool exists(const QFileInfo &info)
{
    return info.exists() || info.isSymLink(); // also a link that leads nowhere
}

QString holderOf(const QString &path)
{
    QString holder = QFileInfo(path).owner();
    if (holder.isEmpty()) // a link that leads nowhere, or a user that this machine does not know
        holder = QStringLiteral("nobody known here");
    qint64 process = 0;
    QString host;
    QString program;
    if (QFileInfo(path).isFile() && QLockFile(path).getLockInfo(&process, &host, &program))
        holder += QStringLiteral(" (process %1, %2, on %3)").arg(process).arg(program, host);
    return holder;
}

bool lockCanBeHad(const QString &path, int waitMs)
{
    if (!exists(QFileInfo(path)))
        return true;
    // A lock file would read whatever stands there, also a pipe that never gives an answer; and it takes a lock of
    // its own to remove one.
    for (const QString &name : {path, path + QStringLiteral(".rmlock")}) {
        const QFileInfo info(name);
        if (exists(info) && !info.isFile())
            return false;
    }
    QLockFile lock(path);
    // Who holds a lock writes into it as soon as it is made: one that is empty was left by somebody who was killed in
    // between, and names nobody who could be looked for.
    if (QFileInfo(path).size() == 0)
        lock.setStaleLockTime(kEmptyLockMs);
    // Any other failure than a lock that is held ends QSettings' attempt at once, as it does this one.
    return lock.tryLock(waitMs) || lock.error() != QLockFile::LockFailedError;
}

// The file knows texts only: a number and its digits are the same there. Anything else was not written by a panel.
bool saysAlready(const QSettings &settings, const QString &key, const QVariant &value)
{
    const QVariant there = settings.value(key);
    return there.userType() == QMetaType::QString && there.toString() == value.toString();
}

} // namespace

QString settingsFilePath()
{
    return QStringLiteral("../../%1/%2/%3.ini")
        .arg(QStringLiteral(ORG_NAME), QStringLiteral(APP_NAME), QStringLiteral(APP_NAME));
}

SettingsObstacle findSettingsObstacle(const QString &file, int waitMs)
{
    const QFileInfo info(file);
    const QString path = info.absoluteFilePath();
    // A folder in its place is an unreadable file: QSettings gives up on it at once.
    if (info.exists() && !info.isFile() && !info.isDir())
        return {SettingsObstacle::NoFile, path, holderOf(path)};
    const QString lock = path + QStringLiteral(".lock");
    wasInVain = !lockCanBeHad(lock, waitMs);
    if (wasInVain)
        return {SettingsObstacle::Lock, lock, holderOf(lock)};
    return {};
}

SettingsGroup::SettingsGroup(QSettings &settings, const QString &group)
    : m_settings(settings)
    , m_group(group)
{
    m_settings.beginGroup(m_group);
}

SettingsGroup::~SettingsGroup()
{
    m_settings.endGroup();
    if (m_changes.isEmpty())
        return;
    unwritten += m_changes;
    if (findSettingsObstacle(m_settings.fileName(), wasInVain ? 0 : kWriteWaitMs).kind
        != SettingsObstacle::Nothing)
        return;
    // What the file says already is not written again: a write waits for the disk twice, and most starts would write
    // the language that they have just read, two times. The look is at the file as it stands now.
    m_settings.sync();
    for (const auto &change : qAsConst(unwritten)) {
        if (!saysAlready(m_settings, change.first, change.second))
            m_settings.setValue(change.first, change.second);
    }
    unwritten.clear();
    m_settings.sync();
}

QVariant SettingsGroup::value(const char *key, const QVariant &fallback) const
{
    return m_settings.value(QLatin1String(key), fallback);
}

void SettingsGroup::set(const char *key, const QVariant &value)
{
    m_changes.append({m_group + QLatin1Char('/') + QLatin1String(key), value});
}
