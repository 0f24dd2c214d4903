#include "bench/benchrun.h"
#include "tests/support/testnetwork.h"
#include "tests/support/unithost.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <functional>
#include <vector>

// The long flows against their mandated waits: connect and recall on both links, scans of 0, 1 and 5 units.
// Each line shows how the mandated sum comes about. Ends with 1 when a flow takes more than 1.03 of it.

namespace {

constexpr double kAllowed = 1.03;
int exitStatus = 0;

void measure(const char *name, const char *sum, int mandatedMs, const std::function<bool()> &flow)
{
    QElapsedTimer clock;
    clock.start();
    const bool worked = flow();
    const double elapsed = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    const double ratio = elapsed / mandatedMs;
    const bool good = worked && ratio <= kAllowed;
    printf("%-16s %8.1f ms of %5d mandated   %.4f  %s   (%s)\n", name, elapsed, mandatedMs, ratio,
           good         ? "good"
               : worked ? "TOO SLOW"
                        : "FAILED",
           sum);
    fflush(stdout);
    if (!good)
        exitStatus = 1;
}

void links()
{
    support::UnitHost::Options options;
    options.serial = true;
    support::UnitHost unit(options);
    BenchRun run;
    mainControl &panel = run.facade();

    measure("connect network", "200 + 21 exchanges of 50", 200 + 21 * 50,
            [&] { return panel.deviceConnect(1, unit.address(), 0) == QLatin1String("OK"); });
    measure("recall network", "2600 + 20 exchanges of 50", 2600 + 20 * 50, [&] {
        panel.loadMemory(1);
        return panel.isConnected();
    });
    panel.deviceDisConnect(1);
    measure("connect serial", "200 + 21 exchanges of 150", 200 + 21 * 150,
            [&] { return panel.deviceConnect(2, unit.serialPortName(), 0) == QLatin1String("OK"); });
    measure("recall serial", "2600 + 20 exchanges of 150", 2600 + 20 * 150, [&] {
        panel.loadMemory(1);
        return panel.isConnected();
    });
    panel.deviceDisConnect(2);
}

// The panel's thread moves into a namespace for good, so this comes last.
bool scans()
{
    constexpr int kMostUnits = 5;
    support::TestNetwork net;
    const QString host = net.addHost();
    const QString unitsHost = net.addHost();
    const QString cable = net.addSwitch();
    QStringList addresses;
    for (int i = 0; i < kMostUnits; ++i)
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
    for (const int count : {0, 1, kMostUnits}) {
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
        const QByteArray name = "scan of " + QByteArray::number(count);
        measure(name.constData(), "500 + (11 - n) 100 + 100 + 500 + n 1100", mandated, [&] {
            return run.facade().hlnpScan(QStringLiteral("scan"), 0) == 1
                && run.facade().ipSelectList.size() == count;
        });
    }
    return true;
}

} // namespace

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    links();
    if (!scans())
        exitStatus = 1;
    return exitStatus;
}
