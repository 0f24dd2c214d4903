#include "device/qkv720commands.h"

#include <memory>

QByteArray *qkv720_DeviceControl(int command, int ext, int method, int paraByteLength, QByteArray *parameters)
{
    auto frame = std::make_unique<QByteArray>();
    if (method != int(kNetworkLink) && method != int(kSerialLink))
        return frame.release();

    if (method == int(kNetworkLink)) {
        const int frameLength = 6 + paraByteLength;
        frame->append(static_cast<char>((frameLength >> 8) & 0xFF));
        frame->append(static_cast<char>(frameLength & 0xFF));
    }
    const int bodyStart = frame->size();
    frame->append(static_cast<char>((3 + paraByteLength) & 0xFF));
    frame->append(static_cast<char>(ext & 0xFF));
    frame->append(static_cast<char>(command & 0xFF));
    if (paraByteLength > 0 && parameters)
        frame->append(parameters->constData(), qMin(paraByteLength, parameters->size()));

    // The frame length bytes stay outside the sum: both links send the same checksum.
    uint sum = 0;
    for (int i = bodyStart; i < frame->size(); ++i)
        sum += static_cast<uchar>(frame->at(i));
    frame->append(static_cast<char>(sum & 0xFFU));
    return frame.release();
}

QByteArray frameOf(const Command &command, uint method)
{
    QByteArray data = command.payload.bytes();
    const std::unique_ptr<QByteArray> frame(
        qkv720_DeviceControl(command.code, command.ext, static_cast<int>(method), data.size(), &data));
    return *frame;
}
