#pragma once

#include "pageharness.h"

// The chromakey page under test, with a unit's values on it and whatever loading and those values left behind
// already heard.
class ChromaPanel : public PageHarness
{
public:
    explicit ChromaPanel(QObject *mainObject = nullptr)
        : PageHarness(QByteArrayLiteral("PageChromakey { id: page; anchors.fill: parent }"), mainObject)
    {
    }

    // Values of a unit, all different, so that none can stand in the place of another.
    void fill()
    {
        emit facade.refreshBKColorAdjust(QStringLiteral("#1fa24a"), 122, 639, 290, 140, 0.68, 0.38);
        emit facade.refreshCKAngle(21, 22);
        emit facade.refreshCKBWLevel(100, 900, true);
        emit facade.refreshCKDark(true, 210, 220, 30);
        emit facade.refreshCKBright(true, 310, 320, 40);
        emit facade.refreshCKShadow(true, 410);
        emit facade.refreshCKSpill(510, 520, 530, 540, false, 1, false, false);
        emit facade.refreshEdgeFix(true, 11, 12, 13);
        settle();
    }

    // Waits until the window of the throttle, if one is open, has closed and its command is out.
    void waitForThrottle()
    {
        QTest::qWait(20);
        while (flag(QStringLiteral("timerSliderCommand.running")))
            QTest::qWait(10);
        QTest::qWait(20);
    }

    // The same, and forgets what was called.
    void settle()
    {
        waitForThrottle();
        facade.forget();
        Messages::logs().clear();
    }

    // Scrolls until the item stands clear of both ends of the page.
    QQuickItem *seen(const QString &id)
    {
        QQuickItem *target = item(id);
        auto *view = eval(QStringLiteral("scrollContent.contentItem")).value<QQuickItem *>();
        const qreal y = target->mapToItem(view, QPointF(0, target->height() / 2)).y();
        if (y < 40 || y > view->height() - 40) {
            const qreal last = view->property("contentHeight").toReal() - view->height();
            view->setProperty("contentY", qBound(0.0, view->property("contentY").toReal() + y - 300, last));
            QTest::qWait(30);
        }
        return target;
    }

    // Takes the handle of a slider to where it shows about the value.
    void drag(const QString &slider, qreal value)
    {
        QQuickItem *target = seen(slider);
        press(handle(target, target->property("value").toReal()));
        move(handle(target, value));
        release(handle(target, value));
    }

    QPoint handle(QQuickItem *slider, qreal value) const
    {
        const qreal low = slider->property("minimumValue").toReal();
        const qreal span = slider->property("maximumValue").toReal() - low;
        return at(slider, 11 + (slider->width() - 22) * (value - low) / span, slider->height() / 2);
    }

    // Opens the picker over a picture of that code, and forgets what was called.
    bool openPicker(int videoOutRes)
    {
        facade.videoOutRes = videoOutRes;
        click(QStringLiteral("imgColorPen"));
        const bool opened =
            QTest::qWaitFor([this] { return flag(QStringLiteral("popupColorPicker.opened")); });
        QTest::qWait(30);
        facade.forget();
        return opened;
    }

    // From now on the button's death and return to life stand among the calls, in their place.
    void noteEnabled(const QString &id)
    {
        QQuickItem *button = item(id);
        QObject::connect(button, &QQuickItem::enabledChanged, button, [this, button] {
            facade.calls << (button->isEnabled() ? QStringLiteral("alive") : QStringLiteral("dead"));
            facade.times << facade.now();
        });
    }

    QStringList callsButPolls() const
    {
        QStringList rest;
        for (const QString &call : facade.calls) {
            if (!call.startsWith(QLatin1String("setRefreshTimer(")))
                rest << call;
        }
        return rest;
    }
};

// A row of the page: what its number field and its slider send with %1 in the place of the row's value.
struct ChromaRow
{
    const char *id;
    const char *title;
    int high;
    bool shown;
    const char *command;
    const char *getter;
};

inline QVector<ChromaRow> chromaRows()
{
    return {
        {"blackLevel", "Black Level:", 1000, true, "setCKBWLevel(%1, 900, true)", "getCKBWLevel()"},
        {"whiteLevel", "White Level:", 1000, true, "setCKBWLevel(100, %1, true)", "getCKBWLevel()"},
        {"darkLevel", "Dark Level:", 1000, true, "setCKDark(true, %1, 220, 30)", "getCKDark()"},
        {"darkDensity", "Dark Density:", 1000, false, "setCKDark(true, 210, %1, 30)", "getCKDark()"},
        {"darkBalance", "Dark Balance:", 100, false, "setCKDark(true, 210, 220, %1)", "getCKDark()"},
        {"brightLevel", "Bright Level:", 1000, true, "setCKBright(true, %1, 320, 40)", "getCKBright()"},
        {"brightDensity", "Bright Density:", 1000, false, "setCKBright(true, 310, %1, 40)", "getCKBright()"},
        {"brightBalance", "Bright Balance:", 100, false, "setCKBright(true, 310, 320, %1)", "getCKBright()"},
        {"shadow", "Shadow:", 1000, true, "setCKShadow(true, %1)", "getCKShadow()"},
        {"spillSuppression", "Spill Suppression:", 1000, true,
         "setCKSpillBright(%1, 520, 530, 540, 0, 1, false, false)", "getCKSpillBright()"},
        {"spillEnhance", "Spill Enhance:", 1000, false,
         "setCKSpillBright(510, %1, 530, 540, 0, 1, false, false)", "getCKSpillBright()"},
        {"spillBalance", "Spill Balance:", 1000, true,
         "setCKSpillBright(510, 520, %1, 540, 0, 1, false, false)", "getCKSpillBright()"},
        {"edgeBrightness", "Edge Brightness:", 1000, true,
         "setCKSpillBright(510, 520, 530, %1, 0, 1, false, false)", "getCKSpillBright()"},
        {"shrinkLeft", "Shrink Left", 50, true, "setEdgeFix(true, %1, 12, 13)", "getEdgeFix()"},
        {"shrinkRight", "Shrink Right", 50, true, "setEdgeFix(true, 11, %1, 13)", "getEdgeFix()"},
        {"softEdge", "Soft Edge", 100, true, "setEdgeFix(true, 11, 12, %1)", "getEdgeFix()"},
    };
}

// One entry of a table of rows: QFETCH(int, index).
inline void listChromaRows()
{
    QTest::addColumn<int>("index");
    const QVector<ChromaRow> rows = chromaRows();
    for (int i = 0; i < rows.size(); ++i)
        QTest::newRow(rows.at(i).id) << i;
}
