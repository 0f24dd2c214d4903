// A datagram either way   [length hi][length lo][type][command] ...    the length counts the whole datagram
// Broadcast request       type 0x80, then the MAC of the unit that is meant (6), keyword, values; ETH_REQ has no MAC
// Directed request        type 0x81, then keyword, values
// Acknowledgement         one byte at 4: 0x06 done, 0x15 refused
// Network record          4 DHCP flag, 5 name (16), 21 MAC, 27 address, 31 mask, 35 gateway, 39 and 43 DNS: 47 bytes
// Model                   4 vendor, 6 product, high byte first

#include "standin/discoverylink.h"

#include "standin/discoverycodes.h"

#include <QJsonObject>
#include <QTimer>

namespace standin {

namespace {

constexpr int kHeaderBytes = 4;
constexpr int kMacBytes = 6;
constexpr int kNameBytes = 16;
constexpr char kAck = 0x06;
constexpr char kNack = 0x15;

// Where the keyword of a command begins: behind the MAC in the commands that are sent to all.
int keywordOffset(int command)
{
    switch (command) {
    case SetDhcpMode:
    case SetIpAdr:
    case ResetUnit:
    case GetModel:
    case GetModelName:
        return kHeaderBytes + kMacBytes;
    default:
        return kHeaderBytes;
    }
}

bool isKnown(int command)
{
    return !discoveryName(command).startsWith(QLatin1String("datagram"));
}

QByteArray bytesOf(const QHostAddress &address)
{
    const quint32 number = address.toIPv4Address();
    QByteArray bytes;
    for (int shift = 24; shift >= 0; shift -= 8)
        bytes.append(static_cast<char>((number >> shift) & 0xFFU));
    return bytes;
}

QHostAddress addressAt(const QByteArray &bytes, int at)
{
    quint32 number = 0;
    for (int i = 0; i < 4; ++i)
        number = (number << 8U) | static_cast<quint8>(at + i < bytes.size() ? bytes.at(at + i) : '\0');
    return QHostAddress(number);
}

QByteArray withHeader(quint8 type, int command, const QByteArray &rest)
{
    const int length = kHeaderBytes + rest.size();
    QByteArray bytes;
    bytes.append(static_cast<char>(length >> 8));
    bytes.append(static_cast<char>(length & 0xFF));
    bytes.append(static_cast<char>(type));
    bytes.append(static_cast<char>(command));
    return bytes + rest;
}

} // namespace

QByteArray NetworkSettings::macFromText(const QString &text)
{
    const QByteArray mac = QByteArray::fromHex(QString(text).remove(QLatin1Char(':')).toLatin1());
    return mac.size() == kMacBytes ? mac : QByteArray();
}

QJsonObject NetworkSettings::toJson() const
{
    return {
        {QStringLiteral("dhcp"), dhcp},
        {QStringLiteral("name"), name},
        {QStringLiteral("mac"), QString::fromLatin1(mac.toHex(':').toUpper())},
        {QStringLiteral("address"), address.toString()},
        {QStringLiteral("nextAddress"), nextAddress.toString()},
        {QStringLiteral("mask"), mask.toString()},
        {QStringLiteral("gateway"), gateway.toString()},
        {QStringLiteral("primaryDns"), primaryDns.toString()},
        {QStringLiteral("secondaryDns"), secondaryDns.toString()},
    };
}

void NetworkSettings::fromJson(const QJsonObject &json)
{
    const auto text = [&json](const char *key) { return json.value(QLatin1String(key)).toString(); };
    const auto take = [&text](const char *key, QHostAddress &to) {
        const QHostAddress read(text(key));
        if (!read.isNull())
            to = read;
    };
    dhcp = json.value(QStringLiteral("dhcp")).toBool(dhcp);
    if (json.contains(QStringLiteral("name")))
        name = text("name");
    const QByteArray readMac = macFromText(text("mac"));
    if (!readMac.isEmpty())
        mac = readMac;
    take("address", address);
    take("nextAddress", nextAddress);
    take("mask", mask);
    take("gateway", gateway);
    take("primaryDns", primaryDns);
    take("secondaryDns", secondaryDns);
}

DiscoveryLink::DiscoveryLink(Unit &served, QObject *parent)
    : QObject(parent)
    , unit(served)
{
}

bool DiscoveryLink::listen(const QHostAddress &address, bool broadcasts, quint16 port)
{
    close();
    const auto open = [this, port](const QHostAddress &at) {
        auto socket = std::make_unique<QUdpSocket>();
        if (!socket->bind(at, port, QUdpSocket::ShareAddress | QUdpSocket::ReuseAddressHint)) {
            error = socket->errorString();
            socket.reset();
            return socket;
        }
        QUdpSocket *raw = socket.get();
        connect(raw, &QUdpSocket::readyRead, this, [this, raw] { take(raw); });
        return socket;
    };
    settings.address = address;
    directed = open(address);
    if (directed && broadcasts)
        broadcast = open(QHostAddress(QHostAddress::AnyIPv4));
    return directed && (!broadcasts || broadcast);
}

void DiscoveryLink::close()
{
    directed.reset();
    broadcast.reset();
}

void DiscoveryLink::applyNextAddress()
{
    if (settings.nextAddress.isNull())
        return;
    settings.address = settings.nextAddress;
    settings.nextAddress.clear();
    emit settingsChanged();
}

void DiscoveryLink::take(QUdpSocket *socket)
{
    while (socket->hasPendingDatagrams()) {
        QByteArray datagram(static_cast<int>(socket->pendingDatagramSize()), '\0');
        QHostAddress sender;
        quint16 port = 0;
        const qint64 got = socket->readDatagram(datagram.data(), datagram.size(), &sender, &port);
        if (got < 0)
            return;
        datagram.truncate(static_cast<int>(got));
        if (!away)
            handle(datagram, sender, port);
    }
}

void DiscoveryLink::handle(const QByteArray &datagram, const QHostAddress &sender, quint16 port)
{
    if (datagram.size() < kHeaderBytes)
        return;
    const int command = static_cast<quint8>(datagram.at(3));
    const int length = static_cast<quint8>(datagram.at(0)) * 256 + static_cast<quint8>(datagram.at(1));
    FrameRecord entry;
    entry.link = LinkKind::Discovery;
    entry.ns = monotonicNs();
    entry.raw = datagram;
    entry.code = discoveryCode(command);
    entry.ext = static_cast<quint8>(datagram.at(2)) & 0x7F; // the type's top bit is no reset
    entry.payload = datagram.mid(kHeaderBytes);
    // A host name in letters beyond ASCII makes its datagram longer than its length field says.
    entry.wellFormed = datagram.size() == length || (command == SetDhcpName && datagram.size() > length);
    entry.checksumGood = true;
    if (!entry.wellFormed || !isForUs(command, datagram)) {
        unit.addRecord(entry);
        return;
    }

    const auto type = static_cast<quint8>(datagram.at(2));
    Fault fault;
    const bool faulty = unit.takeFault(entry.code, fault);
    const auto is = [faulty, &fault](Fault::Kind kind) { return faulty && fault.kind == kind; };
    QByteArray bytes = is(Fault::Kind::Refuse) ? withHeader(type, command, QByteArray(1, kNack))
                                               : execute(command, datagram);
    if (is(Fault::Kind::Answer))
        bytes = fault.body;
    if (is(Fault::Kind::WrongChecksum) && bytes.size() > 1)
        bytes[1] = static_cast<char>(bytes.at(1) ^ 0x55); // a datagram has no sum: its length lies instead
    if (is(Fault::Kind::Silent) || is(Fault::Kind::CloseLink))
        bytes.clear();
    if (is(Fault::Kind::Short))
        bytes.truncate(fault.bytes);
    entry.reply = bytes;
    unit.addRecord(entry);

    const auto later = [this, sender, port](int ms, const QByteArray &part) {
        QTimer::singleShot(ms, Qt::PreciseTimer, this,
                           [this, part, sender, port] { reply(part, sender, port); });
    };
    if (is(Fault::Kind::Split)) {
        reply(bytes.left(fault.bytes), sender, port);
        later(fault.milliseconds, bytes.mid(fault.bytes));
    } else if (is(Fault::Kind::Late)) {
        later(fault.milliseconds, bytes);
    } else {
        reply(bytes, sender, port);
    }
    if (command == ResetUnit && !is(Fault::Kind::Refuse))
        emit restartRequested();
}

bool DiscoveryLink::isForUs(int command, const QByteArray &datagram) const
{
    if (!isKnown(command))
        return false;
    const int at = keywordOffset(command);
    const QByteArray keyword = discoveryName(command).toLatin1();
    if (datagram.mid(at, keyword.size()) != keyword)
        return false;
    return at == kHeaderBytes || datagram.mid(kHeaderBytes, kMacBytes) == settings.mac;
}

QByteArray DiscoveryLink::execute(int command, const QByteArray &datagram)
{
    const auto type = static_cast<quint8>(datagram.at(2));
    switch (command) {
    case EthReq:
        return networkRecord(type);
    case FwVerReq:
        return withHeader(type, command, unit.data(Version).left(2));
    case GetModel: {
        QByteArray ids;
        for (int id : {settings.vendor, settings.product}) {
            ids.append(static_cast<char>((id >> 8) & 0xFF));
            ids.append(static_cast<char>(id & 0xFF));
        }
        return withHeader(type, command, ids);
    }
    case GetModelName:
        return withHeader(type, command, settings.modelName.toLatin1().left(45) + '\0');
    default:
        return withHeader(type, command, QByteArray(1, configure(command, datagram) ? kAck : kNack));
    }
}

bool DiscoveryLink::configure(int command, const QByteArray &datagram)
{
    const int at = keywordOffset(command) + discoveryName(command).size();
    const QByteArray values = datagram.mid(at);
    const auto takeAddress = [&values](QHostAddress &to) {
        if (values.size() < 4)
            return false;
        to = addressAt(values, 0);
        return true;
    };
    bool done = false;
    switch (command) {
    case SetDhcpMode:
        done = !values.isEmpty();
        if (done)
            settings.dhcp = values.at(0) != 0;
        break;
    case SetIpAdr:
        done = values.size() >= 8;
        if (done) {
            settings.nextAddress = addressAt(values, 0);
            settings.gateway = addressAt(values, 4);
        }
        break;
    case SetDhcpName: {
        const int end = values.indexOf('\0');
        settings.name = QString::fromUtf8(values.left(end < 0 ? kNameBytes : end));
        done = true;
        break;
    }
    case SetMacAdr:
        done = values.size() == kMacBytes;
        if (done)
            settings.mac = values;
        break;
    case SetNetmask:
        done = takeAddress(settings.mask);
        break;
    case SetGateway:
        done = takeAddress(settings.gateway);
        break;
    case SetPriDns:
        done = takeAddress(settings.primaryDns);
        break;
    case SetSecDns:
        done = takeAddress(settings.secondaryDns);
        break;
    case ResetUnit:
        return true;
    default:
        return false;
    }
    if (done)
        emit settingsChanged();
    return done;
}

QByteArray DiscoveryLink::networkRecord(quint8 type) const
{
    QByteArray rest(1, settings.dhcp ? '\1' : '\0');
    rest += settings.name.toUtf8().left(kNameBytes).leftJustified(kNameBytes, '\0');
    rest += settings.mac;
    for (const QHostAddress &address :
         {settings.address, settings.mask, settings.gateway, settings.primaryDns, settings.secondaryDns})
        rest += bytesOf(address);
    return withHeader(type, EthReq, rest);
}

void DiscoveryLink::reply(const QByteArray &bytes, const QHostAddress &to, quint16 port)
{
    if (bytes.isEmpty() || !directed)
        return;
    directed->writeDatagram(bytes, to, port);
}

} // namespace standin
