#pragma once

#include <QObject>
#include <QPointer>
#include <QUrl>

class QQuickItem;
class QQuickWindow;

// A line of one dot around a control of the window: one item for the whole window, made when it is first needed and
// drawn by a document, which lies over the others of the control's scroll view, popup or window and goes where the
// control goes. In a scroll view it is cut off with the control.
//
// A control may stand out of its own item or not fill it: "reach" is how many dots it stands out above and below,
// the insets of a control tell where its ground begins.
class ControlEdge : public QObject
{
    Q_OBJECT

public:
    ControlEdge(QQuickWindow *window, const QUrl &document, QObject *parent);

    // Nothing: the line is hidden.
    void surround(QQuickItem *control);

private:
    void follow();
    QQuickItem *line();

    QQuickWindow *m_window;
    QUrl m_document;
    QPointer<QQuickItem> m_line;
    QPointer<QQuickItem> m_control;
    QMetaObject::Connection m_frames;
};
