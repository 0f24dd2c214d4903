#include "datagrams.h"
#include "discovery/hlnp.h"
#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

using support::LogCapture;

class TestDeviceTable : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void aNewObject();
    void theModelPropertyStoresNothing();
    void unitsAreSortedByTheNumberOfTheirLastOctet();
    void aUnitIsKnownByItsIdentifiersAlone();
    void unitsPastTheTenthAreNotListed();
    void theWalkEndsAtARowWithoutAddress();
    void aSecondRunAppendsTheUnitsAgain();
    void aScanWithoutAdapterEmptiesTheTables();
    void anIndexOutsideTheTableHasNoAddress();
    void hexadecimalDigits();
    void helpersByName_data();
    void helpersByName();
    void switcherModelByMac_data();
    void switcherModelByMac();
    void seriesCompareLogsBothNumbers();
    void dormantSlots();
    void dormantTimersDriveTheirSlots();

private:
    void fill(int row, const QString &ip, const QString &vid = QStringLiteral("0588"),
              const QString &pid = QStringLiteral("1501"));

    HLNP *hlnp = nullptr;
};

void TestDeviceTable::init()
{
    hlnp = new HLNP;
    qkvindex = 0;
    allHlnpindex = 0;
}

void TestDeviceTable::cleanup()
{
    delete hlnp;
    hlnp = nullptr;
}

void TestDeviceTable::fill(int row, const QString &ip, const QString &vid, const QString &pid)
{
    hlnp_network_info &network = hlnp->allHlnpDevice[row].zcm.hlnpnetwork;
    network.ipadd = ip;
    network.name = QStringLiteral("unit at ") + ip;
    network.vid = vid;
    network.pid = pid;
    hlnp->allHlnpDevice[row].series = static_cast<unsigned char>(ip.section(QLatin1Char('.'), 3, 3).toUInt());
    hlnp->deviceCount = row + 1;
}

void TestDeviceTable::aNewObject()
{
    QCOMPARE(hlnp->scanDone, false);
    QCOMPARE(hlnp->deviceCount, 0);
    QCOMPARE(hlnp->socketOpened, false);
    QVERIFY(hlnp->thisNetwork.isEmpty());
    QVERIFY(hlnp->netcardlist.isEmpty());
    QVERIFY(hlnp->swiTcpSocket != nullptr);
    QCOMPARE(hlnp->swiTcpSocket->parent(), hlnp);
    QCOMPARE(hlnp->swiTcpSocket->state(), QAbstractSocket::UnconnectedState);
    const auto sockets = hlnp->findChildren<QUdpSocket *>();
    QCOMPARE(sockets.size(), 1);
    QCOMPARE(sockets.first()->state(), QAbstractSocket::UnconnectedState);

    QList<int> intervals;
    for (const QTimer *timer : hlnp->findChildren<QTimer *>()) {
        QVERIFY(timer->isSingleShot());
        QVERIFY(!timer->isActive());
        intervals.append(timer->interval());
    }
    std::sort(intervals.begin(), intervals.end());
    QCOMPARE(intervals, (QList<int>{2000, 2000, 3000}));
    for (const hlnp_device_info &row : hlnp->allHlnpDevice)
        QVERIFY(row.zcm.hlnpnetwork.ipadd.isEmpty() && row.series == 0 && row.type == 0);
}

void TestDeviceTable::theModelPropertyStoresNothing()
{
    hlnp->netcardlist = QStringList{QStringLiteral("[10.0.0.1] eth0")};
    QSignalSpy changed(hlnp, &HLNP::netcardModelsChanged);
    const LogCapture log;
    QVERIFY(hlnp->setProperty("netcardModels", QStringList{QStringLiteral("a"), QStringLiteral("b")}));
    QCOMPARE(changed.size(), 1);
    QCOMPARE(hlnp->netcardModels(), QStringList{QStringLiteral("[10.0.0.1] eth0")});
    QCOMPARE(LogCapture::logs(), QStringList{QStringLiteral("setnetcardModels:  2")});
}

void TestDeviceTable::unitsAreSortedByTheNumberOfTheirLastOctet()
{
    fill(0, QStringLiteral("192.168.72.30"));
    fill(1, QStringLiteral("192.168.72.7"));
    fill(2, QStringLiteral("192.168.72.200"));
    emit hlnp->zcmScanDone();
    const QStringList sorted = {QStringLiteral("192.168.72.7"), QStringLiteral("192.168.72.30"),
                                QStringLiteral("192.168.72.200")};
    QCOMPARE(hlnp->qkvDeviceList(), sorted);
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(hlnp->qkvDevice[i].zcm.hlnpnetwork.ipadd, sorted.at(i));
        QCOMPARE(hlnp->qkvDevice[i].zcm.hlnpnetwork.name, QStringLiteral("unit at ") + sorted.at(i));
        QCOMPARE(hlnp->allHlnpDevice[i].zcm.hlnpnetwork.ipadd, sorted.at(i));
    }
}

void TestDeviceTable::aUnitIsKnownByItsIdentifiersAlone()
{
    fill(0, QStringLiteral("10.0.0.1"), QStringLiteral("0588"), QStringLiteral("1502"));
    fill(1, QStringLiteral("10.0.0.2"), QStringLiteral("0589"), QStringLiteral("1501"));
    fill(2, QStringLiteral("10.0.0.3"), QString(), QString());
    fill(3, QStringLiteral("10.0.0.4"), QStringLiteral("10588"), QStringLiteral("1501"));
    fill(4, QStringLiteral("10.0.0.5"), QStringLiteral("0588"), QStringLiteral("A1501")); // contained
    fill(5, QStringLiteral("10.0.0.6"));
    hlnp->allHlnpDevice[2].zcm.hlnpnetwork.name = QStringLiteral("QKV720");
    emit hlnp->zcmScanDone();
    QCOMPARE(hlnp->qkvDeviceList(), (QStringList{QStringLiteral("10.0.0.5"), QStringLiteral("10.0.0.6")}));
    QCOMPARE(hlnp->deviceCount, 6);
}

void TestDeviceTable::unitsPastTheTenthAreNotListed()
{
    for (int i = 0; i < 13; ++i)
        fill(i, QStringLiteral("10.0.0.%1").arg(i + 1));
    hlnp->scanDone = true; // the field behind the table
    emit hlnp->zcmScanDone();
    QCOMPARE(hlnp->qkvDeviceList().size(), 10);
    QCOMPARE(hlnp->qkvDevice[9].zcm.hlnpnetwork.ipadd, QStringLiteral("10.0.0.10"));
    QCOMPARE(hlnp->scanDone, true);
}

void TestDeviceTable::theWalkEndsAtARowWithoutAddress()
{
    fill(0, QStringLiteral("10.0.0.1"));
    fill(1, QStringLiteral("10.0.0.2"));
    fill(2, QStringLiteral("10.0.0.3"));
    hlnp->allHlnpDevice[1].zcm.hlnpnetwork.ipadd.clear();
    emit hlnp->zcmScanDone();
    QCOMPARE(hlnp->qkvDeviceList(), QStringList{QStringLiteral("10.0.0.1")});
}

void TestDeviceTable::aSecondRunAppendsTheUnitsAgain()
{
    fill(0, QStringLiteral("10.0.0.1"));
    fill(1, QStringLiteral("10.0.0.2"));
    emit hlnp->zcmScanDone();
    const QStringList once = hlnp->qkvDeviceList();
    emit hlnp->zcmScanDone();
    QCOMPARE(hlnp->qkvDeviceList(), once + once);
    QCOMPARE(hlnp->qkvDevice[3].zcm.hlnpnetwork.ipadd, QStringLiteral("10.0.0.2"));
}

void TestDeviceTable::aScanWithoutAdapterEmptiesTheTables()
{
    for (const int index : {0, -1, 5}) {
        fill(0, QStringLiteral("10.0.0.1"));
        hlnp->allHlnpDevice[0].zcm.hlnpnetwork.fwver = QStringLiteral("17");
        emit hlnp->zcmScanDone();
        QCOMPARE(hlnp->qkvDeviceList().size(), 1);
        hlnp->scanDone = false;
        if (index == 5)
            hlnp->netcardlist = QStringList{QStringLiteral("[10.9.9.9] none")};
        support::Stopwatch clock;
        hlnp->scanSlot(QStringLiteral("scan"), index);
        VERIFY_TOOK(clock, 0, 450);
        QVERIFY(hlnp->qkvDeviceList().isEmpty());
        QCOMPARE(hlnp->deviceCount, 0);
        QVERIFY(hlnp->allHlnpDevice[0].zcm.hlnpnetwork.ipadd.isEmpty());
        QVERIFY(hlnp->qkvDevice[0].zcm.hlnpnetwork.ipadd.isEmpty());
        QCOMPARE(int(hlnp->allHlnpDevice[0].series), 0);
        QCOMPARE(hlnp->allHlnpDevice[0].zcm.hlnpnetwork.fwver, QStringLiteral("17"));
        QCOMPARE(hlnp->scanDone, true);
        QCOMPARE(hlnp->findChild<QUdpSocket *>()->state(), QAbstractSocket::UnconnectedState);
    }
}

void TestDeviceTable::anIndexOutsideTheTableHasNoAddress()
{
    fill(3, QStringLiteral("10.0.0.4"));
    QCOMPARE(hlnp->getDeviceIP(3), QHostAddress(QStringLiteral("10.0.0.4")));
    QVERIFY(hlnp->getDeviceIP(4).isNull());
    QVERIFY(hlnp->getDeviceIP(-1).isNull());
    QVERIFY(hlnp->getDeviceIP(100).isNull());
}

void TestDeviceTable::hexadecimalDigits()
{
    const QString upper = QStringLiteral("0123456789ABCDEF");
    const QString lower = QStringLiteral("0123456789abcdef");
    for (int i = 0; i < 256; ++i) {
        auto byte = static_cast<unsigned char>(i);
        QCOMPARE(Hex_to_Char(byte), i < 16 ? QString(upper.at(i)) : QString());
        const QChar character = QLatin1Char(static_cast<char>(byte));
        const int value = qMax(upper.indexOf(character), lower.indexOf(character));
        QCOMPARE(int(Char_to_Hex(&byte)), value < 0 ? 0xFF : value);
    }
}

void TestDeviceTable::helpersByName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("mac");
    QTest::addColumn<bool>("isTmx500");
    QTest::addColumn<bool>("isSwitcher");
    QTest::addColumn<bool>("isCamera");
    QTest::addColumn<bool>("isQkv");
    QTest::newRow("nobody") << ""
                            << "" << false << false << true << false;
    QTest::newRow("unit") << "QKV720"
                          << "" << false << false << true << true;
    QTest::newRow("unit with a hyphen") << "my-qkv-720-left"
                                        << "" << false << false << true << true;
    QTest::newRow("half a unit") << "QKV-700"
                                 << "" << false << false << true << false;
    QTest::newRow("remote") << "Tmx-500"
                            << "" << true << false << false << false;
    QTest::newRow("remote, any order") << "500tMX"
                                       << "" << true << false << false << false;
    QTest::newRow("half a remote") << "TMX400"
                                   << "" << false << false << true << false;
    QTest::newRow("switcher") << "rv-2410"
                              << "" << false << true << false << false;
    QTest::newRow("small switcher") << "RV-130"
                                    << "" << false << true << true << false;
    QTest::newRow("middle switcher") << "RV-150"
                                     << "" << false << true << true << false;
    QTest::newRow("large switcher") << "RV-6410"
                                    << "" << false << true << true << false;
    QTest::newRow("prefix") << "serv"
                            << "" << false << true << true << false;
    QTest::newRow("mu") << "MU-1"
                        << "" << false << false << false << false;
    QTest::newRow("camera by mac") << "RV-2410"
                                   << "02:7e:31:00:00:01" << false << true << true << false;
    QTest::newRow("mac does not make a unit") << "x"
                                              << "02:5C:A7:01:00:00" << false << false << true << false;
}

void TestDeviceTable::helpersByName()
{
    QFETCH(QString, name);
    QFETCH(QString, mac);
    const LogCapture log;
    QTEST(findTMX500(name), "isTmx500");
    QTEST(findSwitcher(name), "isSwitcher");
    QTEST(findCamera(name, mac), "isCamera");
    QTEST(findQKV(name, mac), "isQkv");
    QFETCH(bool, isTmx500);
    const QStringList answers = LogCapture::logs().filter(QStringLiteral("Is it TMX500:"));
    QCOMPARE(answers.size(), 1);
    QVERIFY(answers.first().endsWith(isTmx500 ? QStringLiteral("YES") : QStringLiteral("NO")));
    QCOMPARE(LogCapture::count(QStringLiteral("Is it PTZ:")),
             mac.startsWith(QStringLiteral("02:7e")) ? 0 : 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Is it QKV720:")), 1);
}

void TestDeviceTable::switcherModelByMac_data()
{
    QTest::addColumn<QByteArray>("mac");
    QTest::addColumn<QString>("model");
    QTest::newRow("08") << QByteArray("025ca7080000") << "130";
    QTest::newRow("07 high") << QByteArray("025ca7078000") << "150";
    QTest::newRow("07 highest") << QByteArray("025ca707ff00") << "150";
    QTest::newRow("07 low") << QByteArray("025ca7077fff") << "2410";
    QTest::newRow("other") << QByteArray("025ca7068000") << "2410";
}

void TestDeviceTable::switcherModelByMac()
{
    QFETCH(QByteArray, mac);
    DeviceRecord record;
    record.mac = QByteArray::fromHex(mac);
    QTEST(hlnp->checkMachineModelNameInfo(record.datagram()), "model");
    QCOMPARE(hlnp->checkMachineModelNameInfo(QByteArray()), QStringLiteral("2410"));
}

void TestDeviceTable::seriesCompareLogsBothNumbers()
{
    hlnp_device_info low;
    hlnp_device_info high;
    low.series = 7;
    high.series = 200;
    const LogCapture log;
    QVERIFY(seriesCompare(low, high));
    QVERIFY(!seriesCompare(high, low));
    QVERIFY(!seriesCompare(low, low));
    QCOMPARE(LogCapture::logs().first(), QStringLiteral("IP Compare: \"7\" \"200\" true"));
}

void TestDeviceTable::dormantSlots()
{
    QSignalSpy done(hlnp, &HLNP::zcmScanDone);
    support::Stopwatch clock;
    hlnp->onGetDeviceModel();
    hlnp->onGetDeviceModelName();
    VERIFY_TOOK(clock, 0, 1000);
    QCOMPARE(done.size(), 0);

    fill(0, QStringLiteral("10.0.0.1")); // its MAC is empty, so nobody is asked
    const LogCapture log;
    clock.restart();
    hlnp->onGetDeviceModel();
    QVERIFY(clock.elapsed() >= 1400);
    QCOMPARE(done.size(), 1);

    hlnp->onGetDeviceModelName();
    int running = 0;
    for (const QTimer *timer : hlnp->findChildren<QTimer *>())
        running += timer->isActive() ? 1 : 0;
    QCOMPARE(running, 1);

    clock.restart();
    hlnp->onGetDeviceModelVersion();
    QVERIFY(clock.elapsed() >= 200);
    QCOMPARE(done.size(), 2);
    QCOMPARE(LogCapture::count(QStringLiteral("GetDeviceModelVersin Done... ")), 1);

    clock.restart();
    hlnp->msleep(60);
    QVERIFY(clock.elapsed() >= 60);
    QVERIFY(hlnp->shutdown());
    hlnp->onApplicationState(Qt::ApplicationActive);
    hlnp->onApplicationResume();
    QCOMPARE(LogCapture::count(QStringLiteral("ABOUT TO QUIT!!  Do shutdown()")), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Application State Changed to: ")), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Application State Resume ")), 1);
}

// Nobody starts them; each is started here in turn, and what it did is told by its traces.
void TestDeviceTable::dormantTimersDriveTheirSlots()
{
    QVector<QTimer *> ofModel;
    QVector<QTimer *> ofNames;
    for (QTimer *timer : hlnp->findChildren<QTimer *>())
        (timer->interval() == 3000 ? ofModel : ofNames).append(timer);
    QCOMPARE(ofModel.size(), 1);
    QCOMPARE(ofNames.size(), 2);
    fill(0, QStringLiteral("10.0.0.1")); // its MAC is empty, so nobody is asked
    QSignalSpy done(hlnp, &HLNP::zcmScanDone);
    const LogCapture log;
    const auto fire = [&done](QTimer *timer) {
        LogCapture::logs().clear();
        done.clear();
        QSignalSpy fired(timer, &QTimer::timeout);
        timer->start(0);
        return QTest::qWaitFor([&fired] { return fired.size() == 1; });
    };

    QVERIFY(fire(ofModel.first()));
    QCOMPARE(done.size(), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("Get Model Name")), 0);
    QCOMPARE(LogCapture::count(QStringLiteral("GetDeviceModelVersin")), 0);
    QVERIFY(!ofNames.at(0)->isActive() && !ofNames.at(1)->isActive());

    QVERIFY(fire(ofNames.at(0)));
    QCOMPARE(done.size(), 0);
    QCOMPARE(LogCapture::count(QStringLiteral("GetDeviceModelVersin")), 0);
    QVERIFY(LogCapture::count(QStringLiteral("processDatagrams Begin")) > 0); // asks, then starts the next
    QVERIFY(ofNames.at(1)->isActive());

    QVERIFY(fire(ofNames.at(1)));
    QCOMPARE(done.size(), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("GetDeviceModelVersin Done... ")), 1);
    QCOMPARE(LogCapture::count(QStringLiteral("processDatagrams Begin")), 0);
    QVERIFY(!ofNames.at(0)->isActive());
}

QTEST_GUILESS_MAIN(TestDeviceTable)
#include "tst_devicetable.moc"
