#include "facadebench.h"
#include "tests/support/logcapture.h"
#include "tests/support/loopback.h"

#include <QDateTime>
#include <QTranslator>

// When and how things reach the settings file, and the words of the facade in another language.

class TestStoring : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fileAsItLies();
    void connectStoresAfterTheWholeRead_data();
    void connectStoresAfterTheWholeRead();
    void recallStoresAfterTheReadBack();
    void saveStoresBeforeTheCommand();
    void formIsStoredBeforeTheCommand();
    void singleSettingIsStoredBeforeTheCommand();
    void placeThatCannotBeWritten();
    void wordsInAnotherLanguage();
    void wordsOfABadForm_data();
    void wordsOfABadForm();
    void twoBadFields();
};

namespace {

// Puts every text that asks for its translation between marks, with the list that it is looked up in.
class Marker : public QTranslator
{
public:
    QString translate(const char *context, const char *source, const char *, int) const override
    {
        return QStringLiteral("<%1|%2>").arg(QLatin1String(context), QLatin1String(source));
    }
    bool isEmpty() const override { return false; }
};

// How long ago the settings file was last written; never, when it isn't there. What waits for a unit after that makes
// it no less on a busy machine.
qint64 storedAgo()
{
    const QFileInfo file(settingsPath());
    return file.exists() ? file.lastModified().msecsTo(QDateTime::currentDateTime()) : -1;
}

} // namespace

void TestStoring::init()
{
    QFile::remove(settingsPath());
}

void TestStoring::fileAsItLies()
{
    FacadeBench bench;
    bench.control->netcardList = QStringList{QStringLiteral("[127.0.0.1] lo")};
    didScan = true;
    bench.control->ipSelectList = QStringList{bench.target()};
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork;
    unit.ipadd = bench.target();
    unit.isdhcp = true;
    QVERIFY(bench.connectUnit());
    bench.control->saveMemory(8);
    const QStringList rows = storedText().split(QLatin1Char('\n'));
    for (const char *row : {"[connection]", "interface=1", "dhcpmode=true", "netcard=[127.0.0.1] lo",
                            "hostname=", "[last_info]", "memory=8"})
        QVERIFY2(rows.contains(QLatin1String(row)), row);
    QVERIFY(!rows.contains(QStringLiteral("[setting]")));
}

void TestStoring::connectStoresAfterTheWholeRead_data()
{
    QTest::addColumn<uint>("link");
    QTest::addColumn<bool>("scanned");
    QTest::newRow("network") << 1u << false;
    QTest::newRow("network, with a scan behind it") << 1u << true;
    QTest::newRow("serial") << 2u << false;
}

// Nothing stands on disk when the last page has been read, and all of it before the connect is over.
void TestStoring::connectStoresAfterTheWholeRead()
{
    QFETCH(uint, link);
    QFETCH(bool, scanned);
    FacadeBench bench(link);
    didScan = scanned;
    bench.control->ipSelectList = QStringList{bench.target()};
    bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork.ipadd = bench.target();
    bool storedEarly = false;
    QString atEnd;
    {
        const support::LogCapture capture;
        support::LogCapture::onLine() = [&](const QString &line) {
            if (line.startsWith(QLatin1String("Memory Refresh:")))
                storedEarly = QFile::exists(settingsPath());
            else if (line.startsWith(QLatin1String("[mainControl::deviceConnect] Return:")))
                atEnd = storedText();
        };
        QVERIFY(bench.connectUnit());
    }
    QVERIFY(!storedEarly);
    const QStringList keys = keysOf(QStringLiteral("connection"), atEnd);
    QVERIFY(keys.contains(QStringLiteral("interface=%1").arg(link)));
    QVERIFY(keys.contains((link == 1 ? QStringLiteral("ipaddress=") : QStringLiteral("serialport="))
                          + bench.target()));
    QCOMPARE(keys.contains(QStringLiteral("dhcpmode=false")), scanned);
}

void TestStoring::recallStoresAfterTheReadBack()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QString atReadBack;
    {
        const support::LogCapture capture;
        support::LogCapture::onLine() = [&atReadBack](const QString &line) {
            if (line.startsWith(QLatin1String("Load memory. Set last =")))
                atReadBack = storedText();
        };
        bench.control->loadMemory(3);
    }
    QVERIFY(atReadBack.contains(QLatin1String("[connection]")));
    QCOMPARE(keysOf(QStringLiteral("last_info"), atReadBack), QStringList());
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=3")});
}

void TestStoring::saveStoresBeforeTheCommand()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xE4, standin::Fault::silent());
    bench.control->saveMemory(3);
    const qint64 agoMs = storedAgo();
    QVERIFY2(agoMs >= 4000, qPrintable(QString::number(agoMs)));
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=3")});
}

void TestStoring::formIsStoredBeforeTheCommand()
{
    FacadeBench bench;
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork;
    unit.ipadd = support::deafLoopback();
    unit.name = QStringLiteral("STUDIO-1");
    unit.gatewayadd = unit.primdnsadd = unit.secdnsadd = QStringLiteral("1.2.3.4");
    unit.maskadd = QStringLiteral("255.0.0.0");
    QCOMPARE(bench.control->hlnpSave(QString(), QStringLiteral("[a] b"), 0, QStringLiteral("AA"), unit.name,
                                     1, support::deafLoopback(), QStringLiteral("255.255.0.0"),
                                     unit.gatewayadd, unit.primdnsadd, unit.secdnsadd),
             QStringLiteral("OK"));
    const qint64 agoMs = storedAgo();
    QVERIFY2(agoMs >= 12000, qPrintable(QString::number(agoMs)));
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("mask=255.255.0.0")));
    // The link itself was not part of the form.
    QVERIFY(!storedText().contains(QLatin1String("interface")));
}

void TestStoring::singleSettingIsStoredBeforeTheCommand()
{
    FacadeBench bench;
    QCOMPARE(bench.control->hlnpSetDhcpName(QString(), support::deafLoopback(), QStringLiteral("NEW"),
                                            QString(), QString()),
             QStringLiteral("OK"));
    const qint64 agoMs = storedAgo();
    QVERIFY2(agoMs >= 12000, qPrintable(QString::number(agoMs)));
}

void TestStoring::placeThatCannotBeWritten()
{
    // A file stands where the folder belongs.
    QVERIFY(!QFileInfo::exists(QStringLiteral("../../halvorine"))
            || QDir(QStringLiteral("../../halvorine")).removeRecursively());
    QFile obstacle(QStringLiteral("../../halvorine"));
    QVERIFY(obstacle.open(QIODevice::WriteOnly));
    obstacle.close();

    FacadeBench bench;
    QVERIFY(!iniExist);
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), QStringLiteral("OK"));
    bench.recorder->take();
    bench.control->saveMemory(4);
    // The run goes on with what is in memory, and nothing is told.
    QCOMPARE(lastMemory, 4u);
    QCOMPARE(bench.control->initIpaddr, bench.target());
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->isConnected());
    QVERIFY(obstacle.remove());
}

void TestStoring::wordsInAnotherLanguage()
{
    FacadeBench bench;
    Marker marker;
    QVERIFY(QCoreApplication::installTranslator(&marker));
    bench.control->refreshStatus();
    QCOMPARE(bench.recorder->take(), QStringList{QStringLiteral("warning(<mainControl|Disconnected>)")});
    const QString none;
    const QString bad = QStringLiteral("1.2");
    QCOMPARE(bench.control->hlnpSetIpAdr(none, none, none, bad, bad),
             QStringLiteral("<mainControl|IP Address format incorrect.>"));
    QCOMPARE(bench.control->hlnpSetIpAdr(none, none, none, QStringLiteral("1.2.3.4"), bad),
             QStringLiteral("<mainControl|Gateway Address format incorrect.>"));
    QCOMPARE(bench.control->hlnpSetGateway(none, none, bad),
             QStringLiteral("<mainControl|Gateway Address format incorrect.>"));
    QCOMPARE(bench.control->hlnpSetNetmask(none, none, bad),
             QStringLiteral("<mainControl|Netmask Address format incorrect.>"));
    QCOMPARE(bench.control->hlnpSetPrimDNS(none, none, bad),
             QStringLiteral("<mainControl|PrimDNS Address format incorrect.>"));
    QCOMPARE(bench.control->hlnpSetSecDNS(none, none, bad),
             QStringLiteral("<mainControl|SecDNS Address format incorrect.>"));
}

void TestStoring::wordsOfABadForm_data()
{
    QTest::addColumn<int>("badField"); // address, gateway, netmask, primary, secondary
    QTest::addColumn<QString>("told");
    QTest::addColumn<int>("mark");
    const auto row = [](const char *name, int field, const char *told, int mark) {
        QTest::newRow(name) << field << QString::fromLatin1(told) << mark;
    };
    row("address", 0, "<HLNP|IP format error><mainControl|IP Address format incorrect.>", 1);
    row("gateway", 1, "<HLNP|Gate address format error><mainControl|Gateway Address format incorrect.>", 3);
    row("netmask", 2, "<HLNP|Mask address format error><mainControl|Mask Address format incorrect.>", 4);
    row("primary", 3,
        "<HLNP|PrimDNS address format error><mainControl|Primary DNS Address format incorrect.>", 5);
    row("secondary", 4,
        "<HLNP|SecDNS address format error><mainControl|Secondary DNS Address format incorrect.>", 6);
}

// The command's word stands in front of the form's, each from its own list; the mark comes from both.
void TestStoring::wordsOfABadForm()
{
    QFETCH(int, badField);
    QFETCH(QString, told);
    QFETCH(int, mark);
    FacadeBench bench;
    Marker marker;
    QVERIFY(QCoreApplication::installTranslator(&marker));
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork;
    unit.ipadd = support::deafLoopback();
    unit.gatewayadd = unit.maskadd = unit.primdnsadd = unit.secdnsadd = QStringLiteral("1.2.3.4");
    QStringList form{unit.ipadd, unit.gatewayadd, unit.maskadd, unit.primdnsadd, unit.secdnsadd};
    form[badField] = QStringLiteral("1.2");
    QCOMPARE(bench.control->hlnpSave(QString(), QString(), 0, QStringLiteral("00:50:C2:72:00:01"), QString(),
                                     1, form.at(0), form.at(2), form.at(1), form.at(3), form.at(4)),
             told);
    const QString signal = QStringLiteral("markHLNPDataRed(%1)").arg(mark);
    QCOMPARE(bench.recorder->told, QStringList({signal, signal}));
    // Reported, and stored all the same.
    const char *const keys[] = {"ipaddress", "gateway", "mask", "primarydns", "seconddns"};
    QVERIFY(storedKeys(QStringLiteral("connection"))
                .contains(QLatin1String(keys[badField]) + QStringLiteral("=1.2")));
}

// Of the form's own words the last one stays, and each failed command puts its word in front.
void TestStoring::twoBadFields()
{
    FacadeBench bench;
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork;
    unit.ipadd = support::deafLoopback();
    unit.gatewayadd = unit.maskadd = unit.primdnsadd = unit.secdnsadd = QStringLiteral("1.2.3.4");
    QCOMPARE(
        bench.control->hlnpSave(QString(), QString(), 0, QStringLiteral("00:50:C2:72:00:01"), QString(), 1,
                                unit.ipadd, QStringLiteral("255.255"), QStringLiteral("1.2"), unit.primdnsadd,
                                unit.secdnsadd),
        QStringLiteral("Mask address format errorGate address format errorMask Address format incorrect."));
    QCOMPARE(bench.recorder->told,
             QStringList({QStringLiteral("markHLNPDataRed(3)"), QStringLiteral("markHLNPDataRed(4)"),
                          QStringLiteral("markHLNPDataRed(3)"), QStringLiteral("markHLNPDataRed(4)")}));
    const QStringList stored = storedKeys(QStringLiteral("connection"));
    QVERIFY(stored.contains(QStringLiteral("gateway=1.2")));
    QVERIFY(stored.contains(QStringLiteral("mask=255.255")));
}

QTEST_GUILESS_MAIN(TestStoring)
#include "tst_storing.moc"
