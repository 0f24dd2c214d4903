#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

class QQuickWindow;

// How often the window is drawn. The toolkit lets each change wait for 5 ms, so that more may come to it: a second
// wake-up for every frame of what moves, and an answer that is seen later than it need be. Here a change on a still
// screen is drawn at once, and the next frame waits until the one before has had its time. What moves while nobody is
// at the controls, as the start mask's arrow may for a night, gets half as many frames.
class FramePace : public QObject
{
    Q_OBJECT

public:
    explicit FramePace(QQuickWindow *window);

    // Asks the toolkit not to wait, unless the environment says how long it shall. Before the first window.
    static void prepare();

    // A frame within this call, whatever the pace.
    void drawNow();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool takesItsTime();

    QQuickWindow *m_window;
    QElapsedTimer m_sinceInput;
    QElapsedTimer m_sinceFrame;
    QTimer m_nextFrame;
};
