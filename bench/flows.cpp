#include "bench/benchrun.h"
#include "bench/report.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <functional>
#include <vector>

// The long flows against their mandated waits: connect, recall and automatic key on both links, scans of a growing
// network, a save of network settings. Each line shows how the mandated sum comes about.
// Arguments: the numbers of units to scan, as many as wanted.

namespace {

int exitStatus = 0;

void measure(const QString &name, const char *sum, int mandatedMs, const std::function<bool()> &flow)
{
    QElapsedTimer clock;
    clock.start();
    const bool worked = flow();
    const double elapsed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    bench::report({{"bench", "flow"},
                   {"name", name},
                   {"sum", sum},
                   {"mandatedMs", mandatedMs},
                   {"elapsedMs", elapsed},
                   {"ratio", elapsed / mandatedMs},
                   {"good", worked}});
    if (!worked)
        exitStatus = 1;
}

void links()
{
    support::UnitHost::Options options;
    options.serial = true;
    support::UnitHost unit(options);
    BenchRun run;
    mainControl &panel = run.facade();

    measure(QStringLiteral("connect network"), "200 + 21 exchanges of 50", 200 + 21 * 50,
            [&] { return panel.deviceConnect(1, unit.address(), 0) == QLatin1String("OK"); });
    measure(QStringLiteral("recall network"), "2600 + 20 exchanges of 50", 2600 + 20 * 50, [&] {
        panel.loadMemory(1);
        return panel.isConnected();
    });
    measure(QStringLiteral("automatic key network"), "2000", 2000, [&] {
        panel.setBKColor(1, 2, 3, 2);
        return panel.isConnected();
    });
    panel.deviceDisConnect(1);
    measure(QStringLiteral("connect serial"), "200 + 21 exchanges of 150", 200 + 21 * 150,
            [&] { return panel.deviceConnect(2, unit.serialPortName(), 0) == QLatin1String("OK"); });
    measure(QStringLiteral("recall serial"), "2600 + 20 exchanges of 150", 2600 + 20 * 150, [&] {
        panel.loadMemory(1);
        return panel.isConnected();
    });
    measure(QStringLiteral("automatic key serial"), "3000", 3000, [&] {
        panel.setBKColor(1, 2, 3, 2);
        return panel.isConnected();
    });
    panel.deviceDisConnect(2);
}

// Every setting that a save can change without the unit moving away: six commands, five pauses after them.
void save(mainControl &panel, const QString &unit)
{
    measure(QStringLiteral("network save"), "acknowledged at once: 4 pauses of 300", 4 * 300, [&] {
        return panel.hlnpSave(QStringLiteral("192.168.72.1"), QStringLiteral("[192.168.72.1] eth0"),
                              panel.ipSelectList.indexOf(unit), QStringLiteral("00:50:C2:72:00:01"),
                              QStringLiteral("BENCH"), 1, unit, QStringLiteral("255.255.0.0"),
                              QStringLiteral("192.168.72.9"), QStringLiteral("192.168.72.8"),
                              QStringLiteral("192.168.72.7"))
            == QLatin1String("OK");
    });
}

// The panel's thread moves into a namespace for good, so this comes last.
bool scans(const std::vector<int> &counts)
{
    const int most = *std::max_element(counts.begin(), counts.end());
    support::TestNetwork net;
    const QString host = net.addHost();
    const QString unitsHost = net.addHost();
    const QString cable = net.addSwitch();
    QStringList addresses;
    for (int i = 0; i < most; ++i)
        addresses += QStringLiteral("192.168.72.%1").arg(10 + i);
    QStringList withPrefix = addresses;
    for (QString &address : withPrefix)
        address += QStringLiteral("/24");
    net.plug(host, QStringLiteral("eth0"), cable, {QStringLiteral("192.168.72.1/24")});
    net.plug(unitsHost, QStringLiteral("eth0"), cable, withPrefix);
    if (!net.isGood() || !support::TestNetwork::enter(host)) {
        fprintf(stderr, "%s\n", qPrintable(net.complaint()));
        return false;
    }

    std::vector<std::unique_ptr<support::UnitHost>> units;
    for (const int count : counts) {
        while (static_cast<int>(units.size()) < count) {
            const int next = static_cast<int>(units.size());
            support::UnitHost::Options options;
            options.address = addresses.at(next);
            options.netNamespace = unitsHost;
            options.discovery = options.broadcasts = true;
            units.push_back(std::make_unique<support::UnitHost>(options));
            units.back()->withNetwork([next](standin::NetworkSettings &settings) {
                settings.mac = QByteArray::fromHex("0050c2720000");
                settings.mac[5] = static_cast<char>(next + 1);
            });
        }
        BenchRun run;
        run.facade().getNetcardList();
        const int mandated = 500 + (11 - count) * 100 + 100 + 500 + count * 1100;
        measure(QStringLiteral("scan of %1").arg(count), "500 + (11 - n) 100 + 100 + 500 + n 1100", mandated,
                [&] {
                    return run.facade().hlnpScan(QStringLiteral("scan"), 0) == 1
                        && run.facade().ipSelectList.size() == count;
                });
        if (count == most && most > 0)
            save(run.facade(), addresses.constFirst());
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    std::vector<int> counts;
    for (int i = 1; i < argc; ++i)
        counts.push_back(std::clamp(atoi(argv[i]), 0, 10));
    if (counts.empty())
        counts = {0, 1, 5, 10};
    links();
    if (!scans(counts))
        exitStatus = 1;
    return exitStatus;
}
