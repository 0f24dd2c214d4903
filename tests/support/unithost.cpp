#include "tests/support/unithost.h"

#include "standin/networklink.h"
#include "standin/seriallink.h"
#include "tests/support/loopback.h"
#include "tests/support/testnetwork.h"

#include <QHostAddress>
#include <QThread>

#include <atomic>

namespace support {

namespace {

// An address that no other unit of this process has.
QHostAddress nextAddress()
{
    constexpr int kFirst = 100;
    constexpr int kAddresses = 150;
    static std::atomic<int> instance{0};
    return QHostAddress(ownLoopback(kFirst + instance++ % kAddresses));
}

} // namespace

struct UnitHost::Private
{
    QThread thread;
    QObject *inThread = nullptr; // lives in the thread; parent of the links
    std::unique_ptr<standin::Unit> unit;
    standin::NetworkLink *network = nullptr;
    standin::SerialLink *serial = nullptr;
    standin::DiscoveryLink *discovery = nullptr;
    int restarts = 0;
    QHostAddress address;
    QString port;

    void run(const std::function<void()> &action) const
    {
        QMetaObject::invokeMethod(inThread, action, Qt::BlockingQueuedConnection);
    }

    void start(const Options &options)
    {
        if (!options.netNamespace.isEmpty() && !TestNetwork::enter(options.netNamespace))
            qFatal("The stand-in unit can't enter the namespace %s", qPrintable(options.netNamespace));
        unit = std::make_unique<standin::Unit>();
        address = QHostAddress(options.address);
        if (options.network) {
            network = new standin::NetworkLink(*unit, inThread);
            listen(options);
        }
        if (options.serial) {
            serial = new standin::SerialLink(*unit, inThread);
            if (!serial->openPty())
                qFatal("The stand-in unit has no serial link: %s", qPrintable(serial->errorString()));
            port = serial->portName();
        }
        if (options.discovery)
            startDiscovery(options);
    }

    void startDiscovery(const Options &options)
    {
        if (address.isNull())
            address = nextAddress();
        discovery = new standin::DiscoveryLink(*unit, inThread);
        if (!discovery->listen(address, options.broadcasts))
            qFatal("The stand-in unit can't be discovered at %s: %s", qPrintable(address.toString()),
                   qPrintable(discovery->errorString()));
        QObject::connect(discovery, &standin::DiscoveryLink::restartRequested, inThread, [this] {
            ++restarts;
            discovery->applyNextAddress();
            if (network)
                network->drop();
        });
    }

    void listen(const Options &options)
    {
        constexpr int kAttempts = 20;
        for (int attempt = 0; attempt < kAttempts; ++attempt) {
            address = options.address.isEmpty() ? nextAddress() : QHostAddress(options.address);
            if (network->listen(address))
                return;
            if (!options.address.isEmpty())
                break;
        }
        qFatal("The stand-in unit can't listen on %s: %s", qPrintable(address.toString()),
               qPrintable(network->errorString()));
    }
};

UnitHost::UnitHost()
    : UnitHost(Options{})
{
}

UnitHost::UnitHost(const Options &options)
    : d(std::make_unique<Private>())
{
    d->inThread = new QObject;
    d->inThread->moveToThread(&d->thread);
    d->thread.start();
    d->run([this, &options] { d->start(options); });
}

UnitHost::~UnitHost()
{
    d->run([this] {
        delete d->network;
        delete d->serial;
        delete d->discovery;
    });
    d->inThread->deleteLater();
    d->thread.quit();
    d->thread.wait();
}

QString UnitHost::address() const
{
    return d->address.toString();
}

QString UnitHost::serialPortName() const
{
    return d->port;
}

QVector<standin::FrameRecord> UnitHost::record() const
{
    QVector<standin::FrameRecord> frames;
    d->run([this, &frames] { frames = d->unit->record(); });
    return frames;
}

QVector<int> UnitHost::codes() const
{
    QVector<int> list;
    for (const standin::FrameRecord &frame : record())
        list.append(frame.code);
    return list;
}

QStringList UnitHost::frames(const QVector<int> &without) const
{
    QStringList list;
    for (const standin::FrameRecord &frame : record()) {
        if (frame.link == standin::LinkKind::Discovery || without.contains(frame.code))
            continue;
        const QByteArray bytes = static_cast<char>(frame.code) + frame.payload;
        list += (frame.isExtended() ? QStringLiteral("reset ") : QString())
            + QString::fromLatin1(bytes.toHex(' '));
    }
    return list;
}

QStringList UnitHost::wireFrames() const
{
    QStringList list;
    for (const standin::FrameRecord &frame : record())
        list += QString::fromLatin1(frame.raw.toHex(' ').toUpper());
    return list;
}

QStringList UnitHost::requests() const
{
    QStringList list;
    for (const standin::FrameRecord &frame : record()) {
        if (frame.link == standin::LinkKind::Discovery)
            list += frame.name();
    }
    return list;
}

void UnitHost::clearRecord()
{
    d->run([this] { d->unit->clearRecord(); });
}

int UnitHost::count(int code) const
{
    int frames = 0;
    d->run([this, code, &frames] { frames = d->unit->count(code); });
    return frames;
}

void UnitHost::setFault(int code, const standin::Fault &fault)
{
    d->run([this, code, &fault] { d->unit->setFault(code, fault); });
}

void UnitHost::clearFaults()
{
    d->run([this] { d->unit->clearFaults(); });
}

void UnitHost::drop()
{
    d->run([this] {
        if (d->network)
            d->network->drop();
    });
}

void UnitHost::stopListening()
{
    d->run([this] {
        if (d->network)
            d->network->stopListening();
    });
}

bool UnitHost::listenAgain()
{
    bool listening = false;
    d->run([this, &listening] { listening = d->network && d->network->listen(d->address); });
    return listening;
}

int UnitHost::clientCount() const
{
    int clients = 0;
    d->run([this, &clients] { clients = d->network ? d->network->clientCount() : 0; });
    return clients;
}

void UnitHost::withUnit(const std::function<void(standin::Unit &)> &action)
{
    d->run([this, &action] { action(*d->unit); });
}

void UnitHost::withNetwork(const std::function<void(standin::NetworkSettings &)> &action)
{
    d->run([this, &action] {
        if (d->discovery)
            action(d->discovery->settings);
    });
}

int UnitHost::restarts() const
{
    int count = 0;
    d->run([this, &count] { count = d->restarts; });
    return count;
}

} // namespace support
