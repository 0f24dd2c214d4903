#pragma once

#include <QObject>

class FramePace;
class QQuickWindow;

// The work that a press starts may block for seconds, and the screen stands meanwhile as it was last drawn. What a
// control shows while it is pressed, its pressed face and a line about the work, must be that picture. A quick tap
// brings the release before the next frame: then a frame is drawn at once, and the release is heard after it. Nothing
// else runs in between.
class SeenFirst : public QObject
{
    Q_OBJECT

public:
    SeenFirst(QQuickWindow *window, FramePace *pace);

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void drawNow();

    QQuickWindow *m_window;
    FramePace *m_pace;
    bool m_seen = true; // a frame has been drawn since the last press
};
