#include "facadebench.h"
#include "tests/support/logcapture.h"

#include <algorithm>
#include <limits>

// The pauses that the unit is given between the reads of a flow, each for itself. A sleep is never shorter than it
// was asked for, so the lower bounds are exact; a busy machine makes one longer at times but not at every run, so
// the least of some runs stands for the pause itself: as many as it takes.

class TestPauses : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }
    void betweenTheReadsOfATick();
    void eachPauseOfARecall();
};

namespace {

constexpr int kRuns = 12;
constexpr int kExchangeMs = 50;
constexpr int kSpareMs = 90; // less than the smallest pause is from the next

} // namespace

void TestPauses::betweenTheReadsOfATick()
{
    constexpr int kPauseMs = 50;
    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    qint64 least = std::numeric_limits<qint64>::max();
    for (int run = 0; run < kRuns && least > kExchangeMs + kPauseMs + kSpareMs; ++run) {
        bench.recorder->take();
        const qint64 start = bench.recorder->now();
        bench.control->refreshStatus();
        QCOMPARE(bench.recorder->told.size(), 4);
        // The first read, the pause, the telling; then the second read.
        const qint64 first = bench.recorder->toldAt.at(0) - start;
        QVERIFY2(first >= kExchangeMs + kPauseMs, qPrintable(QString::number(first)));
        QVERIFY(bench.recorder->toldAt.at(1) - bench.recorder->toldAt.at(0) >= kExchangeMs);
        least = qMin(least, first);
    }
    QVERIFY2(least <= kExchangeMs + kPauseMs + kSpareMs, qPrintable(QString::number(least)));
}

void TestPauses::eachPauseOfARecall()
{
    // Behind the status and its routing, inputs and genlock come fourteen reads.
    constexpr int kFirstRead = 9;
    const QVector<int> pauses{100, 100, 100, 100, 100, 100, 100, 100, 500, 100, 100, 200, 200, 200};
    constexpr int kAfterTheRecallMs = 500;

    FacadeBench bench;
    QVERIFY(bench.connectUnit());
    QVector<qint64> least(pauses.size() + 1, std::numeric_limits<qint64>::max());
    const auto tooLong = [](qint64 spare) { return spare > kSpareMs; };
    for (int run = 0; run < kRuns && std::any_of(least.cbegin(), least.cend(), tooLong); ++run) {
        bench.recorder->take();
        qint64 recalled = 0;
        const support::LogCapture capture;
        support::LogCapture::onLine() = [&](const QString &line) {
            if (line.startsWith(QLatin1String("After LOAD MEM:")))
                recalled = bench.recorder->now();
        };
        bench.control->loadMemory(2);
        const qint64 end = bench.recorder->now();
        const QVector<qint64> &at = bench.recorder->toldAt;
        QCOMPARE(at.size(), kFirstRead + pauses.size());
        QVERIFY(recalled > 0);
        QVector<qint64> gaps{at.at(0) - recalled};
        QVector<int> wanted{kAfterTheRecallMs + kExchangeMs};
        for (int i = 0; i < pauses.size(); ++i) {
            const bool isLast = i == pauses.size() - 1;
            gaps += (isLast ? end : at.at(kFirstRead + i + 1)) - at.at(kFirstRead + i);
            wanted += pauses.at(i) + (isLast ? 0 : kExchangeMs);
        }
        for (int i = 0; i < gaps.size(); ++i) {
            QVERIFY2(gaps.at(i) >= wanted.at(i),
                     qPrintable(QStringLiteral("pause %1 took %2").arg(i).arg(gaps.at(i))));
            least[i] = qMin(least.at(i), gaps.at(i) - wanted.at(i));
        }
    }
    for (int i = 0; i < least.size(); ++i)
        QVERIFY2(least.at(i) <= kSpareMs,
                 qPrintable(QStringLiteral("pause %1 took %2 too long").arg(i).arg(least.at(i))));
}

QTEST_GUILESS_MAIN(TestPauses)
#include "tst_pauses.moc"
