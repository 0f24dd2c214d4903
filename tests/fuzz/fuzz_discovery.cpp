// The whole of discovery and of the remote configuration: scans, models, sorting and every setting, under whatever
// datagrams come from whomever. No datagram leaves the program (see world.h). Whatever comes, the tables hold what
// their sizes allow, in order and without a duplicate, the list of units agrees with its rows, every call ends within
// the time that it tells, and what is sent says its own length.

#include "device/qkv720.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "tests/fuzz/neighbours.h"

#include <QCoreApplication>
#include <QSet>

#include <memory>

namespace {

constexpr int kMostSteps = 12;
constexpr qint64 kCollectionMs = 11 * 100;
constexpr qint64 kStalledScanMs = 500 * 100;
constexpr qint64 kLongestSettingMs = 11 * (1000 + 200) + 1000;

void requireTables(const HLNP &hlnp)
{
    require(hlnp.deviceCount >= 0 && hlnp.deviceCount <= kAllDeviceRows);
    QSet<QString> macs;
    for (int i = 0; i < hlnp.deviceCount; ++i) {
        const hlnp_network_info &network = hlnp.allHlnpDevice[i].zcm.hlnpnetwork;
        require(network.macadd.count(QLatin1Char(':')) == 5 && network.ipadd.count(QLatin1Char('.')) == 3);
        require(network.name.size() <= 16);
        require(!macs.contains(network.macadd));
        macs.insert(network.macadd);
    }
    const QStringList list = hlnp.qkvDeviceList();
    require(list.size() <= kQkvDeviceRows);
    for (int i = 0; i < list.size(); ++i)
        require(hlnp.qkvDevice[i].zcm.hlnpnetwork.ipadd == list.at(i));
}

void scan(qkv720 &device, Script &script)
{
    const HLNP &hlnp = *device.hlnpObj;
    const int adapter = static_cast<int>(script.byte() % 3) - 1;
    device.HLNPScan(QStringLiteral("scan"), adapter);
    device.HLNPGetModel();
    device.HLNPDoScanDone();
    requireTables(hlnp);
    for (int i = 1; i < hlnp.deviceCount; ++i)
        require(hlnp.allHlnpDevice[i - 1].series <= hlnp.allHlnpDevice[i].series);
}

QString text(Script &script)
{
    return QString::fromUtf8(script.counted());
}

// An address or a MAC of the neighbours as often as any text.
QString likely(Script &script, const char *known)
{
    const uint which = script.byte();
    return which % 2 == 0 ? QString::fromLatin1(known).arg(Neighbours::lastPart(static_cast<int>(which / 2)))
                          : text(script);
}

QString configure(HLNP &hlnp, Script &script)
{
    const uint what = script.byte() % 9;
    const QString ip = likely(script, "192.168.72.%1");
    const QString mac =
        hlnp.deviceCount > 0 && script.flag() ? hlnp.allHlnpDevice[0].zcm.hlnpnetwork.macadd : text(script);
    const QString value = likely(script, "10.0.%1.2");
    switch (what) {
    case 0:
        return hlnp.reset(mac, QString(), ip);
    case 1:
        return hlnp.setDhcpMode(mac, QString(), ip, static_cast<int>(script.byte()));
    case 2:
        return hlnp.setIpAdr(mac, QString(), ip, value, likely(script, "10.0.%1.1"));
    case 3:
        return hlnp.setDhcpName(QString(), ip, value);
    case 4:
        return hlnp.setMacAdr(QString(), ip, mac);
    case 5:
        return hlnp.setNetmask(QString(), ip, value);
    case 6:
        return hlnp.setGateway(QString(), ip, value);
    case 7:
        return hlnp.setPrimDNS(QString(), ip, value);
    default:
        return hlnp.setSecDNS(QString(), ip, value);
    }
}

void step(qkv720 &device, Script &script, const Neighbours &neighbours)
{
    HLNP &hlnp = *device.hlnpObj;
    const qint64 begun = world::nowMs();
    qint64 longest = kCollectionMs;
    const int sentBefore = neighbours.sent();
    switch (script.byte() % 8) {
    case 0:
    case 1:
        scan(device, script);
        // Late answers may add rows while the models are asked for, up to the table's end.
        longest = 500 + kCollectionMs + kStalledScanMs + 100 + kAllDeviceRows * (kCollectionMs + 100);
        break;
    case 2:
        hlnp.getModel(likely(script, "192.168.72.%1"));
        break;
    case 3:
        hlnp.getModelName(likely(script, "192.168.72.%1"));
        break;
    case 4:
        hlnp.getFWVersion(likely(script, "192.168.72.%1"));
        longest = 1000 + kCollectionMs;
        break;
    case 5:
        hlnp.processDatagrams();
        break;
    default:
        require(!configure(hlnp, script).isEmpty());
        longest = kLongestSettingMs;
        require(neighbours.sent() - sentBefore <= 1);
        break;
    }
    require(world::nowMs() - begun <= longest);
    requireTables(hlnp);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    world::isolate();
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    // The device object makes the adapters' list once; each input has a discovery object of its own.
    static qkv720 device;
    static const QStringList adapters = device.hlnpObj->netcardlist;
    require(adapters.size() == 1);
    static std::unique_ptr<HLNP> inUse(device.hlnpObj);

    Script script(data, size);
    world::begin({});
    Neighbours neighbours(script);
    inUse = std::make_unique<HLNP>();
    inUse->netcardlist = adapters;
    device.hlnpObj = inUse.get();
    returncount = 0; // the one count that outlives a scan
    for (int i = 0; i < kMostSteps && !script.atEnd(); ++i)
        step(device, script, neighbours);
    world::begin({});
    return 0;
}
