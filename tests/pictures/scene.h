#pragma once

#include "tests/panel/panelfacade.h"
#include "tests/panel/panelharness.h"

// The real window over the recorded facade, brought into a state by the operator's hand and the unit's reports.
//
// An item is named as its document names it: "btnConnect" in main.qml, "pageCK.blackLevel" in a page. The name is
// looked up in the contexts below the page, so it does not matter which of its documents declares it.
class Scene
{
public:
    explicit Scene(const QString &language);
    ~Scene();

    // The unit is there: mask and popups close. Its reports fill every page.
    void connectUnit();
    // The same, with one of the six pages in front (1 to 6).
    void showPage(int page);

    QVariant eval(const QString &expression) const { return m_panel.eval(expression); }
    QVariant evalIn(const QString &page, const QString &expression) const;
    QQuickItem *item(const QString &name) const;

    void click(const QString &name);
    // At a place of the item, for what stands in it without a name of its own.
    void click(const QString &name, const QPoint &place);
    // Held until the scene ends, so that the pressed face is in the picture.
    void press(const QString &name);
    void press(const QString &name, const QPoint &place);
    // Into a number or text field, without Return.
    void type(const QString &name, const QString &typed);

    void openList(const QString &combo);
    void openPopup(const QString &popup);
    void awaitOpened(const QString &popup) const;
    void awaitClosed(const QString &popup) const;
    // Lets the fold of a section come to its end.
    void awaitFold(const QQuickItem *section) const;
    // Scrolls a page to the given part of its way, 0 to 1, when what it holds has its height.
    void scrollTo(const QString &page, double part);

    // Fold mark and reset of a section, which stand at the same places on every page. A section out of sight is
    // scrolled to before it folds.
    void fold(const QString &section);
    void pressReset(const QString &section);

    // What moves for ever stands still: the mask's arrow at this opacity, and its spinner upright.
    void holdMask(double arrow);

    // What is wrong with the texts in it, and with its pictures on a screen of more than one dot a pixel.
    QStringList faults() const;

    // The whole window with its popups, once two grabs in a row are equal; null if it never comes to rest.
    QImage grab();

    PanelFacade facade;

private:
    void pressAt(const QPoint &place);
    // The window as it is now.
    QImage drawn() const;
    // Columns take their height with the next frame, and a fold goes on for some more.
    static void awaitLayout(const QQuickItem *view);
    static QPoint placeIn(QQuickItem *target, const QPoint &place);

    PanelHarness m_panel;
    QPoint m_held;
    bool m_holding = false;
};
