#include <QApplication>
#include <QDir>
#include <QFont>
#include <QIcon>
#include <QLocale>
#include <QLoggingCategory>
#include <QPixmap>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QSettings>
#include <QSplashScreen>
#include <QThread>
#include <QUrl>

#include "control/maincontrol.h"
#include "control/settingsfile.h"
#include "shell/qmltranslator.h"

namespace {

constexpr unsigned long kSettleAfterLoadMs = 100;

// What the toolkit needs to know before anything is built.
void prepareToolkit()
{
    // Handlers stand as "onFoo:" in Connections, the only form that 5.12 reads; later versions warn of each.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
    // QIcon takes file names, not addresses: this makes a name with the scheme "qrc:" a file name of the
    // resource root. The QML engine's own addresses are untouched by it.
    QDir::setSearchPaths(QStringLiteral("qrc"), {QStringLiteral(":")});
    // The family that the documents name is no family to the toolkit; without this, Chinese falls to a face
    // whose digits are too wide.
    QFont::insertSubstitution(QStringLiteral("Noto Sans CJK TC Regular"), QStringLiteral("Noto Sans CJK TC"));
}

} // namespace

// The order of these steps matters: the facade stands before anything is on the screen, the language before
// the engine, both context properties before the document.
int main(int argc, char *argv[])
{
    prepareToolkit();

    QApplication app2(argc, argv);
    QApplication::setWindowIcon(QIcon(QStringLiteral("qrc:/img/qkv720.ico")));

    mainControl mainObj;

    auto *splash = new QSplashScreen;
    splash->setPixmap(QPixmap(QStringLiteral(":/img/pc/img_launch_image.png")));
    splash->show();

    QmlTranslator qmlTranslator;

    // This handle only reads; its group stays open to the end.
    QSettings wSettings(settingsFilePath(), QSettings::IniFormat);
    wSettings.sync();
    wSettings.beginGroup(QStringLiteral("setting"));
    const QString Tra = wSettings.value(QStringLiteral("language")).toString();
    if (Tra == QLatin1String(""))
        qmlTranslator.setTranslation(QLocale::system().name());
    else
        qmlTranslator.setTranslation(Tra);

    QQmlApplicationEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("mainObject"), &mainObj);
    engine.rootContext()->setContextProperty(QStringLiteral("qmlTranslator"), &qmlTranslator);

    const QUrl url(QStringLiteral("qrc:/main.qml"));
    QObject::connect(
        &engine, &QQmlApplicationEngine::objectCreated, &app2,
        [url](QObject *obj, const QUrl &objUrl) {
            if (!obj && url == objUrl)
                QCoreApplication::exit(-1);
        },
        Qt::QueuedConnection);
    engine.load(url);

    QThread::msleep(kSettleAfterLoadMs);

    // The language box wrote its first entry over the saved language while the document loaded; this puts the
    // saved one back. On a first run it is empty and moves nothing.
    emit mainObj.refreshLanguage(Tra);

    delete splash;
    return QApplication::exec();
}
