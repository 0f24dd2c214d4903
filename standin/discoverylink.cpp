// A datagram either way   [length hi][length lo][type][command] ...    the length counts the whole datagram
// Broadcast request       type 0x80, then the MAC of the unit that is meant (6), keyword, values; ETH_REQ has no MAC
// Directed request        type 0x81, then keyword, values
// Acknowledgement         one byte at 4: 0x06 done, 0x15 refused
// Network record          4 DHCP flag, 5 name (16), 21 MAC, 27 address, 31 mask, 35 gateway, 39 and 43 DNS: 47 bytes
// Model                   4 vendor, 6 product, high byte first

#include "standin/discoverylink.h"

#include <utility>

namespace standin {

namespace {

constexpr int kHeaderBytes = 4;
constexpr int kMacBytes = NetworkSettings::MacBytes;
constexpr int kNameBytes = NetworkSettings::NameBytes;
constexpr char kAck = 0x06;
constexpr char kNack = 0x15;

// Where the keyword of a command begins, and where its values do.
int keywordAt(const DiscoveryFunction &function)
{
    return kHeaderBytes + (function.namesAUnit ? kMacBytes : 0);
}

int valuesAt(const DiscoveryFunction &function)
{
    return keywordAt(function) + static_cast<int>(qstrlen(function.keyword));
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
    deliver(answer(datagram), this,
            [this, sender, port](const QByteArray &bytes) { reply(bytes, sender, port); });
    if (std::exchange(restartAsked, false))
        emit restartRequested();
}

Response DiscoveryLink::answer(const QByteArray &datagram)
{
    if (datagram.size() < kHeaderBytes)
        return {};
    const auto type = static_cast<quint8>(datagram.at(2));
    const int command = static_cast<quint8>(datagram.at(3));
    const int length = static_cast<quint8>(datagram.at(0)) * 256 + static_cast<quint8>(datagram.at(1));
    FrameRecord entry;
    entry.link = LinkKind::Discovery;
    entry.ns = monotonicNs();
    entry.raw = datagram;
    entry.code = discoveryCode(command);
    entry.ext = type & 0x7F; // the type's top bit is no reset
    entry.payload = datagram.mid(kHeaderBytes);
    // A host name in letters beyond ASCII makes its datagram longer than its length field says.
    const bool longName = command == SetDhcpName && datagram.size() > length;
    entry.wellFormed = datagram.size() == length || longName;
    entry.checksumGood = true;
    const DiscoveryFunction *function = discoveryFunction(command);
    if (!entry.wellFormed || !function || !isForUs(*function, datagram)) {
        unit.addRecord(entry);
        return {};
    }
    if (!longName)
        entry.oddLength =
            oddLength({valuesAt(*function) - kHeaderBytes + function->valueBytes}, entry.payload.size());

    Speech speech;
    speech.refusal = [type, command](int) { return withHeader(type, command, QByteArray(1, kNack)); };
    speech.ownAnswer = [](const QByteArray &body) { return body; };
    speech.sumAt = [](const QByteArray &) { return 1; }; // a datagram has no sum: its length lies instead
    speech.carryOut = [&] { return execute(*function, datagram); };
    Response response = respond(unit.takeFault({entry.code}), speech);
    entry.reply = response.bytes();
    unit.addRecord(entry);
    return response;
}

bool DiscoveryLink::isForUs(const DiscoveryFunction &function, const QByteArray &datagram) const
{
    if (!datagram.mid(keywordAt(function)).startsWith(function.keyword))
        return false;
    return !function.namesAUnit || datagram.mid(kHeaderBytes, kMacBytes) == settings.mac;
}

QByteArray DiscoveryLink::execute(const DiscoveryFunction &function, const QByteArray &datagram)
{
    const int command = function.command;
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
        return withHeader(type, command, QByteArray(1, configure(function, datagram) ? kAck : kNack));
    }
}

QHostAddress *DiscoveryLink::addressSetBy(int command)
{
    switch (command) {
    case SetNetmask:
        return &settings.mask;
    case SetGateway:
        return &settings.gateway;
    case SetPriDns:
        return &settings.primaryDns;
    case SetSecDns:
        return &settings.secondaryDns;
    default:
        return nullptr;
    }
}

bool DiscoveryLink::configure(const DiscoveryFunction &function, const QByteArray &datagram)
{
    const int command = function.command;
    if (command == ResetUnit) {
        restartAsked = true;
        return true;
    }
    const QByteArray values = datagram.mid(valuesAt(function));
    if (command == SetDhcpName) {
        const int end = values.indexOf('\0');
        settings.name = QString::fromUtf8(values.left(end < 0 ? kNameBytes : end));
    } else if (values.size() < function.valueBytes || (command == SetMacAdr && values.size() > kMacBytes)) {
        return false;
    } else if (command == SetDhcpMode) {
        settings.dhcp = values.at(0) != 0;
    } else if (command == SetIpAdr) {
        settings.nextAddress = addressAt(values, 0);
        settings.gateway = addressAt(values, 4);
    } else if (command == SetMacAdr) {
        settings.mac = values.left(kMacBytes);
    } else if (QHostAddress *address = addressSetBy(command)) {
        *address = addressAt(values, 0);
    }
    emit settingsChanged();
    return true;
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
