// Linked into a program with a Qt Quick window, beside its own code, unchanged. Reports the first pictures, then
// carries out the script that the environment names: a list of steps, one after the other.
//
//   {"do": EXPRESSION}                       evaluated in the window's own context, as a handler in main.qml would be
//   {"wait": MS}
//   {"measure": LABEL, "ms": MS}             frames, turns of the event loop, processor time
//   {"drag": ITEM, "label": LABEL, "ms": MS} the same while a mouse moves to and fro over an item, pressed
//   {"quit": true}
//
// BENCH_T0: the moment of the start in milliseconds of the monotonic clock. BENCH_SCRIPT: the script itself.

#include "bench/processfigures.h"
#include "bench/report.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QJsonArray>
#include <QMouseEvent>
#include <QQmlContext>
#include <QQmlExpression>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>
#include <QtMath>

namespace {

constexpr int kMouseIntervalMs = 8; // 125 moves a second, a common mouse
constexpr double kDragPeriodMs = 2000; // once to and fro

double sinceStart()
{
    return bench::monotonicMs() - qEnvironmentVariable("BENCH_T0").toDouble();
}

class Probe : public QObject
{
public:
    explicit Probe(QObject *parent)
        : QObject(parent)
        , steps(QJsonDocument::fromJson(qgetenv("BENCH_SCRIPT")).array())
    {
        qApp->installEventFilter(this);
        connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock, this,
                [this] { ++turns; });
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::Paint && !splashSeen && object->inherits("QSplashScreen")) {
            splashSeen = true;
            bench::report({{"event", "splash"}, {"ms", sinceStart()}});
        } else if (event->type() == QEvent::Expose && !window) {
            window = qobject_cast<QQuickWindow *>(object);
            if (window)
                connect(window, &QQuickWindow::frameSwapped, this, &Probe::onFrame);
        }
        return false;
    }

private:
    void onFrame()
    {
        if (frames++ > 0)
            return;
        const double ms = sinceStart();
        const bench::ProcessFigures memory = bench::ProcessFigures::now();
        bench::report({{"event", "first"},
                       {"ms", ms},
                       {"cpuMs", bench::cpuMs()},
                       {"rssMb", memory.rssMb},
                       {"pssMb", memory.pssMb},
                       {"privateDirtyMb", memory.privateDirtyMb}});
        // Usable: what the start left in the queue is worked off, and a click would be answered.
        QTimer::singleShot(0, this, [this] {
            bench::report({{"event", "usable"}, {"ms", sinceStart()}});
            next();
        });
    }

    QVariant evaluate(const QString &text)
    {
        QQmlExpression expression(qmlContext(window), window, text);
        const QVariant value = expression.evaluate();
        if (expression.hasError()) {
            std::fprintf(stderr, "bench: %s\n", qPrintable(expression.error().toString()));
            QCoreApplication::exit(1);
        }
        return value;
    }

    void next()
    {
        if (at >= steps.size())
            return;
        const QJsonObject step = steps.at(at++).toObject();
        int ms = step.value(QLatin1String("wait")).toInt();
        if (step.contains(QLatin1String("do")))
            evaluate(step.value(QLatin1String("do")).toString());
        if (step.contains(QLatin1String("quit"))) {
            QCoreApplication::quit();
            return;
        }
        if (step.contains(QLatin1String("measure"))) {
            ms = step.value(QLatin1String("ms")).toInt();
            measure(step.value(QLatin1String("measure")).toString(), ms);
            return;
        }
        if (step.contains(QLatin1String("drag"))) {
            ms = step.value(QLatin1String("ms")).toInt();
            drag(step.value(QLatin1String("drag")).toString(), ms);
            measure(step.value(QLatin1String("label")).toString(), ms);
            return;
        }
        QTimer::singleShot(ms, this, [this] { next(); });
    }

    void measure(const QString &label, int ms)
    {
        const int framesBefore = frames;
        const int turnsBefore = turns;
        const double cpuBefore = bench::cpuMs();
        const double begin = bench::monotonicMs();
        QTimer::singleShot(ms, Qt::PreciseTimer, this, [=] {
            const double seconds = (bench::monotonicMs() - begin) / 1e3;
            bench::report({{"event", "measure"},
                           {"label", label},
                           {"seconds", seconds},
                           {"frames", frames - framesBefore},
                           // The turn that ends the measuring is not the panel's.
                           {"wakeups", qMax(0, turns - turnsBefore - 1)},
                           {"cpuPercent", (bench::cpuMs() - cpuBefore) / seconds / 10}});
            next();
        });
    }

    void send(QEvent::Type type, const QPointF &place, Qt::MouseButtons buttons)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QCoreApplication::postEvent(window,
                                    new QMouseEvent(type, place, place, window->mapToGlobal(place.toPoint()),
                                                    button, buttons, Qt::NoModifier));
    }

    void drag(const QString &name, int ms)
    {
        const auto *item = qobject_cast<QQuickItem *>(evaluate(name).value<QObject *>());
        if (!item) {
            std::fprintf(stderr, "bench: the screen has no item %s\n", qPrintable(name));
            QCoreApplication::exit(1);
            return;
        }
        const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
        const double begin = bench::monotonicMs();
        auto *mouse = new QTimer(this);
        mouse->setTimerType(Qt::PreciseTimer);
        send(QEvent::MouseButtonPress, {place.left() + 0.1 * place.width(), place.center().y()},
             Qt::LeftButton);
        connect(mouse, &QTimer::timeout, this, [=] {
            const double passed = bench::monotonicMs() - begin;
            const double share = 0.5 - 0.4 * qCos(2 * M_PI * passed / kDragPeriodMs);
            const QPointF point(place.left() + share * place.width(), place.center().y());
            if (passed < ms) {
                send(QEvent::MouseMove, point, Qt::LeftButton);
                return;
            }
            mouse->deleteLater();
            mouse->stop();
            bench::report({{"event", "lastMove"}, {"at", bench::monotonicMs()}});
            send(QEvent::MouseButtonRelease, point, Qt::NoButton);
        });
        mouse->start(kMouseIntervalMs);
    }

    const QJsonArray steps;
    int at = 0;
    QQuickWindow *window = nullptr;
    bool splashSeen = false;
    int frames = 0;
    int turns = 0;
};

void startProbe()
{
    new Probe(QCoreApplication::instance());
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(startProbe)
