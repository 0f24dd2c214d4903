#pragma once

#include "panelfacade.h"
#include "panelharness.h"

// The places of the screen that an operator can be in, and the controls of each, found by walking the tree of items.
// Nobody lists them: a control that is added to a document is in the tests with it.

// Where the operator is: the start mask, one of the pages, or a popup over them.
struct Place
{
    const char *name;
    int page; // in front; 0: none, the unit is not connected and the mask is up
    const char *popup; // what opens it; empty: none
    const char *root; // the item that holds what can be reached there
};

QVector<Place> places();
// One row for each of them, or for those from one to before another: QFETCH(int, index).
void listPlaces(int from = 0, int to = -1);

// The panel, worked in these places.
class Workplace
{
public:
    PanelFacade facade;
    PanelHarness panel;

    Workplace();

    // As for the first time, whatever was done before.
    void enter(const Place &place);
    void enter(const char *name);
    // Waits until what was begun is sent, and tells the calls since enter() but for the poll's.
    QStringList calls();

    QQuickItem *root(const Place &place) const { return panel.item(QString::fromLatin1(place.root)); }
    // What the mouse can work: areas, buttons, boxes, sliders, fields. Only what is seen and alive.
    QVector<QQuickItem *> controls(const Place &place) const;
    // What the Tab key stops at, from one end to the other.
    QVector<QQuickItem *> stops();
    // The nearest item around it where the keyboard stops; null if there is none.
    static QQuickItem *stopOf(QQuickItem *control);
    // In the window.
    static QRect placeOf(const QQuickItem *item);
    // The id in its document, and its type.
    static QString nameOf(QQuickItem *item);

    QQuickItem *focused() const { return panel.window->activeFocusItem(); }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(panel.window, key, modifiers);
    }
    // Brings the keyboard to a control, as the Tab key does.
    void focus(QQuickItem *stop) { stop->forceActiveFocus(Qt::TabFocusReason); }
    // The line around the focused or the hovered control; null while there is none.
    QQuickItem *line(const char *color) const;
    QQuickItem *ring() const { return line("#aeb8c6"); }
    QQuickItem *hoverEdge() const { return line("#33425c"); }

private:
    void closeAll();
    void unfoldAll();
    bool standsStill(const Place &place) const;

    QVector<QObject *> m_throttles;
    QVector<QObject *> m_popups;
};

bool isField(const QQuickItem *item);
bool isList(const QQuickItem *item);
bool isSlider(const QQuickItem *item);
