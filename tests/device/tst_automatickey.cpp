#include "tests/device/devicebench.h"
#include "tests/device/unitfields.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {
// A chain as the unit sends it, head by head: mode 2, and values that show where each byte went.
const char *const kChain = "0A 00 D0 B7 00 E2 00 C7 02 02 3E" // echo
                           "0A 00 50 B7 00 E2 00 C7 02 02 BE" // colour
                           "05 00 51 37 41 CE" // angle
                           "08 00 52 8C 00 5C 03 01 46" // levels
                           "09 00 53 01 F0 00 E8 03 64 9C" // dark
                           "09 00 54 02 4A 01 F4 01 9C 3A" // bright
                           "06 00 55 01 D2 00 2E" // shadow
                           "0D 00 56 58 02 2C 01 8A 02 75 01 80 8A F6" // spill
                           "0C 00 58 01 02 03 04 05 06 07 08 09 8E"; // more, not taken

QByteArray chain()
{
    return QByteArray::fromHex(kChain);
}

// Where the fields of the chain lie.
const QVector<FieldRow> kChainFields = {
    {"ckBackColor.r", 14, Kind::Word},
    {"ckBackColor.g", 16, Kind::Word},
    {"ckBackColor.b", 18, Kind::Word},
    {"ckBackColor.autoCk", 20, Kind::WideByte},
    {"tempR", 14, Kind::Word},
    {"tempG", 16, Kind::Word},
    {"tempB", 18, Kind::Word},
    {"ckAngleL", 25, Kind::WideByte},
    {"ckAngleR", 26, Kind::WideByte},
    {"ckBlackLevel", 31, Kind::Word},
    {"ckWhiteLevel", 33, Kind::Word},
    {"matteEnable", 35, Kind::IsPositive},
    {"ckDark.enable", 40, Kind::IsOne},
    {"ckDark.level", 41, Kind::Word},
    {"ckDark.density", 43, Kind::Word},
    {"ckDark.balance", 45, Kind::SignedByte},
    {"ckBright.enable", 50, Kind::IsOne},
    {"ckBright.level", 51, Kind::Word},
    {"ckBright.density", 53, Kind::Word},
    {"ckBright.balance", 55, Kind::SignedByte},
    {"ckShadow.enable", 60, Kind::IsOne},
    {"ckShadow.level", 61, Kind::Word},
    {"spillSuppression", 67, Kind::Word},
    {"spillEnhance", 69, Kind::Word},
    {"spillBalance", 71, Kind::Word},
    {"spillBrightness", 73, Kind::Word},
    {"spillVivid", 75, Kind::IsSet},
    {"spillDefaultValue", 76, Kind::WideByte},
};

// The state after `body` was taken as a chain: nothing else changes, edge fix and the shadow's density included.
Snapshot afterChain(Snapshot before, const QByteArray &body)
{
    overlay(before, kChainFields, body);
    return before;
}

// Takes cut chains on one link until all lengths are through; gives what was wrong with them.
QString takeCutChains(uint method, std::atomic<int> &next)
{
    DeviceBench bench(method);
    if (!bench.connectUnit())
        return QStringLiteral("no link");
    QString complaint;
    for (int length = next++; length < chain().size(); length = next++) {
        const QByteArray body = chain().left(length);
        bench.host.clearRecord();
        bench.host.setFault(0xD0, standin::Fault::answer(body));
        scramble(*bench.device, length);
        const Snapshot before = snapshotOf(*bench.device);
        bench.device->setBackColor(method, 1, 2, 3, 1);
        const QString wrong = differences(snapshotOf(*bench.device), afterChain(before, body));
        if (!wrong.isEmpty())
            complaint += QStringLiteral("cut at %1: %2\n").arg(length).arg(wrong);
        if (bench.host.count(0xD0) != 1 || bench.broken.count() != 0 || !bench.device->isConnected)
            complaint += QStringLiteral("cut at %1: asked again or link lost\n").arg(length);
    }
    return complaint;
}
} // namespace

// The automatic key: its long waits and the chain of replies that it brings.
class AutomaticKeyTest : public QObject
{
    Q_OBJECT

private slots:
    void automaticKeyWithAUnit_data();
    void automaticKeyWithAUnit();
    void chainFields_data() { bothLinks(); }
    void chainFields();
    // From 2 bytes on the network link, where the two length bytes make them 4; on the serial link even silence is
    // taken.
    void chainCutAnywhereOnNetwork() { chainCutAnywhere(kNetworkLink, 2); }
    void chainCutAnywhereOnSerial() { chainCutAnywhere(kSerialLink, 0); }
    void chainSplitOnNetwork();
    void chainSplitOnSerial();
    void lateChain_data();
    void lateChain();
    void unknownModeTakesNoChain_data() { bothLinks(); }
    void unknownModeTakesNoChain();
    void automaticKeyLadderFalls();
    void automaticKeyOnClosedPort();
    void automaticKeyIsNotRetriedOnSerial();
    void logLines_data();
    void logLines();

private:
    static void bothLinks()
    {
        QTest::addColumn<uint>("method");
        QTest::newRow("network") << uint(kNetworkLink);
        QTest::newRow("serial") << uint(kSerialLink);
    }
    static void chainCutAnywhere(uint method, int shortest);
};

void AutomaticKeyTest::automaticKeyWithAUnit_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<uint>("mode");
    QTest::newRow("network, AutoDef") << uint(kNetworkLink) << 1U;
    QTest::newRow("network, AutoBack") << uint(kNetworkLink) << 2U;
    QTest::newRow("serial, AutoDef") << uint(kSerialLink) << 1U;
    QTest::newRow("serial, AutoBack") << uint(kSerialLink) << 2U;
}

void AutomaticKeyTest::automaticKeyWithAUnit()
{
    QFETCH(uint, method);
    QFETCH(uint, mode);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setBackdrop(11, 222, 987); });
    qkv720 &device = *bench.device;
    device.edge_SoftEdge = 41;
    device.edgeFixEnable = true;
    device.setBackColor(method, 1, 2, 3, mode);
    QCOMPARE(bench.host.record().size(), 1);
    QCOMPARE(int(device.ckBackColor.r), 11);
    QCOMPARE(int(device.ckBackColor.g), 222);
    QCOMPARE(int(device.ckBackColor.b), 987);
    QCOMPARE(device.ckBackColor.autoCk, mode);
    QCOMPARE(int(device.tempB), 987);

    // What the chain brought is what the unit now holds.
    const auto value = [&bench](int code, const char *field) {
        int held = 0;
        bench.host.withUnit(
            [&](standin::Unit &unit) { held = unit.value(code, QString::fromLatin1(field)); });
        return held;
    };
    QCOMPARE(int(device.ckAngleL), value(standin::Angle, "left"));
    QCOMPARE(int(device.ckAngleR), value(standin::Angle, "right"));
    QCOMPARE(int(device.ckBlackLevel), value(standin::Levels, "black"));
    QCOMPARE(int(device.ckWhiteLevel), value(standin::Levels, "white"));
    QCOMPARE(int(device.ckDark.level), value(standin::Dark, "level"));
    QCOMPARE(int(device.ckDark.density), value(standin::Dark, "density"));
    QCOMPARE(int(device.ckDark.balance), value(standin::Dark, "balance"));
    QCOMPARE(int(device.ckBright.level), value(standin::Bright, "level"));
    QCOMPARE(int(device.ckShadow.level), value(standin::Shadow, "level"));
    QCOMPARE(int(device.spillSuppression), value(standin::Spill, "suppression"));
    QCOMPARE(int(device.spillBrightness), value(standin::Spill, "brightness"));
    QCOMPARE(int(device.spillDefaultValue), value(standin::Spill, "preset"));
    // Edge fix is not part of it.
    QCOMPARE(device.edge_SoftEdge, 41U);
    QVERIFY(device.edgeFixEnable);
    QVERIFY(device.isConnected);
}

void AutomaticKeyTest::chainFields()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(chain()));
    qkv720 &device = *bench.device;
    for (int round = 0; round < 2; ++round) {
        scramble(device, round);
        const Snapshot before = snapshotOf(device);
        device.setBackColor(method, 1, 2, 3, 2);
        QCOMPARE(differences(snapshotOf(device), afterChain(before, chain())), QString());
    }
    // The same in plain numbers.
    QCOMPARE(int(device.ckBackColor.b), 711);
    QCOMPARE(device.ckAngleL, 0x37U);
    QCOMPARE(int(device.ckWhiteLevel), 860);
    QVERIFY(device.matteEnable);
    QVERIFY(device.ckDark.enable);
    QVERIFY(!device.ckBright.enable); // 2 is not 1
    QCOMPARE(int(device.ckBright.balance), -100);
    QCOMPARE(int(device.ckShadow.level), 210);
    QCOMPARE(int(device.spillBrightness), 373);
    QVERIFY(device.spillVivid); // 0x80 is not 0
    QCOMPARE(device.spillDefaultValue, 0xFFFFFF8AU);
    QCOMPARE(bench.host.count(0xD0), 2); // the sum over the whole doesn't come out, and nobody minds
    QVERIFY(device.isConnected);
}

// Every length that a chain can be cut to: what is missing reads as 0, and the rest of the state stays.
void AutomaticKeyTest::chainCutAnywhere(uint method, int shortest)
{
    // Each attempt takes seconds of waiting, so the lengths are shared out among links of their own.
    constexpr int kLinks = 13;
    std::atomic<int> next{shortest};
    QStringList complaints;
    QMutex mutex;
    std::vector<std::thread> links;
    for (int i = 0; i < kLinks; ++i) {
        links.emplace_back([&] {
            const QString complaint = takeCutChains(method, next);
            const QMutexLocker locker(&mutex);
            if (!complaint.isEmpty())
                complaints.append(complaint);
        });
    }
    for (std::thread &link : links)
        link.join();
    QCOMPARE(complaints, QStringList());
    QVERIFY(next >= chain().size());
}

// What comes after the wait is cut off: the parts are not put together, and the tail spoils the next read.
void AutomaticKeyTest::chainSplitOnNetwork()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    // Both parts lie there when the wait is over.
    bench.host.setFault(0xD0, standin::Fault::answer(chain()));
    bench.host.setFault(0xD0, standin::Fault::split(30, 1500));
    bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QCOMPARE(int(bench.device->spillSuppression), 600);
    // The second part comes too late.
    bench.host.setFault(0xD0, standin::Fault::split(30, 3500));
    bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QCOMPARE(int(bench.device->spillSuppression), 0);
    QTest::qSleep(1800);
    QByteArray ask = QByteArray::fromHex("000603005154");
    QByteArray reply;
    QVERIFY(bench.device->hlnpIO(&ask, &reply) > 0);
    QVERIFY(reply.size() > 8);
}

// What comes after the wait is lost to this read: on the serial link there is no second one.
void AutomaticKeyTest::chainSplitOnSerial()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setBackdrop(11, 222, 987); });
    // Both parts lie there when the wait is over.
    bench.host.setFault(0xD0, standin::Fault::split(24, 2400, 1));
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 2);
    QCOMPARE(int(bench.device->ckBackColor.b), 987);
    QVERIFY(bench.device->ckAngleL != 0);
    QVERIFY(bench.device->spillBrightness != 0);

    // The second part comes too late.
    bench.host.setFault(0xD0, standin::Fault::split(24, 4500, 1));
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 2);
    QCOMPARE(int(bench.device->ckBackColor.b), 987);
    QCOMPARE(bench.device->ckAngleL, 0U);
    QCOMPARE(int(bench.device->spillBrightness), 0);
    // The tail lies in the port's buffer in front of the next reply.
    QTest::qSleep(1800);
    QByteArray ask = QByteArray::fromHex("03005154");
    QByteArray reply;
    QCOMPARE(bench.device->serialIO(&ask, &reply), -24);
    QVERIFY(reply.size() > 6);
}

void AutomaticKeyTest::lateChain_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<int>("afterMs");
    QTest::addColumn<bool>("taken");
    // The wait of the command, and up to a second more for the first byte: 3 and 4 s.
    QTest::newRow("network, in time") << uint(kNetworkLink) << 2500 << true;
    QTest::newRow("network, too late") << uint(kNetworkLink) << 3200 << false;
    QTest::newRow("serial, in time") << uint(kSerialLink) << 3500 << true;
    QTest::newRow("serial, too late") << uint(kSerialLink) << 4200 << false;
}

void AutomaticKeyTest::lateChain()
{
    QFETCH(uint, method);
    QFETCH(int, afterMs);
    QFETCH(bool, taken);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.withUnit([](standin::Unit &unit) { unit.setBackdrop(11, 222, 987); });
    const bool network = method == kNetworkLink;
    support::Stopwatch timer;
    // A busy machine may let the panel wait until the late chain is there, but not at each try.
    constexpr int kTries = 4;
    bool arrived = true;
    for (int i = 0; i < kTries && arrived; ++i) {
        bench.host.clearRecord();
        bench.host.setFault(0xD0, standin::Fault::late(afterMs, 1));
        scramble(*bench.device, 0);
        timer.restart();
        bench.device->setBackColor(method, 1, 2, 3, 2);
        timer.stop();
        arrived = !taken && timer.elapsed() >= afterMs && timer.elapsed() < afterMs + 900;
    }
    // The network ladder asks again and finds the late chain; the serial link takes silence for a chain of zeros.
    QCOMPARE(bench.host.count(0xD0), network && !taken ? 2 : 1);
    QCOMPARE(bench.broken.count(), network && !taken ? 1 : 0);
    QCOMPARE(bench.device->isConnected, taken || !network);
    const bool zeros = !network && !taken;
    QCOMPARE(int(bench.device->ckBackColor.r), zeros ? 0 : 11);
    QCOMPARE(int(bench.device->ckBackColor.b), zeros ? 0 : 987);
    QCOMPARE(int(bench.device->tempG), zeros ? 0 : 222);
    QCOMPARE(bench.device->ckBackColor.autoCk, zeros ? 0U : 2U);
    if (taken)
        VERIFY_TOOK(timer, afterMs - 5, afterMs + 900);
    else if (network)
        VERIFY_TOOK(timer, 3000 + 3000 + 2000 - 5, 3000 + 3000 + 2000 + 1500);
    else
        VERIFY_TOOK(timer, 3000 + 1000 - 5, 3000 + 1000 + 1500);
}

void AutomaticKeyTest::unknownModeTakesNoChain()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(withChecksum(chain())));
    scramble(*bench.device, 0);
    Snapshot expected = snapshotOf(*bench.device);
    overlay(expected,
            {{"ckBackColor.r", 0, Kind::Word},
             {"ckBackColor.g", 2, Kind::Word},
             {"ckBackColor.b", 4, Kind::Word}},
            QByteArray::fromHex("010002000300"));
    bench.device->setBackColor(method, 1, 2, 3, 3);
    QCOMPARE(differences(snapshotOf(*bench.device), expected), QString());
    QCOMPARE(bench.host.count(0xD0), 1);
}

void AutomaticKeyTest::automaticKeyLadderFalls()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::shortened(3));
    bench.device->ckAngleL = 99;
    QVERIFY(bench.framesComeApart({5000, 3000, 2500},
                                  [&bench] { bench.device->setBackColor(kNetworkLink, 1, 2, 3, 2); }));
    QCOMPARE(bench.host.count(0xD0), 4);
    QCOMPARE(bench.device->ckAngleL, 99U); // nothing to take
    QVERIFY(!bench.device->isConnected);
}

void AutomaticKeyTest::automaticKeyOnClosedPort()
{
    DeviceBench bench(kSerialLink); // never opened
    bench.device->isConnected = true;
    bench.device->ckAngleL = 99;
    support::Stopwatch timer;
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 1);
    VERIFY_TOOK(timer, 900, 1800); // one attempt of four writes, and no wait for a reply
    QCOMPARE(bench.broken.count(), 1);
    QVERIFY(!bench.device->isConnected);
    QCOMPARE(bench.device->ckAngleL, 99U);
    QCOMPARE(int(bench.device->ckBackColor.r), 1);
}

void AutomaticKeyTest::automaticKeyIsNotRetriedOnSerial()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::wrongChecksum());
    bench.device->setBackColor(kSerialLink, 1, 2, 3, 2);
    QCOMPARE(bench.host.count(0xD0), 1);
    QCOMPARE(bench.device->ckAngleL, 0x37U);
    QVERIFY(bench.device->isConnected);
}

void AutomaticKeyTest::logLines_data()
{
    QTest::addColumn<uint>("method");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("network") << uint(kNetworkLink)
                             << QStringList{QStringLiteral("Set RGB from string 1 2 3"),
                                            QStringLiteral("CK HLNP result EEE: 13"),
                                            QStringLiteral("Auto BACK COLOR 2 %1").arg(chain().size())};
    QTest::newRow("serial") << uint(kSerialLink)
                            << QStringList{
                                   QStringLiteral("Set RGB from string 1 2 3"),
                                   QStringLiteral("Do Auto must wait longer"),
                                   QStringLiteral("[qkv720:: serialIO] Serial Read:  %1").arg(chain().size()),
                                   QStringLiteral("Auto BACK COLOR 2 %1").arg(chain().size())};
}

void AutomaticKeyTest::logLines()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xD0, standin::Fault::answer(chain()));
    const support::LogCapture log;
    bench.device->setBackColor(method, 1, 2, 3, 2);
    QTEST(support::LogCapture::logs(), "expected");
}

QTEST_GUILESS_MAIN(AutomaticKeyTest)
#include "tst_automatickey.moc"
