#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QHash>
#include <QtTest>

namespace support {

// A clock for waits. How long one lasts at the least is exact, so elapsed() tells of it. How long it lasts at the most
// is the panel's affair only as far as the machine let the process run: undisturbed() leaves out the time in which the
// process was stopped, or ready to run and not let. A wait that is too long is none of that, and stays in it.
class Stopwatch
{
public:
    Stopwatch(); // runs from here on
    void restart();
    void stop(); // what follows is no part of it

    qint64 elapsed() const; // ms
    qint64 stalled() const; // ms; rather too much than too little
    qint64 undisturbed() const; // ms

private:
    qint64 stalledByNow() const;

    QElapsedTimer clock;
    qint64 elapsedMs; // of one that was stopped, or -1
    qint64 stalledMs;
    qint64 lateNs;
    QHash<QByteArray, qint64> queuedNs; // by thread
};

} // namespace support

// The waits that `watch` saw lasted `low` ms at the least, and less than `high` apart from what the machine took.
#define VERIFY_TOOK(watch, low, high)                                                                        \
    do {                                                                                                     \
        const support::Stopwatch &tookBy = (watch);                                                          \
        const qint64 undisturbedMs = tookBy.undisturbed();                                                   \
        const qint64 elapsedMs = tookBy.elapsed();                                                           \
        QVERIFY2(elapsedMs >= (low) && undisturbedMs < (high),                                               \
                 qPrintable(QStringLiteral("%1 ms, %2 of them undisturbed, are not in [%3, %4)")             \
                                .arg(elapsedMs)                                                              \
                                .arg(undisturbedMs)                                                          \
                                .arg(low)                                                                    \
                                .arg(high)));                                                                \
    } while (false)
