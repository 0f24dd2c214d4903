#pragma once

#include "standin/appliance.h"

#include <QCommandLineParser>
#include <QPair>
#include <QVector>

#include <optional>

namespace standin {

// What the program is asked for on its command line. Every value is checked before anything is opened; a state file
// goes before the defaults, and what was given goes before the state file.
class Options
{
public:
    static constexpr int MostUnits = 200;

    Options();

    // An empty result is success, any other text is the one sentence that says what is wrong.
    QString read(const QStringList &arguments);

    bool wantsHelp() const { return parser.isSet(QStringLiteral("help")); }
    bool wantsVersion() const { return parser.isSet(QStringLiteral("version")); }
    bool isQuiet() const { return parser.isSet(QStringLiteral("quiet")); }
    int unitCount() const { return units; }
    QString help() const;

    // Makes the unit of this number, counted from 0, out of what was asked for, and starts it.
    QString start(Appliance &appliance, int number) const;

private:
    QString readUnits();
    QString readNetwork();
    QString readIdentifiers();
    QString readVersions();
    QString readTimes();
    QString readFiles();
    QString readFaults();
    void applyNetwork(NetworkSettings &settings, int number) const;
    bool isSet(const char *name) const { return parser.isSet(QLatin1String(name)); }
    QString value(const char *name) const { return parser.value(QLatin1String(name)); }

    QCommandLineParser parser;
    int units = 1;
    std::optional<QHostAddress> address;
    std::optional<QHostAddress> mask;
    std::optional<QHostAddress> gateway;
    std::optional<QHostAddress> primaryDns;
    std::optional<QHostAddress> secondaryDns;
    QByteArray mac; // empty: not given
    int vendor = 0;
    int product = 0;
    QByteArray versions; // as the unit's own record
    QByteArray deviceType;
    QVector<QPair<int, Fault>> faults;
    Appliance::Setup setup;
};

} // namespace standin
