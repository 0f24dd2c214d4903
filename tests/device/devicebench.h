#pragma once

#include "device/qkv720.h"
#include "discovery/hlnp.h"
#include "tests/support/stopwatch.h"
#include "tests/support/unithost.h"

#include <QElapsedTimer>
#include <QSignalSpy>
#include <QTcpSocket>
#include <QtTest>

#include <cstdlib>
#include <functional>
#include <memory>

// A stand-in unit and the device class on one link to it.
class DeviceBench
{
public:
    explicit DeviceBench(uint link)
        : method(link)
        , host(options(link))
        , device(std::make_unique<qkv720>())
        , broken(device.get(), &qkv720::connectionBroken)
    {
    }

    // The device leaves its serial and discovery objects to the end of the process; the tests end often.
    ~DeviceBench()
    {
        device->disconnectDevice(method);
        const std::unique_ptr<HLNP> discovery(device->hlnpObj);
        const std::unique_ptr<serialPort> serial(device->serialObj);
        device.reset();
    }
    DeviceBench(const DeviceBench &) = delete;
    DeviceBench &operator=(const DeviceBench &) = delete;

    QString target() const { return method == kNetworkLink ? host.address() : host.serialPortName(); }

    // Opens the link and forgets what that took.
    bool connectUnit()
    {
        const QString result = device->connectDevice(method, target());
        host.clearRecord();
        broken.clear();
        if (result != QLatin1String("OK"))
            qWarning() << "connect:" << result;
        return result == QLatin1String("OK");
    }

    // The frames that the unit received, as they lay on the link, parted by commas.
    QString frames() const { return host.wireFrames().join(QStringLiteral(", ")); }

    // The time from each frame to the next, in milliseconds.
    QVector<int> gapsMs() const
    {
        QVector<int> gaps;
        const auto record = host.record();
        for (int i = 1; i < record.size(); ++i)
            gaps.append(static_cast<int>((record.at(i).ns - record.at(i - 1).ns) / 1000000));
        return gaps;
    }

    // Runs `action` and tells whether the last frames came `expectedMs` apart. Each receipt may be noted late on a busy
    // machine, so a gap can seem too long or too short by as much as the machine was late; a wrong sleep is so at every
    // run.
    bool framesComeApart(const QVector<int> &expectedMs, const std::function<void()> &action)
    {
        constexpr int kRuns = 4;
        constexpr int kToleranceMs = 90;
        for (int run = 0; run < kRuns; ++run) {
            host.clearRecord();
            broken.clear();
            device->isConnected = true;
            const support::Stopwatch watch;
            action();
            const qint64 allowedMs = kToleranceMs + watch.stalled();
            const QVector<int> gaps = gapsMs();
            if (gaps.size() < expectedMs.size())
                return false;
            const QVector<int> last = gaps.mid(gaps.size() - expectedMs.size());
            bool fits = true;
            for (int i = 0; i < last.size(); ++i)
                fits = fits && std::abs(last.at(i) - expectedMs.at(i)) < allowedMs;
            if (fits)
                return true;
            qWarning() << "frames came apart by" << last << "and not by" << expectedMs;
        }
        return false;
    }

    // Cuts the link off and lets the socket notice.
    bool letSocketFall()
    {
        host.drop();
        return QTest::qWaitFor([this] { return socket()->state() == QTcpSocket::UnconnectedState; });
    }

    QTcpSocket *socket() const { return device->hlnpObj->swiTcpSocket; }

    const uint method;
    support::UnitHost host;
    std::unique_ptr<qkv720> device;
    QSignalSpy broken;

private:
    static support::UnitHost::Options options(uint link)
    {
        support::UnitHost::Options wanted;
        wanted.network = link == kNetworkLink;
        wanted.serial = link == kSerialLink;
        return wanted;
    }
};

// A frame of the serial link in hexadecimal as it lies on `method`.
inline QString frameOn(uint method, const QByteArray &serialHex)
{
    QByteArray frame = QByteArray::fromHex(serialHex);
    if (method == kNetworkLink)
        frame = QByteArray(1, '\0').append(static_cast<char>(frame.size() + 2)).append(frame);
    return QString::fromLatin1(frame.toHex(' ').toUpper());
}

// A reply body around `data`, with the right length and checksum.
inline QByteArray replyBody(int code, const QByteArray &data)
{
    QByteArray body;
    body.append(static_cast<char>(3 + data.size()));
    body.append('\0');
    body.append(static_cast<char>(code));
    body.append(data);
    uint sum = 0;
    for (const char byte : body)
        sum += static_cast<uchar>(byte);
    body.append(static_cast<char>(sum & 0xFFU));
    return body;
}

inline QByteArray withChecksum(QByteArray bytes)
{
    uint sum = 0;
    for (const char byte : bytes)
        sum += static_cast<uchar>(byte);
    return bytes.append(static_cast<char>(sum & 0xFFU));
}

#define VERIFY_BETWEEN(value, low, high)                                                                     \
    do {                                                                                                     \
        const auto measured = (value);                                                                       \
        QVERIFY2(measured >= (low) && measured < (high),                                                     \
                 qPrintable(QStringLiteral("%1 is not in [%2, %3)").arg(measured).arg(low).arg(high)));      \
    } while (false)
