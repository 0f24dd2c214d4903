#include <QApplication>
#include <QDir>
#include <QIcon>
#include <QLocale>
#include <QLoggingCategory>
#include <QPixmap>
#include <QPixmapCache>
#include <QQmlApplicationEngine>
#include <QQmlContext>
#include <QQuickWindow>
#include <QSettings>
#include <QSplashScreen>
#include <QThread>
#include <QUrl>

#include <memory>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <unistd.h>
#endif

#include "control/maincontrol.h"
#include "control/settingsfile.h"
#include "device/qkv720commands.h"
#include "shell/displayguard.h"
#include "shell/framepace.h"
#include "shell/lettering.h"
#include "shell/logtext.h"
#include "shell/operatoraids.h"
#include "shell/qmltranslator.h"
#include "shell/settingscheck.h"
#include "shell/startheap.h"

namespace {

constexpr unsigned long kSettleAfterLoadMs = 100;

// Exit statuses beside 0 and -1; without a display it is DisplayGuard::kNoDisplay.
constexpr int kSettingsBlocked = 2;
constexpr int kNothingToDrawWith = 3;

// A still screen of flat pictures needs no GPU, and drawn in software it looks and costs the same on every machine,
// in a virtual one and over remote desktop. On X11 the splash alone, a widget window, would load GL and its driver.
// An operator who asks for another way of drawing in the environment gets it, and GL with it.
void drawInSoftware()
{
    const char *const backend =
        qEnvironmentVariableIsSet("QMLSCENE_DEVICE") ? "QMLSCENE_DEVICE" : "QT_QUICK_BACKEND";
    const bool asked = qEnvironmentVariableIsSet(backend);
    if (asked && qgetenv(backend) != "software")
        return;
    if (!asked)
        QQuickWindow::setSceneGraphBackend(QSGRendererInterface::Software);
    if (!qEnvironmentVariableIsSet("QT_XCB_GL_INTEGRATION"))
        qputenv("QT_XCB_GL_INTEGRATION", "none");
}

// A process that is started without standard streams would give their numbers to the first things that it opens, and
// the log would be written into these.
void holdStandardStreams()
{
#ifdef Q_OS_UNIX
    constexpr int kStandardError = 2;
    int descriptor = 0;
    while (descriptor >= 0 && descriptor <= kStandardError)
        descriptor = ::open("/dev/null", O_RDWR);
    if (descriptor > kStandardError)
        ::close(descriptor);
#endif
}

// What the toolkit needs to know before anything is built.
void prepareToolkit()
{
    prepareStartHeap();
    escapeLogLines();
    drawInSoftware();
    FramePace::prepare();
    // Handlers stand as "onFoo:" in Connections, the only form that 5.12 reads; later versions warn of each.
    QLoggingCategory::setFilterRules(QStringLiteral("qt.qml.connections=false"));
    // QIcon takes file names, not addresses: this makes a name with the scheme "qrc:" a file name of the
    // resource root. The QML engine's own addresses are untouched by it.
    QDir::setSearchPaths(QStringLiteral("qrc"), {QStringLiteral(":")});
    prepareLettering();
}

// The documents' pictures are looked up in twice their size where a screen wants it, a pixmap is not.
QPixmap launchPicture()
{
    return QPixmap(qApp->devicePixelRatio() > 1 ? QStringLiteral(":/img/pc/img_launch_image@2x.png")
                                                : QStringLiteral(":/img/pc/img_launch_image.png"));
}

void readyWindow(const QQmlApplicationEngine &engine)
{
    for (QObject *root : engine.rootObjects()) {
        auto *window = qobject_cast<QQuickWindow *>(root);
        if (!window)
            continue;
        giveOperatorAids(window);
        // The toolkit aborts when it cannot draw a window and nobody listens to that.
        QObject::connect(window, &QQuickWindow::sceneGraphError, qApp,
                         [](QQuickWindow::SceneGraphError /*error*/, const QString &message) {
                             qCritical().noquote() << "The panel cannot draw its window:" << message;
                             QCoreApplication::exit(kNothingToDrawWith);
                         });
    }
}

// The start over the serial link compares the saved port with the ports as the screen last asked for them. The screen
// asks when the operator chooses that link, since the answer takes a tenth of the whole start.
void listPortsForSerialStart(mainControl &control)
{
    if (control.initInterface == static_cast<int>(kSerialLink))
        control.getSerialNameList();
}

// The splash's picture would stay in the toolkit's cache, and what the load has freed in the process, for as long as
// the panel runs.
void giveBackTheStart()
{
    QPixmapCache::clear();
    settleStartHeap();
}

} // namespace

// The order of these steps matters: the facade stands before anything is on the screen, the language before
// the engine, both context properties before the document.
int main(int argc, char *argv[])
{
    holdStandardStreams();
    prepareToolkit();

    auto guard = std::make_unique<DisplayGuard>();
    QApplication app2(argc, argv);
    guard.reset();
    QApplication::setWindowIcon(QIcon(QStringLiteral("qrc:/img/qkv720.ico")));

    // Before the first settings object, which would wait for a foreign lock without end.
    if (!settingsCanBeUsed())
        return kSettingsBlocked;

    mainControl mainObj;

    auto *splash = new QSplashScreen;
    splash->setPixmap(launchPicture());
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
    // The engine would look beside every document and picture for one made for this platform and this language, in
    // folders that the panel does not have: a tenth of the start.
    engine.setUrlInterceptor(nullptr);
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
    readyWindow(engine);
    listPortsForSerialStart(mainObj);

    QThread::msleep(kSettleAfterLoadMs);

    // The language box wrote its first entry over the saved language while the document loaded; this puts the
    // saved one back. On a first run it is empty and moves nothing.
    emit mainObj.refreshLanguage(Tra);

    delete splash;
    giveBackTheStart();
    return QApplication::exec();
}
