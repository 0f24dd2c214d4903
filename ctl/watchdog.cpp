#include "ctl/watchdog.h"

#include "ctl/outcome.h"
#include "ctl/output.h"

#include <chrono>
#include <cstdlib>

namespace ctl {

Watchdog::Watchdog(int ms)
{
    if (ms <= 0)
        return;
    m_thread = std::thread([this, ms] {
        std::unique_lock<std::mutex> lock(m_mutex);
        if (m_wake.wait_for(lock, std::chrono::milliseconds(ms), [this] { return m_over; }))
            return;
        complain(QStringLiteral("no unit answers within the time of --timeout"));
        std::_Exit(NoLink);
    });
}

Watchdog::~Watchdog()
{
    if (!m_thread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_over = true;
    }
    m_wake.notify_all();
    m_thread.join();
}

} // namespace ctl
