#include "discovery/hlnp.h"

#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"

#include <QDebug>
#include <QMessageBox>
#include <QThread>

using namespace HlnpWire;

namespace {

constexpr int kWriteWaitMs = 1000;
constexpr int kReadWaitMs = 1000;
constexpr int kTries = 11;
constexpr unsigned long kPauseMs = 100;
constexpr unsigned long kDnsPauseMs = 200;

} // namespace

struct HLNP::ConfigCommand
{
    Code code;
    Type type; // ToAll is broadcast, and the result of its write is not looked at
    int length;
    const char *keyword;
    unsigned long pauseMs; // after each try
    const char *beginLog; // the address setters alone
    const char *formatLog; // for an address without four parts; likewise
    const char *formatError; // likewise
    const char *sentLog; // nothing is logged when null
    const char *tryLog;

    QByteArray datagram(const QByteArray &mac, const QByteArray &value) const
    {
        return request(length, type, code, mac + keyword + value);
    }
};

namespace {

const char *const kMacError = QT_TRANSLATE_NOOP("HLNP", "MAC address format error");

QStringList partsOf(const QString &address)
{
    return address.split(QStringLiteral("."));
}

} // namespace

// One exchange for all nine commands. Nothing is flushed before it, and neither code nor length of an answer is
// compared: any datagram of the target with one of the two values at its place decides.
QString HLNP::configure(const ConfigCommand &command, const QByteArray &datagram,
                        const QString &targetDeviceIP, const QString &value)
{
    const bool isBroadcast = command.type == ToAll;
    const QHostAddress target =
        isBroadcast ? QHostAddress(QHostAddress::Broadcast) : QHostAddress(targetDeviceIP);
    const qint64 written = udpSocket->writeDatagram(datagram, target, kPort);
    if (written <= 0 && !isBroadcast)
        return tr("Setting error, please check IP address:") + targetDeviceIP;
    if (command.sentLog != nullptr)
        qDebug() << command.sentLog << value;
    udpSocket->waitForBytesWritten(kWriteWaitMs);

    // Buffer and sender of an earlier try stay when a read fails.
    QByteArray buffer(UDPBUFFERSIZE, '\0');
    QHostAddress sender;
    for (int count = 0; count < kTries; ++count) {
        udpSocket->waitForReadyRead(kReadWaitMs);
        QHostAddress from;
        if (udpSocket->readDatagram(buffer.data(), buffer.size(), &from) >= 0)
            sender = from;
        if (sender.toString() == targetDeviceIP) {
            const unsigned char answer = byteAt(buffer, AnswerAt);
            if (answer == Ack) {
                qDebug() << "ReadDatagram 06:" << answer;
                return QStringLiteral("OK");
            }
            if (answer == Nack) {
                qDebug() << "ReadDatagram 15:" << answer;
                return QStringLiteral("NACK");
            }
        }
        QThread::msleep(command.pauseMs);
        qDebug() << command.tryLog << count;
    }
    if (command.code == Reset) {
        // An answered reset leaves from the loop above and so keeps the busy signal raised.
        emit hlnpResetDone();
        emit setNetConfigBusy(false);
    }
    return QStringLiteral("OK"); // silence is success by design
}

// The four commands that carry one address to one unit.
QString HLNP::setAddress(const ConfigCommand &command, const QString &targetDeviceIP, const QString &address)
{
    qDebug() << command.beginLog;
    if (!isAddress(address)) {
        qDebug() << command.formatLog << partsOf(address);
        return tr(command.formatError);
    }
    const QByteArray datagram = command.datagram(QByteArray(), addressBytes(address));
    return configure(command, datagram, targetDeviceIP, address);
}

QString HLNP::reset(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP)
{
    static const ConfigCommand command = {Reset,   ToAll,   0x000F,  "RESET", kPauseMs,
                                          nullptr, nullptr, nullptr, nullptr, "Reset:While get datagram."};
    qDebug() << "Reset:" << currentSelect;
    if (!isMac(targetDeviceMAC))
        return tr(kMacError);
    emit setNetConfigBusy(true);
    udpsocketBindAddress = QHostAddress(currentNetcardIP);
    const QByteArray datagram = command.datagram(macBytes(targetDeviceMAC), QByteArray());
    return configure(command, datagram, targetDeviceIP, QString());
}

QString HLNP::setDhcpMode(QString targetDeviceMAC, QString, QString targetDeviceIP, int dhcp)
{
    static const ConfigCommand command = {
        SetDhcpMode, ToAll,   0x0017,  "SET_DHCPMODE",   kPauseMs,
        nullptr,     nullptr, nullptr, "set DHCP mode:", "set DHCP mode:While get datagram."};
    qDebug() << "setDhcpMode:" << dhcp;
    if (!isMac(targetDeviceMAC))
        return tr(kMacError);
    const QByteArray mode(1, static_cast<char>(dhcp & 0xFF));
    return configure(command, command.datagram(macBytes(targetDeviceMAC), mode), targetDeviceIP,
                     QString::number(dhcp));
}

QString HLNP::setIpAdr(QString targetDeviceMAC, QString, QString targetDeviceIP, QString ipadd,
                       QString gateadd)
{
    static const ConfigCommand command = {
        SetIpAdr, ToAll,   0x001B,  "SET_IPADR",       kPauseMs,
        nullptr,  nullptr, nullptr, "set IP Address:", "set IP Address:While get datagram."};
    qDebug() << "setIpAdr: " << ipadd << gateadd;
    if (!isMac(targetDeviceMAC))
        return tr(kMacError);
    if (!isAddress(ipadd)) {
        qDebug() << "IP Address format failed" << partsOf(ipadd);
        return tr("IP format error");
    }
    if (!isAddress(gateadd)) {
        qDebug() << "Gateway Address format failed" << partsOf(gateadd);
        return tr("Gateway address format error"); // setGateway() says "Gate"
    }
    const QByteArray value = addressBytes(ipadd) + addressBytes(gateadd);
    return configure(command, command.datagram(macBytes(targetDeviceMAC), value), targetDeviceIP, ipadd);
}

QString HLNP::setDhcpName(QString, QString targetDeviceIP, QString name)
{
    static const ConfigCommand command = {
        SetDhcpName, ToOne,   0x0020,  "SET_DHCPNAME", kPauseMs,
        nullptr,     nullptr, nullptr, nullptr,        "Set DHCP Name:While get datagram."};
    qDebug() << "setDhcpName 1" << name;
    return configure(command, command.datagram(QByteArray(), nameField(name)), targetDeviceIP, name);
}

QString HLNP::setMacAdr(QString, QString targetDeviceIP, QString MAC_ADDR)
{
    static const ConfigCommand command = {
        SetMacAdr, ToOne,   0x0014,  "SET_MACADR",       kPauseMs,
        nullptr,   nullptr, nullptr, "set Mac Address:", "Set MAC:While get datagram."};
    if (!isMac(MAC_ADDR))
        return tr(kMacError);
    return configure(command, command.datagram(QByteArray(), macBytes(MAC_ADDR)), targetDeviceIP, MAC_ADDR);
}

QString HLNP::setNetmask(QString, QString targetDeviceIP, QString netMask)
{
    static const ConfigCommand command = {SetNetmask,
                                          ToOne,
                                          0x0013,
                                          "SET_NETMASK",
                                          kPauseMs,
                                          "setNetmask 1",
                                          "Mask Address format failed",
                                          QT_TR_NOOP("Mask address format error"),
                                          "set MASK Address:",
                                          "Set MASK:While get datagram."};
    return setAddress(command, targetDeviceIP, netMask);
}

QString HLNP::setGateway(QString, QString targetDeviceIP, QString gateway)
{
    static const ConfigCommand command = {SetGateway,
                                          ToOne,
                                          0x0013,
                                          "SET_GATEWAY",
                                          kPauseMs,
                                          "setGateway 1",
                                          "Gate Address format failed",
                                          QT_TR_NOOP("Gate address format error"),
                                          "set Gateway:",
                                          "set Gateway:While get datagram."};
    return setAddress(command, targetDeviceIP, gateway);
}

QString HLNP::setPrimDNS(QString, QString targetDeviceIP, QString pri)
{
    static const ConfigCommand command = {SetPriDns,
                                          ToOne,
                                          0x0012,
                                          "SET_PRIDNS",
                                          kDnsPauseMs,
                                          "setPrimDNS 1",
                                          "PrimDNS Address format failed",
                                          QT_TR_NOOP("PrimDNS address format error"),
                                          "set prim DNS:",
                                          "set prim DNS:While get datagram."};
    return setAddress(command, targetDeviceIP, pri);
}

QString HLNP::setSecDNS(QString, QString targetDeviceIP, QString sec)
{
    static const ConfigCommand command = {SetSecDns,
                                          ToOne,
                                          0x0012,
                                          "SET_SECDNS",
                                          kDnsPauseMs,
                                          "setSecDNS 1",
                                          "SecDNS Address format failed",
                                          QT_TR_NOOP("SecDNS address format error"),
                                          "set sec DNS:",
                                          "set sec DNS:While get datagram."};
    return setAddress(command, targetDeviceIP, sec);
}

int HLNP::initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP, QString txtIPAddr,
                         QString txtHostname, QString txtNetmask, QString txtGateway, QString txtPrimdns,
                         QString txtSecdns)
{
    const auto tell = [this](const char *stage) {
        qDebug() << stage << beforeDhcpIndex << beforeMacaddr << beforeCurrentNetCardIP << beforeIPAddr
                 << beforeHostname << beforeNetmask << beforeGateway << beforePrimdns << beforeSecdns;
    };
    tell("[initHLNPConfig] 1:");
    beforeDhcpIndex = dhcpIndex;
    beforeMacaddr = txtMacaddr;
    beforeCurrentNetCardIP = currentNetCardIP;
    beforeIPAddr = txtIPAddr;
    beforeHostname = txtHostname;
    beforeNetmask = txtNetmask;
    beforeGateway = txtGateway;
    beforePrimdns = txtPrimdns;
    beforeSecdns = txtSecdns;
    tell("[initHLNPConfig] 2:");

    if (udpSocket->state() != QAbstractSocket::BoundState) {
        const bool bound = udpSocket->bind(QHostAddress(currentNetCardIP), 0,
                                           QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint);
        qDebug() << "Bind to Socket:" << currentNetCardIP << (bound ? "OK" : "Failed");
    }
    return 1;
}

bool HLNP::beforeSaveNetConfig(int mode)
{
    if (mode != 0 && mode != 1)
        return true;
    const QString question =
        mode == 0 ? tr("Reset device network configuration?") : tr("Save device network configuration?");
    const auto answer =
        QMessageBox::question(nullptr, tr("Warning"), question, QMessageBox::Yes | QMessageBox::No);
    if (answer != QMessageBox::No)
        return true;
    emit setNetConfigBusy(false);
    if (mode == 0)
        emit SetButtonReset(true);
    else
        emit SetButtonSave(true);
    return false;
}
