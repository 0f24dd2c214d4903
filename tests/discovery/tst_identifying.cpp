#include "discovery/hlnpstate.h"
#include "scanbench.h"
#include "tests/support/stopwatch.h"

#include <QElapsedTimer>

// What a scan makes of the answers: whom it asks for its identifiers, and who gets which.

class TestIdentifying : public ScanBench
{
    Q_OBJECT

private slots:
    void init() { QVERIFY2(raise(), qPrintable(net->complaint())); }
    void cleanup() { net.reset(); }

    void theShorterAddressTakesTheIdentifiersOfTheLonger();
    void answersFromAnotherPortAndTwice();
    void aUnitThatComesLateIsAskedInTheSameScan();
    void twoRowsOfOneAddressAskTheLaterMac();
    void aUnitThatKeepsItsIdentifiersIsNotListed();
    void aModelNameIsAskedByTheDormantPath();
};

void TestIdentifying::theShorterAddressTakesTheIdentifiersOfTheLonger()
{
    QVector<Device> both = numbered({10, 100});
    both[0].identifiers = "01020304";
    const auto devices = switchOn(both);
    qkv720 panel;
    QCOMPARE(scan(panel), 1U);
    QCOMPARE(panel.hlnpObj->allHlnpDevice[0].zcm.hlnpnetwork.pid, QStringLiteral("1501"));
    QCOMPARE(panel.getHLNPDeviceList(), (QStringList{address(10), address(100)}));
}

void TestIdentifying::answersFromAnotherPortAndTwice()
{
    const auto devices = switchOn(numbered({10, 11}), [](Devices &, const Devices::Request &request) {
        if (Devices::codeOf(request) == kEthReq) {
            Devices::send(request, address(10), numberedRecord(10, address(10)).datagram(), 6001);
            Devices::send(request, address(11), numberedRecord(11, address(11)).datagram());
            Devices::send(request, address(11), numberedRecord(11, address(11)).datagram());
            Devices::send(request, address(11),
                          numberedRecord(12, address(12)).datagram() + QByteArray(4, 'x'));
        } else {
            Devices::send(request, address(request.bytes.at(9)), modelReply(), 6002);
        }
    });
    qkv720 panel;
    QCOMPARE(scan(panel), 1U);
    QCOMPARE(debugScanDeviceCount, 3);
    QCOMPARE(panel.hlnpObj->deviceCount, 2);
    QCOMPARE(panel.getHLNPDeviceList(), (QStringList{address(10), address(11)}));
}

void TestIdentifying::aUnitThatComesLateIsAskedInTheSameScan()
{
    const auto devices = switchOn(numbered({10, 11}), [](Devices &, const Devices::Request &request) {
        if (Devices::codeOf(request) == kEthReq) {
            Devices::send(request, address(10), numberedRecord(10, address(10)).datagram());
            return;
        }
        if (request.bytes.at(9) == 10)
            Devices::send(request, address(11), numberedRecord(11, address(11)).datagram());
        Devices::send(request, address(request.bytes.at(9)), modelReply());
    });
    qkv720 panel;
    QCOMPARE(scan(panel), 1U);
    QCOMPARE(devices->requests(kGetModel).size(), 2);
    QCOMPARE(panel.getHLNPDeviceList(), (QStringList{address(10), address(11)}));
}

void TestIdentifying::twoRowsOfOneAddressAskTheLaterMac()
{
    QVector<Device> twins = {{numberedRecord(1, address(10)), "05881501"},
                             {numberedRecord(2, address(10)), ""}};
    const auto devices = switchOn(twins);
    qkv720 panel;
    scan(panel);
    const auto requests = devices->requests(kGetModel);
    QCOMPARE(requests.size(), 2);
    QCOMPARE(requests.at(0).bytes.mid(4, 6), numberedMac(2));
    QCOMPARE(requests.at(1).bytes.mid(4, 6), numberedMac(2));
    QVERIFY(panel.getHLNPDeviceList().isEmpty());

    // An address outside the table means the first row; a row whose MAC is not six groups is not asked.
    panel.hlnpObj->getModel(QStringLiteral("10.0.0.1"));
    QTRY_COMPARE(devices->requests(kGetModel).size(), 3);
    QCOMPARE(devices->requests(kGetModel).last().bytes.mid(4, 6),
             QByteArray::fromHex(
                 panel.hlnpObj->allHlnpDevice[0].zcm.hlnpnetwork.macadd.toLatin1().replace(":", "")));
    panel.hlnpObj->allHlnpDevice[0].zcm.hlnpnetwork.macadd = QStringLiteral("1:2:3:4:5");
    support::Stopwatch clock;
    panel.hlnpObj->getModel(QStringLiteral("10.0.0.1"));
    VERIFY_TOOK(clock, 0, 1000);
    QTest::qWait(100);
    QCOMPARE(devices->requests(kGetModel).size(), 3);
}

void TestIdentifying::aUnitThatKeepsItsIdentifiersIsNotListed()
{
    QVector<Device> three = numbered({10, 11, 12});
    three[0].identifiers.clear();
    const Devices::Answer ordinary = wellBehaved(three);
    const auto devices = switchOn(three, [&ordinary](Devices &all, const Devices::Request &request) {
        if (Devices::codeOf(request) == kGetModel && request.bytes.mid(4, 6) == numberedMac(11))
            Devices::send(request, address(11), acknowledgement(0x40, 0x15));
        else
            ordinary(all, request);
    });
    qkv720 panel;
    QCOMPARE(scan(panel), 1U);
    QCOMPARE(devices->requests(kGetModel).size(), 3); // nobody is asked twice
    QCOMPARE(panel.hlnpObj->deviceCount, 3);
    QCOMPARE(panel.getHLNPDeviceList(), QStringList{address(12)});
}

void TestIdentifying::aModelNameIsAskedByTheDormantPath()
{
    const auto unit = unitAt(10);
    const auto other = unitAt(11);
    const auto devices = switchOn(numbered({12}), [](Devices &, const Devices::Request &) {});
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    hlnp.scanSlot(QStringLiteral("scan"), 0);
    QCOMPARE(hlnp.deviceCount, 2);
    hlnp.getModelName(hlnp.allHlnpDevice[1].zcm.hlnpnetwork.ipadd);
    QCOMPARE(currentSelect, 1);
    QCOMPARE(hlnp.allHlnpDevice[1].zcm.hlnpnetwork.modelname, QStringLiteral("QKV-720"));
    QVERIFY(hlnp.allHlnpDevice[0].zcm.hlnpnetwork.modelname.isEmpty());
    const QByteArray request = devices->requests(0x41).first().bytes;
    QCOMPARE(request.left(4), QByteArray::fromHex("00188041"));
    QCOMPARE(request.mid(10), QByteArray("GET_MODEL_NAME"));
    currentSelect = 0;

    hlnp.onGetDeviceModel(); // asks both, and lists them by itself
    QCOMPARE(hlnp.qkvDeviceList(), (QStringList{address(10), address(11)}));
}

NETWORK_TEST_MAIN(TestIdentifying)
#include "tst_identifying.moc"
