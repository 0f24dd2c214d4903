// Every operation of the device class through the shipped transports: a real socket or a real terminal, a unit behind
// it whose answers the input bends, and no time lost in sleeps. Whatever comes, the panel sends frames that a unit can
// read, ends within the waits that its tables tell, sends nothing on a link that it has given up, and a fresh connect
// to a unit that answers again works.

#include "device/timing.h"
#include "tests/fuzz/operations.h"
#include "tests/fuzz/unitpeer.h"

#include <QCoreApplication>

namespace {

constexpr int kMostOperations = 16;
// One exchange at its longest: four attempts, each with both waits of the socket and the longest sleep, and the
// longest ladder; the serial link has its write ladder in the place of a wait, and the automatic key's own sleep.
constexpr qint64 kLongestExchangeMs = 4 * (1000 + 3000 + 1000) + 4500;

void connectAnew(qkv720 &device, uint method, UnitPeer &peer)
{
    device.disconnectDevice(method);
    peer.calmDown();
    require(device.connectDevice(method, peer.target()) == QLatin1String("OK"));
    require(device.isConnected);
    uint left = 0;
    uint right = 0;
    device.getCKAngle(method, &left, &right);
    const auto wire = [&peer](const char *field) {
        return static_cast<uint>(
            static_cast<signed char>(peer.unit.value(standin::Angle, QLatin1String(field))));
    };
    require(left == wire("left") && right == wire("right") && device.isConnected);
}

void operate(qkv720 &device, uint method, UnitPeer &peer, Script &script)
{
    const auto &all = fuzzedOperations();
    const FuzzedOperation &operation = all.at(static_cast<int>(script.byte()) % all.size());
    const bool mayAsk = device.isConnected || method == kSerialLink || !operation.asksFirst;
    const int framesBefore = peer.frames();
    const qint64 begun = world::nowMs();
    operation.call(device, method, script);
    require(world::nowMs() - begun <= qMax(1, operation.frames) * kLongestExchangeMs);
    const int sent = peer.frames() - framesBefore;
    require(sent <= operation.frames * 4);
    require(mayAsk || sent == 0);
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
    Script script(data, size);
    const uint method = script.flag() ? kSerialLink : kNetworkLink;
    const bool bentFromTheStart = script.flag();
    UnitPeer peer(method == kSerialLink ? standin::LinkKind::Serial : standin::LinkKind::Network, script);
    world::begin([&peer] { peer.look(); });
    ShortLivedDevice device;
    peer.bendAnswers(bentFromTheStart);
    const QString words = device->connectDevice(method, peer.target());
    require(bentFromTheStart || words == QLatin1String("OK"));
    peer.bendAnswers(true);
    for (int i = 0; i < kMostOperations && !script.atEnd(); ++i) {
        operate(*device, method, peer, script);
        QCoreApplication::processEvents(); // a link that fell shows in the socket
    }
    connectAnew(*device, method, peer);
    require(peer.badFrames() == 0);
    device->disconnectDevice(method);
    world::begin({});
    return 0;
}
