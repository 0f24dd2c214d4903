#pragma once

#include <QElapsedTimer>

namespace ctl {

// Commands that go on until they are told to end: an interruption lets the exchange that is under way end first.

void endOnSignal();
bool isInterrupted();
// Sleeps until the clock stands at `dueMs`, but not through an interruption.
void waitForTurn(const QElapsedTimer &clock, qint64 dueMs);

} // namespace ctl
