#include "facadebench.h"

// Two links and two units: what a connect, a second connect and the end of the facade do to each.

class TestLinks : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void connectClosesTheLinkToTheFormerUnit();
    void serialConnectLeavesTheNetworkLink();
    void destructorClosesBothLinks();
};

namespace {

support::UnitHost::Options bothLinks()
{
    support::UnitHost::Options unit;
    unit.serial = true;
    return unit;
}

} // namespace

void TestLinks::connectClosesTheLinkToTheFormerUnit()
{
    FacadeBench bench; // unit A
    support::UnitHost second; // unit B
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.host.clientCount(), 1);

    QCOMPARE(bench.control->deviceConnect(1, second.address(), 0), QStringLiteral("OK"));
    QTRY_COMPARE(bench.host.clientCount(), 0);
    QCOMPARE(second.clientCount(), 1);
    QCOMPARE(second.frames().mid(0, 2), QStringList({QStringLiteral("6c"), QStringLiteral("6f")}));
    second.clearRecord();

    bench.control->setCKAngle(1, 2);
    bench.control->refreshStatus();
    QCOMPARE(second.frames(),
             QStringList({QStringLiteral("d1 01 02"), QStringLiteral("60"), QStringLiteral("62")}));
    // From the second connect on nothing went to the former unit.
    QCOMPARE(bench.frames(), QStringList());
}

void TestLinks::serialConnectLeavesTheNetworkLink()
{
    FacadeBench bench(bothLinks());
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.control->deviceConnect(2, bench.host.serialPortName(), 0), QStringLiteral("OK"));
    QCOMPARE(bench.control->currentConnectMethod, 2u);
    // The socket is no concern of a serial connect: it stays up and is used for nothing.
    QCOMPARE(bench.device->hlnpObj->swiTcpSocket->state(), QAbstractSocket::ConnectedState);
    QCOMPARE(bench.host.clientCount(), 1);
    for (const standin::FrameRecord &frame : bench.host.record())
        QCOMPARE(frame.link, standin::LinkKind::Serial);
}

void TestLinks::destructorClosesBothLinks()
{
    FacadeBench bench(bothLinks());
    QVERIFY(bench.connectUnit());
    QCOMPARE(bench.control->deviceConnect(2, bench.host.serialPortName(), 0), QStringLiteral("OK"));
    QCOMPARE(bench.host.clientCount(), 1);
    bench.recorder.reset();

    // The facade alone ends here: what lives to the end of the process is looked at and goes afterwards.
    const std::unique_ptr<HLNP> discovery(bench.device->hlnpObj);
    const std::unique_ptr<serialPort> serial(bench.device->serialObj);
    const std::unique_ptr<QSettings> settings(bench.control->initSettings);
    bench.control.reset();
    QCOMPARE(discovery->swiTcpSocket->state(), QAbstractSocket::UnconnectedState);
    QByteArray byte(1, 'x');
    QCOMPARE(serial->writeData(byte), qint64{-1});
    QTRY_COMPARE(bench.host.clientCount(), 0);
}

QTEST_GUILESS_MAIN(TestLinks)
#include "tst_links.moc"
