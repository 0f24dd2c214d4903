#include "tests/device/devicebench.h"

#include <algorithm>
#include <limits>

// How long each command gives the unit. The lower bound is exact; the upper one is that of the quickest of a few
// runs, so that a busy machine doesn't blur 50 into 100 ms.
class WaitsTest : public QObject
{
    Q_OBJECT

private slots:
    void network_data();
    void network() { measure(kNetworkLink); }
    void serial_data();
    void serial() { measure(kSerialLink); }

private:
    static void rows(uint method);
    static void measure(uint method);
};

using Call = std::function<void(qkv720 &, uint)>;
Q_DECLARE_METATYPE(Call)

void WaitsTest::rows(uint method)
{
    QTest::addColumn<Call>("call");
    QTest::addColumn<int>("waitMs");
    const bool network = method == kNetworkLink;
    const int ordinary = network ? 50 : 150;
    const auto row = [](const char *name, const Call &call, int waitMs) {
        QTest::newRow(name) << call << waitMs;
    };

    row(
        "any get", [](qkv720 &d, uint m) { d.getCKShadow(m); }, ordinary);
    row(
        "any set", [](qkv720 &d, uint m) { d.setCKShadow(m, true, 5); }, ordinary);
    row(
        "any reset", [](qkv720 &d, uint m) { d.resetCKShadow(m); }, ordinary);
    row(
        "routing", [](qkv720 &d, uint m) { d.setOutputSelection(m, d.PGM, d.PVW, d.PGM, d.PVW); }, ordinary);
    row(
        "output standard read", [](qkv720 &d, uint m) { d.getVideoOut(m); }, ordinary);
    row(
        "output standard", [](qkv720 &d, uint m) { d.setVideoOut(m, P59_1080, RGB444, AUTO); }, 2000);
    row(
        "output standard, sum 0", [](qkv720 &d, uint m) { d.setVideoOut(m, P60_2160, YUV444, AUTO); },
        ordinary);
    row(
        "inputs", [](qkv720 &d, uint m) { d.setVideoInputSource(m, 1, 2, 3, 0, 0, 0, 0, 0, 0); }, 100);
    // 0x0C + 0xE1 + 1 + 2 + 0x10 = 0x100
    row(
        "inputs, sum 0", [](qkv720 &d, uint m) { d.setVideoInputSource(m, 1, 2, 0x10, 0, 0, 0, 0, 0, 0); },
        ordinary);
    row(
        "genlock reset", [](qkv720 &d, uint m) { d.resetVideoInputGenlock(m); }, 100);
    row(
        "cursor", [](qkv720 &d, uint m) { d.setCursor(m, 3, 100, 50); }, network ? 50 : 100);
    // 0x08 + 0xDD + 3 + 0x18 = 0x100
    row(
        "cursor, sum 0", [](qkv720 &d, uint m) { d.setCursor(m, 3, 0x18, 0); }, ordinary);
    row(
        "colour", [](qkv720 &d, uint m) { d.setBackColor(m, 1, 2, 3, 0); }, ordinary);
    row(
        "colour reset", [](qkv720 &d, uint m) { d.resetBackColor(m); }, ordinary);
    row(
        "automatic key 1", [](qkv720 &d, uint m) { d.setBackColor(m, 1, 2, 3, 1); }, network ? 2000 : 3000);
    row(
        "automatic key 2", [](qkv720 &d, uint m) { d.setBackColor(m, 1, 2, 3, 2); }, network ? 2000 : 3000);
    row(
        "unknown automatic mode", [](qkv720 &d, uint m) { d.setBackColor(m, 1, 2, 3, 3); }, 2000);
    row(
        "unknown mode whose sum is 0", [](qkv720 &d, uint m) { d.setBackColor(m, 0x23, 0, 0, 3); }, 2000);
}

void WaitsTest::network_data()
{
    rows(kNetworkLink);
}

void WaitsTest::serial_data()
{
    rows(kSerialLink);
}

void WaitsTest::measure(uint method)
{
    QFETCH(Call, call);
    QFETCH(int, waitMs);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    // No run may be quicker than the wait; one must come close to it.
    const int upperMs = waitMs < 1000 ? waitMs + 45 : waitMs + 800;
    double quickestMs = std::numeric_limits<double>::max();
    int runs = 0;
    while (quickestMs >= upperMs && runs < 20) {
        QElapsedTimer timer;
        timer.start();
        call(*bench.device, method);
        quickestMs = std::min(quickestMs, double(timer.nsecsElapsed()) / 1e6);
        ++runs;
    }
    QCOMPARE(bench.host.record().size(), runs); // no retries
    VERIFY_BETWEEN(quickestMs, double(waitMs), double(upperMs));
}

QTEST_GUILESS_MAIN(WaitsTest)
#include "tst_waits.moc"
