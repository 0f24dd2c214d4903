#include "scene.h"

#include "textfaults.h"

#include <QGuiApplication>
#include <QQuickItemGrabResult>
#include <QScreen>
#include <QStyleHints>

namespace {

// Where fold mark and reset stand in the header of a section.
constexpr QPoint kFoldMark(27, 37);
constexpr QPoint kReset(1045, 37);

// A corner where nothing answers to the pointer.
constexpr QPoint kNowhere(1364, 766);

constexpr QSize kWindow(1366, 768);

constexpr int kGrabs = 100;
constexpr int kBetweenGrabsMs = 25; // longer than a frame, so that what moves shows as a difference

QQuickItem *firstResolving(QQuickItem *below, const QString &expression, QVariant *value)
{
    for (QQuickItem *child : below->childItems()) {
        if (QQmlContext *context = QQmlEngine::contextForObject(child)) {
            QQmlExpression run(context, child, expression);
            *value = run.evaluate();
            if (!run.hasError())
                return child;
        }
        if (QQuickItem *found = firstResolving(child, expression, value))
            return found;
    }
    return nullptr;
}

} // namespace

Scene::Scene(const QString &language)
    : m_panel(&facade)
{
    // A caret that never blinks.
    QGuiApplication::styleHints()->setCursorFlashTime(0);
    if (!m_panel.show())
        qFatal("the window does not show");
    // The platform without a display takes the first size that a window asks for as dots.
    m_panel.window->resize(kWindow);
    emit facade.refreshLanguage(language);
    awaitOpened(QStringLiteral("popupMask"));
}

Scene::~Scene()
{
    if (m_holding)
        QTest::mouseRelease(m_panel.window, Qt::LeftButton, {}, m_held);
}

void Scene::connectUnit()
{
    facade.report();
    emit facade.autoConnectResult(QStringLiteral("OK"));
    awaitClosed(QStringLiteral("popupMask"));
}

void Scene::showPage(int page)
{
    static const QStringList entries{"menuInput",       "menuChromakey",     "menuPostProcessor",
                                     "menuGarbageMask", "menuHoldoutWindow", "menuAuxLumakey"};
    connectUnit();
    click(entries.at(page - 1));
}

QVariant Scene::evalIn(const QString &page, const QString &expression) const
{
    QVariant value;
    if (!firstResolving(m_panel.item(page), expression, &value))
        qFatal("%s knows no %s", qPrintable(page), qPrintable(expression));
    return value;
}

QQuickItem *Scene::item(const QString &name) const
{
    const int dot = name.indexOf(QLatin1Char('.'));
    QVariant found = name.startsWith(QLatin1String("page")) && dot > 0
        ? evalIn(name.left(dot), name.mid(dot + 1))
        : m_panel.eval(name);
    auto *target = found.value<QQuickItem *>();
    if (!target)
        qFatal("%s is no item", qPrintable(name));
    return target;
}

QPoint Scene::placeIn(QQuickItem *target, const QPoint &place)
{
    return target->mapToScene(place).toPoint();
}

void Scene::click(const QString &name)
{
    m_panel.clickAt(m_panel.middle(item(name)));
}

void Scene::click(const QString &name, const QPoint &place)
{
    m_panel.clickAt(placeIn(item(name), place));
}

void Scene::press(const QString &name)
{
    pressAt(m_panel.middle(item(name)));
}

void Scene::press(const QString &name, const QPoint &place)
{
    pressAt(placeIn(item(name), place));
}

void Scene::pressAt(const QPoint &place)
{
    m_panel.pressAt(place);
    m_held = place;
    m_holding = true;
}

void Scene::type(const QString &name, const QString &typed)
{
    click(name);
    QTest::keySequence(m_panel.window, QKeySequence::SelectAll);
    for (const QChar c : typed)
        QTest::keyClick(m_panel.window, c.toLatin1());
}

void Scene::openList(const QString &combo)
{
    click(combo);
    const QQuickItem *box = item(combo);
    auto *popup = box->property("popup").value<QObject *>();
    if (!QTest::qWaitFor([&] { return popup->property("opened").toBool(); }))
        qFatal("%s does not open", qPrintable(combo));
}

void Scene::openPopup(const QString &popup)
{
    eval(popup + QStringLiteral(".open()"));
    awaitOpened(popup);
}

void Scene::awaitOpened(const QString &popup) const
{
    if (!m_panel.standsOpen(popup))
        qFatal("%s does not open", qPrintable(popup));
}

void Scene::awaitClosed(const QString &popup) const
{
    if (!m_panel.standsClosed(popup))
        qFatal("%s does not close", qPrintable(popup));
}

void Scene::awaitFold(const QQuickItem *section) const
{
    const auto *fold = section->property("foldAnimation").value<QObject *>();
    if (!fold || !QTest::qWaitFor([=] { return !fold->property("running").toBool(); }))
        qFatal("a section does not end its fold");
}

void Scene::awaitLayout(const QQuickItem *view)
{
    constexpr int kFramesAtRest = 4;
    qreal height = -1;
    for (int equal = 0, tries = 0; equal < kFramesAtRest; ++tries) {
        if (tries > kGrabs)
            qFatal("a page does not come to rest");
        QTest::qWait(20);
        const qreal now = view->property("contentHeight").toReal();
        equal = qFuzzyCompare(now, height) ? equal + 1 : 0;
        height = now;
    }
}

void Scene::scrollTo(const QString &page, double part)
{
    auto *view = evalIn(page, QStringLiteral("scrollContent.contentItem")).value<QQuickItem *>();
    awaitLayout(view);
    view->setProperty("contentY", part * (view->property("contentHeight").toReal() - view->height()));
}

void Scene::fold(const QString &section)
{
    QQuickItem *target = item(section);
    for (QQuickItem *view = target->parentItem(); view; view = view->parentItem()) {
        if (!view->inherits("QQuickFlickable"))
            continue;
        awaitLayout(view);
        const qreal top = view->property("contentY").toReal() + target->mapToItem(view, QPointF(0, 0)).y();
        const qreal last = view->property("contentHeight").toReal() - view->height();
        view->setProperty("contentY", qBound(0.0, top - kFoldMark.y(), qMax(0.0, last)));
    }
    click(section, kFoldMark);
    awaitFold(target);
}

void Scene::pressReset(const QString &section)
{
    press(section, kReset);
}

void Scene::holdMask(double arrow)
{
    for (const QString &name : {QStringLiteral("guideArrow"), QStringLiteral("maskbusy")}) {
        for (QObject *object : item(name)->findChildren<QObject *>()) {
            if (object->inherits("QQuickAbstractAnimation") && object->property("loops").toInt() < 0)
                object->setProperty("running", false);
        }
    }
    eval(QStringLiteral("maskBusyTimer.stop()"));
    item(QStringLiteral("guideArrow"))->setProperty("opacity", arrow);
    eval(QStringLiteral("maskbusy.contentItem.children[0].rotation = 0"));
}

QStringList Scene::faults() const
{
    QStringList all = textFaults(*m_panel.window);
    if (m_panel.window->effectiveDevicePixelRatio() > 1)
        all << softPictures(*m_panel.window);
    return all;
}

QImage Scene::drawn() const
{
    QQuickWindow &window = *m_panel.window;
    if (window.effectiveDevicePixelRatio() > 1) {
        // The platform without a display gives away only as many dots of its store as the window has pixels.
        const QSharedPointer<QQuickItemGrabResult> result =
            window.contentItem()->grabToImage(kWindow * window.effectiveDevicePixelRatio());
        QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
        if (!ready.wait())
            return {};
        return result->image().convertToFormat(QImage::Format_RGB32);
    }
    // What stands in the window's own store: drawn once, and in the dots of the screen.
    const QPixmap store =
        window.screen()->grabWindow(window.winId(), 0, 0, kWindow.width(), kWindow.height());
    return store.toImage().convertToFormat(QImage::Format_RGB32);
}

QImage Scene::grab()
{
    if (!m_holding)
        QTest::mouseMove(m_panel.window, kNowhere);
    QImage last;
    for (int i = 0; i < kGrabs; ++i) {
        QTest::qWait(kBetweenGrabsMs);
        const QImage image = drawn();
        if (image.isNull())
            return {};
        if (image == last)
            return image;
        last = image;
    }
    return {};
}
