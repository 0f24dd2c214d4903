#pragma once

#include <QPair>
#include <QSettings>
#include <QString>
#include <QVariant>
#include <QVector>

// The settings file, relative to the working folder. Every handle on the file is opened with this path and in
// QSettings::IniFormat.
QString settingsFilePath();

// What stands in the way of the settings file. QSettings waits without end for a lock beside its file that it can
// neither take nor remove, and to open a pipe in the place of the file; so it is only let near the file while nothing
// stands there.
struct SettingsObstacle
{
    enum Kind {
        Nothing,
        Lock, // <file>.lock: of another user or host, or no lock at all but a folder of that name
        NoFile, // the file itself is a pipe or a device
    };
    Kind kind = Nothing;
    QString path; // absolute
    QString holder; // whose it is, as far as that can be seen; words for the operator
};

// Looks for one, and tries a lock for at most `waitMs`. A lock that a killed panel left behind is removed.
SettingsObstacle findSettingsObstacle(const QString &file, int waitMs);

// A group of the settings file, open for as long as the guard lives. What was set is written when the guard goes, and
// is on disk before the next statement runs; what the file says already is not written again. When something stands in
// the way of the file, it is kept instead and written with the next change that gets through; nothing is reported.
class SettingsGroup
{
public:
    SettingsGroup(QSettings &settings, const QString &group);
    ~SettingsGroup();
    SettingsGroup(const SettingsGroup &) = delete;
    SettingsGroup &operator=(const SettingsGroup &) = delete;

    // The stored value; an empty text where there is none and no other fallback is given.
    QVariant value(const char *key, const QVariant &fallback = QString()) const;
    void set(const char *key, const QVariant &value);

private:
    QSettings &m_settings;
    const QString m_group;
    QVector<QPair<QString, QVariant>> m_changes; // whole keys, "group/key"
};
