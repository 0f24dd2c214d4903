#pragma once

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <ctime>
#include <sys/resource.h>

namespace bench {

// What the kernel says of this process.
struct ProcessFigures
{
    double rssMb = 0;
    double pssMb = 0;
    double privateDirtyMb = 0;

    static ProcessFigures now()
    {
        ProcessFigures figures;
        QFile file(QStringLiteral("/proc/self/smaps_rollup"));
        if (!file.open(QIODevice::ReadOnly))
            return figures;
        for (const QByteArray &line : file.readAll().split('\n')) {
            const double mb =
                line.mid(line.indexOf(':') + 1).simplified().split(' ').constFirst().toDouble() / 1024;
            if (line.startsWith("Rss:"))
                figures.rssMb = mb;
            else if (line.startsWith("Pss:"))
                figures.pssMb = mb;
            else if (line.startsWith("Private_Dirty:"))
                figures.privateDirtyMb = mb;
        }
        return figures;
    }
};

inline int entriesOf(const char *folder)
{
    return QDir(QLatin1String(folder))
        .entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)
        .size();
}

inline int openDescriptors()
{
    return entriesOf("/proc/self/fd") - 1; // without the one that reads the folder
}

inline int threads()
{
    return entriesOf("/proc/self/task");
}

// Processor time of the whole process, user and system, in milliseconds.
inline double cpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto ms = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
    };
    return ms(usage.ru_utime) + ms(usage.ru_stime);
}

// The clock that the starting process reads too.
inline double monotonicMs()
{
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace bench
