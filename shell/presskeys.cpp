#include "shell/presskeys.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

constexpr qreal kPageStep = 10;

bool isEnter(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isPressKey(int key)
{
    return key == Qt::Key_Space || isEnter(key);
}

bool isMouseArea(const QQuickItem *item)
{
    return item->inherits("QQuickMouseArea");
}

// The item that a press key presses, or nothing: then the key is the item's own affair.
QQuickItem *targetOf(QQuickItem *focus, int key)
{
    if (auto *area = focus->property("pressArea").value<QQuickItem *>())
        return area;
    if (isMouseArea(focus) || focus->inherits("QQuickAbstractButton"))
        return focus;
    if (!focus->inherits("QQuickComboBox"))
        return nullptr;
    // Enter opens a closed list like Space, but in an open one it chooses.
    const auto *list = focus->property("popup").value<QObject *>();
    return key == Qt::Key_Space || !list || !list->property("visible").toBool() ? focus : nullptr;
}

void sendSpace(QQuickItem *target, QEvent::Type type)
{
    QKeyEvent space(type, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
    QCoreApplication::sendEvent(target, &space);
}

void sendButton(QQuickItem *target, QEvent::Type type, const QPointF &place)
{
    const QPointF scene = target->mapToScene(place);
    const bool moves = type == QEvent::MouseMove;
    QMouseEvent button(type, place, scene, target->window()->mapToGlobal(scene.toPoint()),
                       moves ? Qt::NoButton : Qt::LeftButton,
                       type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &button);
}

QPointF middleOf(const QQuickItem *item)
{
    return {item->width() / 2, item->height() / 2};
}

// The value that a key moves a slider to, or nothing.
QVariant sliderValue(const QQuickItem *slider, int key)
{
    QVariant low = slider->property("minimumValue");
    QVariant high = slider->property("maximumValue");
    if (!low.isValid() || !high.isValid())
        return {};
    const qreal now = slider->property("value").toReal();
    const auto by = [&](qreal step) { return qBound(low.toReal(), now + step, high.toReal()); };
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Down:
        return by(-1);
    case Qt::Key_Right:
    case Qt::Key_Up:
        return by(1);
    case Qt::Key_PageDown:
        return by(-kPageStep);
    case Qt::Key_PageUp:
        return by(kPageStep);
    case Qt::Key_Home:
        return low;
    case Qt::Key_End:
        return high;
    default:
        return {};
    }
}

} // namespace

PressKeys::PressKeys(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
{
    window->installEventFilter(this);
    connect(window, &QQuickWindow::activeFocusItemChanged, this, [this] {
        if (m_target && m_window->activeFocusItem() != m_focus)
            cancel();
    });
}

bool PressKeys::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return keyPressed(*static_cast<const QKeyEvent *>(event));
    case QEvent::KeyRelease:
        return keyReleased(*static_cast<const QKeyEvent *>(event));
    case QEvent::MouseButtonPress:
        cancel();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

bool PressKeys::keyPressed(const QKeyEvent &key)
{
    QQuickItem *focus = m_window->activeFocusItem();
    if (!focus)
        return false;
    // A page that was left by a click keeps the focus that it had; nobody means what is not seen.
    if (!focus->isVisible())
        return key.key() != Qt::Key_Tab && key.key() != Qt::Key_Backtab;
    // A field commits at each Enter, and each commit is exchanges with the unit that block the panel.
    if (key.isAutoRepeat() && isEnter(key.key()))
        return true;
    if (key.modifiers() & ~Qt::KeypadModifier)
        return false;
    const QVariant value = sliderValue(focus, key.key());
    if (value.isValid()) {
        focus->setProperty("value", value);
        return true;
    }
    QQuickItem *target = isPressKey(key.key()) ? targetOf(focus, key.key()) : nullptr;
    if (!target)
        return false;
    if (!key.isAutoRepeat() && !m_target) {
        m_focus = focus;
        press(target, key.key());
    }
    return true;
}

bool PressKeys::keyReleased(const QKeyEvent &key)
{
    if (m_key == 0 || key.key() != m_key)
        return false;
    if (!key.isAutoRepeat()) {
        letGo();
        m_key = 0;
    }
    return true;
}

void PressKeys::press(QQuickItem *target, int key)
{
    m_target = target;
    m_key = key;
    if (isMouseArea(target))
        sendButton(target, QEvent::MouseButtonPress, middleOf(target));
    else
        sendSpace(target, QEvent::KeyPress);
}

void PressKeys::letGo()
{
    QQuickItem *target = m_target;
    // What is done at the release may take the focus elsewhere, and that is then no cancel.
    m_target = nullptr;
    if (!target)
        return;
    if (isMouseArea(target))
        sendButton(target, QEvent::MouseButtonRelease, middleOf(target));
    else
        sendSpace(target, QEvent::KeyRelease);
}

// The focus went elsewhere while the key was held: as when the mouse lets go beside the control. A button sees it
// itself.
void PressKeys::cancel()
{
    QQuickItem *target = m_target;
    m_target = nullptr;
    if (!target || !isMouseArea(target))
        return;
    constexpr QPointF kBeside(-100, -100);
    sendButton(target, QEvent::MouseMove, kBeside);
    sendButton(target, QEvent::MouseButtonRelease, kBeside);
}
