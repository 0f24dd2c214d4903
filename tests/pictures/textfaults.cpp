#include "textfaults.h"

#include <QFontMetricsF>
#include <QQuickItem>
#include <QUrl>

#include <cmath>

namespace {

// Something on the screen, in the window's pixels, and the popup or page that it stands on.
struct Shown
{
    const QQuickItem *item;
    const QQuickItem *layer;
    QRectF box;
    QString text; // empty for grounds
};

struct Screen
{
    QVector<Shown> texts;
    QVector<Shown> grounds;
    QStringList faults;
};

constexpr qreal kRounding = 1; // letters stand on whole pixels, boxes need not

bool inherits(const QQuickItem *item, std::initializer_list<const char *> classes)
{
    return std::any_of(classes.begin(), classes.end(),
                       [item](const char *name) { return item->inherits(name); });
}

// The box of the letters themselves: a line is much higher than what stands in it.
QRectF lettersOf(const QQuickItem *text)
{
    const QString shown = text->property("text").toString();
    const QFontMetricsF metrics(text->property("font").value<QFont>());
    const qreal lines = qMax(1, text->property("lineCount").toInt());
    const qreal content = text->property("contentHeight").toReal();
    const qreal width = text->property("contentWidth").toReal();
    const int side = text->property("effectiveHorizontalAlignment").toInt();
    const qreal left = text->property("leftPadding").toReal();
    const qreal room = text->width() - left - text->property("rightPadding").toReal();
    const qreal x = side & Qt::AlignRight ? room - width : side & Qt::AlignHCenter ? (room - width) / 2 : 0;
    const qreal first = text->baselineOffset();
    const qreal step = lines > 1 ? content / lines : 0;
    const qreal above = metrics.tightBoundingRect(shown).top();
    const qreal below = metrics.tightBoundingRect(shown).bottom();
    return {left + x, first + (lines > 1 ? -metrics.capHeight() : above), width,
            lines > 1 ? metrics.capHeight() + step * (lines - 1) + metrics.descent() : below - above};
}

bool paints(const QQuickItem *item)
{
    if (inherits(item, {"QQuickRectangle"}))
        return item->property("color").value<QColor>().alpha() > 0;
    return inherits(item, {"QQuickImage", "QQuickBorderImage"})
        && !item->property("source").toUrl().isEmpty();
}

void gather(const QQuickItem *item, const QQuickItem *layer, QRectF clip, Screen *screen)
{
    if (!item->isVisible() || item->opacity() <= 0)
        return;
    const QRectF own = item->mapRectToScene({0, 0, item->width(), item->height()});
    if (item->clip())
        clip &= own;
    if (item->inherits("QQuickText") && !item->property("text").toString().isEmpty()) {
        const QString text = item->property("text").toString();
        const QRectF letters = item->mapRectToScene(lettersOf(item));
        // What is scrolled is cut at the top or below, and nothing at its sides.
        if (clip.contains(letters))
            screen->texts << Shown{item, layer, letters, text};
        else if (clip.top() <= letters.top() && letters.bottom() <= clip.bottom())
            screen->faults << QStringLiteral("'%1' is cut off").arg(text);
        if (item->property("truncated").toBool())
            screen->faults << QStringLiteral("'%1' is cut short").arg(text);
    } else if (item->inherits("QQuickTextInput")) {
        const qreal room =
            item->width() - item->property("leftPadding").toReal() - item->property("rightPadding").toReal();
        if (item->property("contentWidth").toReal() > room + kRounding)
            screen->faults
                << QStringLiteral("'%1' is longer than its field").arg(item->property("text").toString());
        screen->grounds << Shown{item, layer, own & clip, {}};
    } else if (paints(item) && !(own & clip).isEmpty()) {
        screen->grounds << Shown{item, layer, own & clip, {}};
    }
    const bool overlay = item->inherits("QQuickOverlay");
    for (const QQuickItem *child : item->childItems())
        gather(child, overlay ? child : layer, clip, screen);
}

QString placeText(const QRectF &box)
{
    const QRect place = box.toAlignedRect();
    return QStringLiteral("%1,%2 %3x%4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height());
}

void compareTexts(Screen *screen)
{
    for (int first = 0; first < screen->texts.size(); ++first) {
        for (int second = first + 1; second < screen->texts.size(); ++second) {
            const Shown &a = screen->texts.at(first);
            const Shown &b = screen->texts.at(second);
            const QRectF common = a.box & b.box;
            if (a.layer == b.layer && common.width() > kRounding && common.height() > kRounding)
                screen->faults
                    << QStringLiteral("'%1' lies over '%2' at %3").arg(a.text, b.text, placeText(common));
        }
    }
}

// A text stands on a ground or beside it.
void compareGrounds(Screen *screen)
{
    for (const Shown &text : qAsConst(screen->texts)) {
        for (const Shown &ground : qAsConst(screen->grounds)) {
            const QRectF common = text.box & ground.box;
            if (text.layer != ground.layer || common.width() <= kRounding || common.height() <= kRounding)
                continue;
            const QRectF whole = ground.box.adjusted(-kRounding, -kRounding, kRounding, kRounding);
            if (!whole.contains(text.box))
                screen->faults << QStringLiteral("'%1' at %2 crosses the edge of %3 at %4")
                                      .arg(text.text, placeText(text.box),
                                           QString::fromLatin1(ground.item->metaObject()->className()),
                                           placeText(ground.box));
        }
    }
}

void gatherSoft(const QQuickItem *item, qreal ratio, QStringList *soft)
{
    if (!item->isVisible() || item->opacity() <= 0)
        return;
    const QUrl source = item->property("source").toUrl();
    if (inherits(item, {"QQuickImage", "QQuickBorderImage"}) && !source.isEmpty()) {
        const QVariant painted = item->property("paintedWidth");
        const qreal width = painted.isValid() ? painted.toReal() : item->width();
        const qreal shown = item->mapRectToScene({0, 0, width, 1}).width() * ratio;
        const int dots = item->property("sourceSize").toSize().width();
        // The ground behind everything is one colour, and is loaded as one dot.
        // What is not smoothed, such as the ground of the pages with its equal columns, is not soft.
        if (dots > 1 && item->smooth() && dots + kRounding < shown)
            *soft << QStringLiteral("%1 has %2 dots for %3").arg(source.toString()).arg(dots).arg(shown);
    }
    for (const QQuickItem *child : item->childItems())
        gatherSoft(child, ratio, soft);
}

} // namespace

QStringList textFaults(const QQuickWindow &window)
{
    Screen screen;
    gather(window.contentItem(), window.contentItem(), QRectF({0, 0}, window.size()), &screen);
    compareTexts(&screen);
    compareGrounds(&screen);
    return screen.faults;
}

QStringList softPictures(const QQuickWindow &window)
{
    QStringList soft;
    gatherSoft(window.contentItem(), window.effectiveDevicePixelRatio(), &soft);
    return soft;
}
