#include "facadebench.h"

#include <QDateTime>
#include <QTranslator>

// When and how things reach the settings file, and the words of the facade in another language.

class TestStoring : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void fileAsItLies();
    void connectStoresAfterTheWholeRead();
    void recallStoresAfterTheReadBack();
    void saveStoresBeforeTheCommand();
    void formIsStoredBeforeTheCommand();
    void singleSettingIsStoredBeforeTheCommand();
    void placeThatCannotBeWritten();
    void wordsInAnotherLanguage();
    void wordsOfABadForm_data();
    void wordsOfABadForm();
};

namespace {

// Nobody answers here: commands to it end in silence, which counts as "OK", after twelve seconds.
QString deafAddress()
{
    return QStringLiteral("127.93.1.77");
}

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

// How long after `start` the settings file was last written.
qint64 storedAfter(const QDateTime &start)
{
    return start.msecsTo(QFileInfo(settingsPath()).lastModified());
}

QByteArray fileText()
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
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
    const QList<QByteArray> rows = fileText().split('\n');
    for (const char *row : {"[connection]", "interface=1", "dhcpmode=true", "netcard=[127.0.0.1] lo",
                            "hostname=", "[last_info]", "memory=8"})
        QVERIFY2(rows.contains(row), row);
    QVERIFY(!rows.contains("[setting]"));
}

void TestStoring::connectStoresAfterTheWholeRead()
{
    FacadeBench bench;
    const QDateTime start = QDateTime::currentDateTime();
    QVERIFY(bench.connectUnit());
    // 200 ms and 21 exchanges of 50 ms stand before it.
    QVERIFY2(storedAfter(start) >= 1200, qPrintable(QString::number(storedAfter(start))));
}

void TestStoring::recallStoresAfterTheReadBack()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    const QDateTime start = QDateTime::currentDateTime();
    bench.control->loadMemory(3);
    QVERIFY2(storedAfter(start) >= 3500, qPrintable(QString::number(storedAfter(start))));
}

void TestStoring::saveStoresBeforeTheCommand()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xE4, standin::Fault::silent());
    const QDateTime start = QDateTime::currentDateTime();
    bench.control->saveMemory(3);
    QVERIFY(start.msecsTo(QDateTime::currentDateTime()) >= 4000);
    QVERIFY2(storedAfter(start) < 1500, qPrintable(QString::number(storedAfter(start))));
}

void TestStoring::formIsStoredBeforeTheCommand()
{
    FacadeBench bench;
    hlnp_network_info &unit = bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork;
    unit.ipadd = deafAddress();
    unit.name = QStringLiteral("STUDIO-1");
    unit.gatewayadd = unit.primdnsadd = unit.secdnsadd = QStringLiteral("1.2.3.4");
    unit.maskadd = QStringLiteral("255.0.0.0");
    const QDateTime start = QDateTime::currentDateTime();
    QCOMPARE(bench.control->hlnpSave(QString(), QStringLiteral("[a] b"), 0, QStringLiteral("AA"), unit.name,
                                     1, deafAddress(), QStringLiteral("255.255.0.0"), unit.gatewayadd,
                                     unit.primdnsadd, unit.secdnsadd),
             QStringLiteral("OK"));
    QVERIFY(start.msecsTo(QDateTime::currentDateTime()) >= 12000);
    QVERIFY2(storedAfter(start) < 3000, qPrintable(QString::number(storedAfter(start))));
    QVERIFY(storedKeys(QStringLiteral("connection")).contains(QStringLiteral("mask=255.255.0.0")));
    // The link itself was not part of the form.
    QVERIFY(!fileText().contains("interface"));
}

void TestStoring::singleSettingIsStoredBeforeTheCommand()
{
    FacadeBench bench;
    const QDateTime start = QDateTime::currentDateTime();
    QCOMPARE(
        bench.control->hlnpSetDhcpName(QString(), deafAddress(), QStringLiteral("NEW"), QString(), QString()),
        QStringLiteral("OK"));
    QVERIFY(start.msecsTo(QDateTime::currentDateTime()) >= 12000);
    QVERIFY2(storedAfter(start) < 3000, qPrintable(QString::number(storedAfter(start))));
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
    unit.ipadd = deafAddress();
    unit.gatewayadd = unit.maskadd = unit.primdnsadd = unit.secdnsadd = QStringLiteral("1.2.3.4");
    QStringList form{unit.ipadd, unit.gatewayadd, unit.maskadd, unit.primdnsadd, unit.secdnsadd};
    form[badField] = QStringLiteral("1.2");
    QCOMPARE(bench.control->hlnpSave(QString(), QString(), 0, QStringLiteral("00:50:C2:72:00:01"), QString(),
                                     1, form.at(0), form.at(2), form.at(1), form.at(3), form.at(4)),
             told);
    const QString signal = QStringLiteral("markHLNPDataRed(%1)").arg(mark);
    QCOMPARE(bench.recorder->told, QStringList({signal, signal}));
}

QTEST_GUILESS_MAIN(TestStoring)
#include "tst_storing.moc"
