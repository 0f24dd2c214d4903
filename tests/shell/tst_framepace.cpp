#include "shell/framepace.h"
#include "tests/support/checked.h"

#include <QCoreApplication>
#include <QMouseEvent>
#include <QQuickWindow>
#include <QtTest>

#include <limits>

// When the window is drawn. There are never more frames than the pace gives; how late one comes is the machine's
// affair, and where that is asked for, the best of many counts.

namespace {

constexpr char kUpdateWait[] = "QT_QPA_UPDATE_IDLE_TIME";
constexpr int kMeasuredMs = 1000;
constexpr int kLeastFrames = 5; // of an animation, on a machine with much else to do
constexpr int kUnattendedMs = 30;
constexpr int kAtWorkMs = 7;
constexpr int kPlainlyAtWorkMs = 20;

struct Still
{
    QQuickWindow window;
    FramePace *pace = nullptr;
    QElapsedTimer clock;
    QVector<qint64> frames; // the moment of each, ns

    bool show()
    {
        clock.start();
        pace = new FramePace(&window);
        window.resize(64, 64);
        QObject::connect(&window, &QQuickWindow::afterAnimating, [this] { frames << clock.nsecsElapsed(); });
        window.show();
        if (!QTest::qWaitForWindowExposed(&window))
            return false;
        QTest::qWait(200);
        return true;
    }

    // An item that is animated by the frame asks for the next one while it is drawn.
    void turn()
    {
        QObject::connect(&window, &QQuickWindow::afterRendering, &window, &QQuickWindow::update);
        frames.clear();
        window.update();
    }

    // Frames come, and no more than one in so many milliseconds.
    void keeps(int paceMs)
    {
        frames.clear();
        const qint64 before = clock.elapsed();
        QTest::qWait(kMeasuredMs);
        const qint64 most = (clock.elapsed() - before) / paceMs + 2;
        QVERIFY2(frames.size() >= kLeastFrames && frames.size() <= most,
                 qPrintable(QStringLiteral("%1 of %2").arg(frames.size()).arg(most)));
    }

    qint64 leastGapMs() const
    {
        qint64 least = std::numeric_limits<qint64>::max();
        for (int i = 1; i < frames.size(); ++i)
            least = qMin(least, frames[i] - frames[i - 1]);
        return least / 1000000;
    }

    void move()
    {
        QMouseEvent event(QEvent::MouseMove, {5, 5}, window.mapToGlobal({5, 5}), Qt::NoButton, Qt::NoButton,
                          {});
        QCoreApplication::sendEvent(&window, &event);
    }
};

} // namespace

class TestFramePace : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        qunsetenv(kUpdateWait);
        FramePace::prepare();
    }
    void leavesAWaitThatTheEnvironmentNames();
    void drawsAChangeOnAStillScreenAtOnce();
    void givesWhatTurnsByTheFrameAPace();
    void drawsMoreOftenForSomebodyAtWork();
    void countsAsWorkForTenSeconds();
    void drawsWithinTheCallWhenTold();
    void drawsTheLastOfManyChanges();
};

void TestFramePace::leavesAWaitThatTheEnvironmentNames()
{
    QCOMPARE(qgetenv(kUpdateWait), QByteArray("0"));
    qputenv(kUpdateWait, "7");
    FramePace::prepare();
    QCOMPARE(qgetenv(kUpdateWait), QByteArray("7"));
    qputenv(kUpdateWait, "0");
}

// The toolkit's own wait would be 5 ms, and never less.
void TestFramePace::drawsAChangeOnAStillScreenAtOnce()
{
    Still still;
    QVERIFY(still.show());
    qint64 best = std::numeric_limits<qint64>::max();
    for (int change = 0; change < 20; ++change) {
        QTest::qWait(50);
        still.frames.clear();
        const qint64 before = still.clock.nsecsElapsed();
        still.window.update();
        QTRY_VERIFY(!still.frames.isEmpty());
        best = qMin(best, still.frames.constFirst() - before);
    }
    QVERIFY2(best < 4000000, qPrintable(QStringLiteral("%1 us").arg(best / 1000)));
}

void TestFramePace::givesWhatTurnsByTheFrameAPace()
{
    Still still;
    QVERIFY(still.show());
    still.turn();
    CHECKED(still.keeps(kUnattendedMs));
}

void TestFramePace::drawsMoreOftenForSomebodyAtWork()
{
    Still still;
    QVERIFY(still.show());
    still.move();
    still.turn();
    CHECKED(still.keeps(kAtWorkMs));
    QVERIFY2(still.leastGapMs() <= kPlainlyAtWorkMs, qPrintable(QString::number(still.leastGapMs())));
}

void TestFramePace::countsAsWorkForTenSeconds()
{
    Still still;
    QVERIFY(still.show());
    still.move();
    QTest::qWait(8000);
    still.turn();
    QTest::qWait(500);
    QVERIFY2(still.leastGapMs() <= kPlainlyAtWorkMs, qPrintable(QString::number(still.leastGapMs())));
    QTest::qWait(1600);
    CHECKED(still.keeps(kUnattendedMs));
}

void TestFramePace::drawsWithinTheCallWhenTold()
{
    Still still;
    QVERIFY(still.show());
    still.frames.clear();
    for (int frame = 1; frame <= 3; ++frame) {
        still.window.update();
        still.pace->drawNow();
        QCOMPARE(still.frames.size(), frame);
    }
}

// The change after a frame has its own one, though nothing else comes after it.
void TestFramePace::drawsTheLastOfManyChanges()
{
    Still still;
    QVERIFY(still.show());
    still.frames.clear();
    still.window.update();
    QTRY_COMPARE(still.frames.size(), 1);
    still.window.update();
    QTRY_COMPARE(still.frames.size(), 2);
    QTest::qWait(200);
    QCOMPARE(still.frames.size(), 2);
}

QTEST_MAIN(TestFramePace)
#include "tst_framepace.moc"
