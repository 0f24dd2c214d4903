#include "facadebench.h"
#include "parametertable.h"
#include "tests/support/logcapture.h"
#include "tests/support/stopwatch.h"

#include <QElapsedTimer>

// The forwarding slots without a link, and over an exchange that fails.

class TestFailures : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void withoutALink_data();
    void withoutALink();
    void inputsWithoutALinkStartThePollAlone();
    void nothingIsReadWithoutALink();
    // In halves, which run side by side: each exchange that fails takes its whole ladder.
    void failedSetsTellNothing() { failedSets(0, kHalf); }
    void failedSetsTellNothingEither() { failedSets(kHalf, kAll); }
    void failedResetsTellTheStoredValues() { failedResets(0, kHalf); }
    void failedResetsTellTheStoredValuesToo() { failedResets(kHalf, kAll); }
    void failedOutputs();
    void failedSetup();
    void failedSpill();
    void failedInputs();
    void failedGenlockReset();
    void failedColourReset();
    void failedColour();
    void failedColourByText();

private:
    static constexpr int kHalf = 7;
    static constexpr int kAll = 13;
    static void failedSets(int first, int end);
    static void failedResets(int first, int end);
};

namespace {

constexpr int kAttempts = 4;
constexpr int kLadderMs = 300 + 500 + 1000;

// The object's own bytes: its fields, texts by their shared data.
QByteArray fieldsOf(const qkv720 &device)
{
    return QByteArray(reinterpret_cast<const char *>(&device), sizeof device);
}

// As good as silence, and the transport does not wait a second more for it.
standin::Fault noReply()
{
    return standin::Fault::shortened(3);
}

QStringList repeated(const char *text, int count)
{
    QStringList list;
    for (int i = 0; i < count; ++i)
        list += QString::fromLatin1(text);
    return list;
}

QStringList warnings(int count)
{
    return repeated("warning(Disconnected)", count);
}

QVector<ParameterRow> rowsOf(const char *kind)
{
    QVector<ParameterRow> rows;
    for (const ParameterRow &row : parameterTable()) {
        if (qstrcmp(row.kind, kind) == 0)
            rows.append(row);
    }
    return rows;
}

// What the get of the same name tells of the unit as prepared.
QString storedSignal(const QString &name)
{
    for (const ParameterRow &row : parameterTable()) {
        if (qstrcmp(row.kind, "get") == 0 && name == QLatin1String(row.name))
            return QString::fromLatin1(row.signal);
    }
    return QString();
}

} // namespace

void TestFailures::withoutALink_data()
{
    QTest::addColumn<Slot>("slot");
    QTest::addColumn<QStringList>("logged");
    for (const ParameterRow &row : parameterTable()) {
        // The luma key alone is logged before anybody looks at the link.
        const bool isLogged = qstrcmp(row.kind, "set") == 0 && row.name == QLatin1String("luma key");
        QTest::addRow("%s %s", row.kind, row.name)
            << row.slot << (isLogged ? QStringList{QStringLiteral("setLumaKey:  2")} : QStringList());
    }
    const auto more = [](const char *name, Slot slot) { QTest::newRow(name) << slot << QStringList(); };
    using M = mainControl;
    more("get spill", &M::getCKSpillBright);
    more("set spill", [](M &m) { m.setCKSpillBright(1, 2, 3, 4, 1, 2, true, true); });
    more("reset spill", [](M &m) { m.resetCKSpillBright(1, true); });
    more("get colour", &M::getBKColor);
    more("set colour", [](M &m) { m.setBKColor(1, 2, 3, 0); });
    more("set colour automatically", [](M &m) { m.setBKColor(1, 2, 3, 2); });
    more("set colour by text", [](M &m) { m.setBKColor(QStringLiteral("#010203"), 0); });
    more("reset colour", &M::resetBKColor);
    more("set cursor", [](M &m) { m.setCursorData(3, 1, 2); });
    more("refresh cursor", [](M &m) { m.refreshCursor(1, 2, 3, 4, 5, 6, 7, 8, 9); });
    more("load memory", [](M &m) { m.loadMemory(3); });
    more("save memory", [](M &m) { m.saveMemory(3); });
    more("save setup", &M::saveSetup);
    more("set output standard", [](M &m) { m.setVOut(1, 2, 0); });
    more("route outputs",
         [](M &m) { m.setOutSelect(1, false, false, 2, false, false, 3, false, false, 4, false, false); });
    more("mirror", [](M &m) { m.getOutputMirror(1); });
    more("output resolution", [](M &m) { m.getVideoOutRes(); });
    more("text properties", [](M &m) {
        QString value;
        m.setVOutResolution(value);
        m.setVOutColorSpace(value);
        m.setVOutStd(value);
    });
}

// Such a call is no call at all: a poll that runs goes on as it ran.
void TestFailures::withoutALink()
{
    QFETCH(Slot, slot);
    QFETCH(QStringList, logged);
    constexpr int kPeriodMs = 1500;
    constexpr int kRunMs = 40;
    FacadeBench bench;
    QTimer &poll = *bench.control->timerRefreshStatus;
    poll.setTimerType(Qt::PreciseTimer);
    poll.start();
    QTest::qSleep(kRunMs);
    const QByteArray before = fieldsOf(*bench.device);
    const support::LogCapture capture;

    slot(*bench.control);
    QVERIFY(poll.isActive());
    QVERIFY2(poll.remainingTime() <= kPeriodMs - kRunMs, qPrintable(QString::number(poll.remainingTime())));
    QVERIFY(fieldsOf(*bench.device) == before);
    QCOMPARE(support::LogCapture::logs(), logged);
    QCOMPARE(bench.frames(), QStringList());
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(!QFile::exists(settingsPath()));

    // And one that rests, rests.
    poll.stop();
    slot(*bench.control);
    QVERIFY(!poll.isActive());
}

// Two slots start the poll with or without a link; apart from that they are as silent as all others.
void TestFailures::inputsWithoutALinkStartThePollAlone()
{
    FacadeBench bench;
    const QByteArray before = fieldsOf(*bench.device);
    const support::LogCapture capture;
    bench.control->setVInSource(1, 2, 3, true, false, true, true, -2, 300);
    bench.control->resetGenlock();
    QVERIFY(fieldsOf(*bench.device) == before);
    QCOMPARE(support::LogCapture::logs(), QStringList());
    QCOMPARE(bench.frames(), QStringList());
    QCOMPARE(bench.recorder->told, QStringList());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    QVERIFY(!QFile::exists(settingsPath()));
}

void TestFailures::nothingIsReadWithoutALink()
{
    FacadeBench bench;
    bench.device->videoOut.res = resolution::P50_1080;
    bench.device->PGM.mirror = true;
    QCOMPARE(bench.control->getVideoOutRes(), 0);
    QVERIFY(!bench.control->getOutputMirror(1));
}

// The device object writes its field and tries four times; the interface hears of the link alone.
void TestFailures::failedSets(int first, int end)
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    const QVector<ParameterRow> rows = rowsOf("set");
    QCOMPARE(rows.size(), kAll);
    for (const ParameterRow &row : rows.mid(first, end - first)) {
        bench.device->isConnected = true;
        bench.control->timerRefreshStatus->start();
        QElapsedTimer clock;
        clock.start();
        row.slot(*bench.control);
        QVERIFY2(clock.elapsed() >= kLadderMs, row.name);
        QVERIFY2(bench.recorder->take() == warnings(kAttempts), row.name);
        QVERIFY2(bench.frames() == repeated(row.frame, kAttempts), row.name);
        QVERIFY2(!bench.control->isConnected(), row.name);
        QVERIFY2(!bench.control->timerRefreshStatus->isActive(), row.name);
    }
}

void TestFailures::failedResets(int first, int end)
{
    FacadeBench bench;
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());
    bench.control->getAuxMode(); // a connect doesn't read it
    bench.recorder->take();
    bench.host.setFault(standin::AnyCode, noReply());
    const QVector<ParameterRow> rows = rowsOf("reset");
    QCOMPARE(rows.size(), kAll);
    for (const ParameterRow &row : rows.mid(first, end - first)) {
        bench.device->isConnected = true;
        bench.control->timerRefreshStatus->start();
        row.slot(*bench.control);
        const QStringList told = bench.recorder->take();
        QVERIFY2(
            told == warnings(kAttempts) + QStringList{storedSignal(QLatin1String(row.name))},
            qPrintable(QLatin1String(row.name) + QStringLiteral(": ") + told.join(QStringLiteral(", "))));
        QVERIFY2(!bench.control->timerRefreshStatus->isActive(), row.name);
    }
}

// What was asked for is told with the mark of a failed read, and no read is tried over a link that is gone.
void TestFailures::failedOutputs()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    // The sum of this frame is 0, so each attempt waits for 50 ms and not for 2 s.
    bench.control->setVOut(24, 1, 1);
    QCOMPARE(bench.recorder->take(),
             warnings(kAttempts)
                 + QStringList({QStringLiteral("showVout(24, 1, 999)"), QStringLiteral("vOutChanged()")}));
    QCOMPARE(bench.frames(), repeated("e0 18 01 01", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());

    bench.device->isConnected = true;
    bench.control->setOutSelect(1, true, false, 2, false, true, 3, true, true, 4, false, false);
    QCOMPARE(bench.recorder->take(), warnings(kAttempts));
    QCOMPARE(bench.frames(), repeated("e3 01 02 03 04 05 06", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

// The status behind it is not asked for; the standard is told as stored.
void TestFailures::failedSetup()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    bench.control->saveSetup();
    QCOMPARE(bench.recorder->take(), warnings(kAttempts) + QStringList{QStringLiteral("showVout(15, 0, 1)")});
    QCOMPARE(bench.frames(), repeated("e5", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestFailures::failedSpill()
{
    FacadeBench bench;
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());
    bench.control->getCKSpillBright();
    const QStringList stored = bench.recorder->take();
    QCOMPARE(stored, QStringList{storedSignal(QStringLiteral("spill"))});
    bench.frames();
    bench.host.setFault(standin::AnyCode, noReply());

    bench.control->resetCKSpillBright(1, true);
    QCOMPARE(bench.recorder->take(), warnings(kAttempts) + stored);
    QCOMPARE(bench.frames(), repeated("reset d6 00 00 00 00 00 00 00 00 00 09", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());

    bench.device->isConnected = true;
    bench.control->timerRefreshStatus->start();
    bench.control->setCKSpillBright(1, 2, 3, 4, 1, 2, false, true);
    QCOMPARE(bench.recorder->take(), warnings(kAttempts));
    QCOMPARE(bench.frames(), repeated("d6 01 00 02 00 03 00 04 00 01 0a", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

// The poll starts again with or without a link, and its next tick finds the link gone.
void TestFailures::failedInputs()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    bench.control->setVInSource(1, 2, 3, true, false, true, true, -2, 300);
    QCOMPARE(bench.recorder->take(), warnings(kAttempts));
    QCOMPARE(bench.frames(), repeated("e1 01 02 03 05 01 fe ff 2c 01", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
    const support::Stopwatch clock;
    QTRY_COMPARE_WITH_TIMEOUT(bench.recorder->told, warnings(1), 15000);
    VERIFY_TOOK(clock, 0, 2500);
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestFailures::failedGenlockReset()
{
    FacadeBench bench;
    bench.host.withUnit([](standin::Unit &unit) {
        unit.setData(standin::InputSelection, QByteArray::fromHex("01030205010500feff"));
    });
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    bench.control->resetGenlock();
    const QStringList told = bench.recorder->take();
    QCOMPARE(told.mid(0, kAttempts), warnings(kAttempts));
    QCOMPARE(told.size(), kAttempts + 4);
    QVERIFY2(told.at(kAttempts).startsWith(QLatin1String("refreshInputResolution(")),
             qPrintable(told.at(kAttempts)));
    QCOMPARE(told.mid(kAttempts + 1),
             QStringList({QStringLiteral("refreshInputSource(1, 3, 2)"),
                          QStringLiteral("refreshInputFreeze(true, false, true)"),
                          QStringLiteral("refreshGenlock(1, 5, -2)")}));
    QCOMPARE(bench.frames(), repeated("reset e1", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(bench.control->timerRefreshStatus->isActive());
}

void TestFailures::failedColourReset()
{
    FacadeBench bench;
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    // The reset's own failure ends the link; the angle's and the levels' resets behind it don't try any more, and
    // what is stored is told.
    bench.control->resetBKColor();
    const QStringList told = bench.recorder->take();
    const QStringList behind{QStringLiteral("refreshCKAngle(3, 4)"),
                             QStringLiteral("refreshCKBWLevel(100, 900, true)")};
    QCOMPARE(told.mid(0, kAttempts), warnings(kAttempts));
    QVERIFY2(told.value(kAttempts).startsWith(QLatin1String("refreshBKColorPicker(#1e2dc1, 120, 180, 760, ")),
             qPrintable(told.value(kAttempts)));
    QCOMPARE(told.mid(kAttempts + 1), behind);
    QCOMPARE(bench.frames(), repeated("reset d0 00 00 00 00 00 00 00", kAttempts));
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

// What was set is told once, by the second of the two signals: the colour is not read back over a link that is gone,
// and the angle and the levels are told as stored.
void TestFailures::failedColour()
{
    FacadeBench bench;
    bench.host.withUnit(prepareParameters);
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    bench.control->setBKColor(900, 300, 100, 0);
    const QStringList told = bench.recorder->take();
    QCOMPARE(told.mid(0, kAttempts), warnings(kAttempts));
    QVERIFY2(
        told.value(kAttempts).startsWith(QLatin1String("refreshBKColorAdjust(#e54c19, 900, 300, 100, 15, ")),
        qPrintable(told.value(kAttempts)));
    QCOMPARE(told.mid(kAttempts + 1),
             QStringList({QStringLiteral("refreshCKAngle(3, 4)"),
                          QStringLiteral("refreshCKBWLevel(100, 900, true)")}));
    QCOMPARE(bench.frames(), repeated("d0 84 03 2c 01 64 00 00", kAttempts));
    QVERIFY(!bench.control->isConnected());
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

void TestFailures::failedColourByText()
{
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    bench.host.setFault(standin::AnyCode, noReply());
    bench.control->setBKColor(QStringLiteral("#ff0000"), 0);
    const QStringList told = bench.recorder->take();
    QCOMPARE(told.mid(0, kAttempts), warnings(kAttempts));
    QCOMPARE(told.size(), kAttempts + 1);
    QVERIFY2(told.last().startsWith(QLatin1String("refreshBKColorAdjust(#ff0000, 255, 0, 0, 0, 1, ")),
             qPrintable(told.last()));
    QCOMPARE(bench.frames(), repeated("d0 ff 00 00 00 00 00 00", kAttempts));
    QVERIFY(!bench.control->timerRefreshStatus->isActive());
}

QTEST_GUILESS_MAIN(TestFailures)
#include "tst_failures.moc"
