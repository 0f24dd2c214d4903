#include "discovery/hlnp.h"

#include "discovery/hlnpstate.h"
#include "discovery/hlnpwire.h"
#include "discovery/unitport.h"

#include <QDebug>
#include <QNetworkInterface>
#include <QThread>

namespace {

constexpr int kReceiveBufferBytes = 4096;
constexpr int kModelTimerMs = 3000;
constexpr int kModelNameTimerMs = 2000;
constexpr int kModelVersionTimerMs = 2000;

// After a write that failed, the toolkit closes a UDP socket at the next wait that ends by its time. The
// discovery socket stays bound as long as the program runs: the exchange that failed keeps its full length,
// and the ones after it still hear their units.
class LastingSocket : public QUdpSocket
{
public:
    using QUdpSocket::QUdpSocket;
    void close() override { }
};

QTimer *makeSingleShot(QObject *parent, int intervalMs)
{
    auto *timer = new QTimer(parent);
    timer->setSingleShot(true);
    timer->setInterval(intervalMs);
    return timer;
}

} // namespace

HLNP::HLNP(QObject *parent)
    : QObject(parent)
    , swiTcpSocket(new QTcpSocket(this))
    , hlnpReadBuffer(2048, '\0')
    , sendBuffer(QByteArray::fromHex("0008000000000000"))
{
    swiTcpSocket->setReadBufferSize(kSocketReadLimit);
    connect(this, &HLNP::zcmScanDone, this, &HLNP::onZcmScanDone);

    // Set here, on the unbound socket. Set after a bind, a buffer this small would lose datagrams of a crowd.
    // readyRead stays unconnected: every read is a synchronous poll.
    udpSocket = new LastingSocket(this);
    udpSocket->setSocketOption(QAbstractSocket::ReceiveBufferSizeSocketOption, kReceiveBufferBytes);

    getModelTimer = makeSingleShot(this, kModelTimerMs);
    getModelNameTimer = makeSingleShot(this, kModelNameTimerMs);
    getModelVersionTimer = makeSingleShot(this, kModelVersionTimerMs);
    connect(getModelTimer, &QTimer::timeout, this, &HLNP::onGetDeviceModel);
    connect(getModelNameTimer, &QTimer::timeout, this, &HLNP::onGetDeviceModelName);
    connect(getModelVersionTimer, &QTimer::timeout, this, &HLNP::onGetDeviceModelVersion);
}

HLNP::~HLNP()
{
    udpSocket->QUdpSocket::close();
    qDebug() << "Socket Closed before APP closed.";
}

bool HLNP::hLNPpreScanProcess()
{
    netcardIP.clear();
    netcardName.clear();
    netCount = 0;
    emit clearComboNetcard(QStringLiteral("clear"));

    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface &iface : interfaces) {
        const QNetworkInterface::InterfaceFlags flags = iface.flags();
        if ((flags & QNetworkInterface::IsLoopBack) || !(flags & QNetworkInterface::IsRunning)
            || !iface.isValid())
            continue;

        const QList<QNetworkAddressEntry> entries = iface.addressEntries();
        for (int i = 0; i < entries.size(); ++i) {
            const QHostAddress address = entries.at(i).ip();
            const QString text = address.toString();
            if (address.isNull() || !HlnpWire::isUsableAdapterAddress(text))
                continue;

            netcardIP.append(text);
            netcardName.append(iface.humanReadableName());
            qDebug() << "For index[" << i << "] IP:" << text;
            // Both texts at once: an interface may be named after a place marker.
            const QString line = QStringLiteral("[%1] %2").arg(text, iface.humanReadableName());
            netcardlist.append(line);
            emit setComboNetcard(line);
            ++netCount;
        }
    }
    return true;
}

QStringList HLNP::netcardModels() const
{
    return netcardlist;
}

void HLNP::setnetcardModels(QStringList nModel)
{
    qDebug() << "setnetcardModels: " << nModel.size();
    emit netcardModelsChanged();
}

void HLNP::scanSlot(QString cmd, int netcardIndex)
{
    if (cmd == QLatin1String("clear")) {
        allHlnpindex = 0;
        cameraindex = 0;
        fakeonce = true;
        nackReturnCount = 0;
        emit scanHlnpNumberSignal(0);
        return;
    }

    if (netcardIndex < 0 || netcardIndex >= netcardlist.size()) {
        // Without an adapter there is nothing to ask. The scan counts as done, or its caller would wait for
        // replies that cannot come.
        emptyTables();
        scanDone = true;
        return;
    }

    QString item = netcardlist.at(netcardIndex);
    const QList<QHostAddress> addresses = QNetworkInterface::allAddresses();
    for (const QHostAddress &address : addresses) {
        const QString text = address.toString();
        if (!HlnpWire::isUsableAdapterAddress(text))
            continue;
        if (netCount == 1)
            item = text; // a single adapter is meant whatever its address has become since
        // A part of the text is enough, and the walk goes on after a match: of 192.168.1.2 and 192.168.1.20
        // the one that comes last in the walk wins.
        if (item.contains(text))
            useAdapter(address);
    }
    qDebug() << "doScan in ScanSlot";
    scanDone = false;
    doScan();
}

// Port 0: the system chooses the panel's own port.
bool HLNP::bindSocket(const QHostAddress &address)
{
    return udpSocket->bind(address, 0, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint);
}

void HLNP::useAdapter(const QHostAddress &address)
{
    if (udpSocket->state() == QAbstractSocket::BoundState)
        udpSocket->disconnectFromHost();
    if (bindSocket(address)) {
        udpsocketBindAddress = address;
        qDebug() << "BroadCast bind IP:" << address;
    }
    thisNetwork = address.toString();
    const QStringList octets = thisNetwork.split(QStringLiteral("."));
    sameNetwork = octets.mid(0, 3).join(QStringLiteral(".")) + QStringLiteral(".");
    qDebug() << "[NOTE] Check ZCM IPs are in the same network with TABLET. (Not TMX500) :" << sameNetwork;
}

void HLNP::msleep(unsigned long ms)
{
    QThread::msleep(ms);
}

bool HLNP::shutdown()
{
    qDebug() << "ABOUT TO QUIT!!  Do shutdown()";
    return true;
}

void HLNP::onApplicationState(Qt::ApplicationState appState)
{
    qDebug() << "Application State Changed to: " << appState;
}

void HLNP::onApplicationResume()
{
    qDebug() << "Application State Resume ";
}
