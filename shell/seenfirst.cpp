#include "shell/seenfirst.h"

#include "shell/framepace.h"

#include <QKeyEvent>
#include <QQuickWindow>

namespace {

bool isRepeated(const QEvent *event)
{
    return static_cast<const QKeyEvent *>(event)->isAutoRepeat();
}

} // namespace

SeenFirst::SeenFirst(QQuickWindow *window, FramePace *pace)
    : QObject(window)
    , m_window(window)
    , m_pace(pace)
{
    window->installEventFilter(this);
    // Right before the scene is taken over into a frame.
    connect(window, &QQuickWindow::afterAnimating, this, [this] { m_seen = true; });
}

bool SeenFirst::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        m_seen = false;
        break;
    case QEvent::KeyPress:
        m_seen = m_seen && isRepeated(event);
        break;
    case QEvent::MouseButtonRelease:
    case QEvent::TouchEnd:
        drawNow();
        break;
    case QEvent::KeyRelease:
        if (!isRepeated(event))
            drawNow();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void SeenFirst::drawNow()
{
    if (!m_seen && m_window->isExposed())
        m_pace->drawNow();
}
