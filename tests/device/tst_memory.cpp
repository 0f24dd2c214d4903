#include "tests/device/devicebench.h"
#include "tests/device/unitfields.h"

// User memories and the setup store.
class MemoryTest : public QObject
{
    Q_OBJECT

private slots:
    void saveSetupDoesNotReconnect();
    void memoriesAndSetup_data();
    void memoriesAndSetup();
    void savingChangesNoField_data();
    void savingChangesNoField();
    void failedRecallRefreshesNothing();
    void fourWrongChecksumsRefreshNothing();
};

void MemoryTest::saveSetupDoesNotReconnect()
{
    DeviceBench bench(kNetworkLink);
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.letSocketFall());
    bench.device->saveSetup(kNetworkLink);
    QCOMPARE(bench.socket()->state(), QTcpSocket::UnconnectedState);
    QCOMPARE(bench.host.record().size(), 0);
    QCOMPARE(bench.broken.count(), 0);
    QVERIFY(bench.device->isConnected);
}

void MemoryTest::memoriesAndSetup_data()
{
    QTest::addColumn<uint>("method");
    QTest::newRow("network") << uint(kNetworkLink);
    QTest::newRow("serial") << uint(kSerialLink);
}

void MemoryTest::memoriesAndSetup()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    const QStringList status = {frameOn(method, "03006366"), frameOn(method, "03006063"),
                                frameOn(method, "03006164"), frameOn(method, "03006265")};
    const QString separator = QStringLiteral(", ");
    bench.device->setVideoOut(method, PAL, YUV422, FIXED);
    bench.host.clearRecord();

    bench.device->saveMemory(method, 3);
    QCOMPARE(bench.frames(), frameOn(method, "0400E403EB"));
    bench.host.clearRecord();

    bench.device->loadMemory(method, 0);
    QCOMPARE(bench.frames(), (QStringList{frameOn(method, "0400640068")} + status).join(separator));
    QCOMPARE(int(bench.device->videoOut.res), int(P59_1080)); // the factory's
    bench.host.clearRecord();

    bench.device->loadMemory(method, 3);
    QCOMPARE(bench.frames(), (QStringList{frameOn(method, "040064036B")} + status).join(separator));
    QCOMPARE(int(bench.device->videoOut.res), int(PAL));
    bench.host.clearRecord();

    // The number is cut to a byte: this one is the factory's.
    bench.device->loadMemory(method, 256);
    QCOMPARE(bench.frames(), (QStringList{frameOn(method, "0400640068")} + status).join(separator));
    QCOMPARE(int(bench.device->videoOut.res), int(P59_1080));
    bench.host.clearRecord();

    bench.device->saveMemory(method, 256);
    QCOMPARE(bench.frames(), frameOn(method, "0400E400E8"));
    bench.host.clearRecord();

    bench.device->saveSetup(method);
    QCOMPARE(bench.frames(), (QStringList{frameOn(method, "0300E5E8")} + status).join(separator));
    QVERIFY(bench.device->isConnected);
}

void MemoryTest::savingChangesNoField_data()
{
    memoriesAndSetup_data();
}

void MemoryTest::savingChangesNoField()
{
    QFETCH(uint, method);
    DeviceBench bench(method);
    QVERIFY(bench.connectUnit());
    for (int round = 0; round < 2; ++round) {
        scramble(*bench.device, round);
        const Snapshot before = snapshotOf(*bench.device);
        bench.device->saveMemory(method, 5);
        QCOMPARE(differences(snapshotOf(*bench.device), before), QString());
    }
}

void MemoryTest::failedRecallRefreshesNothing()
{
    DeviceBench network(kNetworkLink);
    QVERIFY(network.connectUnit());
    network.host.setFault(standin::AnyCode, standin::Fault::shortened(3));
    network.device->loadMemory(kNetworkLink, 1);
    QCOMPARE(network.host.codes(), (QVector<int>{0x64, 0x64, 0x64, 0x64}));
    network.host.clearRecord();
    // The flag has fallen; this operation alone looks at the socket instead, and that still stands.
    network.device->saveSetup(kNetworkLink);
    QCOMPARE(network.host.codes(), (QVector<int>{0xE5, 0xE5, 0xE5, 0xE5}));

    DeviceBench serial(kSerialLink);
    QVERIFY(serial.connectUnit());
    serial.host.setFault(standin::AnyCode, standin::Fault::silent());
    serial.device->loadMemory(kSerialLink, 1);
    QCOMPARE(serial.host.codes(), (QVector<int>{0x64}));
    serial.host.clearRecord();
    serial.device->saveSetup(kSerialLink);
    QCOMPARE(serial.host.codes(), (QVector<int>{0xE5}));
}

void MemoryTest::fourWrongChecksumsRefreshNothing()
{
    DeviceBench bench(kSerialLink);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Memory, standin::Fault::wrongChecksum());
    bench.host.setFault(standin::SaveSetup, standin::Fault::wrongChecksum());
    bench.device->loadMemory(kSerialLink, 1);
    QCOMPARE(bench.host.codes(), (QVector<int>{0x64, 0x64, 0x64, 0x64}));
    bench.host.clearRecord();
    bench.device->saveSetup(kSerialLink);
    QCOMPARE(bench.host.codes(), (QVector<int>{0xE5, 0xE5, 0xE5, 0xE5}));
    QVERIFY(bench.device->isConnected);
    QCOMPARE(bench.broken.count(), 0);
}

QTEST_GUILESS_MAIN(MemoryTest)
#include "tst_memory.moc"
