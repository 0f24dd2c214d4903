#pragma once

#include "shell/controledge.h"

class QQuickItem;
class QQuickWindow;

// Shows under the mouse what can be pressed: a quiet line around the control, and a hand for a pointer. While a button
// is held the control's own pressed face speaks.
class HoverEdge : public QObject
{
    Q_OBJECT

public:
    explicit HoverEdge(QQuickWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void pointAt(const QPointF &place);

    QQuickWindow *m_window;
    ControlEdge m_edge;
};
