#include "shell/controledge.h"

#include <QDebug>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickWindow>

namespace {

// What the line is laid over: the content of the control's scroll view, its popup, or the window's content.
QQuickItem *layerOf(const QQuickWindow *window, QQuickItem *control)
{
    QQuickItem *below = control;
    for (QQuickItem *above = control->parentItem(); above; above = above->parentItem()) {
        if (above == window->contentItem() || above->inherits("QQuickFlickable")
            || above->inherits("QQuickOverlay"))
            return below;
        below = above;
    }
    return nullptr;
}

// What is seen of the control, in its own dots.
QRectF seenPartOf(const QQuickItem *control)
{
    const auto dots = [control](const char *name) { return control->property(name).toReal(); };
    const qreal reach = dots("reach");
    return QRectF(0, 0, control->width(), control->height())
        .adjusted(dots("leftInset"), dots("topInset") - reach, -dots("rightInset"),
                  reach - dots("bottomInset"));
}

} // namespace

ControlEdge::ControlEdge(QQuickWindow *window, const QUrl &document, QObject *parent)
    : QObject(parent)
    , m_window(window)
    , m_document(document)
{
}

void ControlEdge::surround(QQuickItem *control)
{
    if (m_control == control)
        return;
    m_control = control;
    disconnect(m_frames);
    // A control moves with what it stands in: a page that is scrolled, a section that folds. The window tells before
    // each frame, so the line is never a frame late.
    if (control)
        m_frames = connect(m_window, &QQuickWindow::afterAnimating, this, &ControlEdge::follow);
    follow();
}

void ControlEdge::follow()
{
    QQuickItem *layer = m_control && m_control->isVisible() && m_control->isEnabled()
        ? layerOf(m_window, m_control)
        : nullptr;
    if (!layer) {
        if (m_line)
            m_line->setVisible(false);
        return;
    }
    QQuickItem *edge = line();
    if (!edge)
        return;
    // At the rim of the layer the line stands on the control itself, for beyond it nothing is drawn.
    const QRectF around = m_control->mapRectToItem(layer, seenPartOf(m_control)).adjusted(-1, -1, 1, 1);
    const QRectF drawn = around.intersected(QRectF(0, 0, layer->width(), layer->height()));
    edge->setParentItem(layer);
    edge->setPosition(drawn.topLeft());
    edge->setSize(drawn.size());
    edge->setVisible(true);
}

QQuickItem *ControlEdge::line()
{
    if (m_line)
        return m_line;
    QQmlComponent component(qmlEngine(m_window), m_document);
    auto *made = qobject_cast<QQuickItem *>(component.create());
    if (!made) {
        qWarning().noquote() << component.errorString();
        return nullptr;
    }
    made->setParent(this);
    m_line = made;
    return made;
}
