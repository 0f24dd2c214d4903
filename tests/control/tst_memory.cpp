#include "facadebench.h"
#include "tests/support/stopwatch.h"

#include <QElapsedTimer>

// User memories, the setup, the output standard, routing and inputs.

class TestMemory : public QObject
{
    Q_OBJECT

private:
    static void deaths(int first, int count);

private slots:
    void init() { QFile::remove(settingsPath()); }
    void recall();
    void factoryReset();
    void recallOnALinkThatDies();
    void recallThatDiesEarly_data();
    void recallThatDiesEarly();
    void recallThatDiesLate_data();
    void recallThatDiesLate();
    void save_data();
    void save();
    void saveIsRememberedBeforeTheUnitHears();
    void setup();
    void outputStandard();
    void outputStandardOnADeadLink();
    void outputResolution();
    void routing();
    void routingRestartsThePollFirst();
    void routingOnALinkThatBreaks();
    void inputs();
    void inputsWithoutALink();
    void genlockReset();
    void genlockResetWithoutALink();
    void textProperties();
};

namespace {

QStringList namesOf(const QStringList &told)
{
    QStringList names;
    for (const QString &signal : told)
        names += signal.section(QLatin1Char('('), 0, 0);
    return names;
}

} // namespace

void TestMemory::recall()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setCurrentPage(3);
    bench.control->timerRefreshStatus->setInterval(1500);
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::Angle, QByteArray::fromHex("0b0c"));
        unit.setData(standin::OutputRouting, QByteArray::fromHex("060501040506"));
        unit.saveMemory(5);
        unit.restoreFactory();
    });

    support::Stopwatch clock;
    bench.control->loadMemory(5);
    // 2600 ms of pauses and 20 exchanges.
    QVERIFY(clock.elapsed() >= 2600 + 20 * 50);

    QCOMPARE(bench.frames(), QStringList({QStringLiteral("64 05"), QStringLiteral("63"), QStringLiteral("60"),
                                          QStringLiteral("61"),    QStringLiteral("62"), QStringLiteral("60"),
                                          QStringLiteral("50"),    QStringLiteral("51"), QStringLiteral("52"),
                                          QStringLiteral("53"),    QStringLiteral("54"), QStringLiteral("57"),
                                          QStringLiteral("55"),    QStringLiteral("56"), QStringLiteral("58"),
                                          QStringLiteral("59"),    QStringLiteral("5b"), QStringLiteral("5a"),
                                          QStringLiteral("5f"),    QStringLiteral("5c")}));
    const QStringList told = bench.recorder->told;
    QCOMPARE(namesOf(told),
             QStringList({QStringLiteral("showVout"),
                          QStringLiteral("refreshOutputSourcePGM"),
                          QStringLiteral("refreshOutputSourcePGMHDMI"),
                          QStringLiteral("refreshOutputSourcePVW"),
                          QStringLiteral("refreshOutputSourcePVWHDMI"),
                          QStringLiteral("refreshInputResolution"),
                          QStringLiteral("refreshInputSource"),
                          QStringLiteral("refreshInputFreeze"),
                          QStringLiteral("refreshGenlock"),
                          QStringLiteral("refreshBKColorAdjust"),
                          QStringLiteral("refreshCKAngle"),
                          QStringLiteral("refreshCKBWLevel"),
                          QStringLiteral("refreshCKDark"),
                          QStringLiteral("refreshCKBright"),
                          QStringLiteral("refreshEdgeFix"),
                          QStringLiteral("refreshCKShadow"),
                          QStringLiteral("refreshCKSpill"),
                          QStringLiteral("refreshPPFGPostAmp"),
                          QStringLiteral("refreshPPFGRGBCorrector"),
                          QStringLiteral("refreshPPBGBlur"),
                          QStringLiteral("refreshWindow"),
                          QStringLiteral("refreshHoldoutWindow"),
                          QStringLiteral("refreshLumaKey")}));
    QCOMPARE(told.at(1), QStringLiteral("refreshOutputSourcePGM(6, true, false)"));
    QCOMPARE(told.at(10), QStringLiteral("refreshCKAngle(11, 12)"));
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=5")});
    QCOMPARE(lastMemory, 5u);
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 3000);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::factoryReset()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->loadMemory(0);
    QCOMPARE(bench.frames().value(0), QStringLiteral("64 00"));
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=1")});
    QCOMPARE(bench.control->timerRefreshStatus->interval(), 1500);
}

void TestMemory::recallOnALinkThatDies()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::Dark, standin::Fault::silent());
    support::Stopwatch clock;
    bench.control->loadMemory(4);
    QVERIFY(clock.elapsed() >= 2600);
    const QStringList names = namesOf(bench.recorder->told);
    // The dead read tells what was stored, the ten behind it nothing; the pauses run on all the same.
    QCOMPARE(
        names.mid(9),
        QStringList({QStringLiteral("refreshBKColorAdjust"), QStringLiteral("refreshCKAngle"),
                     QStringLiteral("refreshCKBWLevel"), QStringLiteral("warning"), QStringLiteral("warning"),
                     QStringLiteral("warning"), QStringLiteral("warning"), QStringLiteral("refreshCKDark")}));
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=4")});
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

// The reads of a recall behind the status, in their order.
void TestMemory::deaths(int first, int count)
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("toldBefore"); // signals that leave before the failing read's own
    const int codes[] = {0x50, 0x51, 0x52, 0x53, 0x54, 0x57, 0x55, 0x56, 0x58, 0x59, 0x5B, 0x5A, 0x5F, 0x5C};
    for (int i = first; i < first + count; ++i)
        QTest::addRow("%02x", codes[i]) << codes[i] << 9 + i;
}

void TestMemory::recallThatDiesEarly_data()
{
    deaths(0, 7);
}

void TestMemory::recallThatDiesEarly()
{
    QFETCH(int, code);
    QFETCH(int, toldBefore);
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(code, standin::Fault::closeLink());
    support::Stopwatch clock;
    bench.control->loadMemory(2);
    QVERIFY(clock.elapsed() >= 2600);
    const QStringList names = namesOf(bench.recorder->told);
    QCOMPARE(names.size(), toldBefore + 4 + 1);
    QCOMPARE(names.mid(toldBefore, 4).count(QStringLiteral("warning")), 4);
    QVERIFY(names.last() != QLatin1String("warning"));
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=2")});
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestMemory::recallThatDiesLate_data()
{
    deaths(7, 7);
}

void TestMemory::recallThatDiesLate()
{
    recallThatDiesEarly();
}

void TestMemory::save_data()
{
    QTest::addColumn<uint>("index");
    QTest::newRow("eight") << 8u;
    QTest::newRow("zero, without a guard") << 0u;
}

void TestMemory::save()
{
    QFETCH(uint, index);
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->saveMemory(index);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("e4 0%1").arg(index)});
    QCOMPARE(bench.recorder->told, QStringList());
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=%1").arg(index)});
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    // The next connect marks it.
    QCOMPARE(bench.control->deviceConnect(1, bench.target(), 0), QStringLiteral("OK"));
    QCOMPARE(bench.recorder->told.last(), QStringLiteral("refreshUserMemory(%1)").arg(index));
}

void TestMemory::saveIsRememberedBeforeTheUnitHears()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(0xE4, standin::Fault::silent());
    bench.control->saveMemory(6);
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QCOMPARE(storedKeys(QStringLiteral("last_info")), QStringList{QStringLiteral("memory=6")});
    bench.restart();
    QCOMPARE(lastMemory, 6u);
}

void TestMemory::setup()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->saveSetup();
    QCOMPARE(bench.frames(),
             QStringList({QStringLiteral("e5"), QStringLiteral("63"), QStringLiteral("60"),
                          QStringLiteral("61"), QStringLiteral("62"), QStringLiteral("60")}));
    QCOMPARE(bench.recorder->told, QStringList{QStringLiteral("showVout(15, 0, 1)")});
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::outputStandard()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    // The unit refuses: what it holds is told, not what was asked for.
    bench.host.setFault(0xE0, standin::Fault::refuse());
    bench.control->setVOut(16, 2, 0);
    QCOMPARE(bench.frames(), QStringList({QStringLiteral("e0 10 02 00"), QStringLiteral("60")}));
    QCOMPARE(bench.recorder->take(),
             QStringList({QStringLiteral("showVout(15, 0, 1)"), QStringLiteral("vOutChanged()")}));
    bench.host.clearFaults();
    bench.control->setVOut(16, 2, 0);
    QCOMPARE(bench.recorder->take(),
             QStringList({QStringLiteral("showVout(16, 2, 0)"), QStringLiteral("vOutChanged()")}));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::outputStandardOnADeadLink()
{
    FacadeBench bench(2);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::OutputStandard, standin::Fault::silent());
    bench.control->setVOut(16, 2, 0);
    QCOMPARE(bench.recorder->take(),
             QStringList({QStringLiteral("showVout(16, 2, 999)"), QStringLiteral("vOutChanged()")}));
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestMemory::outputResolution()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.withUnit(
        [](standin::Unit &unit) { unit.setValue(standin::OutputStandard, QStringLiteral("standard"), 9); });
    QCOMPARE(bench.control->getVideoOutRes(), 9);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("60")});
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::routing()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setOutSelect(1, true, false, 2, false, true, 3, true, true, 4, false, false);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("e3 01 02 03 04 05 06")});
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(!bench.control->getOutputMirror(1));
    QVERIFY(bench.control->getOutputMirror(2));
    QVERIFY(bench.control->getOutputMirror(3));
    QVERIFY(!bench.control->getOutputMirror(5));
    QCOMPARE(bench.frames(), QStringList());
}

void TestMemory::routingRestartsThePollFirst()
{
    FacadeBench bench;
    bench.control->timerRefreshStatus->setTimerType(Qt::PreciseTimer);
    QVERIFY(bench.connectUnit());
    const int period = bench.control->timerRefreshStatus->interval();
    // The poll restarts before the unit is told of its outputs, so the 50 ms of each exchange eat into the period;
    // after any other set it restarts last. A busy machine may eat into it then too, but not at every try.
    int longest = 0;
    for (int i = 0; i < 20 && longest <= period - 50; ++i) {
        bench.control->setOutSelect(1, false, false, 2, false, false, 3, false, false, 4, false, false);
        QVERIFY(bench.control->timerRefreshStatus->remainingTime() <= period - 50);
        bench.control->setCKAngle(1, 2);
        longest = qMax(longest, bench.control->timerRefreshStatus->remainingTime());
    }
    QVERIFY(longest > period - 50);
}

void TestMemory::routingOnALinkThatBreaks()
{
    // The poll was started before the call; the broken link stops it again, and says so.
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QVector<bool> polling;
    QObject::connect(bench.device, &qkv720::connectionBroken, [&] { polling.append(true); });
    bench.host.setFault(0xE3, standin::Fault::silent());
    bench.control->setOutSelect(1, false, false, 2, false, false, 3, false, false, 4, false, false);
    QCOMPARE(polling.size(), 4);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
    QVERIFY(!bench.control->isConnected());
}

void TestMemory::inputs()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setVInSource(1, 2, 3, true, false, true, true, -2, 300);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("e1 01 02 03 05 01 fe ff 2c 01")});
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::inputsWithoutALink()
{
    FacadeBench bench;
    bench.control->setVInSource(1, 2, 3, true, false, true, true, -2, 300);
    QCOMPARE(bench.frames(), QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    const support::Stopwatch clock;
    QTRY_COMPARE_WITH_TIMEOUT(bench.recorder->told, QStringList{QStringLiteral("warning(Disconnected)")},
                              15000);
    VERIFY_TOOK(clock, 0, 2500);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestMemory::genlockReset()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::InputSelection,
                     QByteArray::fromHex("01030207"
                                         "0105000600"));
    });
    QVERIFY(bench.connectUnit());
    support::Stopwatch clock;
    bench.control->resetGenlock();
    QVERIFY(clock.elapsed() >= 700 + 100);
    QCOMPARE(bench.frames(), QStringList{QStringLiteral("reset e1")});
    QCOMPARE(namesOf(bench.recorder->told),
             QStringList({QStringLiteral("refreshInputResolution"), QStringLiteral("refreshInputSource"),
                          QStringLiteral("refreshInputFreeze"), QStringLiteral("refreshGenlock")}));
    QCOMPARE(bench.recorder->told.last(), QStringLiteral("refreshGenlock(0, 0, 0)"));
    QCOMPARE(bench.recorder->polling, QVector<bool>(4, false));
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::genlockResetWithoutALink()
{
    FacadeBench bench;
    support::Stopwatch clock;
    bench.control->resetGenlock();
    VERIFY_TOOK(clock, 200, 600);
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestMemory::textProperties()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QVERIFY(bench.control->setProperty("vOutResolution", QStringLiteral("x")));
    QVERIFY(bench.control->setProperty("vOutColorSpace", QStringLiteral("x")));
    QVERIFY(bench.control->setProperty("vOutStd", QStringLiteral("x")));
    QCOMPARE(bench.recorder->told,
             QStringList({QStringLiteral("vOutResolutionChanged()"),
                          QStringLiteral("vOutColorSpaceChanged()"), QStringLiteral("vOutStdChanged()")}));
    QCOMPARE(bench.control->property("vOutResolution").toString(), QString());
    QCOMPARE(bench.frames(), QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

QTEST_GUILESS_MAIN(TestMemory)
#include "tst_memory.moc"
