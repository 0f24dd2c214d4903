#pragma once

#include "shell/controledge.h"

class QQuickItem;
class QQuickWindow;

// Shows where the keyboard is: the control that got the focus by a key is surrounded, and scrolled into sight. A press
// of the mouse takes the ring away. Controls with a visualFocus of their own are told the same.
class FocusRing : public QObject
{
    Q_OBJECT

public:
    explicit FocusRing(QQuickWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void focusMoved();
    void show(bool seen);

    QQuickWindow *m_window;
    ControlEdge m_edge;
    bool m_keysLast = false;
};
