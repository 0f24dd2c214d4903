#include "device/serialport.h"
#include "tests/support/testnetwork.h"

#include <QSerialPortInfo>
#include <QtTest>

#include <sched.h>
#include <sys/mount.h>

// The list of serial ports, on a machine that has none: this process sees none of the real ones.
class PortsTest : public QObject
{
    Q_OBJECT

private slots:
    void noPortsGiveAnEmptyList();
};

void PortsTest::noPortsGiveAnEmptyList()
{
    QCOMPARE(::unshare(CLONE_NEWNS), 0);
    QCOMPARE(::mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr), 0);
    // The toolkit looks into both.
    for (const char *folder : {"/sys", "/dev"})
        QCOMPARE(::mount("none", folder, "tmpfs", 0, nullptr), 0);
    QVERIFY(QSerialPortInfo::availablePorts().isEmpty());
    serialPort port;
    QCOMPARE(port.getSerialInfoList(), QStringList());
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    PortsTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_ports.moc"
