#include "datagrams.h"
#include "devices.h"
#include "discovery/hlnp.h"
#include "tests/support/testnetwork.h"
#include "tests/support/vectors.h"

#include <QtTest>

// The discovery class against vectors that were written apart from it, in a network of the test's own: what it sends
// for each request, and what it makes of the reply.

using support::Datagram;
Q_DECLARE_METATYPE(Datagram)

namespace {

const QString kPanel = QStringLiteral("192.168.72.1");
const QString kUnit = QStringLiteral("192.168.72.10"); // the unit that the vectors tell of
const QString kMac = QStringLiteral("00:50:C2:72:00:01");

QString hex(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.toHex(' '));
}

using Call = std::function<QString(HLNP &, const QStringList &)>;

// What each request is in the class's own words. The queries give back what they filed, the settings their result.
const QMap<QString, Call> &calls()
{
    static const QMap<QString, Call> all = {
        {QStringLiteral("ETH_REQ"),
         [](HLNP &hlnp, const QStringList &) {
             hlnp.scanSlot(QStringLiteral("scan"), 0);
             const hlnp_network_info &row = hlnp.allHlnpDevice[0].zcm.hlnpnetwork;
             return QStringList{row.name,       row.macadd,
                                row.ipadd,      row.maskadd,
                                row.gatewayadd, row.primdnsadd,
                                row.secdnsadd,  row.isdhcp ? QStringLiteral("on") : QStringLiteral("off")}
                 .join(QLatin1Char(' '));
         }},
        {QStringLiteral("FWVER_REQ"),
         [](HLNP &hlnp, const QStringList &) {
             hlnp.getFWVersion(kUnit);
             return QString::fromLatin1(hlnp.allHlnpDevice[0].zcm.hlnpnetwork.fwver.toLatin1().toHex(' '));
         }},
        {QStringLiteral("GET_MODEL"),
         [](HLNP &hlnp, const QStringList &) {
             hlnp.getModel(kUnit);
             return hlnp.allHlnpDevice[0].zcm.hlnpnetwork.vid + hlnp.allHlnpDevice[0].zcm.hlnpnetwork.pid;
         }},
        {QStringLiteral("GET_MODEL_NAME"),
         [](HLNP &hlnp, const QStringList &) {
             hlnp.getModelName(kUnit);
             return hlnp.allHlnpDevice[0].zcm.hlnpnetwork.modelname;
         }},
        {QStringLiteral("SET_DHCPMODE"),
         [](HLNP &hlnp, const QStringList &v) {
             return hlnp.setDhcpMode(kMac, kPanel, kUnit, v.value(0) == QLatin1String("on") ? 1 : 0);
         }},
        {QStringLiteral("SET_IPADR"),
         [](HLNP &hlnp, const QStringList &v) {
             return hlnp.setIpAdr(kMac, kPanel, kUnit, v.value(0), v.value(1));
         }},
        {QStringLiteral("RESET"),
         [](HLNP &hlnp, const QStringList &) { return hlnp.reset(kMac, kPanel, kUnit); }},
        {QStringLiteral("SET_DHCPNAME"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setDhcpName(kPanel, kUnit, v.value(0)); }},
        {QStringLiteral("SET_MACADR"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setMacAdr(kPanel, kUnit, v.value(0)); }},
        {QStringLiteral("SET_NETMASK"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setNetmask(kPanel, kUnit, v.value(0)); }},
        {QStringLiteral("SET_GATEWAY"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setGateway(kPanel, kUnit, v.value(0)); }},
        {QStringLiteral("SET_PRIDNS"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setPrimDNS(kPanel, kUnit, v.value(0)); }},
        {QStringLiteral("SET_SECDNS"),
         [](HLNP &hlnp, const QStringList &v) { return hlnp.setSecDNS(kPanel, kUnit, v.value(0)); }},
    };
    return all;
}

// What the queries give after the vectors' replies.
const QMap<QString, QString> &filed()
{
    static const QMap<QString, QString> all = {
        {QStringLiteral("ETH_REQ"),
         QStringLiteral(
             "QKV720 00:50:C2:72:00:01 192.168.72.10 255.255.255.0 192.168.72.1 8.8.4.4 9.9.9.9 off")},
        {QStringLiteral("FWVER_REQ"), QStringLiteral("01 01")}, // bytes 3 and 4, whatever they mean
        {QStringLiteral("GET_MODEL"), QStringLiteral("05881501")},
        {QStringLiteral("GET_MODEL_NAME"), QStringLiteral("QKV-720")},
    };
    return all;
}

} // namespace

class TestVectors : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void everyRequestHasItsVector();
    void requests_data() { rows(false); }
    void requests() { run(false); }
    void refusals_data() { rows(true); }
    void refusals() { run(true); }

private:
    static void rows(bool settingsAlone);
    void run(bool refused);

    std::unique_ptr<support::TestNetwork> net;
    std::unique_ptr<Devices> devices;
    QMutex mutex;
    QByteArray reply; // what the unit answers next
    QString panelHost;
};

void TestVectors::initTestCase()
{
    net = std::make_unique<support::TestNetwork>();
    panelHost = net->addHost();
    const QString farHost = net->addHost();
    const QString cable = net->addSwitch();
    net->plug(panelHost, QStringLiteral("eth0"), cable, {kPanel + QStringLiteral("/24")});
    net->plug(farHost, QStringLiteral("eth0"), cable, {kUnit + QStringLiteral("/24")});
    QVERIFY2(net->isGood(), qPrintable(net->complaint()));
    QVERIFY(support::TestNetwork::enter(panelHost));
    devices = std::make_unique<Devices>(farHost, QStringList{kUnit},
                                        [this](Devices &, const Devices::Request &request) {
                                            const QMutexLocker locker(&mutex);
                                            if (!reply.isEmpty())
                                                Devices::send(request, kUnit, reply);
                                        });
    QVERIFY(devices->isGood());
}

void TestVectors::cleanupTestCase()
{
    devices.reset();
    net.reset();
}

void TestVectors::everyRequestHasItsVector()
{
    QStringList keywords;
    for (const Datagram &datagram : support::readDatagrams())
        keywords.append(datagram.request.section(QLatin1Char(' '), 0, 0));
    for (auto it = calls().cbegin(); it != calls().cend(); ++it)
        QVERIFY2(keywords.contains(it.key()), qPrintable(it.key()));
    for (const QString &keyword : keywords)
        QVERIFY2(calls().contains(keyword), qPrintable(keyword));
}

void TestVectors::rows(bool settingsAlone)
{
    QTest::addColumn<Datagram>("datagram");
    for (const Datagram &datagram : support::readDatagrams()) {
        if (!settingsAlone || !filed().contains(datagram.request))
            QTest::newRow(qPrintable(datagram.request)) << datagram;
    }
}

void TestVectors::run(bool refused)
{
    QFETCH(Datagram, datagram);
    const QStringList words = datagram.request.split(QLatin1Char(' '));
    HLNP hlnp;
    hlnp.hLNPpreScanProcess();
    const auto answerWith = [this](const QByteArray &bytes) {
        const QMutexLocker locker(&mutex);
        reply = bytes;
    };
    answerWith(QByteArray());
    hlnp.initHLNPConfig(0, QString(), kPanel, QString(), QString(), QString(), QString(), QString(),
                        QString());
    // The row that a model is asked for.
    hlnp.allHlnpDevice[0].zcm.hlnpnetwork.ipadd = kUnit;
    hlnp.allHlnpDevice[0].zcm.hlnpnetwork.macadd = kMac;
    hlnp.deviceCount = 1;

    QByteArray answer = datagram.in;
    if (refused)
        answer[answer.size() - 1] = '\x15';
    answerWith(answer);
    const int before = devices->requests().size();
    const QString result = calls().value(words.first())(hlnp, words.mid(1));
    QTRY_COMPARE(devices->requests().size(), before + 1);
    const Devices::Request request = devices->requests().constLast();
    QCOMPARE(hex(request.bytes), hex(datagram.out));
    QCOMPARE(request.to, datagram.out.at(2) == '\x80' ? QStringLiteral("broadcast") : kUnit);
    QCOMPARE(result, refused ? QStringLiteral("NACK") : filed().value(words.first(), QStringLiteral("OK")));
}

int main(int argc, char **argv)
{
    support::TestNetwork::obtainRights(argv);
    QCoreApplication application(argc, argv);
    TestVectors test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_vectors.moc"
