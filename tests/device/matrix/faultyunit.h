#pragma once

#include "tests/device/matrix/faults.h"

#include <QMap>
#include <QStringList>

#include <chrono>
#include <map>
#include <mutex>
#include <thread>

namespace matrix {

// A unit at the end of a real link, on a thread of its own, that answers as faults.h says. A terminal that is closed
// hangs up, and comes back under another name.
class FaultyUnit
{
public:
    explicit FaultyUnit(uint link);
    ~FaultyUnit();
    FaultyUnit(const FaultyUnit &) = delete;
    FaultyUnit &operator=(const FaultyUnit &) = delete;

    QString target() const;
    // From now on the answers to that code suffer; the record begins anew.
    void suffer(const Form &form, int code);
    // Healthy again, nothing left to send; for a serial link all that lay on it is forgotten, as a real port does
    // when it is closed.
    void heal();
    // Puts bytes on the link that nobody asked for.
    void put(const QByteArray &bytes);
    void hangUp();
    void setAngle(const QByteArray &data);
    // The bodies of the frames since, in hexadecimal.
    QStringList frames() const;

private:
    using Clock = std::chrono::steady_clock;

    void openTerminal();
    void serve();
    void wake() const;
    void acceptLink();
    void take();
    void answer(const QByteArray &body);
    void sendDue();
    void sendBytes(const QByteArray &bytes) const;
    void end(Ending ending);
    int waitMs() const;

    const uint method;
    mutable std::mutex mutex;
    int listener = -1;
    int link = -1; // the connection, or the terminal's master
    int slave = -1;
    int bell = -1; // wakes the thread
    QString name;
    QByteArray unread;
    std::multimap<Clock::time_point, QByteArray> due;
    bool suffers = false;
    Form form{Fault::Silent, false};
    int faultedCode = 0;
    int faultedFrames = 0;
    QByteArray angle;
    QStringList record;
    bool ends = false;
    std::thread thread;
};

} // namespace matrix
