#pragma once

#include <QSettings>
#include <QString>
#include <QVariant>

// The settings file, relative to the working folder. Every handle on the file is opened with this path and in
// QSettings::IniFormat.
QString settingsFilePath();

// A group of the settings file, open for as long as the guard lives. What was set is written when the guard goes,
// in the order in which it was set, and is on disk before the next statement runs.
class SettingsGroup
{
public:
    SettingsGroup(QSettings &settings, const QString &group)
        : m_settings(settings)
    {
        m_settings.beginGroup(group);
    }
    ~SettingsGroup()
    {
        m_settings.endGroup();
        if (m_changed)
            m_settings.sync();
    }
    SettingsGroup(const SettingsGroup &) = delete;
    SettingsGroup &operator=(const SettingsGroup &) = delete;

    // The stored value; an empty text where there is none and no other fallback is given.
    QVariant value(const char *key, const QVariant &fallback = QString()) const
    {
        return m_settings.value(QLatin1String(key), fallback);
    }
    void set(const char *key, const QVariant &value)
    {
        m_settings.setValue(QLatin1String(key), value);
        m_changed = true;
    }

private:
    QSettings &m_settings;
    bool m_changed = false;
};
