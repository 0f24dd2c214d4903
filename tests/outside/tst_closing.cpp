// The window is closed while the panel waits for something: it ends with 0 as soon as that wait is over, complains of
// nothing and leaves a whole settings file.

#include "tests/outside/realpanel.h"

#include <QtTest>

namespace {

constexpr int kRecall = 0x64;

} // namespace

class TestClosing : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        studio = std::make_unique<Studio>();
        QVERIFY2(studio->complaint().isEmpty(), qPrintable(studio->complaint()));
    }
    void cleanup() { studio.reset(); }

    void theWindowClosesInAWait_data();
    void theWindowClosesInAWait();

private:
    struct Wait
    {
        const char *name;
        int atMostMs; // from the close to the end, on a machine with much else to do
        bool inSample;
        std::unique_ptr<RealPanel> (TestClosing::*enter)();
    };
    static const QVector<Wait> &waits();

    std::unique_ptr<RealPanel> fresh();
    std::unique_ptr<RealPanel> afterStart();
    std::unique_ptr<RealPanel> unlocked();
    std::unique_ptr<RealPanel> inSetup();
    std::unique_ptr<RealPanel> inConnection();

    std::unique_ptr<RealPanel> aScan();
    std::unique_ptr<RealPanel> theScanOfTheStart();
    std::unique_ptr<RealPanel> aCrowdedScan();
    std::unique_ptr<RealPanel> aConnectToNobody();
    std::unique_ptr<RealPanel> theFirstRead();
    std::unique_ptr<RealPanel> thePollOfASilentUnit();
    std::unique_ptr<RealPanel> aSettingOfASilentUnit();
    std::unique_ptr<RealPanel> aRecall();
    std::unique_ptr<RealPanel> aMemorySave();
    std::unique_ptr<RealPanel> theAutomaticKey();
    std::unique_ptr<RealPanel> aChangeOfFormat();
    std::unique_ptr<RealPanel> theFactoryDefault();
    std::unique_ptr<RealPanel> theUnitsNetworkSettings();
    std::unique_ptr<RealPanel> aReconnect();
    std::unique_ptr<RealPanel> theNoticeOfADisconnect();

    std::unique_ptr<Studio> studio;
};

const QVector<TestClosing::Wait> &TestClosing::waits()
{
    static const QVector<Wait> all{
        {"a scan", 8000, false, &TestClosing::aScan},
        {"the scan of the start, and the connect behind it", 15000, false, &TestClosing::theScanOfTheStart},
        {"the 50 s of a crowded scan", 100000, false, &TestClosing::aCrowdedScan},
        {"a connect to an address without a unit", 15000, false, &TestClosing::aConnectToNobody},
        {"the first read of the unit", 10000, true, &TestClosing::theFirstRead},
        {"the poll of a silent unit", 15000, false, &TestClosing::thePollOfASilentUnit},
        {"a setting to a silent unit", 20000, true, &TestClosing::aSettingOfASilentUnit},
        {"a memory recall", 15000, true, &TestClosing::aRecall},
        {"a memory save", 10000, false, &TestClosing::aMemorySave},
        {"the automatic key", 10000, false, &TestClosing::theAutomaticKey},
        {"a change of the output format", 10000, false, &TestClosing::aChangeOfFormat},
        {"the factory default", 15000, false, &TestClosing::theFactoryDefault},
        {"the unit's network settings", 15000, false, &TestClosing::theUnitsNetworkSettings},
        {"a reconnect", 15000, false, &TestClosing::aReconnect},
        {"the notice of a disconnect", 5000, false, &TestClosing::theNoticeOfADisconnect},
    };
    return all;
}

// ---- Ways into a wait -------------------------------------------------------------------------------------

std::unique_ptr<RealPanel> TestClosing::fresh()
{
    QFile::remove(settingsPath());
    auto panel = std::make_unique<RealPanel>(studio->panelPlace());
    if (!panel->stands() || !panel->run().printed(kStarted))
        return {};
    panel->click(QStringLiteral("btnConnect"));
    return panel->changes(QStringLiteral("connectForm"), panel->look(QStringLiteral("connectForm")))
        ? std::move(panel)
        : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::afterStart()
{
    auto panel = studio->connectedPanel();
    if (!panel->run().printed(QStringLiteral("StaticIP auto connect")))
        return {};
    return studio->isIdle(*panel) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::unlocked()
{
    auto panel = afterStart();
    if (panel)
        panel->click(QStringLiteral("outputMemoryLock"));
    return panel;
}

std::unique_ptr<RealPanel> TestClosing::inSetup()
{
    auto panel = afterStart();
    if (!panel)
        return panel;
    const QImage before = panel->look(QStringLiteral("setupForm"));
    panel->click(QStringLiteral("btnSetup"));
    panel->run().readOn(400);
    return panel->changes(QStringLiteral("setupForm"), before) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::inConnection()
{
    auto panel = afterStart();
    if (!panel)
        return panel;
    const QImage before = panel->look(QStringLiteral("connectForm"));
    panel->click(QStringLiteral("btnConnect"));
    panel->run().readOn(400);
    return panel->changes(QStringLiteral("connectForm"), before) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aScan()
{
    auto panel = fresh();
    if (panel)
        panel->click(QStringLiteral("imgConnectScan"));
    return panel && panel->run().printed(QStringLiteral("Do Scan!")) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theScanOfTheStart()
{
    studio->saveSettings();
    auto panel = std::make_unique<RealPanel>(studio->panelPlace());
    return panel->stands() && panel->run().printed(QStringLiteral("Do Scan!")) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aCrowdedScan()
{
    const QString address = QStringLiteral("192.168.72.%1/24");
    for (int last = 20; last < 34; ++last)
        studio->net.ip(studio->unitHost,
                       {QStringLiteral("addr"), QStringLiteral("add"), address.arg(last),
                        QStringLiteral("dev"), QStringLiteral("eth0")});
    QProcess *crowd =
        studio->net.start(studio->unitHost, QStringLiteral(UNIT_PROGRAM),
                          {QStringLiteral("--address"), QStringLiteral("192.168.72.20"),
                           QStringLiteral("--units"), QStringLiteral("10"), QStringLiteral("--quiet")});
    QProcess *more =
        studio->net.start(studio->unitHost, QStringLiteral(UNIT_PROGRAM),
                          {QStringLiteral("--address"), QStringLiteral("192.168.72.30"),
                           QStringLiteral("--units"), QStringLiteral("4"), QStringLiteral("--quiet")});
    crowd->waitForReadyRead(5000);
    more->waitForReadyRead(5000);
    auto panel = fresh();
    if (panel)
        panel->click(QStringLiteral("imgConnectScan"));
    return panel && panel->run().printed(QStringLiteral("HLNP Scan!")) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aConnectToNobody()
{
    studio->saveSettings({{QStringLiteral("ipaddress"), QStringLiteral("192.168.72.99")},
                          {QStringLiteral("mac"), QStringLiteral("02:00:00:00:00:01")}});
    auto panel = std::make_unique<RealPanel>(studio->panelPlace());
    if (!panel->stands() || !panel->run().printed(QStringLiteral("ini exists and MAC not found")))
        return {};
    const QImage before = panel->look(QStringLiteral("connectForm"));
    panel->click(QStringLiteral("btnConnect"));
    if (!panel->changes(QStringLiteral("connectForm"), before))
        return {};
    panel->click(QStringLiteral("btnConnectConnect"));
    return panel->run().printed(QStringLiteral("Connect to 1 \"192.168.72.99\"")) ? std::move(panel)
                                                                                  : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theFirstRead()
{
    studio->saveSettings();
    auto panel = std::make_unique<RealPanel>(studio->panelPlace());
    return panel->stands() && studio->sees(0x51) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::thePollOfASilentUnit()
{
    auto panel = afterStart();
    studio->unit->setFault(0x60, standin::Fault::silent());
    studio->unit->clearRecord();
    return studio->sees(0x60) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aSettingOfASilentUnit()
{
    auto panel = afterStart();
    // Silent to the setting alone: over a silent poll the warning might come up first and take the click.
    studio->unit->setFault(0xE3, standin::Fault::silent());
    if (panel)
        panel->click(QStringLiteral("checkboxPGMSDI"));
    return studio->sees(0xE3) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aRecall()
{
    auto panel = unlocked();
    if (panel)
        panel->click(QStringLiteral("outputMemoryLoad"));
    return studio->sees(kRecall) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aMemorySave()
{
    auto panel = unlocked();
    if (panel)
        panel->click(QStringLiteral("outputMemorySave"));
    return studio->sees(0xE4) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theAutomaticKey()
{
    auto panel = afterStart();
    if (!panel)
        return panel;
    panel->click(QStringLiteral("menuChromakey"));
    panel->click(QStringLiteral("pageCK.pageCK_ContentHeader01.switchButton"));
    if (!studio->sees(0xD2))
        return {};
    panel->click(QStringLiteral("pageCK.btnCkBKColorAuto"));
    return studio->sees(0xD0) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aChangeOfFormat()
{
    auto panel = inSetup();
    if (!panel)
        return panel;
    panel->click(QStringLiteral("imgSetupAutoOutRes"));
    panel->click(QStringLiteral("btnSetupSave"));
    return studio->sees(0xE0) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theFactoryDefault()
{
    auto panel = inSetup();
    if (!panel)
        return panel;
    panel->click(QStringLiteral("btnSetupFactoryDefault"));
    panel->run().readOn(500);
    panel->click(QStringLiteral("btnFactoryReset"));
    return studio->sees(kRecall) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theUnitsNetworkSettings()
{
    auto panel = inConnection();
    if (panel)
        panel->click(QStringLiteral("btnConnectSave"));
    return panel && panel->run().printed(QStringLiteral("Not doing reboot!")) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::aReconnect()
{
    auto panel = afterStart();
    studio->unit->stopListening();
    studio->unit->drop();
    if (!panel || !panel->run().printed(QStringLiteral("onWarning:")))
        return {};
    panel->run().readOn(400);
    panel->click(QStringLiteral("btnWarningReconnect"));
    panel->run().forget();
    return panel->run().printed(QStringLiteral("Connect to 1")) ? std::move(panel) : nullptr;
}

std::unique_ptr<RealPanel> TestClosing::theNoticeOfADisconnect()
{
    auto panel = inConnection();
    if (panel)
        panel->click(QStringLiteral("btnConnectDisconnect"));
    return QTest::qWaitFor([this] { return studio->unit->clientCount() == 0; }) ? std::move(panel) : nullptr;
}

// ---- The case ---------------------------------------------------------------------------------------------

void TestClosing::theWindowClosesInAWait_data()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < waits().size(); ++row) {
        if (waits().at(row).inSample || wholeSet())
            QTest::newRow(waits().at(row).name) << row;
    }
}

void TestClosing::theWindowClosesInAWait()
{
    QFETCH(int, row);
    const Wait &wait = waits().at(row);
    const auto panel = (this->*wait.enter)();
    QVERIFY2(panel, "the wait was not reached");
    QElapsedTimer clock;
    clock.start();
    const int status = panel->close(wait.atMostMs);
    qInfo("closed in %s: ended with %d after %lld ms", wait.name, status, clock.elapsed());
    QVERIFY2(status == 0, qPrintable(panel->run().output()));
    QCOMPARE(panel->strangeLines(), QStringList());
    QFile file(settingsPath());
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray stored = file.readAll();
    QVERIFY2(stored.contains("\nlanguage=en_US\n"), stored.constData());
}

NETWORK_TEST_MAIN(TestClosing)
#include "tst_closing.moc"
