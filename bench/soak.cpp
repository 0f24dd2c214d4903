#include "bench/benchrun.h"
#include "bench/processfigures.h"
#include "bench/report.h"
#include "bench/slope.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>

#include <ctime>

// Very many exchanges, to see what a year of polling leaves behind: memory, descriptors, threads. The sleeps are
// taken away, in this program alone: what is left of an exchange is the exchange. Argument: how many.

extern "C" {

int nanosleep(const timespec * /*wanted*/, timespec *remaining)
{
    if (remaining)
        *remaining = {};
    return 0;
}

int clock_nanosleep(clockid_t /*clock*/, int /*flags*/, const timespec * /*wanted*/, timespec * /*remaining*/)
{
    return 0;
}
}

namespace {

constexpr int kSamples = 20;
constexpr int kSettle = 2000; // exchanges before the first sample: pools and buffers find their size

// One of everything that an operator's day is made of.
void work(mainControl &panel, int number)
{
    switch (number % 8) {
    case 0:
        panel.refreshStatus();
        break;
    case 1:
        panel.setCKDark(true, static_cast<uint>(number) % 1000, 500, 50);
        break;
    case 2:
        panel.getCKSpillBright();
        break;
    case 3:
        panel.resetEdgeFix();
        break;
    case 4:
        panel.setBKColor(1, 2, 3, 2);
        break;
    case 5:
        panel.setCursorData(3, 100, static_cast<uint>(number) % 1000);
        break;
    case 6:
        panel.getLumaKey();
        break;
    default:
        panel.setOutSelect(1, false, false, 2, false, false, 3, false, false, 4, false, false);
        break;
    }
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication application(argc, argv);
    const int wanted = argc > 1 ? std::max(kSamples, atoi(argv[1])) : 100000;
    const auto pid = static_cast<unsigned>(QCoreApplication::applicationPid());
    const QString address = QStringLiteral("127.98.%1.%2").arg((pid >> 8U) & 0xFFU).arg(1 + pid % 250U);
    QProcess unit;
    unit.setProcessChannelMode(QProcess::MergedChannels);
    unit.start(QStringLiteral(UNIT_PROGRAM),
               {QStringLiteral("--address"), address, QStringLiteral("--no-discovery"),
                QStringLiteral("--quiet"),
                // The panel does not wait here, so the unit may not either.
                QStringLiteral("--key-time"), QStringLiteral("0"), QStringLiteral("--format-time"),
                QStringLiteral("0")});
    QByteArray greeting;
    while (!greeting.contains("ready") && unit.waitForReadyRead(5000))
        greeting += unit.readAll();

    BenchRun run;
    mainControl &panel = run.facade();
    bool good = panel.deviceConnect(1, address, 0) == QLatin1String("OK");
    for (int i = 0; i < kSettle && good; ++i)
        work(panel, i);
    const int descriptors = bench::openDescriptors();
    const int threads = bench::threads();
    std::vector<double> rssKb;
    QElapsedTimer clock;
    clock.start();
    for (int sample = 0; sample < kSamples && good; ++sample) {
        for (int i = 0; i < wanted / kSamples; ++i)
            work(panel, i);
        good = panel.isConnected();
        rssKb.push_back(bench::ProcessFigures::now().rssMb * 1024);
    }
    bench::report({{"bench", "soak"},
                   {"operations", wanted},
                   {"seconds", static_cast<double>(clock.elapsed()) / 1e3},
                   {"rssSlopeKb", bench::slope(rssKb) * kSamples}, // over the whole run
                   {"rssKb", rssKb.empty() ? 0 : rssKb.back()},
                   {"descriptors", bench::openDescriptors() - descriptors},
                   {"threads", bench::threads() - threads},
                   {"good", good}});
    unit.terminate();
    unit.waitForFinished(5000);
    return good ? 0 : 1;
}
