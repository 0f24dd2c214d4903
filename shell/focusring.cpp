#include "shell/focusring.h"

#include <QKeyEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

// Above and below a control in a row, so that the whole row comes into sight.
constexpr qreal kRowMargin = 18;

void bringIntoSight(QQuickItem *control)
{
    for (QQuickItem *view = control->parentItem(); view; view = view->parentItem()) {
        if (!view->inherits("QQuickFlickable"))
            continue;
        const QRectF place = control->mapRectToItem(view, control->boundingRect());
        const qreal above = place.top() - kRowMargin;
        const qreal below = place.bottom() + kRowMargin - view->height();
        const qreal by = above < 0 ? above : qMax(0.0, below);
        const qreal last = qMax(0.0, view->property("contentHeight").toReal() - view->height());
        const qreal now = view->property("contentY").toReal();
        if (!qFuzzyIsNull(by))
            view->setProperty("contentY", qBound(0.0, now + by, last));
    }
}

} // namespace

FocusRing::FocusRing(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
    , m_edge(window, QUrl(QStringLiteral("qrc:/blocks/FocusRing.qml")), this)
{
    window->installEventFilter(this);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, &FocusRing::focusMoved);
}

bool FocusRing::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::TouchBegin:
        m_keysLast = false;
        show(false);
        break;
    // A key that is a shortcut is announced to the window, and no more than that.
    case QEvent::ShortcutOverride:
    case QEvent::KeyPress:
        m_keysLast = true;
        // Among few controls the Tab key may come back to where it was.
        if (static_cast<const QKeyEvent *>(event)->key() == Qt::Key_Tab)
            QMetaObject::invokeMethod(this, &FocusRing::focusMoved, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void FocusRing::focusMoved()
{
    show(m_keysLast);
}

void FocusRing::show(bool seen)
{
    QQuickItem *item = m_window->activeFocusItem();
    const bool control = item && item->activeFocusOnTab();
    m_edge.surround(seen && control ? item : nullptr);
    if (!control)
        return;
    // Focus that comes back to a control, from a popup that closed for example, is no less the keyboard's.
    if (item->property("visualFocus").isValid())
        item->setProperty("focusReason", int(seen ? Qt::TabFocusReason : Qt::MouseFocusReason));
    if (seen)
        bringIntoSight(item);
}
