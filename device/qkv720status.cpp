#include "device/qkv720.h"

#include "device/functions.h"

#include <QDebug>

// First status and polling. Retries and words differ from step to step and from link to link:
// docs/oddities.md.

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
    if (!linkReady(kNetworkLink))
        return tr("Ethernet not Connected!");

    if (!readWithoutCheck(kNetworkLink, functions::outputRouting, kNetworkStatusLadder))
        return tr("Device disconnected.");
    qDebug() << "PGM source" << PGM.source << "PVW source" << PVW.source << "PGMHDMI source"
             << PGM_HDMI.source << "PVWHDMI source" << PVW_HDMI.source;

    // The link was checked once, before the first step. A read that a retry made good has cleared
    // isConnected, and the steps go on all the same.
    if (!readWithoutCheck(kNetworkLink, functions::outputStandard, kNetworkStatusLadder)
        || !readWithoutCheck(kNetworkLink, functions::inputSelection, kNetworkStatusLadder))
        return tr("Device disconnected.");
    return QStringLiteral("OK");
}

QString qkv720::refreshStatusSerial()
{
    // The first command has no retries but those of the write: a unit that is silent or garbled right after
    // the port was opened is reported to the operator at once.
    QByteArray frame = frameOf({functions::outputRouting.getCode}, kSerialLink);
    QByteArray received;
    noteAnswer(ReplyBody(), functions::outputRouting.getCode);
    const qint64 written = askSerial(frame, kSerialDefaultMs, received);
    if (written <= 0)
        return QString::number(written);
    if (received.size() <= 3)
        return QStringLiteral("Get status failed. Please try again.");
    const ReplyBody outputs(received);
    if (!outputs.checksumMatches())
        return QStringLiteral("-24");
    noteAnswer(outputs, functions::outputRouting.getCode);
    functions::outputRouting.take(*this, outputs, kReplyData);

    if (!readWithoutCheck(kSerialLink, functions::outputStandard, kShortLadder))
        return tr("Get Video Out failed. \nDevice may be disconnected.");
    if (!readWithoutCheck(kSerialLink, functions::inputSelection, kShortLadder))
        return tr("Get Input Source failed. \nDevice may be disconnected.");
    qDebug() << "genSrc, genH and genV: " << genlockSrc << genlock_H << genlock_V;
    return QStringLiteral("OK");
}

QString qkv720::refreshVideoInRes(uint method)
{
    // No words for a link that is down, and none for an unknown method.
    if (!linkReady(method))
        return QString();

    if (!readWithoutCheck(method, functions::inputStandard, kShortLadder)) {
        return method == kNetworkLink ? tr("Device disconnected.")
                                      : tr("Get Vin Resolution failed. \nDevice may be disconnected.");
    }
    return QStringLiteral("OK");
}

video_out qkv720::getVideoOut(uint method)
{
    if (!linkReady(method))
        return {};

    if (!readWithoutCheck(method, functions::outputStandard, kStandardLadder)) {
        // The only read that does so. Polling relies on it: a silent serial unit shows nowhere else.
        isConnected = false;
        return {};
    }
    return videoOut;
}
