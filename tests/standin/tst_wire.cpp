// The unit's wire behaviour through raw links, byte for byte.

#include "tests/support/unithost.h"

#include <QTcpSocket>
#include <QtTest>

class TestWire : public QObject
{
    Q_OBJECT

private slots:
    void versionOverNetwork();
};

void TestWire::versionOverNetwork()
{
    support::UnitHost host;
    QTcpSocket socket;
    socket.connectToHost(host.address(), 5002);
    QVERIFY(socket.waitForConnected(2000));
    socket.write(QByteArray::fromHex("000603006c6f"));
    QVERIFY(socket.waitForReadyRead(2000));
    QCOMPARE(socket.readAll().toHex(), QByteArray("000c09006c01050223102ada"));
    QCOMPARE(host.count(0x6c), 1);
}

QTEST_GUILESS_MAIN(TestWire)
#include "tst_wire.moc"
