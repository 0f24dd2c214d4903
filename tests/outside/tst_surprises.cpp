// What happens to a panel without its operator's doing: adapters and cables go, units move and restart, the process
// is stopped, a second panel works on the same settings file.

#include "tests/outside/realpanel.h"

#include <QtTest>

#include <csignal>

namespace {

// Red as the form marks a field that does not agree, nearly.
int redPixels(const QImage &image)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor color = image.pixelColor(x, y);
            count += color.red() > 110 && color.green() < 60 && color.blue() < 60;
        }
    }
    return count;
}

} // namespace

class TestSurprises : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        studio = std::make_unique<Studio>();
        QVERIFY2(studio->complaint().isEmpty(), qPrintable(studio->complaint()));
        QFile::remove(settingsPath());
    }
    void cleanup() { studio.reset(); }

    void theAdapterIsGone();
    void theUnitHasMoved();
    void theUnitComesBackAndIsReconnected();
    void theCableIsPulled();
    void theProcessIsStopped();
    void twoPanelsOnOneSettingsFile();

private:
    std::unique_ptr<Studio> studio;
};

void TestSurprises::theAdapterIsGone()
{
    studio->saveSettings({{QStringLiteral("netcard"), QStringLiteral("[10.9.8.7] eth9")}});
    RealPanel panel(studio->panelPlace());
    QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
    QVERIFY(panel.run().printed(QStringLiteral("ini exists and netcard not exist")));
    const QImage before = panel.look(QStringLiteral("connectForm"));
    panel.click(QStringLiteral("btnConnect"));
    QVERIFY(panel.changes(QStringLiteral("connectForm"), before));
    // What is missing stands in the panel in yellow: the adapter's text, then the unit's.
    const QImage told = panel.atRest(QStringLiteral("msgConnect"));
    int yellow = 0;
    for (int y = 0; y < told.height(); ++y) {
        for (int x = 0; x < told.width(); ++x)
            yellow += told.pixelColor(x, y).red() > 180 && told.pixelColor(x, y).blue() < 80;
    }
    QVERIFY2(yellow > 100, qPrintable(QString::number(yellow)));
    QCOMPARE(studio->unit->clientCount(), 0);
    QCOMPARE(studio->unit->requests(), QStringList()); // without its adapter it asks nobody
    QCOMPARE(panel.close(), 0);
    QCOMPARE(panel.strangeLines(), QStringList());
}

void TestSurprises::theUnitHasMoved()
{
    studio->saveSettings({{QStringLiteral("ipaddress"), QStringLiteral("192.168.72.77")}});
    RealPanel panel(studio->panelPlace());
    QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
    QVERIFY(panel.run().printed(QStringLiteral("StaticIP device info is not match")));
    const QImage before = panel.look(QStringLiteral("connectForm"));
    panel.click(QStringLiteral("btnConnect"));
    QVERIFY(panel.changes(QStringLiteral("connectForm"), before));
    QVERIFY(redPixels(panel.atRest(QStringLiteral("txtIPAddr"))) > 20);
    QCOMPARE(redPixels(panel.look(QStringLiteral("txtHostname"))), 0);
    QCOMPARE(redPixels(panel.look(QStringLiteral("txtGateway"))), 0);
    QCOMPARE(studio->unit->clientCount(), 0);
    QCOMPARE(panel.close(), 0);
    QCOMPARE(panel.strangeLines(), QStringList());
}

// A unit that is switched off and on, and Reconnect, again and again: what the tenth round left behind is what the
// last one leaves.
void TestSurprises::theUnitComesBackAndIsReconnected()
{
    constexpr int kSettled = 10;
    const int rounds = tested(12, 100);
    const auto panel = studio->connectedPanel();
    QVERIFY(panel->run().printed(QStringLiteral("StaticIP auto connect")));
    QVERIFY(studio->isIdle(*panel));
    const QImage seen = panel->look(QStringLiteral("pageIN"));
    RealPanel::Figures tenth;
    RealPanel::Figures last;
    for (int round = 1; round <= rounds; ++round) {
        panel->run().forget();
        studio->unit->stopListening();
        studio->unit->drop();
        QVERIFY2(panel->run().printed(QStringLiteral("onWarning:")), qPrintable(panel->run().output()));
        QVERIFY(studio->unit->listenAgain());
        QVERIFY(panel->changes(QStringLiteral("pageIN"), seen));
        panel->run().readOn(400);
        studio->unit->clearRecord();
        panel->click(QStringLiteral("btnWarningReconnect"));
        QVERIFY2(studio->isConnected(), qPrintable(QString::number(round)));
        QVERIFY2(panel->shows(QStringLiteral("pageIN"), seen), qPrintable(QString::number(round)));
        panel->run().readOn(100);
        last = panel->figures();
        if (round == kSettled)
            tenth = last;
    }
    qInfo("%d reconnects: RSS %d KB after the tenth, %+d KB at the end; descriptors %d, %+d; threads %d, %+d",
          rounds, tenth.rssKb, last.rssKb - tenth.rssKb, tenth.descriptors,
          last.descriptors - tenth.descriptors, tenth.threads, last.threads - tenth.threads);
    QCOMPARE(last.descriptors, tenth.descriptors);
    QCOMPARE(last.threads, tenth.threads);
    constexpr int kBreathKb = 1024; // what the script engine holds between two collections
    QVERIFY(last.rssKb - tenth.rssKb <= kBreathKb);
    QCOMPARE(panel->close(), 0);
    QCOMPARE(panel->strangeLines(), QStringList());
}

void TestSurprises::theCableIsPulled()
{
    const auto panel = studio->connectedPanel();
    QVERIFY(panel->run().printed(QStringLiteral("StaticIP auto connect")));
    QVERIFY(studio->isIdle(*panel));
    const QImage seen = panel->look(QStringLiteral("pageIN"));
    QVERIFY(studio->net.setCable(studio->panelHost, QStringLiteral("eth0"), false));
    QVERIFY2(panel->run().printed(QStringLiteral("onWarning:"), 40000), qPrintable(panel->run().output()));
    QVERIFY(panel->changes(QStringLiteral("pageIN"), seen));
    QVERIFY(studio->net.setCable(studio->panelHost, QStringLiteral("eth0"), true));
    // The bridge's port learns again before it forwards.
    panel->run().readOn(1500);
    for (int attempt = 0; attempt < 5 && panel->look(QStringLiteral("pageIN")) != seen; ++attempt) {
        panel->run().forget();
        studio->unit->clearRecord();
        // A press that meets the warning as it comes is nobody's.
        panel->click(QStringLiteral("btnWarningReconnect"));
        if (panel->run().printed(QStringLiteral("device connect:"), kStartMs / 4))
            panel->run().readOn(300);
    }
    QVERIFY(panel->shows(QStringLiteral("pageIN"), seen));
    QVERIFY(studio->isConnected());
    QCOMPARE(panel->close(), 0);
    QCOMPARE(panel->strangeLines(), QStringList());
}

// Ten seconds without a processor are no reason to lose anything: the poll goes on with the same link.
void TestSurprises::theProcessIsStopped()
{
    const auto panel = studio->connectedPanel();
    QVERIFY(panel->run().printed(QStringLiteral("StaticIP auto connect")));
    panel->run().forget();
    panel->run().signal(SIGSTOP);
    QVERIFY(panel->run().stopped());
    QTest::qSleep(10000);
    studio->unit->clearRecord();
    panel->run().goOn();
    QVERIFY(studio->sees(0x60, 6000));
    QVERIFY(studio->sees(0x62, 6000));
    panel->click(QStringLiteral("checkboxPGMSDI"));
    QVERIFY(studio->sees(0xE3));
    QVERIFY2(!panel->run().output().contains(QStringLiteral("onWarning:")),
             qPrintable(panel->run().output()));
    QCOMPARE(panel->close(), 0);
    QCOMPARE(panel->strangeLines(), QStringList());
}

// Each stores its own; neither takes away what the other stored.
void TestSurprises::twoPanelsOnOneSettingsFile()
{
    RealPanel first(studio->panelPlace());
    RealPanel second(studio->panelPlace());
    QVERIFY(first.stands() && first.run().printed(kStarted));
    QVERIFY(second.stands() && second.run().printed(kStarted));
    first.click(QStringLiteral("btnConnect"));
    first.run().readOn(500);
    first.click(QStringLiteral("imgConnectScan"));
    // The second changes the language while the first scans and connects.
    for (const int row : {1, 2, 0, 2})
        QVERIFY(second.choose(QStringLiteral("comboMainLanguage"), row));
    QVERIFY(first.run().printed(QStringLiteral("Refresh IP List: (\"192.168.72.10\")")));
    first.click(QStringLiteral("btnConnectConnect"));
    QVERIFY(first.run().printed(QStringLiteral("device connect: OK")));
    QVERIFY(second.choose(QStringLiteral("comboMainLanguage"), 1));
    second.run().readOn(500);
    QCOMPARE(second.close(), 0);
    QCOMPARE(first.close(), 0);
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray stored = file.readAll();
    for (const char *line : {"language=zh_TW", "ipaddress=192.168.72.10", "hostname=STUDIO-1", "interface=1"})
        QVERIFY2(stored.contains(line), stored.constData());
    QVERIFY(!QFile::exists(settingsPath() + QStringLiteral(".lock")));
    QCOMPARE(first.strangeLines() + second.strangeLines(), QStringList());
}

NETWORK_TEST_MAIN(TestSurprises)
#include "tst_surprises.moc"
