#include "bench/barelink.h"
#include "bench/benchrun.h"
#include "bench/report.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <atomic>
#include <cstdlib>

// The panel's own share of an exchange, which is what it takes beyond the mandated wait, beside a bare socket that
// does the same in turn, and what it leaves on the heap: a get through the facade, against a stand-in unit in a
// process of its own. Argument: how many exchanges on the network; a third of them on the serial link.

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

QJsonObject shares(const std::vector<double> &samples)
{
    return {{"p50", bench::quantile(samples, 0.5)},
            {"p95", bench::quantile(samples, 0.95)},
            {"p99", bench::quantile(samples, 0.99)},
            {"max", bench::quantile(samples, 1)}};
}

double beyond(int mandatedMs, const std::function<bool()> &exchange, bool &good)
{
    QElapsedTimer clock;
    clock.start();
    good = exchange() && good;
    return static_cast<double>(clock.nsecsElapsed()) / 1e6 - mandatedMs;
}

bool measure(mainControl &panel, bench::BareLink &bare, const char *name, int mandatedMs, int exchanges)
{
    const auto byPanel = [&panel] {
        panel.getCKDark();
        return panel.isConnected();
    };
    const auto byBare = [&bare, mandatedMs] { return bare.exchange(mandatedMs); };
    bool good = bare.isOpen();
    std::vector<double> panelMs(static_cast<size_t>(exchanges));
    std::vector<double> bareMs(static_cast<size_t>(exchanges));
    long left = 0;
    for (int i = -kWarmUp; i < exchanges && good; ++i) {
        const long before = living;
        const double ms = beyond(mandatedMs, byPanel, good);
        if (i < 0) {
            beyond(mandatedMs, byBare, good);
            continue;
        }
        left += living - before;
        panelMs[static_cast<size_t>(i)] = ms;
        bareMs[static_cast<size_t>(i)] = beyond(mandatedMs, byBare, good);
    }
    bench::report({{"bench", "exchange"},
                   {"link", name},
                   {"mandatedMs", mandatedMs},
                   {"exchanges", exchanges},
                   {"panel", shares(panelMs)},
                   {"bare", shares(bareMs)},
                   {"leftPerExchange", static_cast<double>(left) / exchanges},
                   {"good", good}});
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

    const int exchanges = argc > 1 ? std::max(3, atoi(argv[1])) : 300;

    bool good = !terminal.isEmpty();
    if (good) {
        BenchRun run;
        mainControl &panel = run.facade();
        good = panel.deviceConnect(1, address, 0) == QLatin1String("OK");
        {
            bench::BareLink bare = bench::BareLink::network(address);
            good = good && measure(panel, bare, "network", 50, exchanges);
        }
        good = good && panel.deviceConnect(2, terminal, 0) == QLatin1String("OK");
        {
            // The bare link opens the same terminal; the two take turns.
            bench::BareLink bare = bench::BareLink::serial(terminal);
            good = good && measure(panel, bare, "serial", 150, exchanges / 3);
        }
    }
    unit.terminate();
    unit.waitForFinished(5000);
    if (!good)
        fprintf(stderr, "bench: an exchange failed. The unit said:\n%s\n", greeting.constData());
    return good ? 0 : 1;
}
