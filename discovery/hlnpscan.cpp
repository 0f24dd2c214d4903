#include "discovery/hlnp.h"

#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"
#include "discovery/unitport.h"

#include <QDebug>
#include <QThread>

using namespace HlnpWire;

namespace {

constexpr unsigned long kAnswerTimeMs = 500; // what the units get before the first read
constexpr unsigned long kEmptyReadMs = 100;
constexpr unsigned long kDormantModelMs = 300;
constexpr unsigned long kDormantVersionMs = 200;
constexpr int kForeignPortLimit = 666;
constexpr int kAcknowledgementBytes = 5;

const char *labelOf(unsigned char code)
{
    const Command *command = commandOf(code);
    return command ? command->label : "";
}

} // namespace

void HLNP::doScan()
{
    emptyTables();
    scanDoneCounter = 0;
    foundTMX500Count = 0;
    scan2whilecount = 0;
    udpNACKcount = 0;
    debugScanDeviceCount = 0;
    switcherindex = 0;
    doingScan = true;
    switcherIP.clear();

    const qint64 written = udpSocket->writeDatagram(request(EthReq), QHostAddress::Broadcast, kUnitPort);
    doScanTime = QTime::currentTime();
    qDebug() << "Do Scan!" << doScanTime.msecsTo(QTime::currentTime()) << written;
    udpSocket->waitForBytesWritten(kSocketWaitMs);
    qDebug() << "udp pending (in doScan)" << udpSocket->pendingDatagramSize();
    QThread::msleep(kAnswerTimeMs);
    processDatagrams();
}

int HLNP::rowOfAddress(const QString &address) const
{
    int row = 0; // an address outside the table means the first row
    for (int i = 0; i < deviceCount; ++i) {
        if (allHlnpDevice[i].zcm.hlnpnetwork.ipadd == address)
            row = i; // no early exit: of two rows with one address the later is meant
    }
    return row;
}

void HLNP::askRow(int row, unsigned char code)
{
    const hlnp_network_info &network = allHlnpDevice[row].zcm.hlnpnetwork;
    if (!isMac(network.macadd))
        return;
    udpSocket->writeDatagram(request(code, macBytes(network.macadd)), QHostAddress::Broadcast, kUnitPort);
    udpSocket->waitForBytesWritten(kSocketWaitMs);
    selectedDevice = network.ipadd;
    processDatagrams();
    commandReady = false;
}

void HLNP::getModel(QString targetDeviceIP)
{
    askRow(rowOfAddress(targetDeviceIP), GetModel);
}

void HLNP::getModelName(QString targetDeviceIP)
{
    currentSelect = rowOfAddress(targetDeviceIP);
    qDebug() << "Get Model Name" << currentSelect;
    askRow(currentSelect, GetModelName);
}

void HLNP::getFWVersion(QString targetDeviceIP)
{
    udpSocket->writeDatagram(request(FwverReq), QHostAddress(targetDeviceIP), kUnitPort);
    udpSocket->waitForBytesWritten(kSocketWaitMs);
    udpSocket->waitForReadyRead(kSocketWaitMs);

    QByteArray buffer(UDPBUFFERSIZE, '\0');
    for (int count = 0; count < kReadsPerCollection; ++count) {
        udpSocket->readDatagram(buffer.data(), buffer.size());
        QThread::msleep(kEmptyReadMs);
        qDebug() << "getFWVersion:While get datagram." << count;
    }
    // Row 0, whichever unit was asked.
    allHlnpDevice[0].zcm.hlnpnetwork.fwver = QString::fromLatin1(buffer.mid(3, 2));
}

void HLNP::processDatagrams()
{
    const QTime now = QTime::currentTime();
    qDebug() << "processDatagrams Begin: " << now.minute() << now.second() << now.msec();

    // One buffer for all passes: what a short datagram does not reach is left from the one before it.
    QByteArray buffer(UDPBUFFERSIZE, '\0');
    for (int pass = 0; pass < kReadsPerCollection; ++pass) { // no early exit, also after the wanted reply
        QHostAddress address;
        quint16 port = 0;
        const qint64 result = udpSocket->readDatagram(buffer.data(), buffer.size(), &address, &port);
        qDebug() << "processDatagrams() Read length :" << result;
        if (result <= 0) {
            QThread::msleep(kEmptyReadMs);
            continue;
        }

        // The order decides: five bytes whose length field says five are a record when their code is 0x00,
        // and an acknowledgement whatever their code and length field say else.
        const QString sender = address.toString();
        const bool isWhole = result == lengthField(buffer);
        const unsigned char code = byteAt(buffer, 3);
        if (isWhole && code == EthReq)
            fileNetworkRecord(buffer, sender, port);
        else if (result == kAcknowledgementBytes)
            logRefusal(buffer, sender);
        else if (isWhole && code == GetModel)
            fileModel(buffer, sender);
        else if (isWhole && code == GetModelName)
            fileModelName(buffer, sender);
    }

    commandReady = true;
    doingScan = false;
    scanDone = !udpSocket->hasPendingDatagrams();
    emit setDebugMessage(QString::number(debugScanDeviceCount));
}

void HLNP::fileNetworkRecord(const QByteArray &buffer, const QString &sender, quint16 port)
{
    ++debugScanDeviceCount;
    if (port != kUnitPort && ++returncount > kForeignPortLimit) {
        cIP = sender;
        qDebug() << "Sender port is not 5002. ReturnCount :" << returncount;
        return;
    }
    const QString name = textUpToZero(buffer, HostNameAt, kHostNameBytes);
    qDebug() << "Hostname :" << name;
    const QString mac = macText(buffer, MacAt);
    qDebug() << "Find Camera's MAC" << mac;
    if (allHlnpindex >= kAllDeviceRows)
        return; // the table is full: nothing of this device is written anywhere

    // The row is written before the test for a duplicate, which so leaves its name behind the table's end,
    // where the next record overwrites it.
    hlnp_device_info &row = allHlnpDevice[allHlnpindex];
    hlnp_network_info &network = row.zcm.hlnpnetwork;
    forgetNetwork(network);
    network.isdhcp = byteAt(buffer, DhcpAt) != 0;
    network.name = name;
    qDebug() << "allHlnpDevice Structure Clear index:" << allHlnpindex;
    network.macadd = mac;
    qDebug() << "Find HLNP's MAC" << mac;

    bool isDuplicate = false;
    for (int i = 0; i < allHlnpindex; ++i) {
        if (allHlnpDevice[i].zcm.hlnpnetwork.macadd != mac)
            continue;
        qDebug() << "Filter[" << i << "]: " << mac;
        isDuplicate = true;
    }
    if (!isDuplicate)
        fillRow(row, buffer);
}

void HLNP::fillRow(hlnp_device_info &row, const QByteArray &buffer)
{
    hlnp_network_info &network = row.zcm.hlnpnetwork;
    network.ipadd = addressText(buffer, IpAt);
    row.series = byteAt(buffer, IpAt + 3);
    network.maskadd = addressText(buffer, NetmaskAt);
    network.gatewayadd = addressText(buffer, GatewayAt);
    network.primdnsadd = addressText(buffer, PrimaryDnsAt);
    network.secdnsadd = addressText(buffer, SecondaryDnsAt);
    qDebug() << "Find HLNP's IP" << network.ipadd;
    qDebug() << "Find HLNP's mask" << network.maskadd;
    qDebug() << "Find HLNP's Gate" << network.gatewayadd;
    returncount = 0;
    qDebug() << "allDeviceIndex = " << allHlnpindex;
    ++allHlnpindex;
    deviceCount = allHlnpindex;
    currentChannel = 0;
}

void HLNP::logRefusal(const QByteArray &buffer, const QString &sender)
{
    // A refusal changes nothing and is only logged. An empty address is part of every sender's text.
    if (sender.contains(allHlnpDevice[currentSelect].zcm.hlnpnetwork.ipadd)
        && byteAt(buffer, AnswerAt) == Nack)
        qDebug() << sender << " return Command: " << labelOf(byteAt(buffer, 3)) << " NACK.";
}

// Replies find their row by the sender's address, and a part of its text is enough: what comes from
// 192.168.1.100 is filed for 192.168.1.10 too.

void HLNP::fileModel(const QByteArray &buffer, const QString &sender)
{
    qDebug() << "Sender IP:" << sender << currentSelect;
    qDebug() << "Device IP:" << allHlnpDevice[currentSelect].zcm.hlnpnetwork.ipadd;
    for (int i = 0; i < deviceCount; ++i) {
        hlnp_network_info &network = allHlnpDevice[i].zcm.hlnpnetwork;
        if (!sender.contains(network.ipadd))
            continue;
        network.vid = identifierText(buffer, VendorAt);
        network.pid = identifierText(buffer, ProductAt);
        qDebug() << "VID[" << i << "]" << network.vid;
        qDebug() << "PID[" << i << "]" << network.pid;
    }
}

void HLNP::fileModelName(const QByteArray &buffer, const QString &sender)
{
    ++modelnameCount;
    for (int i = 0; i < deviceCount; ++i) {
        hlnp_network_info &network = allHlnpDevice[i].zcm.hlnpnetwork;
        if (!sender.contains(network.ipadd))
            continue;
        network.modelname = textUpToZero(buffer, ModelNameAt, UDPBUFFERSIZE);
        qDebug() << "Model Name[" << i << "]" << network.modelname << sender;
    }
}

void HLNP::askEachRow(void (HLNP::*ask)(QString))
{
    for (int i = 0; i < deviceCount; ++i) {
        (this->*ask)(allHlnpDevice[i].zcm.hlnpnetwork.ipadd);
        QThread::msleep(kDormantModelMs);
        processDatagrams();
    }
}

void HLNP::onGetDeviceModel()
{
    if (deviceCount <= 0)
        return;
    askEachRow(&HLNP::getModel);
    emit zcmScanDone();
}

void HLNP::onGetDeviceModelName()
{
    if (deviceCount <= 0)
        return;
    askEachRow(&HLNP::getModelName);
    getModelVersionTimer->start();
}

void HLNP::onGetDeviceModelVersion()
{
    for (int i = 0; i < deviceCount; ++i)
        QThread::msleep(kDormantVersionMs);
    qDebug() << "GetDeviceModelVersin Done... ";
    emit zcmScanDone();
}
