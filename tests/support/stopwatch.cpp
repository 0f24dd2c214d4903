#include "stopwatch.h"

#include <QDir>
#include <QFile>

#include <atomic>
#include <chrono>
#include <csignal>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

namespace support {

namespace {

// A thread that does nothing but sleep, and finds how much too late it is woken.
class Sleeper
{
public:
    // Goes on as long as the process does. A process that was forked off has none of its parent's threads.
    static void begin()
    {
        if (process == ::getpid())
            return;
        process = ::getpid();
        dueNs = nowNs() + kPeriodNs;
        // Signals are for the threads that await them.
        sigset_t all;
        sigset_t before;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
        std::thread(run).detach();
        pthread_sigmask(SIG_SETMASK, &before, nullptr);
    }

    static qint64 lateNs() { return totalNs + std::max<qint64>(0, nowNs() - dueNs - kOrdinaryNs); }
    static QByteArray threadId() { return QByteArray::number(qint64(thread)); }

private:
    static qint64 nowNs()
    {
        using namespace std::chrono;
        return duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count();
    }

    static void run()
    {
        thread = static_cast<int>(::syscall(SYS_gettid));
        for (;;) {
            std::this_thread::sleep_for(std::chrono::nanoseconds(std::max<qint64>(0, dueNs - nowNs())));
            const qint64 lateNow = nowNs() - dueNs;
            if (lateNow > kOrdinaryNs)
                totalNs += lateNow - kOrdinaryNs;
            dueNs = nowNs() + kPeriodNs;
        }
    }

    static constexpr qint64 kPeriodNs = 20'000'000;
    static constexpr qint64 kOrdinaryNs = 1'000'000;
    inline static int process = 0;
    inline static std::atomic<int> thread{0};
    inline static std::atomic<qint64> totalNs{0};
    inline static std::atomic<qint64> dueNs{0};
};

// How long each thread of the process was ready to run and did not. The kernel counts it.
QHash<QByteArray, qint64> queuedThreads()
{
    QHash<QByteArray, qint64> found;
    const QDir threads(QStringLiteral("/proc/self/task"));
    for (const QString &id : threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        QFile file(threads.filePath(id + QStringLiteral("/schedstat")));
        if (id.toLatin1() != Sleeper::threadId() && file.open(QIODevice::ReadOnly))
            found.insert(id.toLatin1(), file.readAll().split(' ').value(1).toLongLong());
    }
    return found;
}

} // namespace

Stopwatch::Stopwatch()
{
    Sleeper::begin();
    restart();
}

void Stopwatch::restart()
{
    queuedNs = queuedThreads();
    lateNs = Sleeper::lateNs();
    elapsedMs = -1;
    stalledMs = 0;
    clock.start();
}

void Stopwatch::stop()
{
    elapsedMs = clock.elapsed();
    stalledMs = stalledByNow();
}

qint64 Stopwatch::elapsed() const
{
    return elapsedMs >= 0 ? elapsedMs : clock.elapsed();
}

qint64 Stopwatch::stalled() const
{
    return elapsedMs >= 0 ? stalledMs : stalledByNow();
}

// A process that is stopped as a whole is seen by the sleeper alone, a single thread that waits by the kernel's count.
qint64 Stopwatch::stalledByNow() const
{
    qint64 queued = 0;
    const QHash<QByteArray, qint64> now = queuedThreads();
    for (auto it = now.cbegin(); it != now.cend(); ++it)
        queued += it.value() - queuedNs.value(it.key());
    return std::max(queued, Sleeper::lateNs() - lateNs) / 1'000'000;
}

qint64 Stopwatch::undisturbed() const
{
    const qint64 all = elapsed();
    return std::max<qint64>(0, all - stalled());
}

} // namespace support
