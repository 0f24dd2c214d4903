#include "stopwatch.h"

#include <QProcess>

#include <csignal>
#include <thread>

#include <unistd.h>

// What the tests of the waits rely on: a wait of the process's own stays a wait, and what the machine takes does not.
class TestStopwatch : public QObject
{
    Q_OBJECT

private slots:
    void ownWaitsCount();
    void aStoppedProcessWaitsForNothing();
    void anotherThreadOnTheSameCoreTakesItsTime();
};

void TestStopwatch::ownWaitsCount()
{
    // The machine takes some of it at times, but not at every run.
    const support::Stopwatch all;
    qint64 longest = 0;
    for (int run = 0; run < 20 && longest < 280; ++run) {
        const support::Stopwatch watch;
        QThread::msleep(300);
        QVERIFY(watch.elapsed() >= 300);
        longest = qMax(longest, watch.undisturbed());
    }
    QVERIFY2(longest >= 280, qPrintable(QString::number(longest)));
    QVERIFY(all.undisturbed() >= longest);
}

void TestStopwatch::aStoppedProcessWaitsForNothing()
{
    QProcess waker;
    waker.start(QStringLiteral("sh"),
                {QStringLiteral("-c"),
                 QStringLiteral("sleep 0.3; kill -STOP %1; sleep 1.5; kill -CONT %1").arg(::getpid())});
    QVERIFY(waker.waitForStarted());
    const support::Stopwatch watch;
    while (watch.elapsed() < 1800)
        QThread::msleep(500);
    QVERIFY2(watch.stalled() >= 1200, qPrintable(QString::number(watch.stalled())));
    QVERIFY2(watch.undisturbed() < watch.elapsed() - 1200, qPrintable(QString::number(watch.undisturbed())));
    QVERIFY(waker.waitForFinished());
}

// Two threads that want the same core get half of it each: the other half is no work of theirs. Of the thread that has
// ended nothing is known any more.
void TestStopwatch::anotherThreadOnTheSameCoreTakesItsTime()
{
    cpu_set_t core;
    CPU_ZERO(&core);
    CPU_SET(static_cast<size_t>(::sched_getcpu()), &core);
    QCOMPARE(::sched_setaffinity(0, sizeof core, &core), 0);
    const support::Stopwatch watch;
    const auto work = [] {
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 1000) { }
    };
    std::thread other(work); // on this core too
    work();
    other.join();
    QVERIFY2(watch.stalled() >= 300, qPrintable(QString::number(watch.stalled())));
}

QTEST_GUILESS_MAIN(TestStopwatch)
#include "tst_stopwatch.moc"
