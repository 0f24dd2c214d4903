#pragma once

#include <condition_variable>
#include <mutex>
#include <thread>

namespace ctl {

// Ends the whole program with "no link" when it lives longer than `ms`; never for 0. Only for moments in which
// nothing can be left half done: an attempt to connect blocks its thread for as long as the link does.
class Watchdog
{
public:
    explicit Watchdog(int ms);
    ~Watchdog();
    Watchdog(const Watchdog &) = delete;
    Watchdog &operator=(const Watchdog &) = delete;

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_over = false;
    std::thread m_thread;
};

} // namespace ctl
