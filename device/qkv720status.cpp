#include "device/qkv720.h"

#include <QDebug>
#include <QThread>

#include <memory>

// First status and polling. Replies:
//
//   0x63 routing            3 PGM   4 PVW   5 PGM HDMI   6 PVW HDMI   7 lock bits   8 mirror bits
//   0x60 output standard    3 standard   4 colour format   5 mode
//   0x61 input selection    3 FG   4 BG   5 AUX   6 freeze bits   7 genlock   8-9 offset H   10-11 offset V
//   0x62 input standards    3 FG   4 BG   5 AUX   6 SYNC   7 genlock status
//
// Retries and words differ from step to step and from link to link; operators and service know them so.

namespace {
constexpr unsigned long kSerialFirstReplyMs = 150;
}

void qkv720::takeOutputs(const ReplyBody &reply, int at)
{
    output *const outputs[] = {&PGM, &PVW, &PGM_HDMI, &PVW_HDMI};
    for (int i = 0; i < 4; ++i) {
        outputs[i]->source = output_source(reply.byteAt(at + i));
        outputs[i]->lock = reply.bitAt(at + 4, i);
        outputs[i]->mirror = reply.bitAt(at + 5, i);
    }
}

void qkv720::takeVideoOut(const ReplyBody &reply, int at)
{
    videoOut.res = resolution(reply.byteAt(at));
    videoOut.colorspace = hdmiout_format(reply.byteAt(at + 1));
    videoOut.std = std_auto(reply.byteAt(at + 2));
}

void qkv720::takeInputs(const ReplyBody &reply, int at)
{
    input *const inputs[] = {&inputFG, &inputBG, &inputAUX};
    for (int i = 0; i < 3; ++i) {
        inputs[i]->source = input_source(reply.byteAt(at + i));
        inputs[i]->freeze = reply.bitAt(at + 3, i) ? 1 : 0;
    }
    genlockSrc = reply.byteAt(at + 4);
    genlock_H = static_cast<qint16>(reply.le16(at + 5));
    genlock_V = static_cast<qint16>(reply.le16(at + 7));
}

void qkv720::takeInputResolutions(const ReplyBody &reply, int at)
{
    input *const inputs[] = {&inputFG, &inputBG, &inputAUX, &inputSYNC};
    for (int i = 0; i < 4; ++i)
        inputs[i]->res = resolution(reply.byteAt(at + i));
    genlockStatus = reply.byteAt(at + 4);
}

QString qkv720::refreshStatus(uint method)
{
    QString result;
    if (method == kNetworkLink)
        result = refreshStatusNetwork();
    else if (method == kSerialLink)
        result = refreshStatusSerial();
    else
        return QStringLiteral("NOT OK");

    if (result != QLatin1String("OK"))
        return result;
    return refreshVideoInRes(method);
}

QString qkv720::refreshStatusNetwork()
{
    if (!checkConnection())
        return tr("Ethernet not Connected!");

    const auto outputs =
        converse(kNetworkLink, QKV720_GET_PGMPVW_OUTPUT, Payload(), kOrdinary, kNetworkStatusLadder);
    if (!outputs)
        return tr("Device disconnected.");
    takeOutputs(*outputs, 3);
    qDebug() << "PGM source" << PGM.source << "PVW source" << PVW.source << "PGMHDMI source"
             << PGM_HDMI.source << "PVWHDMI source" << PVW_HDMI.source;

    // The link was checked once, before the first step. A read that a retry made good has cleared isConnected, and
    // the steps go on all the same.
    const auto standard =
        converse(kNetworkLink, QKV720_GET_VIDEOOUT_RESOLUTION, Payload(), kOrdinary, kNetworkStatusLadder);
    if (!standard)
        return tr("Device disconnected.");
    takeVideoOut(*standard, 3);

    const auto inputs =
        converse(kNetworkLink, QKV720_GET_FGBGAUX_INPUTSOURCE, Payload(), kOrdinary, kNetworkStatusLadder);
    if (!inputs)
        return tr("Device disconnected.");
    takeInputs(*inputs, 3);
    return QStringLiteral("OK");
}

QString qkv720::refreshStatusSerial()
{
    // The first command has no retries but those of the write: a unit that is silent or garbled right after
    // the port was opened is told to the operator at once.
    const std::unique_ptr<QByteArray> frame(
        qkv720_DeviceControl(QKV720_GET_PGMPVW_OUTPUT, kOrdinary, int(kSerialLink), 0, nullptr));
    const qint64 written = writeSerial(*frame);
    if (written <= 0)
        return QString::number(written);
    QThread::msleep(kSerialFirstReplyMs);
    QByteArray received;
    serialObj->readData(received);
    if (received.size() <= 3)
        return QStringLiteral("Get status failed. Please try again.");
    const ReplyBody outputs(received);
    if (!outputs.checksumMatches())
        return QStringLiteral("-24");
    takeOutputs(outputs, 3);

    const auto standard =
        converse(kSerialLink, QKV720_GET_VIDEOOUT_RESOLUTION, Payload(), kOrdinary, kShortLadder);
    if (!standard)
        return tr("Get Video Out failed. \nDevice may be disconnected.");
    takeVideoOut(*standard, 3);

    const auto inputs =
        converse(kSerialLink, QKV720_GET_FGBGAUX_INPUTSOURCE, Payload(), kOrdinary, kShortLadder);
    if (!inputs)
        return tr("Get Input Source failed. \nDevice may be disconnected.");
    takeInputs(*inputs, 3);
    qDebug() << "genSrc, genH and genV: " << genlockSrc << genlock_H << genlock_V;
    return QStringLiteral("OK");
}

QString qkv720::refreshVideoInRes(uint method)
{
    // No words for a link that is down, and none for an unknown method.
    if (!linkReady(method))
        return QString();

    const auto reply = converse(method, QKV720_GET_VIDEOIN_RESOLUTION, Payload(), kOrdinary, kShortLadder);
    if (!reply) {
        return method == kNetworkLink ? tr("Device disconnected.")
                                      : tr("Get Vin Resolution failed. \nDevice may be disconnected.");
    }
    takeInputResolutions(*reply, 3);
    return QStringLiteral("OK");
}

video_out qkv720::getVideoOut(uint method)
{
    if (!linkReady(method))
        return {};

    const auto reply =
        converse(method, QKV720_GET_VIDEOOUT_RESOLUTION, Payload(), kOrdinary, kStandardLadder);
    if (!reply) {
        // The only read that does so. Polling relies on it: a silent serial unit shows nowhere else.
        isConnected = false;
        return {};
    }
    takeVideoOut(*reply, 3);
    return videoOut;
}
