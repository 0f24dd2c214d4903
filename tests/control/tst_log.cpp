#include "facadebench.h"
#include "tests/support/logcapture.h"

#include <QRegularExpression>

// What the facade writes to the log, line by line: with these an engineer follows a session afterwards.

class TestLog : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void construction();
    void connectAndRead();
    void connectWithAScanBehindIt();
    void brokenLink();
    void popup();
    void firstRun();
    void savedUnitMissing();
    void savedUnitDiffers();
    void savedPort();
    void keyColour();
    void cursor();
    void parameters();
    void video();
    void memories();
    void networkForm();
    void newDeviceObject();

private:
    std::unique_ptr<support::LogCapture> capture;
};

namespace {

// The lines of the log since the last look that begin like one of the facade's own; the device and discovery
// objects write between them.
QStringList facadeLines()
{
    static const QRegularExpression own(QStringLiteral(
        "^(MainControl |ini |com vs |Connect to|ShowV|Page Input|Memory Refresh|Write to |\\[mainControl|"
        "\\[hlnpSave|warnning|SetOutSelect|SetCursorData|Refresh Pick|GetBKColor|SetBKCOlor|Reset and|"
        "GetAngle|SetAngle|GetBWLevel|SetBWLevel|Get Dark|getEdgeFix|resetEdgeFix|Shadow En|Spill Default|"
        "GetCKSpill|SetCKSpill|ResetCKSpill|getPPFGPostAmp|setLumaKey|Load memory|Save memory|initObj|"
        "[A-Za-z]+ Address format)"));
    return std::exchange(support::LogCapture::logs(), {}).filter(own);
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + text + QLatin1Char('"');
}

QString line(const char *text)
{
    return QString::fromUtf8(text);
}

const QStringList &wholeRead()
{
    static const QStringList read{line("GetBKColorstring: \"#1e2dc1\""),
                                  line("GetAngle:  45 45"),
                                  line("GetBWLevel:  100 900 false"),
                                  line("Get Dark:  true 200 1000 100"),
                                  line("getEdgeFix:  false 2 2 10"),
                                  line("Shadow Enagle: false 250"),
                                  line("Spill Default Low"),
                                  line("GetCKSpillBright: 500 0 500 400 false 1 false false"),
                                  line("getPPFGPostAmp: false 500 500 500 0")};
    return read;
}

} // namespace

void TestLog::init()
{
    QFile::remove(settingsPath());
    capture = std::make_unique<support::LogCapture>();
}

void TestLog::cleanup()
{
    capture.reset();
}

void TestLog::construction()
{
    writeSettings(QStringLiteral("[setting]\nlanguage=zh_CN\n[connection]\ninterface=2\nnetcard=N\n"
                                 "serialport=S\ndhcpmode=true\nipaddress=I\nhostname=H\nmac=M\ngateway=G\n"
                                 "mask=K\nprimarydns=P\nseconddns=D\n[last_info]\nmemory=3\n"));
    FacadeBench bench;
    QCOMPARE(facadeLines(),
             QStringList({line("MainControl init (Language): \"zh_CN\""),
                          line("MainControl init (Read from QSettings): 2 \"N\" \"S\" true \"I\" \"H\" \"M\" "
                               "\"G\" \"K\" \"P\" \"D\""),
                          line("MainControl init (Read from QSettings): Memory = 3")}));
}

void TestLog::connectAndRead()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::InputSelection, QByteArray::fromHex("0002030601feff0300"));
    });
    facadeLines();
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), QStringLiteral("OK"));
    QCOMPARE(
        facadeLines(),
        QStringList({line("Connect to 1 ") + quoted(bench.target()),
                     line("ShowVersion \"1.05\" \"2.23\" \"10.2a\""), line("ShowVout (deviceConnect) 15 0 1"),
                     line("Page Input Info: 15 15 15 15 0 0 2 3 0 1 1 1 -2 3")})
            + wholeRead()
            + QStringList({line("Memory Refresh: 1"),
                           line("Write to QSettings without DoScan: \"\" ") + quoted(bench.target()),
                           line("[mainControl::deviceConnect] Return: \"OK\"")}));

    FacadeBench serial(2);
    facadeLines();
    QCOMPARE(serial.control->deviceConnect(2, serial.target(), 0), QStringLiteral("OK"));
    const QStringList written = facadeLines();
    QCOMPARE(written.first(), line("Connect to 2 ") + quoted(serial.target()));
    QVERIFY(written.at(written.size() - 2).startsWith(QLatin1String("Write to QSettings (RS232):")));

    QCOMPARE(serial.control->deviceConnect(3, QStringLiteral("x"), 0), QStringLiteral("NOT OK"));
    QCOMPARE(
        facadeLines(),
        QStringList({line("Connect to 3 \"x\""), line("[mainControl::deviceConnect] Return: \"NOT OK\"")}));
}

void TestLog::connectWithAScanBehindIt()
{
    FacadeBench bench;
    didScan = true;
    bench.control->netcardList = QStringList{QStringLiteral("[192.168.1.2] eth0")};
    bench.control->ipSelectList = QStringList{bench.target()};
    bench.device->hlnpObj->qkvDevice[0].zcm.hlnpnetwork.ipadd = bench.target();
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), QStringLiteral("OK"));
    QVERIFY(
        facadeLines().contains(line("Write to QSettings: \"[192.168.1.2] eth0\" ") + quoted(bench.target())));
}

void TestLog::brokenLink()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.host.setFault(0xD1, standin::Fault::silent());
    bench.control->setCKAngle(1, 2);
    QCOMPARE(facadeLines(),
             QStringList({line("SetAngle:  1 2"), line("warnningConnectionBroken"),
                          line("warnningConnectionBroken"), line("warnningConnectionBroken"),
                          line("warnningConnectionBroken")}));
}

void TestLog::popup()
{
    FacadeBench bench;
    facadeLines();
    didScan = true;
    bench.control->connectPopup(1, 4);
    QCOMPARE(facadeLines(),
             QStringList({line("MainControl connectPopup(interface): 1 1 4"),
                          line("MainControl connectPopup: true 1 \"\" \"\" false \"\" \"\" \"\" \"\" \"\" "
                               "\"\" \"\"")}));
}

void TestLog::firstRun()
{
    FacadeBench bench;
    facadeLines();
    bench.control->autoRun();
    const QStringList written = facadeLines();
    QCOMPARE(written.size(), 3);
    QCOMPARE(written.first(), line("MainControl connectPopup(interface): 1 0 0"));
    QCOMPARE(written.last(), line("ini is empty"));
}

void TestLog::savedUnitMissing()
{
    writeSettings(QStringLiteral("[connection]\nipaddress=I\nmac=AA\ndhcpmode=true\n"));
    FacadeBench bench;
    facadeLines();
    bench.device->hlnpObj->qkvDevice[9].zcm.hlnpnetwork.ipadd = QStringLiteral("10.0.0.9");
    bench.control->autoRun();
    QCOMPARE(facadeLines(),
             QStringList({line("ini exists and netcard not exist"),
                          line("ini exists and MAC not found \"AA\" \"\" \"10.0.0.9\""),
                          line("ini exists and it is DHCP mode")}));
}

void TestLog::savedUnitDiffers()
{
    writeSettings(QStringLiteral("[connection]\nipaddress=I\nmac=AA\n"));
    FacadeBench bench;
    facadeLines();
    bench.device->hlnpObj->qkvDevice[4].zcm.hlnpnetwork.macadd = QStringLiteral("AA");
    bench.control->autoRun();
    QCOMPARE(facadeLines(),
             QStringList({line("ini exists and netcard not exist"),
                          line("ini exists and StaticIP device info is not match")}));
}

void TestLog::savedPort()
{
    writeSettings(QStringLiteral("[connection]\ninterface=2\nipaddress=I\nserialport=ttyS7\n"));
    FacadeBench bench;
    bench.control->serialNameList = QStringList{QStringLiteral("ttyS1"), QStringLiteral("ttyS2")};
    facadeLines();
    bench.control->autoRun();
    const QStringList written = facadeLines();
    QCOMPARE(written.mid(0, 3),
             QStringList({line("com vs serialList \"ttyS1\" \"ttyS7\""),
                          line("com vs serialList \"ttyS2\" \"ttyS7\""),
                          line("MainControl connectPopup(interface): 2 1 0")}));
    // Also when the port was not found.
    QCOMPARE(written.last(), line("ini exists and com check OK"));
}

void TestLog::keyColour()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.control->setBKColor(500, 1000, 0, 0);
    QCOMPARE(facadeLines(),
             QStringList({line("SetBKCOlor Begin:  500 1000 0"), line("GetBKColorstring: \"#7fff00\""),
                          line("SetBKCOlor End:  \"#7fff00\"")}));
    bench.control->setBKColor(QStringLiteral("#FFFFFF"), 0);
    QCOMPARE(facadeLines(), QStringList{line("SetBKCOlor String:  \"#FFFFFF\"")});
    bench.control->resetBKColor();
    const QStringList reset = facadeLines();
    // The device object writes the angle's line as well, from the values before.
    QCOMPARE(reset.size(), 3);
    QVERIFY2(reset.first().startsWith(line("Refresh Pick Color String:  \"#1e2dc1\" 120 180 760 ")),
             qPrintable(reset.first()));
    QCOMPARE(reset.last(), line("Reset and Refresh Angle:  45 45"));
}

void TestLog::cursor()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) { unit.setCursorColour(1000, 1000, 1000); });
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.control->setCursorData(3, 300, 400);
    QCOMPARE(facadeLines(),
             QStringList({line("SetCursorData: 300 400"), line("Refresh Pick Color: 1000 1000 1000"),
                          line("Refresh Pick Color String:  \"#ffffff\" 1000 1000 1000 -1 0 1")}));
}

void TestLog::parameters()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.control->setCKBWLevel(3, 4, true);
    bench.control->resetEdgeFix();
    bench.control->setCKSpillBright(1, 2, 3, 4, 1, 2, true, true);
    bench.control->resetCKSpillBright(1, true);
    bench.control->setLumaKey(true, 1, 700, 3, 1, 4, 5);
    QCOMPARE(facadeLines(),
             QStringList({line("SetBWLevel:  3 4 true"), line("resetEdgeFix:  false 2 2 10"),
                          line("SetCKSpillBright: 1 2 3 4 1 2"), line("ResetCKSpillBright: 1 true"),
                          line("setLumaKey:  700")}));
}

void TestLog::video()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.control->setVOut(16, 2, 0);
    bench.control->setOutSelect(1, false, false, 2, false, false, 3, false, false, 4, false, false);
    QCOMPARE(facadeLines(),
             QStringList({line("ShowVout (setVOut):  16 2 0"), line("SetOutSelect:  1 2 3 4")}));
}

void TestLog::memories()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    facadeLines();
    bench.control->saveMemory(2);
    bench.control->saveSetup();
    QCOMPARE(facadeLines(),
             QStringList({line("Save memory. Set last =  2"), line("ShowVout(saveSetup) 15 0 1")}));
    bench.control->loadMemory(0);
    // The number as it came, though the factory reset is remembered as 1.
    QCOMPARE(facadeLines(),
             QStringList{line("ShowVout (loadMemory) 15 0 1")} + wholeRead()
                 + QStringList{line("Load memory. Set last =  0")});
}

void TestLog::networkForm()
{
    FacadeBench bench;
    facadeLines();
    const QString none;
    // An empty form and an empty row agree, so nothing goes out.
    bench.control->hlnpSave(none, none, 0, none, none, 1, none, none, none, none, none);
    const QString bad = QStringLiteral("1.2");
    bench.control->hlnpSetIpAdr(none, none, none, bad, bad);
    bench.control->hlnpSetIpAdr(none, none, none, QStringLiteral("1.2.3.4"), bad);
    bench.control->hlnpSetGateway(none, none, bad);
    bench.control->hlnpSetNetmask(none, none, bad);
    bench.control->hlnpSetPrimDNS(none, none, bad);
    bench.control->hlnpSetSecDNS(none, none, bad);
    QCOMPARE(
        facadeLines(),
        QStringList({line("[hlnpSave] DHCP mode= 1"), line("IP Address format incorrect. (\"1\", \"2\")"),
                     line("Gateway Address format incorrect. (\"1\", \"2\")"),
                     line("Gateway Address format failed"), line("Netmask Address format failed"),
                     line("PrimDNS Address format failed"), line("SecDNS Address format failed")}));
}

void TestLog::newDeviceObject()
{
    FacadeBench bench;
    facadeLines();
    const std::unique_ptr<qkv720> former(bench.device);
    const std::unique_ptr<HLNP> formerDiscovery(former->hlnpObj);
    const std::unique_ptr<serialPort> formerSerial(former->serialObj);
    bench.control->initObj();
    bench.device = deviceOf(*bench.control);
    QCOMPARE(facadeLines(), QStringList{line("initObj")});
}

QTEST_GUILESS_MAIN(TestLog)
#include "tst_log.moc"
