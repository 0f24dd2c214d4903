#include "bench/benchrun.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <vector>

// The panel's own share of an exchange, which is what it takes beyond the mandated wait, and what it leaves
// on the heap: a get through the facade, against a stand-in unit in a process of its own.
// Ends with 1 when the median share is over 1 ms or anything is left.

// Every allocation of this process is counted on its way to the C library.
extern "C" {
// NOLINTBEGIN(bugprone-reserved-identifier)
void *__libc_malloc(size_t size);
void *__libc_calloc(size_t count, size_t size);
void *__libc_realloc(void *block, size_t size);
void *__libc_memalign(size_t alignment, size_t size);
void __libc_free(void *block);
// NOLINTEND(bugprone-reserved-identifier)
}

namespace {

std::atomic<long> living{0};

void *counted(void *block)
{
    if (block)
        ++living;
    return block;
}

} // namespace

extern "C" {

void *malloc(size_t size)
{
    return counted(__libc_malloc(size));
}

void *calloc(size_t count, size_t size)
{
    return counted(__libc_calloc(count, size));
}

void *realloc(void *block, size_t size)
{
    return block ? __libc_realloc(block, size) : counted(__libc_realloc(block, size));
}

void *memalign(size_t alignment, size_t size)
{
    return counted(__libc_memalign(alignment, size));
}

void *aligned_alloc(size_t alignment, size_t size)
{
    return counted(__libc_memalign(alignment, size));
}

int posix_memalign(void **block, size_t alignment, size_t size)
{
    *block = counted(__libc_memalign(alignment, size));
    return *block ? 0 : ENOMEM;
}

void free(void *block)
{
    if (block)
        --living;
    __libc_free(block);
}
}

namespace {

constexpr int kWarmUp = 10;

bool measure(mainControl &panel, const char *name, double mandatedMs, int exchanges)
{
    std::vector<double> shares(static_cast<size_t>(exchanges));
    for (int i = 0; i < kWarmUp; ++i)
        panel.getCKDark();
    const long before = living;
    QElapsedTimer clock;
    for (double &share : shares) {
        clock.start();
        panel.getCKDark();
        share = static_cast<double>(clock.nsecsElapsed()) / 1e6 - mandatedMs;
    }
    const long left = living - before;
    std::sort(shares.begin(), shares.end());
    const double median = shares.at(shares.size() / 2);
    const double leftPerExchange = static_cast<double>(left) / exchanges;
    const bool good = panel.isConnected() && median <= 1.0 && left <= 0;
    printf("%-8s %d exchanges beyond %.0f ms: median %.3f ms, worst %.3f ms; allocations left per exchange: "
           "%g  %s\n",
           name, exchanges, mandatedMs, median, shares.back(), leftPerExchange, good ? "good" : "BAD");
    fflush(stdout);
    return good;
}

// The path that a line of the unit's greeting tells, for example its pseudo-terminal.
QString wordAfter(const QByteArray &text, const char *start)
{
    const int at = text.indexOf(start);
    if (at < 0)
        return {};
    int end = at;
    while (end < text.size() && !isspace(static_cast<unsigned char>(text.at(end))) && text.at(end) != ',')
        ++end;
    return QString::fromLocal8Bit(text.mid(at, end - at));
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const auto pid = static_cast<unsigned>(QCoreApplication::applicationPid());
    const QString address = QStringLiteral("127.99.%1.%2").arg((pid >> 8U) & 0xFFU).arg(1 + pid % 250U);
    QProcess unit;
    unit.start(QStringLiteral(UNIT_PROGRAM),
               {QStringLiteral("--address"), address, QStringLiteral("--serial"), QStringLiteral("pty"),
                QStringLiteral("--no-discovery"), QStringLiteral("--quiet")});
    QByteArray greeting;
    while (!greeting.contains("ready") && unit.waitForReadyRead(5000))
        greeting += unit.readAllStandardOutput();
    const QString terminal = wordAfter(greeting, "/dev/pts/");

    bool good = !terminal.isEmpty();
    {
        BenchRun run;
        mainControl &panel = run.facade();
        good = good && panel.deviceConnect(1, address, 0) == QLatin1String("OK")
            && measure(panel, "network", 50, 200);
        good = panel.deviceConnect(2, terminal, 0) == QLatin1String("OK") && measure(panel, "serial", 150, 60)
            && good;
    }
    unit.terminate();
    unit.waitForFinished(5000);
    if (!good)
        fprintf(stderr, "The exchange takes longer, leaves more or does not work.\n%s\n",
                greeting.constData());
    return good ? 0 : 1;
}
