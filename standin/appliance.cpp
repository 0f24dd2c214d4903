#include "standin/appliance.h"

#include <QJsonDocument>
#include <QProcess>
#include <QSaveFile>

namespace standin {

namespace {

constexpr int kSaveAfterMs = 200; // a dragged slider changes the state many times a second

} // namespace

Appliance::Appliance(QObject *parent)
    : QObject(parent)
{
    saveSoon.setSingleShot(true);
    saveSoon.setInterval(kSaveAfterMs);
    connect(&saveSoon, &QTimer::timeout, this, &Appliance::saveState);
    connect(&discovery, &DiscoveryLink::settingsChanged, this, [this] { saveSoon.start(); });
    connect(&discovery, &DiscoveryLink::restartRequested, this, &Appliance::restart);
    connect(&network, &NetworkLink::clientConnected, this,
            [this](const QString &peer) { emit told(QStringLiteral("%1 connected").arg(peer)); });
    connect(&network, &NetworkLink::clientGone, this,
            [this](const QString &peer) { emit told(QStringLiteral("%1 gone").arg(peer)); });
    unit.onStateChanged = [this] { saveSoon.start(); };
    unit.onFrame = [this](const FrameRecord &frame) { logFrame(frame); };
}

Appliance::~Appliance()
{
    saveState();
    unit.onFrame = nullptr;
    unit.onStateChanged = nullptr;
}

bool Appliance::loadState(const QString &file, QString *error)
{
    options.stateFile = file;
    QFile state(file);
    if (!state.exists())
        return true; // the first run writes it
    if (!state.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1: %2").arg(file, state.errorString());
        return false;
    }
    QJsonParseError parse;
    const QJsonDocument document = QJsonDocument::fromJson(state.readAll(), &parse);
    if (!document.isObject()) {
        *error = QStringLiteral("%1: %2").arg(file, parse.errorString());
        return false;
    }
    unit.fromJson(document.object());
    discovery.settings.fromJson(document.object().value(QStringLiteral("network")).toObject());
    return true;
}

bool Appliance::start(const Options &wanted, QString *error)
{
    const QString stateFile = options.stateFile;
    options = wanted;
    if (options.stateFile.isEmpty())
        options.stateFile = stateFile;
    if (!options.logFile.isEmpty()) {
        log.setFileName(options.logFile);
        if (!log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
            *error = QStringLiteral("%1: %2").arg(options.logFile, log.errorString());
            return false;
        }
    }
    if (!options.serial.isEmpty()) {
        const bool open =
            options.serial == QLatin1String("pty") ? serial.openPty() : serial.openDevice(options.serial);
        if (!open) {
            *error = serial.errorString();
            return false;
        }
    }
    return openLinks(error);
}

bool Appliance::openLinks(QString *error)
{
    const QHostAddress address = discovery.settings.address;
    if (options.network && !network.listen(address)) {
        *error = QStringLiteral("TCP %1:%2: %3")
                     .arg(address.toString(), QString::number(UnitPort), network.errorString());
        return false;
    }
    // On the loopback there are no broadcasts to hear, and port 5002 of all addresses belongs to nobody there.
    if (options.discovery && !discovery.listen(address, !address.isLoopback())) {
        *error = QStringLiteral("UDP %1:%2: %3")
                     .arg(address.toString(), QString::number(UnitPort), discovery.errorString());
        return false;
    }
    return true;
}

void Appliance::restart()
{
    emit told(QStringLiteral("restarting"));
    discovery.setAway(true);
    network.stopListening();
    network.drop();
    QTimer::singleShot(options.restartMs, this, &Appliance::comeBack);
}

void Appliance::comeBack()
{
    const QHostAddress next = discovery.settings.nextAddress;
    if (!next.isNull() && !options.adapter.isEmpty()) {
        const QString withPrefix = QStringLiteral("%1/%2").arg(next.toString()).arg(options.prefixLength);
        const QString adapter = options.adapter;
        QProcess::execute(QStringLiteral("ip"),
                          {QStringLiteral("addr"), QStringLiteral("flush"), QStringLiteral("dev"), adapter});
        QProcess::execute(QStringLiteral("ip"),
                          {QStringLiteral("addr"), QStringLiteral("add"), withPrefix, QStringLiteral("brd"),
                           QStringLiteral("+"), QStringLiteral("dev"), adapter});
        QProcess::execute(QStringLiteral("ip"),
                          {QStringLiteral("route"), QStringLiteral("replace"), QStringLiteral("default"),
                           QStringLiteral("dev"), adapter});
        discovery.applyNextAddress();
    }
    discovery.setAway(false);
    QString error;
    emit told(openLinks(&error) ? whereabouts() : error);
}

bool Appliance::saveState()
{
    saveSoon.stop();
    if (options.stateFile.isEmpty())
        return true;
    QJsonObject json = unit.toJson();
    json.insert(QStringLiteral("network"), discovery.settings.toJson());
    QSaveFile file(options.stateFile);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    file.write(QJsonDocument(json).toJson());
    return file.commit();
}

QString Appliance::whereabouts() const
{
    QStringList places;
    const QString address = discovery.settings.address.toString();
    if (network.isListening())
        places.append(QStringLiteral("TCP %1:%2").arg(address).arg(UnitPort));
    if (options.discovery)
        places.append(QStringLiteral("UDP %1:%2").arg(address).arg(UnitPort));
    if (serial.isOpen())
        places.append(QStringLiteral("serial ") + serial.portName());
    return QStringLiteral("ready on ") + places.join(QStringLiteral(", "));
}

void Appliance::logFrame(const FrameRecord &frame)
{
    emit told(QStringLiteral("%1 %2").arg(linkName(frame.link), frame.describe()));
    if (!log.isOpen())
        return;
    log.write(QJsonDocument(frame.toJson()).toJson(QJsonDocument::Compact) + '\n');
    log.flush();
}

} // namespace standin
