#include "device/qkv720.h"

#include "discovery/hlnp.h"
#include "discovery/unitport.h"

#include <QDebug>
#include <QHostAddress>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

// Connecting, the lists of adapters, units and ports, and the accessors of the fields.

QString versionText(const ReplyBody &reply, int at)
{
    return QStringLiteral("%1.%2")
        .arg(reply.unsignedAt(at), 0, 16)
        .arg(reply.unsignedAt(at + 1), 2, 16, QLatin1Char('0'));
}

// The serial and the discovery object live to the end of the process. They have no parent and nobody deletes
// them: the facade closes their links when the program ends.
qkv720::qkv720(QObject *parent)
    : QObject(parent)
    , serialObj(new serialPort)
    , hlnpObj(new HLNP(nullptr))
    , timerCheckConnection(new QTimer(this))
{
    hlnpObj->hLNPpreScanProcess();
}

// ---- Connecting ------------------------------------------------------------------------------------------------

QString qkv720::connectDevice(uint method, QString select)
{
    serialObj->closeSerialPort();
    if (method == kNetworkLink) {
        targetIP = select;
        // No wait here: the socket holds the first frame, and the wait for its bytes to leave sees the
        // connection through.
        hlnpObj->swiTcpSocket->connectToHost(QHostAddress(select), kUnitPort);
    } else if (method == kSerialLink) {
        QString opened = serialObj->openSerialPort(select);
        if (opened != QLatin1String("OK"))
            return opened;
    } else {
        return QStringLiteral("NOT OK");
    }

    QString greeted = greetUnit(method);
    if (greeted != QLatin1String("OK"))
        return greeted;
    isConnected = true;
    // When the first status fails the flag stays up all the same: the caller acts on the words.
    return refreshStatus(method);
}

QString qkv720::greetUnit(uint method)
{
    // The bounds differ by more than the two leading bytes: a short serial version reply passes, and the
    // versions are then read from positions that it doesn't hold.
    const int shortestVersion = method == kNetworkLink ? 10 : 4;
    const auto version = exchangeOfAnyLength(method, {QKV720_GET_VERSION});
    if (!version || version->size() < shortestVersion)
        return tr("Get Version failed. \nDevice may be disconnected.");
    takeVersions(*version);

    // Any type will do: a unit of another type connects just as well.
    if (!exchangeOfAnyLength(method, {QKV720_GET_DEVICETYPE}))
        return tr("Get Version failed. \nDevice may be disconnected.");
    return QStringLiteral("OK");
}

void qkv720::takeVersions(const ReplyBody &reply)
{
    FWVersion = versionText(reply, 3);
    FPGAVersion = versionText(reply, 5);
    BLVersion = versionText(reply, 7);
}

uint qkv720::disconnectDevice(uint method)
{
    if (method == kNetworkLink)
        hlnpObj->swiTcpSocket->close();
    else if (method == kSerialLink)
        serialObj->closeSerialPort();
    isConnected = false;
    return 0;
}

bool qkv720::checkConnection()
{
    if (!isConnected)
        return false;
    QTcpSocket *socket = hlnpObj->swiTcpSocket;
    if (socket->state() == QTcpSocket::UnconnectedState)
        socket->connectToHost(QHostAddress(targetIP), kUnitPort);
    if (socket->state() == QTcpSocket::UnconnectedState) {
        qDebug() << "(checkConnection)Socket State:" << socket->state();
        loseLink();
        return false;
    }
    return true;
}

void qkv720::loseLink()
{
    isConnected = false;
    emit connectionBroken();
}

// ---- Discovery and lists ---------------------------------------------------------------------------------------

uint qkv720::HLNPScan(QString cmd, int netcardIndex)
{
    constexpr int kLooks = 500;
    constexpr unsigned long kLookMs = 100;
    hlnpObj->scanSlot(cmd, netcardIndex);
    qDebug() << "HLNP Scan!" << cmd << netcardIndex;
    QThread::msleep(kLookMs);
    // Nothing can set the flag while this thread sleeps: a scan that ended with replies still queued costs
    // the whole 50 s. docs/oddities.md tells why it stays.
    for (int look = 0; look < kLooks && !hlnpObj->scanDone; ++look)
        QThread::msleep(kLookMs);
    return hlnpObj->scanDone ? 1 : 0;
}

int qkv720::HLNPGetModel()
{
    constexpr unsigned long kBetweenDevicesMs = 100;
    // The count is read anew each time: a late answer may add a row while a model is being asked for.
    for (int i = 0; i < hlnpObj->deviceCount; ++i) {
        hlnpObj->getModel(hlnpObj->allHlnpDevice[i].zcm.hlnpnetwork.ipadd);
        QThread::msleep(kBetweenDevicesMs);
    }
    return 0;
}

int qkv720::HLNPDoScanDone()
{
    emit hlnpObj->zcmScanDone();
    return 0;
}

QStringList qkv720::getHLNPNetcardList()
{
    return hlnpObj->netcardModels();
}

QStringList qkv720::getHLNPDeviceList()
{
    return hlnpObj->qkvDeviceList();
}

QStringList qkv720::getSerialInfoList()
{
    return serialObj->getSerialInfoList();
}

// ---- Accessors -------------------------------------------------------------------------------------------------

const input *qkv720::inputOf(uint target) const
{
    const input *const inputs[] = {&inputFG, &inputBG, &inputAUX, &inputSYNC};
    return target >= 1 && target <= 4 ? inputs[target - 1] : nullptr;
}

const output *qkv720::outputOf(uint target) const
{
    const output *const outputs[] = {&PGM, &PVW, &PGM_HDMI, &PVW_HDMI};
    return target >= 1 && target <= 4 ? outputs[target - 1] : nullptr;
}

uint qkv720::getInputRes(uint target) const
{
    const input *const record = inputOf(target);
    return record ? static_cast<uint>(record->res) : 0;
}

uint qkv720::getInputSource(uint target) const
{
    constexpr uint kSync = 4;
    const input *const record = inputOf(target);
    return record && target != kSync ? static_cast<uint>(record->source) : 0;
}

int qkv720::getInputFreeze(uint target) const
{
    const input *const record = inputOf(target);
    return record ? record->freeze : 0;
}

uint qkv720::getOutSource(uint target) const
{
    const output *const record = outputOf(target);
    return record ? static_cast<uint>(record->source) : 0;
}

bool qkv720::getOutLock(uint target) const
{
    const output *const record = outputOf(target);
    return record && record->lock;
}

bool qkv720::getOutMirror(uint target) const
{
    const output *const record = outputOf(target);
    return record && record->mirror;
}
