#include "discovery/hlnp.h"

#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"
#include "discovery/unitport.h"

#include <QDebug>
#include <QMessageBox>
#include <QThread>

using namespace HlnpWire;

// What sets one configuration command apart from the others, beside its row in the wire format's table.
struct HlnpSetting
{
    Code code;
    unsigned long pauseMs; // after each try
    const char *sentLog; // nothing is logged when null
    const char *tryLog;
};

// The four that carry one address to one unit.
struct HlnpAddressSetting
{
    HlnpSetting setting;
    const char *beginLog;
    const char *formatLog; // for an address without four parts
    const char *formatError;
};

namespace {

constexpr int kTries = 11;
constexpr unsigned long kPauseMs = 100;
constexpr unsigned long kDnsPauseMs = 200;

constexpr HlnpSetting kReset = {Reset, kPauseMs, nullptr, "Reset:While get datagram."};
constexpr HlnpSetting kDhcpMode = {SetDhcpMode, kPauseMs,
                                   "set DHCP mode:", "set DHCP mode:While get datagram."};
constexpr HlnpSetting kIpAdr = {SetIpAdr, kPauseMs, "set IP Address:", "set IP Address:While get datagram."};
constexpr HlnpSetting kDhcpName = {SetDhcpName, kPauseMs, nullptr, "Set DHCP Name:While get datagram."};
constexpr HlnpSetting kMacAdr = {SetMacAdr, kPauseMs, "set Mac Address:", "Set MAC:While get datagram."};

constexpr HlnpAddressSetting kNetmask = {
    {SetNetmask, kPauseMs, "set MASK Address:", "Set MASK:While get datagram."},
    "setNetmask 1",
    "Mask Address format failed",
    QT_TRANSLATE_NOOP("HLNP", "Mask address format error")};
constexpr HlnpAddressSetting kGateway = {
    {SetGateway, kPauseMs, "set Gateway:", "set Gateway:While get datagram."},
    "setGateway 1",
    "Gate Address format failed",
    QT_TRANSLATE_NOOP("HLNP", "Gate address format error")};
constexpr HlnpAddressSetting kPrimDns = {
    {SetPriDns, kDnsPauseMs, "set prim DNS:", "set prim DNS:While get datagram."},
    "setPrimDNS 1",
    "PrimDNS Address format failed",
    QT_TRANSLATE_NOOP("HLNP", "PrimDNS address format error")};
constexpr HlnpAddressSetting kSecDns = {
    {SetSecDns, kDnsPauseMs, "set sec DNS:", "set sec DNS:While get datagram."},
    "setSecDNS 1",
    "SecDNS Address format failed",
    QT_TRANSLATE_NOOP("HLNP", "SecDNS address format error")};

constexpr const char *kMacError = QT_TRANSLATE_NOOP("HLNP", "MAC address format error");

QStringList partsOf(const QString &address)
{
    return address.split(QStringLiteral("."));
}

} // namespace

// One exchange for all nine commands. Nothing is flushed before it, and neither code nor length of an answer
// is compared: any datagram of the target with one of the two values at its place decides.
QString HLNP::configure(const HlnpSetting &setting, const QByteArray &datagram, const QString &targetDeviceIP,
                        const QString &logged)
{
    const bool isBroadcast = commandOf(setting.code)->type == ToAll;
    const QHostAddress target =
        isBroadcast ? QHostAddress(QHostAddress::Broadcast) : QHostAddress(targetDeviceIP);
    const qint64 written = udpSocket->writeDatagram(datagram, target, kUnitPort);
    if (written <= 0 && !isBroadcast) // nobody looks at the result of a broadcast
        return tr("Setting error, please check IP address:") + targetDeviceIP;
    if (setting.sentLog != nullptr)
        qDebug() << setting.sentLog << logged;
    udpSocket->waitForBytesWritten(kSocketWaitMs);

    // Buffer and sender of an earlier try stay when a read fails.
    QByteArray buffer(UDPBUFFERSIZE, '\0');
    QHostAddress sender;
    for (int count = 0; count < kTries; ++count) {
        udpSocket->waitForReadyRead(kSocketWaitMs);
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
        QThread::msleep(setting.pauseMs);
        qDebug() << setting.tryLog << count;
    }
    if (setting.code == Reset) {
        // An answered reset leaves from the loop above and so keeps the busy signal raised.
        emit hlnpResetDone();
        emit setNetConfigBusy(false);
    }
    // Silence is success: a unit that takes a new address cannot answer from the old one.
    return QStringLiteral("OK");
}

QString HLNP::setAddress(const HlnpAddressSetting &setting, const QString &targetDeviceIP,
                         const QString &address)
{
    qDebug() << setting.beginLog;
    if (!isAddress(address)) {
        qDebug() << setting.formatLog << partsOf(address);
        return tr(setting.formatError);
    }
    const QByteArray datagram = request(setting.setting.code, QByteArray(), addressBytes(address));
    return configure(setting.setting, datagram, targetDeviceIP, address);
}

QString HLNP::reset(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP)
{
    qDebug() << "Reset:" << currentSelect;
    if (!isMac(targetDeviceMAC))
        return tr(kMacError);
    emit setNetConfigBusy(true);
    udpsocketBindAddress = QHostAddress(currentNetcardIP);
    return configure(kReset, request(Reset, macBytes(targetDeviceMAC)), targetDeviceIP, QString());
}

QString HLNP::setDhcpMode(QString targetDeviceMAC, QString, QString targetDeviceIP, int dhcp)
{
    qDebug() << "setDhcpMode:" << dhcp;
    if (!isMac(targetDeviceMAC))
        return tr(kMacError);
    const QByteArray mode(1, static_cast<char>(dhcp & 0xFF));
    const QByteArray datagram = request(SetDhcpMode, macBytes(targetDeviceMAC), mode);
    return configure(kDhcpMode, datagram, targetDeviceIP, QString::number(dhcp));
}

QString HLNP::setIpAdr(QString targetDeviceMAC, QString, QString targetDeviceIP, QString ipadd,
                       QString gateadd)
{
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
    return configure(kIpAdr, request(SetIpAdr, macBytes(targetDeviceMAC), value), targetDeviceIP, ipadd);
}

QString HLNP::setDhcpName(QString, QString targetDeviceIP, QString name)
{
    qDebug() << "setDhcpName 1" << name;
    return configure(kDhcpName, request(SetDhcpName, QByteArray(), nameField(name)), targetDeviceIP, name);
}

QString HLNP::setMacAdr(QString, QString targetDeviceIP, QString MAC_ADDR)
{
    if (!isMac(MAC_ADDR))
        return tr(kMacError);
    const QByteArray datagram = request(SetMacAdr, QByteArray(), macBytes(MAC_ADDR));
    return configure(kMacAdr, datagram, targetDeviceIP, MAC_ADDR);
}

QString HLNP::setNetmask(QString, QString targetDeviceIP, QString netMask)
{
    return setAddress(kNetmask, targetDeviceIP, netMask);
}

QString HLNP::setGateway(QString, QString targetDeviceIP, QString gateway)
{
    return setAddress(kGateway, targetDeviceIP, gateway);
}

QString HLNP::setPrimDNS(QString, QString targetDeviceIP, QString pri)
{
    return setAddress(kPrimDns, targetDeviceIP, pri);
}

QString HLNP::setSecDNS(QString, QString targetDeviceIP, QString sec)
{
    return setAddress(kSecDns, targetDeviceIP, sec);
}

int HLNP::initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP, QString txtIPAddr,
                         QString txtHostname, QString txtNetmask, QString txtGateway, QString txtPrimdns,
                         QString txtSecdns)
{
    const auto logForm = [this](const char *stage) {
        qDebug() << stage << beforeDhcpIndex << beforeMacaddr << beforeCurrentNetCardIP << beforeIPAddr
                 << beforeHostname << beforeNetmask << beforeGateway << beforePrimdns << beforeSecdns;
    };
    logForm("[initHLNPConfig] 1:");
    beforeDhcpIndex = dhcpIndex;
    beforeMacaddr = txtMacaddr;
    beforeCurrentNetCardIP = currentNetCardIP;
    beforeIPAddr = txtIPAddr;
    beforeHostname = txtHostname;
    beforeNetmask = txtNetmask;
    beforeGateway = txtGateway;
    beforePrimdns = txtPrimdns;
    beforeSecdns = txtSecdns;
    logForm("[initHLNPConfig] 2:");

    if (udpSocket->state() != QAbstractSocket::BoundState) {
        const bool bound = bindSocket(QHostAddress(currentNetCardIP));
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
