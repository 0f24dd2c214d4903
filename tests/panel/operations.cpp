#include "operations.h"

#include <algorithm>

namespace {

constexpr int kThrottleMs = 50;
constexpr int kFoldMs = 250;
constexpr int kMaxStops = 400;

const char *const kPopups[] = {
    "popupConnect",           "popupSetup",   "popupFactoryDefault", "popupSetupSaveFinished",
    "popupSetupFactoryReset", "popupWarning", "popupDisConnect"};

void collect(QQuickItem *below, QVector<QQuickItem *> *found)
{
    if (!below->isVisible() || !below->isEnabled())
        return;
    const bool whole =
        below->inherits("QQuickAbstractButton") || isField(below) || isList(below) || isSlider(below);
    if (whole || below->inherits("QQuickMouseArea"))
        *found << below;
    // What a control is made of is not for the operator.
    if (whole)
        return;
    for (QQuickItem *child : below->childItems())
        collect(child, found);
}

QQuickItem *lineOf(QQuickItem *below, const QColor &color)
{
    if (!below->isVisible())
        return nullptr;
    const QVariant border = below->property("border");
    if (border.isValid() && below->property("color").value<QColor>().alpha() == 0
        && border.value<QObject *>()->property("color").value<QColor>() == color)
        return below;
    for (QQuickItem *child : below->childItems()) {
        if (QQuickItem *found = lineOf(child, color))
            return found;
    }
    return nullptr;
}

} // namespace

bool isField(const QQuickItem *item)
{
    return item->inherits("QQuickTextInput");
}

bool isList(const QQuickItem *item)
{
    return item->inherits("QQuickComboBox");
}

bool isSlider(const QQuickItem *item)
{
    return item->property("minimumValue").isValid();
}

QVector<Place> places()
{
    return {
        {"start", 0, "", "recHeader"},
        {"window", 1, "", "recHeader.parent"},
        {"chromakey", 2, "", "pageCK"},
        {"post processor", 3, "", "pagePP"},
        {"garbage mask", 4, "", "pageGM"},
        {"holdout mask", 5, "", "pageHW"},
        {"aux lumakey", 6, "", "pageAL"},
        {"connect", 0, "popupConnect.open()", "popupConnect.contentItem"},
        {"setup", 1, "popupSetup.open()", "popupSetup.contentItem"},
        {"factory default", 1, "popupSetup.open(); popupFactoryDefault.open()",
         "popupFactoryDefault.contentItem"},
        {"saved", 1, "popupSetup.open(); popupSetupSaveFinished.open()",
         "popupSetupSaveFinished.contentItem"},
        {"warning", 1, "popupWarning.open()", "popupWarning.contentItem"},
        {"picker", 2, "pageCK.imgColorPen.clicked()", "pageCK.colorPickerMouseAreaItem.parent"},
    };
}

void listPlaces(int from, int to)
{
    QTest::addColumn<int>("index");
    const QVector<Place> all = places();
    for (int i = from; i < (to < 0 ? all.size() : to); ++i)
        QTest::newRow(all.at(i).name) << i;
}

Workplace::Workplace()
    : panel(&facade)
{
    if (!panel.show() || !panel.standsOpen(QStringLiteral("popupMask")))
        qFatal("the window does not start");
    facade.units = facade.unitsAfterScan;
    emit facade.refreshIPSelectList(facade.units);
    for (QObject *object : panel.window->findChildren<QObject *>()) {
        if (object->inherits("QQmlTimer") && object->property("interval").toInt() == kThrottleMs)
            m_throttles << object;
        if (object->inherits("QQuickPopup"))
            m_popups << object;
    }
    if (m_throttles.size() != 6)
        qFatal("%d pages send by a throttle", int(m_throttles.size()));
    // The first two moves of the source are nobody's.
    panel.eval(QStringLiteral("pageIN.ignoreGenHRefresh = false; pageIN.ignoreGenVRefresh = false"));
}

void Workplace::unfoldAll()
{
    const QString folded = QStringLiteral(
        "pageCK.sections.concat(pagePP.sections, [pageIN.pageInput_ContentHeaderGenlock.parent])"
        ".filter(function(section) { return section.folded })");
    const QString unfold = QStringLiteral(".map(function(section) { section.foldButton.clicked() }).length");
    if (panel.number(folded + unfold) > 0)
        QTest::qWait(kFoldMs);
}

void Workplace::closeAll()
{
    if (panel.item(QStringLiteral("pageCK.colorPickerMouseAreaItem"))->isVisible())
        panel.eval(QStringLiteral("pageCK.imgColorPickerClose.clicked()"));
    for (const char *popup : kPopups)
        panel.eval(QString::fromLatin1(popup) + QStringLiteral(".close()"));
    panel.eval(QStringLiteral("notifyTimer.stop()"));
    // They fade out, and hold the pointer and the keyboard as long as they are seen.
    for (const char *popup : kPopups) {
        if (!panel.standsClosed(QString::fromLatin1(popup)))
            qFatal("%s does not close", popup);
    }
    const QQuickItem *pad = panel.item(QStringLiteral("pageCK.colorPickerMouseAreaItem"));
    if (!QTest::qWaitFor([pad] { return !pad->isVisible(); }))
        qFatal("the picker does not close");
}

// Popups fade in, and take the keyboard when they stand.
bool Workplace::standsStill(const Place &place) const
{
    const auto moves = [](const QObject *popup) {
        return popup->property("visible").toBool() != popup->property("opened").toBool();
    };
    return std::none_of(m_popups.cbegin(), m_popups.cend(), moves)
        && panel.flag(QStringLiteral("popupMask.visible")) == (place.page == 0);
}

void Workplace::enter(const Place &place)
{
    closeAll();
    unfoldAll();
    facade.connected = place.page > 0;
    if (place.page > 0) {
        emit facade.autoConnectResult(QStringLiteral("OK"));
        panel.eval(QStringLiteral("selectPage(%1)").arg(place.page));
        facade.report();
    } else {
        panel.eval(QStringLiteral("popupMask.open(); recHeader.enableSetup(false)"));
    }
    // What is the panel's own and reported by nobody.
    panel.eval(QStringLiteral("memoryLock = false; didScan = true; comboConnectInterface.currentIndex = 0; "
                              "comboIPSelect.currentIndex = 0; pageCK.tempX = 0; pageCK.tempY = 0; "
                              "pageCK.colorPickerX = 0; pageCK.colorPickerY = 0; "

                              "comboPgmSdiOutput.forceActiveFocus(); recHeader.parent.forceActiveFocus()"));
    emit facade.refreshConnectionData(999, QStringLiteral("na"), false, QStringLiteral("QKV_720_A"),
                                      QStringLiteral("192.168.72.128"), QStringLiteral("00:1E:C0:5A:07:20"),
                                      QStringLiteral("192.168.72.254"), QStringLiteral("255.255.255.0"),
                                      QStringLiteral("192.168.72.1"), QStringLiteral("8.8.8.8"));
    panel.eval(QString::fromLatin1(place.popup));
    if (place.page == 0 && *place.popup == '\0')
        panel.eval(QStringLiteral("popupMask.forceActiveFocus()"));
    if (!QTest::qWaitFor([&] { return root(place)->isVisible() && standsStill(place); }))
        qFatal("%s does not show", place.name);
    // The pages send what the report has moved.
    QTest::qWait(*place.popup ? 300 : 0);
    calls();
    facade.forget();
}

void Workplace::enter(const char *name)
{
    for (const Place &place : places()) {
        if (qstrcmp(place.name, name) == 0)
            return enter(place);
    }
    qFatal("no place %s", name);
}

QRect Workplace::placeOf(const QQuickItem *item)
{
    return item->mapRectToScene(QRectF(0, 0, item->width(), item->height())).toRect();
}

QStringList Workplace::calls()
{
    const auto pending = [this] {
        return std::any_of(m_throttles.cbegin(), m_throttles.cend(),
                           [](const QObject *timer) { return timer->property("running").toBool(); });
    };
    QTest::qWait(1);
    while (pending())
        QTest::qWait(5);
    QStringList sent;
    for (const QString &call : facade.calls) {
        if (!call.startsWith(QLatin1String("setRefreshTimer(")))
            sent << call;
    }
    return sent;
}

QVector<QQuickItem *> Workplace::controls(const Place &place) const
{
    QVector<QQuickItem *> found;
    collect(root(place), &found);
    return found;
}

QVector<QQuickItem *> Workplace::stops()
{
    QVector<QQuickItem *> found;
    for (int i = 0; i < kMaxStops; ++i) {
        key(Qt::Key_Tab);
        QQuickItem *item = focused();
        if (!item || found.contains(item))
            return found;
        found << item;
    }
    qFatal("the Tab key finds no end");
    return found;
}

QQuickItem *Workplace::stopOf(QQuickItem *control)
{
    QQuickItem *item = control;
    while (item && !item->activeFocusOnTab())
        item = item->parentItem();
    return item;
}

QString Workplace::nameOf(QQuickItem *item)
{
    if (!item)
        return QStringLiteral("nothing");
    QString name;
    for (QQuickItem *above = item; above && name.size() < 60; above = above->parentItem()) {
        const QQmlContext *context = QQmlEngine::contextForObject(above);
        const QString id = context ? context->nameForObject(above) : QString();
        if (!id.isEmpty())
            name = name.isEmpty() ? id : id + QLatin1Char('/') + name;
    }
    return QStringLiteral("%1 (%2)").arg(name, QString::fromLatin1(item->metaObject()->className()));
}

QQuickItem *Workplace::line(const char *color) const
{
    return lineOf(panel.window->contentItem(), QColor(QString::fromLatin1(color)));
}
