#include "facadebench.h"
#include "parametertable.h"

// The forwarding slots: what each sends, what it tells, and on which side of the poll's restart.

class TestParameters : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { QFile::remove(settingsPath()); }
    void gets_data();
    void gets();
    void resets_data();
    void resets();
    void sets_data();
    void sets();
    void failedGetsTellTheStoredValues();
    void spillOptionsOnlyEverComeTrue();
    void spillSetAddsItsOptions();
    void spillResetNamesItsPreset();

private:
    static void rows(const QString &kind);
};

void TestParameters::rows(const QString &kind)
{
    QTest::addColumn<Slot>("slot");
    QTest::addColumn<QString>("frame");
    QTest::addColumn<QString>("signal");
    QTest::addColumn<bool>("afterRestart");
    for (const ParameterRow &row : parameterTable()) {
        if (kind != QLatin1String(row.kind))
            continue;
        QTest::addRow("%s %s", row.kind, row.name) << row.slot << row.frame << row.signal << row.afterRestart;
    }
}

void TestParameters::gets_data()
{
    rows(QStringLiteral("get"));
}

void TestParameters::gets()
{
    QFETCH(Slot, slot);
    QFETCH(QString, frame);
    QFETCH(QString, signal);
    QFETCH(bool, afterRestart);
    FacadeBench bench;
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());

    QVERIFY(bench.startsThePoll([&] { slot(*bench.control); }));
    QCOMPARE(bench.frames(), QStringList{frame});
    QCOMPARE(bench.recorder->told, QStringList{signal});
    QCOMPARE(bench.recorder->polling.at(0), afterRestart);
}

void TestParameters::resets_data()
{
    rows(QStringLiteral("reset"));
}

void TestParameters::resets()
{
    gets();
}

void TestParameters::sets_data()
{
    rows(QStringLiteral("set"));
}

void TestParameters::sets()
{
    QFETCH(Slot, slot);
    QFETCH(QString, frame);
    FacadeBench bench;
    QVERIFY(bench.connectUnit());

    QVERIFY(bench.startsThePoll([&] { slot(*bench.control); }));
    QCOMPARE(bench.frames(), QStringList{frame});
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestParameters::failedGetsTellTheStoredValues()
{
    // On the serial link a silent unit does not end the link, so all six slots run.
    FacadeBench bench(2);
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, standin::Fault::silent());
    bench.control->getCKAngle();
    bench.control->getCKBWLevel();
    bench.control->getCKDark();
    bench.control->getPPFGPostAmp();
    bench.control->getWindow();
    bench.control->getBKColor();
    const QStringList told = bench.recorder->take();
    QCOMPARE(told.mid(0, 5),
             QStringList({QStringLiteral("refreshCKAngle(3, 4)"),
                          QStringLiteral("refreshCKBWLevel(100, 900, true)"),
                          QStringLiteral("refreshCKDark(true, 200, 300, 50)"),
                          QStringLiteral("refreshPPFGPostAmp(true, 500, 501, 502, 10)"),
                          QStringLiteral("refreshWindow(true, 1, 5, 6, 7, 8, 9)")}));
    QVERIFY(told.value(5).startsWith(QLatin1String("refreshBKColorAdjust(#1e2dc1, 120, 180, 760, ")));
}

void TestParameters::spillOptionsOnlyEverComeTrue()
{
    FacadeBench bench;
    bench.host.withUnit(
        [](standin::Unit &unit) { unit.setValue(standin::Spill, QStringLiteral("preset"), 1); });
    QVERIFY(bench.connectUnit());
    const auto readWith = [&bench](int preset) {
        bench.host.withUnit([preset](standin::Unit &unit) {
            unit.setValue(standin::Spill, QStringLiteral("preset"), preset);
        });
        bench.control->getCKSpillBright();
        return bench.recorder->take().value(0);
    };
    QCOMPARE(readWith(0x01), QStringLiteral("refreshCKSpill(500, 0, 500, 400, false, 1, false, false)"));
    QVERIFY(bench.device->spillLow);
    QVERIFY(!bench.device->spillMid);
    QVERIFY(!bench.device->spillHigh);
    QCOMPARE(readWith(0x0A), QStringLiteral("refreshCKSpill(500, 0, 500, 400, false, 2, false, true)"));
    QCOMPARE(readWith(0x10), QStringLiteral("refreshCKSpill(500, 0, 500, 400, false, 0, true, true)"));
    QCOMPARE(readWith(0x00), QStringLiteral("refreshCKSpill(500, 0, 500, 400, false, 0, true, true)"));
}

void TestParameters::spillSetAddsItsOptions()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->setCKSpillBright(1, 2, 3, 4, 1, 2, true, true);
    bench.control->setCKSpillBright(1, 2, 3, 4, 0, 1, true, false);
    bench.control->setCKSpillBright(1, 2, 3, 4, 0, 1, false, true);
    // Added and not or-ed: an option that is in the number already carries over.
    bench.control->setCKSpillBright(1, 2, 3, 4, 0, 8, false, true);
    QCOMPARE(bench.frames(),
             QStringList({QStringLiteral("d6 01 00 02 00 03 00 04 00 01 1a"),
                          QStringLiteral("d6 01 00 02 00 03 00 04 00 00 11"),
                          QStringLiteral("d6 01 00 02 00 03 00 04 00 00 09"),
                          QStringLiteral("d6 01 00 02 00 03 00 04 00 00 10")}));
    QCOMPARE(bench.recorder->told, QStringList());
}

void TestParameters::spillResetNamesItsPreset()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.control->resetCKSpillBright(2, true);
    const QStringList frames = bench.frames();
    QCOMPARE(frames.size(), 1);
    QVERIFY2(frames.at(0).startsWith(QLatin1String("reset d6")), qPrintable(frames.at(0)));
    QVERIFY2(frames.at(0).endsWith(QLatin1String(" 0a")), qPrintable(frames.at(0)));
    QCOMPARE(bench.recorder->told.size(), 1);
    const qkv720 &unit = *bench.device;
    QCOMPARE(bench.recorder->told.at(0),
             QStringLiteral("refreshCKSpill(%1, %2, %3, %4, %5, 2, false, false)")
                 .arg(unit.spillSuppression)
                 .arg(unit.spillEnhance)
                 .arg(unit.spillBalance)
                 .arg(unit.spillBrightness)
                 .arg(unit.spillVivid ? QStringLiteral("true") : QStringLiteral("false")));
    // Told before the poll restarts.
    QCOMPARE(bench.recorder->polling.at(0), false);
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

QTEST_GUILESS_MAIN(TestParameters)
#include "tst_parameters.moc"
