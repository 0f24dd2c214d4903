// Loaded into the real program by QT_QPA_GENERIC_PLUGINS=observer, before any of its own objects stands: tells on
// standard error what can't be seen from outside, and does what an operator or the system would do.
//
//     OBSERVER_STOP_AT   stops the process, as SIGSTOP from outside would, when a log line begins with this text
//     OBSERVER_CLOSE_AT  closes the window when a log line begins with this text
//
// Its own lines begin with "observer:".

#include <QApplication>
#include <QFont>
#include <QGenericPlugin>
#include <QIcon>
#include <QSplashScreen>
#include <QTimer>
#include <QWindow>

#include <csignal>
#include <cstdio>

namespace {

QtMessageHandler usual = nullptr;
QByteArray stopAt;
QByteArray closeAt;

void say(const QByteArray &text)
{
    std::fprintf(stderr, "observer:%s\n", text.constData());
}

QByteArray sizeText(QSize size)
{
    return QByteArray::number(size.width()) + 'x' + QByteArray::number(size.height());
}

void closeTheWindow()
{
    // What only stands in the running program: the icon as main set it, the family that stands for the one that the
    // documents name, and how long the toolkit lets a change wait.
    say("icon " + QByteArray::number(QApplication::windowIcon().availableSizes().size()));
    say("substitutes "
        + QFont::substitutes(QStringLiteral("Noto Sans CJK TC Regular")).join(QLatin1Char(',')).toUtf8());
    say("update wait " + qgetenv("QT_QPA_UPDATE_IDLE_TIME"));
    for (QWindow *window : QGuiApplication::topLevelWindows()) {
        if (window->isVisible() && window->parent() == nullptr)
            window->close();
    }
}

// The log goes on as it went.
void listen(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    usual(type, context, text);
    const QByteArray line = text.toUtf8();
    if (!stopAt.isEmpty() && line.startsWith(stopAt)) {
        stopAt.clear();
        std::raise(SIGSTOP);
    }
    if (!closeAt.isEmpty() && line.startsWith(closeAt)) {
        closeAt.clear();
        QTimer::singleShot(0, qApp, closeTheWindow);
    }
}

// Sees each object of interest come, by the first child that it is given or the first event that it gets, and tells
// when it goes.
class Watch : public QObject
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *splash = qobject_cast<const QSplashScreen *>(object);
        if (splash && event->type() == QEvent::Show)
            say("splash of " + sizeText(splash->pixmap().size()) + " on " + sizeText(splash->size()));
        const QByteArray role = roleOf(*object);
        if (!role.isEmpty() && !object->property("observed").toBool()) {
            object->setProperty("observed", true);
            say("made " + role);
            QObject::connect(object, &QObject::destroyed, [role] { say("destroyed " + role); });
        }
        return false;
    }

private:
    static QByteArray roleOf(const QObject &object)
    {
        const QByteArray name = object.metaObject()->className();
        if (name == "mainControl")
            return "facade";
        const auto *window = qobject_cast<const QWindow *>(&object);
        return window && window->title().startsWith(QLatin1String("QKV-720")) ? "window" : "";
    }
};

} // namespace

class ObserverPlugin : public QGenericPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "observer.json")

public:
    QObject *create(const QString &, const QString &) override
    {
        stopAt = qgetenv("OBSERVER_STOP_AT");
        closeAt = qgetenv("OBSERVER_CLOSE_AT");
        usual = qInstallMessageHandler(listen);
        auto *watch = new Watch;
        qApp->installEventFilter(watch);
        return watch;
    }
};

#include "observer.moc"
