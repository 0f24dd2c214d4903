#include "ctl/commands.h"
#include "ctl/output.h"
#include "ctl/watchdog.h"
#include "discovery/hlnp.h"

#include <QJsonArray>
#include <QThread>

// The units on the networks of this machine.

namespace ctl {

namespace {

// What a scan learns of a unit, in the order of the columns.
QVector<QPair<const char *, QString>> factsOf(const hlnp_network_info &unit, const QString &adapter)
{
    return {{"address", unit.ipadd},
            {"name", unit.name},
            {"mac", unit.macadd},
            {"dhcp", unit.isdhcp ? QStringLiteral("on") : QStringLiteral("off")},
            {"mask", unit.maskadd},
            {"gateway", unit.gatewayadd},
            {"primaryDns", unit.primdnsadd},
            {"secondaryDns", unit.secdnsadd},
            {"vendor", unit.vid},
            {"product", unit.pid},
            {"adapter", adapter}};
}

// The adapters to scan, by their number; --adapter takes a name or an address.
QVector<int> adaptersOf(const HLNP &discovery, const QString &wanted)
{
    QVector<int> numbers;
    for (int i = 0; i < discovery.netcardIP.size(); ++i) {
        if (wanted.isEmpty() || wanted == discovery.netcardName.at(i) || wanted == discovery.netcardIP.at(i))
            numbers.append(i);
    }
    return numbers;
}

} // namespace

ExitCode discover(Session &session)
{
    qkv720 device;
    HLNP &discovery = *device.hlnpObj;
    const QString wanted = session.request().adapter;
    const QVector<int> adapters = adaptersOf(discovery, wanted);
    if (adapters.isEmpty()) {
        const QString known = discovery.netcardName.join(QStringLiteral(", "));
        return usage(wanted.isEmpty() ? QStringLiteral("this machine has no adapter that is connected")
                                      : QStringLiteral("%1: no such adapter is connected; there is %2")
                                            .arg(wanted, known.isEmpty() ? QStringLiteral("none") : known));
    }
    const Watchdog watchdog(session.request().timeoutMs);
    QJsonArray units;
    QVector<QStringList> rows;
    Progress progress(QStringLiteral("scanning"), adapters.size());
    for (int number : adapters) {
        device.HLNPScan(QStringLiteral("scan"), number);
        QThread::msleep(kBeforeModelsMs);
        device.HLNPGetModel();
        device.HLNPDoScanDone();
        for (int i = 0; i < qMin(device.getHLNPDeviceList().size(), kQkvDeviceRows); ++i) {
            QJsonObject json;
            QStringList row;
            QStringList heading;
            for (const auto &fact :
                 factsOf(discovery.qkvDevice[i].zcm.hlnpnetwork, discovery.netcardName.at(number))) {
                json.insert(QLatin1String(fact.first), fact.second);
                row.append(fact.second);
                heading.append(QLatin1String(fact.first));
            }
            units.append(json);
            if (rows.isEmpty())
                rows.append(heading);
            rows.append(row);
        }
        progress.step();
    }
    if (session.request().json)
        printJson({{"units", units}});
    else
        printTable(rows);
    if (!units.isEmpty())
        return Done;
    complain(QStringLiteral("no unit answers"));
    return NoLink;
}

} // namespace ctl
