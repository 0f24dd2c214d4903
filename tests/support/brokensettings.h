#pragma once

#include <QString>
#include <QVector>

namespace support {

// What may stand in the place of a settings file, or in its way. Everything lies in the folder of `path`, which is
// there and empty when `make` is called.
struct BrokenSettings
{
    const char *name;
    bool inTheWay; // the panel may not touch the file, and says so
    void (*make)(const QString &path);
};

const QVector<BrokenSettings> &brokenSettings();

// Empties the folder of the settings file and puts one of them there.
void breakSettings(const QString &path, const BrokenSettings &how);

} // namespace support
