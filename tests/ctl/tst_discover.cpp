#include "tests/ctl/ctlrun.h"
#include "tests/support/testnetwork.h"

#include <QJsonArray>

using support::CtlRun;
using support::runCtl;
using support::TestNetwork;
using support::UnitHost;
using support::words;

// Scans over real broadcasts, in a network of the test's own.
class DiscoverTest : public QObject
{
    Q_OBJECT

private slots:
    void unitsOfTheNetwork();
    void emptyNetwork();
};

void DiscoverTest::unitsOfTheNetwork()
{
    TestNetwork net;
    const QString panel = net.addHost();
    const QString units = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panel, "eth0", cable, {"192.168.72.1/24"});
    net.plug(units, "eth0", cable, {"192.168.72.10/24"});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    UnitHost::Options options;
    options.address = "192.168.72.10";
    options.netNamespace = units;
    options.discovery = options.broadcasts = true;
    UnitHost unit(options);
    // A name that would clear the terminal and forge a line.
    unit.withNetwork([](standin::NetworkSettings &settings) { settings.name = "KEY\x1b[2J\nER"; });
    QVERIFY(TestNetwork::enter(panel));

    CtlRun run = runCtl(words("discover"));
    QCOMPARE(run.messages, QString());
    QCOMPARE(run.exitCode, 0);
    QCOMPARE(run.output.count('\n'), 2);
    QCOMPARE(
        run.output.section('\n', 0, 0).simplified(),
        QStringLiteral("address name mac dhcp mask gateway primaryDns secondaryDns vendor product adapter"));
    QVERIFY2(run.output.section('\n', 1, 1).startsWith("192.168.72.10"), qPrintable(run.output));
    QVERIFY(!run.output.contains('\x1b'));

    run = runCtl(words("discover --json --adapter eth0"));
    const QJsonArray found = run.json().value("units").toArray();
    QCOMPARE(found.size(), 1);
    const QJsonObject one = found.first().toObject();
    QCOMPARE(one.value("address").toString(), QStringLiteral("192.168.72.10"));
    QCOMPARE(one.value("mac").toString(), QStringLiteral("00:50:C2:72:00:01"));
    QCOMPARE(one.value("name").toString(), QStringLiteral("KEY\x1b[2J\nER"));
    QCOMPARE(one.value("dhcp").toString(), QStringLiteral("off"));
    QCOMPARE(one.value("mask").toString(), QStringLiteral("255.255.255.0"));
    QCOMPARE(one.value("vendor").toString(), QStringLiteral("0588"));
    QCOMPARE(one.value("product").toString(), QStringLiteral("1501"));
    QCOMPARE(one.value("adapter").toString(), QStringLiteral("eth0"));
}

void DiscoverTest::emptyNetwork()
{
    TestNetwork net;
    const QString panel = net.addHost();
    const QString cable = net.addSwitch();
    net.plug(panel, "eth0", cable, {"192.168.72.1/24"});
    QVERIFY2(net.isGood(), qPrintable(net.complaint()));
    QVERIFY(TestNetwork::enter(panel));
    CtlRun run = runCtl(words("discover"));
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: no unit answers\n"));
    QCOMPARE(run.exitCode, 3);
    QCOMPARE(runCtl(words("discover --json")).json().value("units").toArray().size(), 0);
    run = runCtl(words("discover --adapter wlan7"));
    QCOMPARE(run.messages, QStringLiteral("qkv720ctl: wlan7: no such adapter is connected; there is eth0\n"));
    QCOMPARE(run.exitCode, 2);
}

int main(int argc, char **argv)
{
    TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    DiscoverTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "tst_discover.moc"
