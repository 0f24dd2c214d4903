// A network that means no good: crowds and floods at a scan, and names that would be more than names.

#include "tests/discovery/scanbench.h"
#include "tests/outside/realpanel.h"

#include <QtTest>

#include <atomic>

namespace {

constexpr int kLongestScanMs = 175000;
constexpr int kRows = 100;

// The record of one of very many devices.
QByteArray recordOf(int number)
{
    DeviceRecord record;
    record.mac = QByteArray::fromHex("025ca7") + static_cast<char>(number >> 16)
        + static_cast<char>((number >> 8) & 0xFF) + static_cast<char>(number & 0xFF);
    record.ip = QStringLiteral("192.168.%1.%2").arg(100 + number / 250 % 100).arg(1 + number % 250);
    return record.datagram();
}

// Sends records of ever new devices to whoever it is aimed at, from a thread on another host, at a rate until it goes.
class Flood
{
public:
    Flood(const QString &host, const QString &from, const QString &to, int perSecond)
        : m_thread([=] { run(host, from, to, perSecond); })
    {
    }
    ~Flood()
    {
        m_over = true;
        m_thread.join();
    }
    Flood(const Flood &) = delete;
    Flood &operator=(const Flood &) = delete;

    int sent() const { return m_sent; }
    void aim(quint16 port) { m_port = port; }

private:
    void run(const QString &host, const QString &from, const QString &to, int perSecond)
    {
        support::TestNetwork::enter(host);
        const int out = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        sockaddr_in own = {};
        own.sin_family = AF_INET;
        own.sin_addr.s_addr = inet_addr(qPrintable(from));
        sockaddr_in target = {};
        target.sin_family = AF_INET;
        target.sin_addr.s_addr = inet_addr(qPrintable(to));
        if (out < 0 || ::bind(out, reinterpret_cast<sockaddr *>(&own), sizeof own) != 0)
            return;
        QVector<QByteArray> records;
        for (int number = 0; number < 200; ++number)
            records.append(recordOf(number));
        while (!m_over && m_port == 0)
            ::usleep(1000);
        target.sin_port = htons(m_port);
        QVector<iovec> parts;
        for (QByteArray &record : records)
            parts.append({record.data(), static_cast<size_t>(record.size())});
        QVector<mmsghdr> batch(parts.size());
        for (int i = 0; i < batch.size(); ++i) {
            batch[i] = {};
            batch[i].msg_hdr.msg_name = &target;
            batch[i].msg_hdr.msg_namelen = sizeof target;
            batch[i].msg_hdr.msg_iov = &parts[i];
            batch[i].msg_hdr.msg_iovlen = 1;
        }
        QElapsedTimer clock;
        clock.start();
        while (!m_over) {
            const int due = static_cast<int>(clock.elapsed() * perSecond / 1000);
            while (m_sent < due && !m_over) {
                const int sent = ::sendmmsg(out, batch.data(), static_cast<unsigned>(batch.size()), 0);
                m_sent += qMax(sent, 1);
            }
            ::usleep(1000);
        }
        ::close(out);
    }

    std::atomic<int> m_sent{0};
    std::atomic<bool> m_over{false};
    std::atomic<quint16> m_port{0};
    std::thread m_thread;
};

QString bad(int code)
{
    return QString(QChar(code));
}

} // namespace

class TestLan : public ScanBench
{
    Q_OBJECT

private slots:
    void aCrowdIsScanned_data();
    void aCrowdIsScanned();
    void aFloodIsScanned();
    void aNameIsOnlyAName_data();
    void aNameIsOnlyAName();

private:
    // One quiet unit is found as ever.
    void scanIsWhole(qkv720 &panel);
};

void TestLan::scanIsWhole(qkv720 &panel)
{
    QCOMPARE(scan(panel), 1U);
    QCOMPARE(panel.hlnpObj->deviceCount, 1);
    QCOMPARE(panel.getHLNPDeviceList(), QStringList{address(10)});
}

void TestLan::aCrowdIsScanned_data()
{
    QTest::addColumn<int>("devices");
    QTest::newRow("some more than are read at once") << 14;
    if (wholeSet())
        QTest::newRow("1,088 at once") << 1088;
}

void TestLan::aCrowdIsScanned()
{
    QFETCH(int, devices);
    QVERIFY2(raise(), qPrintable(net->complaint()));
    std::atomic<bool> crowded{true};
    const QVector<Device> one = numbered({10});
    const Devices::Answer quiet = wellBehaved(one);
    const auto units = switchOn(one, [&](Devices &self, const Devices::Request &request) {
        quiet(self, request);
        if (!crowded || Devices::codeOf(request) != kEthReq)
            return;
        for (int number = 0; number < devices; ++number)
            Devices::send(request, address(10), recordOf(number));
    });
    QVERIFY(units->isGood());
    qkv720 panel;
    QElapsedTimer clock;
    clock.start();
    QCOMPARE(scan(panel), 0U);
    const qint64 took = clock.elapsed();
    qInfo("%d devices answered at once: %lld ms, %d rows", devices, took, panel.hlnpObj->deviceCount);
    QVERIFY2(took <= kLongestScanMs, qPrintable(QString::number(took)));
    QCOMPARE(panel.hlnpObj->deviceCount, qMin(devices + 1, kRows));
    crowded = false;
    scanIsWhole(panel);
}

void TestLan::aFloodIsScanned()
{
    const int perSecond = tested(500, 100000);
    QVERIFY2(raise(), qPrintable(net->complaint()));
    std::atomic<Flood *> aimed{nullptr};
    const Devices::Answer quiet = wellBehaved(numbered({10}));
    const auto units = switchOn(numbered({10}), [&](Devices &self, const Devices::Request &request) {
        quiet(self, request);
        if (Flood *flood = aimed)
            flood->aim(request.fromPort);
    });
    QVERIFY(units->isGood());
    qkv720 panel;
    QElapsedTimer clock;
    {
        Flood flood(farHost, address(10), address(1), perSecond);
        aimed = &flood;
        clock.start();
        scan(panel);
        const qint64 took = clock.elapsed();
        qInfo("%d datagrams a second, %d sent: %lld ms, %d rows", perSecond, flood.sent(), took,
              panel.hlnpObj->deviceCount);
        QVERIFY2(took <= kLongestScanMs, qPrintable(QString::number(took)));
        QVERIFY(panel.hlnpObj->deviceCount <= kRows);
        QVERIFY(flood.sent() > perSecond);
        QVERIFY(panel.hlnpObj->deviceCount > 1);
        aimed = nullptr;
    }
    scanIsWhole(panel);
}

void TestLan::aNameIsOnlyAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("line breaks") << "a\r\nini forged";
    QTest::newRow("turned round") << bad(0x202e) + "1-OIDUTS" + bad(0x2066);
    if (!wholeSet())
        return;
    QTest::newRow("a terminal's orders") << "\x1b[2J\x1b]0;x\x07";
    QTest::newRow("orders of one byte") << bad(0x9b) + "2J" + bad(0x9d);
    QTest::newRow("lines of other kinds") << "a" + bad(0x2028) + "b" + bad(0x2029) + "c";
    QTest::newRow("no width") << bad(0x200b) + bad(0x200f) + bad(0xfeff) + "x";
    QTest::newRow("markup") << "<img src=x><b>x";
    QTest::newRow("keys of the file") << "x\nmemory=8\n[y]";
    QTest::newRow("quotes and escapes") << "\"\\x41;,=%41\\\"";
    QTest::newRow("places of the log") << "%1 %2 %s %n %d";
}

// Scanned, connected and stored: on standard error every line is the panel's own, and the file holds the name.
void TestLan::aNameIsOnlyAName()
{
    QFETCH(QString, name);
    QVERIFY2(name.toUtf8().size() <= standin::NetworkSettings::NameBytes, "longer than a unit's name");
    Studio studio;
    QVERIFY2(studio.complaint().isEmpty(), qPrintable(studio.complaint()));
    studio.unit->withNetwork([&name](standin::NetworkSettings &settings) { settings.name = name; });
    QFile::remove(settingsPath());
    for (const char *start : {"first", "second"}) {
        RealPanel panel(studio.panelPlace());
        QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
        if (qstrcmp(start, "first") == 0) {
            QVERIFY(panel.run().printed(kStarted));
            const QImage before = panel.look(QStringLiteral("connectForm"));
            panel.click(QStringLiteral("btnConnect"));
            QVERIFY(panel.changes(QStringLiteral("connectForm"), before));
            panel.click(QStringLiteral("imgConnectScan"));
            QVERIFY(panel.run().printed(QStringLiteral("Refresh IP List: (\"192.168.72.10\")")));
            panel.click(QStringLiteral("btnConnectConnect"));
        }
        QVERIFY2(studio.isConnected(), start);
        QVERIFY(panel.run().printed(QStringLiteral("[mainControl::deviceConnect] Return: \"OK\"")));
        panel.run().readOn(300);
        QCOMPARE(panel.close(), 0);
        QCOMPARE(panel.strangeLines(), QStringList());
        for (const QChar character : panel.run().output()) {
            QVERIFY2(character == QLatin1Char('\n')
                         || (character.category() != QChar::Other_Control
                             && character.category() != QChar::Other_Format
                             && character.category() != QChar::Separator_Line
                             && character.category() != QChar::Separator_Paragraph),
                     qPrintable(panel.run().output()));
        }
        QCOMPARE(QSettings(settingsPath(), QSettings::IniFormat)
                     .value(QStringLiteral("connection/hostname"))
                     .toString(),
                 name);
        QTRY_COMPARE(studio.unit->clientCount(), 0);
        studio.unit->clearRecord();
    }
}

NETWORK_TEST_MAIN(TestLan)
#include "tst_lan.moc"
