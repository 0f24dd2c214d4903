#include "shell/framepace.h"

#include <QCoreApplication>
#include <QInputEvent>
#include <QQuickWindow>

namespace {

constexpr char kUpdateWait[] = "QT_QPA_UPDATE_IDLE_TIME";

// The least time from frame to frame. While somebody works, each move of a mouse, 8 ms apart, finds its frame free, and
// each step of an animation, 16 ms apart.
constexpr int kFrameAtWorkMs = 7;
constexpr int kFrameUnattendedMs = 30;

// How long the last input counts as work: longer than nearly all that a press starts, and than what it shows at its end
// takes to fade. After a longer work, as a save on a silent unit, that fading has fewer pictures, and nothing else is lost.
constexpr int kAtWorkMs = 10000;

} // namespace

FramePace::FramePace(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
{
    m_nextFrame.setSingleShot(true);
    m_nextFrame.setTimerType(Qt::PreciseTimer);
    connect(&m_nextFrame, &QTimer::timeout, this, &FramePace::drawNow);
    window->installEventFilter(this);
}

void FramePace::prepare()
{
    if (!qEnvironmentVariableIsSet(kUpdateWait))
        qputenv(kUpdateWait, "0");
}

void FramePace::drawNow()
{
    m_sinceFrame.invalidate();
    // What the window system asks for a frame with.
    QEvent frame(QEvent::UpdateRequest);
    QCoreApplication::sendEvent(m_window, &frame);
}

bool FramePace::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::UpdateRequest && !takesItsTime())
        return true;
    if (dynamic_cast<QInputEvent *>(event))
        m_sinceInput.start();
    return QObject::eventFilter(watched, event);
}

// What turns by the frame and not by a clock asks for the next one while it is drawn: without a pace it would keep
// the processor to itself.
bool FramePace::takesItsTime()
{
    const bool atWork = m_sinceInput.isValid() && !m_sinceInput.hasExpired(kAtWorkMs);
    const int frameMs = atWork ? kFrameAtWorkMs : kFrameUnattendedMs;
    const qint64 earlyMs = m_sinceFrame.isValid() ? frameMs - m_sinceFrame.elapsed() : 0;
    if (earlyMs > 0) {
        m_nextFrame.start(static_cast<int>(earlyMs));
        return false;
    }
    m_nextFrame.stop();
    m_sinceFrame.start();
    return true;
}
