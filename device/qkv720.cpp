#include "device/qkv720.h"

#include "discovery/hlnp.h"

#include <QDebug>
#include <QHostAddress>
#include <QTcpSocket>
#include <QThread>
#include <QTimer>

#include <memory>

namespace {
constexpr quint16 kUnitPort = 5002;
constexpr int kSocketWaitMs = 1000;
constexpr int kShortestReply = 4;
constexpr int kBadChecksum = -24;

// How long the unit is given before its reply is read. A row tests one byte of the frame, counted from its end:
// not 0 gives the row's time, 0 the link's default. The first row whose command matches decides, even when its
// test fails.
//
// The checksum, not the payload, decides in all rows but the first: a frame whose sum happens to be 0 gets the
// short wait. And on the serial link input and cursor commands wait less than any other command. Both are
// what the unit was tuned with.
struct ReplyWait
{
    int command;
    int testedFromEnd;
    unsigned long networkMs;
    unsigned long serialMs;
};
constexpr int kChecksum = 1;
constexpr int kLastPayloadByte = 2;
constexpr unsigned long kNetworkDefaultMs = 50;
constexpr unsigned long kSerialDefaultMs = 150;
constexpr ReplyWait kReplyWaits[] = {
    {QKV720_SET_CK_BACKCOLOR_AUTOCK, kLastPayloadByte, 2000, 2000},
    {QKV720_SET_VIDEOOUT_RESOLUTION, kChecksum, 2000, 2000},
    {QKV720_SET_FGBGAUX_INPUTSOURCE, kChecksum, 100, 100},
    {QKV720_SET_CURSORPOSITION, kChecksum, 50, 100},
};

unsigned long replyWaitMs(const QByteArray &frame, uint method)
{
    const bool network = method == kNetworkLink;
    const int commandOffset = network ? 4 : 2;
    const unsigned long defaultMs = network ? kNetworkDefaultMs : kSerialDefaultMs;
    if (frame.size() <= commandOffset)
        return defaultMs;

    const int command = static_cast<uchar>(frame.at(commandOffset));
    for (const ReplyWait &wait : kReplyWaits) {
        if (wait.command != command)
            continue;
        if (frame.at(frame.size() - wait.testedFromEnd) == 0)
            return defaultMs;
        return network ? wait.networkMs : wait.serialMs;
    }
    return defaultMs;
}

// Failures are AAA to DDD by their number, success is EEE.
void logAttempt(const char *text, int result, size_t tries)
{
    const char *const failures[] = {"AAA:", "BBB:", "CCC:", "DDD:"};
    qDebug() << text << (result > 0 ? "EEE:" : failures[qMin<size_t>(tries, 3)]) << result;
}

// Major in hexadecimal without a leading zero, minor in two digits: 02 23 is 2.23, 10 2A is 10.2a.
QString versionText(const ReplyBody &reply, int at)
{
    return QStringLiteral("%1.%2")
        .arg(reply.unsignedAt(at), 0, 16)
        .arg(reply.unsignedAt(at + 1), 2, 16, QLatin1Char('0'));
}
} // namespace

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

// The signature is given: the text is taken by value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
QString qkv720::connectDevice(uint method, QString select)
{
    serialObj->closeSerialPort();
    if (method == kNetworkLink) {
        targetIP = select;
        // No wait here: the socket holds the first frame, and the wait for its bytes to leave sees the connection
        // through.
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
    // The bounds differ by more than the two leading bytes: a short serial version reply passes, and the versions
    // are then read from positions that it doesn't hold.
    const int shortestVersion = method == kNetworkLink ? 10 : 4;
    const auto version = attempt(method, QKV720_GET_VERSION, Payload(), kOrdinary, kStandardLadder);
    if (!version || version->size() < shortestVersion)
        return tr("Get Version failed. \nDevice may be disconnected.");
    takeVersions(*version, 3);

    // Any type will do: a unit of another type connects just as well.
    if (!attempt(method, QKV720_GET_DEVICETYPE, Payload(), kOrdinary, kStandardLadder))
        return tr("Get Version failed. \nDevice may be disconnected.");
    return QStringLiteral("OK");
}

void qkv720::takeVersions(const ReplyBody &reply, int at)
{
    FWVersion = versionText(reply, at);
    FPGAVersion = versionText(reply, at + 2);
    BLVersion = versionText(reply, at + 4);
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

// ---- Exchanges -------------------------------------------------------------------------------------------------

bool qkv720::linkReady(uint method)
{
    if (method == kNetworkLink)
        return checkConnection();
    return method == kSerialLink;
}

std::optional<ReplyBody> qkv720::exchange(uint method, int command, const Payload &payload, FrameExt ext)
{
    if (!linkReady(method))
        return std::nullopt;
    return converse(method, command, payload, ext, kStandardLadder);
}

std::optional<ReplyBody> qkv720::converse(uint method, int command, const Payload &payload, FrameExt ext,
                                          const RetryLadder &ladder)
{
    auto reply = attempt(method, command, payload, ext, ladder);
    if (reply && method == kSerialLink && reply->size() <= 2)
        return std::nullopt;
    return reply;
}

std::optional<ReplyBody> qkv720::attempt(uint method, int command, const Payload &payload, FrameExt ext,
                                         const RetryLadder &ladder, const char *resultLog)
{
    if (method != kNetworkLink && method != kSerialLink)
        return std::nullopt;

    QByteArray data = payload.bytes();
    const std::unique_ptr<QByteArray> frame(
        qkv720_DeviceControl(command, ext, static_cast<int>(method), data.size(), &data));
    QByteArray received;
    for (size_t tries = 0;; ++tries) {
        const int result =
            method == kNetworkLink ? hlnpIO(frame.get(), &received) : serialIO(frame.get(), &received);
        if (resultLog)
            logAttempt(resultLog, result, tries);
        if (result > 0)
            break;
        if (tries == ladder.retries)
            return std::nullopt;
        QThread::msleep(ladder.sleepsMs.at(tries));
        received.clear();
    }
    return ReplyBody(method == kNetworkLink ? received.mid(2) : received);
}

int qkv720::hlnpIO(QByteArray *writebuff, QByteArray *readbuff)
{
    constexpr int kWrites = 3;
    QTcpSocket *socket = hlnpObj->swiTcpSocket;
    qint64 written = 0;
    for (int i = 0; i < kWrites && written <= 0; ++i)
        written = socket->write(*writebuff);
    if (written <= 0) {
        loseLink();
        return static_cast<int>(written);
    }
    socket->waitForBytesWritten(kSocketWaitMs);
    QThread::msleep(replyWaitMs(*writebuff, kNetworkLink));
    socket->waitForReadyRead(kSocketWaitMs);
    // What has arrived by now is the reply: the parts of a split one are not assembled.
    *readbuff = socket->readAll();
    if (readbuff->size() < kShortestReply) {
        loseLink();
        return -1;
    }
    return static_cast<int>(written);
}

int qkv720::serialIO(QByteArray *writebuff, QByteArray *readbuff)
{
    if (writebuff->size() < kShortestReply)
        return -1;
    const qint64 written = writeSerial(*writebuff);
    if (written <= 0)
        return static_cast<int>(written);
    QThread::msleep(replyWaitMs(*writebuff, kSerialLink));
    serialObj->readData(*readbuff);
    // Silence is no failure of this transport: the operation's own length test turns it away.
    if (readbuff->size() < kShortestReply)
        return static_cast<int>(written);
    return ReplyBody(*readbuff).checksumMatches() ? static_cast<int>(written) : kBadChecksum;
}

qint64 qkv720::writeSerial(QByteArray &frame)
{
    constexpr unsigned long kWriteSleepsMs[] = {100, 300, 500};
    qint64 written = serialObj->writeData(frame);
    for (const unsigned long sleepMs : kWriteSleepsMs) {
        if (written > 0)
            return written;
        QThread::msleep(sleepMs);
        written = serialObj->writeData(frame);
    }
    if (written <= 0)
        loseLink();
    return written;
}

// ---- Discovery and lists ---------------------------------------------------------------------------------------

// The signature is given: the text is taken by value.
// NOLINTNEXTLINE(performance-unnecessary-value-param)
uint qkv720::HLNPScan(QString cmd, int netcardIndex)
{
    constexpr int kLooks = 500;
    constexpr unsigned long kLookMs = 100;
    hlnpObj->scanSlot(cmd, netcardIndex);
    qDebug() << "HLNP Scan!" << cmd << netcardIndex;
    QThread::msleep(kLookMs);
    // Nothing can set the flag while this thread sleeps: a scan that ended with replies still queued costs the
    // whole 50 s. That time is wanted.
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

const input *qkv720::inputNumber(uint target) const
{
    const input *const inputs[] = {&inputFG, &inputBG, &inputAUX, &inputSYNC};
    return target >= 1 && target <= 4 ? inputs[target - 1] : nullptr;
}

const output *qkv720::outputNumber(uint target) const
{
    const output *const outputs[] = {&PGM, &PVW, &PGM_HDMI, &PVW_HDMI};
    return target >= 1 && target <= 4 ? outputs[target - 1] : nullptr;
}

uint qkv720::getInputRes(uint target) const
{
    const input *const number = inputNumber(target);
    return number ? static_cast<uint>(number->res) : 0;
}

uint qkv720::getInputSource(uint target) const
{
    constexpr uint kSync = 4;
    const input *const number = inputNumber(target);
    return number && target != kSync ? static_cast<uint>(number->source) : 0;
}

int qkv720::getInputFreeze(uint target) const
{
    const input *const number = inputNumber(target);
    return number ? number->freeze : 0;
}

uint qkv720::getOutSource(uint target) const
{
    const output *const number = outputNumber(target);
    return number ? static_cast<uint>(number->source) : 0;
}

bool qkv720::getOutLock(uint target) const
{
    const output *const number = outputNumber(target);
    return number && number->lock;
}

bool qkv720::getOutMirror(uint target) const
{
    const output *const number = outputNumber(target);
    return number && number->mirror;
}
