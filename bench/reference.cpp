// A window to hold the panel's start against: the document that the argument names, nothing else.
#include <QGuiApplication>
#include <QQmlApplicationEngine>

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QQmlApplicationEngine engine;
    engine.load(
        QUrl(QStringLiteral("qrc:/references/") + QString::fromLocal8Bit(argc > 1 ? argv[1] : "empty.qml")));
    return engine.rootObjects().isEmpty() ? 1 : QGuiApplication::exec();
}
