// qkv720-where EXPRESSION...: prints where the items of the screen stand, one line each: left, top, width, height in
// pixels of the window. An expression is what a handler in main.qml would write: a name, or names with dots between.
// One that names nothing is done instead and prints no line, such as "popupConnect.open()": what stands in a popup
// has its place only while that is open. For scripts and tests that work the panel with a virtual mouse. Loads the
// real document and talks to nothing.

#include "control/maincontrol.h"
#include "shell/qmltranslator.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQmlExpression>
#include <QQuickItem>
#include <QTemporaryDir>

#include <cstdio>

namespace {

constexpr int kNotFound = 1;
constexpr int kNoDocument = 2;
constexpr int kSettleMs = 300;

// Positioners place their children when the window is polished, and popups take their time to open.
void settle()
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < kSettleMs)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
}

bool print(QObject *window, const char *name)
{
    QQmlExpression expression(qmlContext(window), window, QString::fromUtf8(name));
    const QVariant value = expression.evaluate();
    if (!value.isValid() && !expression.hasError()) {
        settle();
        return true;
    }
    const auto *item = qobject_cast<QQuickItem *>(value.value<QObject *>());
    if (!item) {
        std::fprintf(stderr, "qkv720-where: the screen has no item %s\n", name);
        return false;
    }
    const QRectF place = item->mapRectToScene(QRectF(0, 0, item->width(), item->height()));
    std::printf("%d %d %d %d\n", qRound(place.x()), qRound(place.y()), qRound(place.width()),
                qRound(place.height()));
    return true;
}

} // namespace

int main(int argc, char *argv[])
{
    // The facade writes a settings file two folders up from the working folder; it shall write into this one.
    QTemporaryDir folder;
    if (!folder.isValid() || !QDir(folder.path()).mkpath(QStringLiteral("run/here"))
        || !QDir::setCurrent(folder.filePath(QStringLiteral("run/here"))))
        return kNoDocument;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_QUICK_BACKEND", "software");
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});

    QApplication application(argc, argv);
    mainControl facade;
    QmlTranslator translator;
    translator.setTranslation(QStringLiteral("en_US"));
    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("mainObject"), &facade);
    engine.rootContext()->setContextProperty(QStringLiteral("qmlTranslator"), &translator);
    engine.load(QUrl(QStringLiteral("qrc:/main.qml")));
    if (engine.rootObjects().isEmpty())
        return kNoDocument;
    settle();

    bool all = true;
    for (int i = 1; i < argc; ++i)
        all = print(engine.rootObjects().constFirst(), argv[i]) && all;
    return all ? 0 : kNotFound;
}
