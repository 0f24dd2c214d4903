#include "ctl/interruption.h"

#include <QThread>

#include <csignal>

namespace ctl {

namespace {

volatile std::sig_atomic_t interrupted = 0;

void onSignal(int /*signal*/)
{
    interrupted = 1;
}

} // namespace

void endOnSignal()
{
    std::signal(SIGINT, onSignal);
    std::signal(SIGTERM, onSignal);
}

bool isInterrupted()
{
    return interrupted != 0;
}

void waitForTurn(const QElapsedTimer &clock, qint64 dueMs)
{
    constexpr qint64 kSliceMs = 50;
    while (!isInterrupted() && clock.elapsed() < dueMs)
        QThread::msleep(static_cast<unsigned long>(qMin(kSliceMs, dueMs - clock.elapsed())));
}

} // namespace ctl
