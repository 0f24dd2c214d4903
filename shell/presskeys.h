#pragma once

#include <QObject>
#include <QPointer>
#include <Qt>

class QKeyEvent;
class QQuickItem;
class QQuickWindow;

// The keys beside the mouse. Space and Enter press the control that has the focus, as long as they are held and once
// for each press, however long: a picture with a mouse area is pressed and let go in its middle, so that the very
// handlers run that the mouse runs, in their order. On a slider the arrows move by 1, Page Up and Page Down by 10, Home
// and End to the ends; it sends as it does for the mouse. Fields and open lists keep their own keys, but hear Enter
// once for each press as well.
//
// What is pressed is the item with the focus or, where that is the ground of several, the mouse area that it names as
// "pressArea".
class PressKeys : public QObject
{
    Q_OBJECT

public:
    explicit PressKeys(QQuickWindow *window);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool keyPressed(const QKeyEvent &key);
    bool keyReleased(const QKeyEvent &key);
    void press(QQuickItem *target, int key);
    void letGo();
    void cancel();

    QQuickWindow *m_window;
    QPointer<QQuickItem> m_focus; // had the focus when it was pressed
    QPointer<QQuickItem> m_target; // is held pressed
    int m_key = 0; // the key that holds it
};
