#include "shell/hoveredge.h"

#include <QCursor>
#include <QMouseEvent>
#include <QQuickItem>
#include <QQuickWindow>

#include <algorithm>

namespace {

bool isModal(const QQuickItem *overlay)
{
    const auto items = overlay->childItems();
    return std::any_of(items.cbegin(), items.cend(), [](const QQuickItem *item) {
        return item->isVisible() && item->parent() && item->parent()->property("modal").toBool();
    });
}

// The topmost item that would take a press of the mouse at that place of the window.
QQuickItem *takerAt(QQuickItem *below, const QPointF &place)
{
    if (!below->isVisible() || !below->isEnabled())
        return nullptr;
    const bool inside = below->contains(below->mapFromScene(place));
    if (below->clip() && !inside)
        return nullptr;
    QList<QQuickItem *> children = below->childItems();
    std::stable_sort(children.begin(), children.end(),
                     [](const QQuickItem *a, const QQuickItem *b) { return a->z() < b->z(); });
    for (auto child = children.crbegin(); child != children.crend(); ++child) {
        if (QQuickItem *found = takerAt(*child, place))
            return found;
    }
    // Popups that are not modal let through what falls beside them.
    if (!inside || (below->inherits("QQuickOverlay") && !isModal(below)))
        return nullptr;
    return below->acceptedMouseButtons() & Qt::LeftButton ? below : nullptr;
}

// A control is what the keyboard stops at; the item that takes the press may be a part of it.
QQuickItem *controlAt(QQuickItem *root, const QPointF &place)
{
    QQuickItem *item = takerAt(root, place);
    while (item && !item->activeFocusOnTab())
        item = item->parentItem();
    return item;
}

bool isField(const QQuickItem *control)
{
    return control->inherits("QQuickTextInput");
}

} // namespace

HoverEdge::HoverEdge(QQuickWindow *window)
    : QObject(window)
    , m_window(window)
    , m_edge(window, QUrl(QStringLiteral("qrc:/blocks/HoverEdge.qml")), this)
{
    window->installEventFilter(this);
    // A popup that opens by itself or by a shortcut lies over what the mouse points at.
    connect(window, &QQuickWindow::activeFocusItemChanged, this, [this] { m_edge.surround(nullptr); });
}

bool HoverEdge::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto *mouse = static_cast<const QMouseEvent *>(event);
        if (mouse->buttons() == Qt::NoButton)
            pointAt(mouse->windowPos());
        break;
    }
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick:
    case QEvent::KeyPress:
    case QEvent::Leave:
        m_edge.surround(nullptr);
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void HoverEdge::pointAt(const QPointF &place)
{
    QQuickItem *control = controlAt(m_window->contentItem(), place);
    const bool pressable = control && !isField(control);
    m_edge.surround(pressable ? control : nullptr);
    // A field has its shape from the toolkit.
    if (pressable && control->cursor().shape() != Qt::PointingHandCursor)
        control->setCursor(Qt::PointingHandCursor);
}
