#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>

#include <memory>

// An operator's hand and eye on a display, from outside the program that draws there: real events of mouse and
// keyboard, and what stands on the screen. Coordinates are those of the display; the panel's window stands at 0, 0.
class ScreenClient
{
public:
    explicit ScreenClient(const QString &display);
    ~ScreenClient();
    ScreenClient(const ScreenClient &) = delete;
    ScreenClient &operator=(const ScreenClient &) = delete;

    bool isGood() const;

    void move(const QPoint &place);
    void press();
    void release();
    void click(const QPoint &place);
    // One key with what has to be held for it; a keysym of X, for Latin letters and digits their own code.
    void key(quint32 keysym);
    void type(const QString &text);

    QImage look(const QRect &place) const;

    // Whether a window with this beginning of its title is on the screen. The keyboard then belongs to it, as it does
    // to the window that a window manager shows last.
    bool hasWindow(const QString &title);
    // What the cross of a window's frame does.
    bool closeWindow(const QString &title);

private:
    struct Private;
    std::unique_ptr<Private> d;
};
