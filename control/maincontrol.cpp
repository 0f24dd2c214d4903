#include "control/maincontrol.h"

#include "control/networkfields.h"
#include "control/panelidentity.h"
#include "control/settingsfile.h"
#include "device/qkv720.h"

#include <QDebug>
#include <QThread>

bool didScan = false;
bool iniExist = false;
bool autoConnect = true;
uint lastMemory = 1;
QString mainCurrentLanguage;

namespace {

constexpr int kInputPage = 1;
constexpr int kInputPagePollMs = 1500;
constexpr int kOtherPagePollMs = 3000;
constexpr int kStartUpMs = 1500;
constexpr unsigned long kBetweenPollReadsMs = 50;

} // namespace

mainControl::mainControl(QObject *parent)
    : QObject(parent)
    , timerRefreshStatus(new QTimer(this))
    , timerStartUp(new QTimer(this))
    , initSettings(nullptr)
    , appVersion(QStringLiteral("%1.%2.%3").arg(MAJORVERSION).arg(MINORVERSION).arg(BUILDVERSION))
{
    connect(timerRefreshStatus, &QTimer::timeout, this, &mainControl::refreshStatus);
    timerRefreshStatus->setInterval(kInputPagePollMs);
    connect(timerStartUp, &QTimer::timeout, this, &mainControl::autoRun);
    timerStartUp->setInterval(kStartUpMs);

    didScan = false;
    readSettings();

    // Nobody listens yet; the document asks for the same data again by connectPopup.
    emitSavedConnection();

    qkv720Obj = new qkv720;
    connect(qkv720Obj, &qkv720::connectionBroken, this, &mainControl::warnningConnectionBroken);

    timerStartUp->setSingleShot(true);
    timerStartUp->start();
}

mainControl::~mainControl()
{
    // Both links are closed, whichever is in use.
    qkv720Obj->hlnpObj->swiTcpSocket->close();
    qkv720Obj->serialObj->closeSerialPort();
    delete qkv720Obj;
}

void mainControl::readSettings()
{
    // Without a parent and never deleted: it lives to the end of the process.
    initSettings = new QSettings(settingsFilePath(), QSettings::IniFormat);
    initSettings->sync();

    mainCurrentLanguage =
        SettingsGroup(*initSettings, QStringLiteral("setting")).value("language").toString();
    qDebug() << "MainControl init (Language):" << mainCurrentLanguage;

    {
        const SettingsGroup group(*initSettings, QStringLiteral("connection"));
        initInterface = group.value("interface", QStringLiteral("1")).toInt();
        initNetcard = group.value("netcard").toString();
        initSerialPort = group.value("serialport").toString();
        initDhcpMode = group.value("dhcpmode").toBool();
        for (const NetworkField &field : kNetworkFields)
            this->*field.saved = group.value(field.key).toString();
    }
    iniExist = !initIpaddr.isEmpty();
    qDebug() << "MainControl init (Read from QSettings):" << initInterface << initNetcard << initSerialPort
             << initDhcpMode << initIpaddr << initHostname << initMac << initGateway << initMask
             << initPrimDns << initSecDns;

    lastMemory = SettingsGroup(*initSettings, QStringLiteral("last_info")).value("memory", 1).toUInt();
    qDebug() << "MainControl init (Read from QSettings): Memory =" << lastMemory;
}

void mainControl::mainExit() { }

void mainControl::initObj()
{
    qDebug() << "initObj";
    // The former object stays alive: its sockets may still be in use by whoever made it.
    qkv720Obj = new qkv720;
}

void mainControl::doPreprocess()
{
    qkv720Obj->hlnpObj->hLNPpreScanProcess();
}

bool mainControl::isConnected() const
{
    return qkv720Obj->isConnected;
}

void mainControl::msecSleep(uint msec)
{
    QThread::msleep(msec);
}

void mainControl::setPollInterval()
{
    timerRefreshStatus->setInterval(currentPage == kInputPage ? kInputPagePollMs : kOtherPagePollMs);
}

void mainControl::startPollIfConnected()
{
    if (qkv720Obj->isConnected)
        timerRefreshStatus->start();
}

void mainControl::setCurrentPage(int id)
{
    timerRefreshStatus->stop();
    currentPage = id;
    setPollInterval();
    startPollIfConnected();
}

int mainControl::getCurrentPage() const
{
    return currentPage;
}

void mainControl::setRefreshTimer(bool start)
{
    // With or without a link: a tick that finds none warns and stops the poll.
    if (start)
        timerRefreshStatus->start();
    else
        timerRefreshStatus->stop();
}

void mainControl::refreshStatus()
{
    if (!qkv720Obj->isConnected) {
        timerRefreshStatus->stop();
        emit warning(tr("Disconnected"));
        return;
    }

    // getVOut restarts the poll, so the next tick counts from there and not from the end of this one.
    const video_out vv = getVOut();
    if (vv.std == std_auto::ERROR) {
        timerRefreshStatus->stop();
        qkv720Obj->isConnected = false;
        emit warning(tr("Disconnected"));
        return;
    }

    QThread::msleep(kBetweenPollReadsMs);
    emit showVout(static_cast<uint>(vv.res), static_cast<uint>(vv.colorspace), static_cast<uint>(vv.std));

    // Failure words are dropped here: the next tick's read of the output decides about the link.
    if (qkv720Obj->refreshVideoInRes(currentConnectMethod) != QLatin1String("OK"))
        return;
    tellInputResolution();
    tellGenlock();
    tellInputFreeze();
}
