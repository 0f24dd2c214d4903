#include "tests/qml/screenharness.h"

#include "shell/lettering.h"
#include "shell/operatoraids.h"

#include <QLoggingCategory>

namespace {

// As the program's own main prepares the toolkit: before the application object stands.
const bool kLetteringPrepared = (prepareLettering(), true);

} // namespace

ScreenHarness::ScreenHarness()
{
    Q_UNUSED(kLetteringPrepared)
    // As there, too.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
}

void ScreenHarness::publish(QQmlEngine &engine, QObject *facade)
{
    engine.rootContext()->setContextProperty(QStringLiteral("mainObject"), facade);
    engine.rootContext()->setContextProperty(QStringLiteral("qmlTranslator"), &translator);
}

bool ScreenHarness::show()
{
    giveOperatorAids(window);
    window->show();
    return QTest::qWaitForWindowExposed(window);
}

QVariant ScreenHarness::eval(const QString &expression) const
{
    QQuickItem *inside = itemOfDocument();
    QQmlExpression run(QQmlEngine::contextForObject(inside), inside, expression);
    const QVariant value = run.evaluate();
    if (run.hasError())
        qFatal("%s", qPrintable(run.error().toString()));
    return value;
}

QString ScreenHarness::color(const QString &expression) const
{
    return eval(expression).value<QColor>().name().toUpper();
}

QPoint ScreenHarness::at(QQuickItem *target, qreal x, qreal y) const
{
    return target->mapToScene(QPointF(x, y)).toPoint();
}

bool ScreenHarness::standsOpen(const QString &popup) const
{
    return QTest::qWaitFor([&] { return flag(popup + QStringLiteral(".opened")); });
}

bool ScreenHarness::standsClosed(const QString &popup) const
{
    return QTest::qWaitFor([&] { return !flag(popup + QStringLiteral(".visible")); });
}

bool ScreenHarness::rests(int ms) const
{
    constexpr int kTries = 20;
    QSignalSpy frames(window, &QQuickWindow::afterAnimating);
    for (int i = 0; i < kTries; ++i) {
        frames.clear();
        QTest::qWait(ms);
        if (frames.isEmpty())
            return true;
    }
    return false;
}

// Straight to the window, and without a turn of the event loop, as the test library would do: a timer of the panel that
// the gesture starts does not run out in it, however slow the machine.
void ScreenHarness::send(QEvent::Type type, const QPoint &place, Qt::MouseButton button,
                         Qt::MouseButtons held)
{
    QMouseEvent event(type, place, window->mapToGlobal(place), button, held, {});
    event.setTimestamp(static_cast<ulong>(++QTest::lastMouseTimestamp));
    QCoreApplication::sendEvent(window, &event);
    QCoreApplication::sendPostedEvents();
}

void ScreenHarness::press(const QPoint &place)
{
    send(QEvent::MouseMove, place, Qt::NoButton, Qt::NoButton);
    send(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
}

void ScreenHarness::move(const QPoint &place)
{
    send(QEvent::MouseMove, place, Qt::NoButton, Qt::LeftButton);
}

void ScreenHarness::release(const QPoint &place)
{
    send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
}

void ScreenHarness::clickAt(const QPoint &place)
{
    press(place);
    release(place);
}

void ScreenHarness::choose(const QString &combo, int row)
{
    const QString popup = combo + QStringLiteral(".popup");
    click(combo);
    if (!standsOpen(popup))
        qFatal("%s does not open", qPrintable(combo));
    QQuickItem *box = item(combo);
    QQuickItem *list = item(popup + QStringLiteral(".contentItem"));
    // The rows come with the first frame after the list opens.
    QTest::qWait(100);
    // What a turn of the wheel does.
    eval(popup + QStringLiteral(".contentItem.positionViewAtIndex(%1, 4)").arg(row));
    const qreal top = list->property("contentY").toReal();
    clickAt(at(list, list->width() / 2, (row + 0.5) * box->height() - top));
    if (!standsClosed(popup))
        qFatal("%s does not close on row %d, is on %d", qPrintable(combo), row,
               number(combo + QStringLiteral(".currentIndex")));
}

void ScreenHarness::typeInto(QQuickItem *field, const QString &typed, Qt::Key end)
{
    click(field);
    typeOver(typed, end);
}

void ScreenHarness::typeOver(const QString &typed, Qt::Key end)
{
    QTest::keySequence(window, QKeySequence::SelectAll);
    for (const QChar c : typed)
        QTest::keyClick(window, c.toLatin1());
    if (end != Qt::Key_unknown)
        QTest::keyClick(window, end);
}

QString ScreenHarness::pictureName(QString source)
{
    return source.remove(QStringLiteral("qrc:/img/pc/")).remove(QStringLiteral(".png"));
}

QImage ScreenHarness::drawn(QQuickItem *target, const QString &name)
{
    const QSharedPointer<QQuickItemGrabResult> result = target->grabToImage();
    QSignalSpy ready(result.data(), &QQuickItemGrabResult::ready);
    if (!ready.wait(5000))
        return {};
    const QString folder = qEnvironmentVariable("PICTURES_TO");
    if (!folder.isEmpty())
        result->image().save(folder + QLatin1Char('/') + name + QStringLiteral(".png"));
    return result->image();
}
