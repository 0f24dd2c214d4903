#include "standin/appliance.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>
#include <QSaveFile>

#include <sys/stat.h>

namespace standin {

namespace {

constexpr int kSaveAfterMs = 200; // a dragged slider changes the state many times a second
constexpr qint64 kLargestState = qint64(1024) * 1024;

// A named pipe would hold the program up for as long as nobody is at its other end.
bool canBeLog(const QString &file)
{
    struct stat about
    {
    };
    return ::stat(QFile::encodeName(file).constData(), &about) != 0 || S_ISREG(about.st_mode)
        || S_ISCHR(about.st_mode);
}

// Reads a state file; whatever else a file of this name may hold is left alone, and refused with its reason.
bool readState(const QString &file, QJsonObject *state, QString *error)
{
    const QFileInfo about(file);
    if (!about.exists())
        return true;
    QFile source(file);
    QJsonParseError parse{};
    if (!about.isFile()) {
        *error = QStringLiteral("%1 can't be the state: it is no ordinary file").arg(file);
    } else if (about.size() > kLargestState) {
        *error = QStringLiteral("%1 is no state of a unit: it is larger than 1 MiB").arg(file);
    } else if (!source.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("%1 can't be read: %2").arg(file, source.errorString());
    } else {
        const QJsonDocument document = QJsonDocument::fromJson(source.readAll(), &parse);
        *state = document.object();
        if (parse.error != QJsonParseError::NoError)
            *error = QStringLiteral("%1 is no state of a unit: %2 at byte %3")
                         .arg(file, parse.errorString())
                         .arg(parse.offset);
        else if (!state->contains(QStringLiteral("present")))
            *error = QStringLiteral("%1 is no state of a unit: it holds no \"present\"").arg(file);
    }
    return error->isEmpty();
}

} // namespace

Appliance::Appliance(QObject *parent)
    : QObject(parent)
{
    saveSoon.setSingleShot(true);
    saveSoon.setInterval(kSaveAfterMs);
    connect(&saveSoon, &QTimer::timeout, this, &Appliance::saveNow);
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
    saveNow();
    unit.onFrame = nullptr;
    unit.onStateChanged = nullptr;
}

bool Appliance::loadState(const QString &file, QString *error)
{
    QJsonObject state;
    if (!readState(file, &state, error))
        return false;
    const QJsonValue settings = state.value(QStringLiteral("network"));
    QString wrong = unit.fromJson(state);
    if (wrong.isEmpty() && !settings.isUndefined() && !settings.isObject())
        wrong = QStringLiteral("network is no object");
    if (wrong.isEmpty())
        wrong = discovery.settings.fromJson(settings.toObject());
    if (!wrong.isEmpty())
        *error = QStringLiteral("%1 is no state of a unit: %2").arg(file, wrong);
    return wrong.isEmpty();
}

bool Appliance::start(const Setup &wanted, QString *error)
{
    setup = wanted;
    unit.pace = wanted.pace;
    // A state that can't be kept shows at once, not at the end of a rehearsal.
    isRunning = openLog(error) && openSerial(error) && openLinks(error) && saveState(error);
    return isRunning;
}

bool Appliance::openLog(QString *error)
{
    if (setup.logFile.isEmpty())
        return true;
    log.setFileName(setup.logFile);
    if (!canBeLog(setup.logFile))
        *error = QStringLiteral("%1 can't be the log: it is no ordinary file").arg(setup.logFile);
    else if (!log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        *error = QStringLiteral("%1 can't be written: %2").arg(setup.logFile, log.errorString());
    return error->isEmpty();
}

bool Appliance::openSerial(QString *error)
{
    if (setup.serial.isEmpty())
        return true;
    const bool open =
        setup.serial == QLatin1String("pty") ? serial.openPty() : serial.openDevice(setup.serial);
    if (!open || (!setup.serialLink.isEmpty() && !serial.publish(setup.serialLink)))
        *error = serial.errorString();
    return error->isEmpty();
}

bool Appliance::openLinks(QString *error)
{
    const QHostAddress address = discovery.settings.address;
    if (setup.network && !network.listen(address)) {
        *error = QStringLiteral("TCP %1:%2: %3")
                     .arg(address.toString(), QString::number(UnitPort), network.errorString());
        return false;
    }
    // On the loopback there are no broadcasts to hear, and port 5002 of all addresses belongs to nobody there.
    if (setup.discovery && !discovery.listen(address, !address.isLoopback())) {
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
    QTimer::singleShot(setup.restartMs, this, &Appliance::comeBack);
}

void Appliance::readdress(const QHostAddress &next)
{
    const QString adapter = setup.adapter;
    const QString withPrefix = QStringLiteral("%1/%2").arg(next.toString()).arg(setup.prefixLength);
    const QVector<QString> commands = {
        QStringLiteral("address flush dev %1").arg(adapter),
        QStringLiteral("address add %1 broadcast + dev %2").arg(withPrefix, adapter),
        QStringLiteral("route replace default dev %1").arg(adapter),
    };
    for (const QString &command : commands) {
        if (QProcess::execute(QStringLiteral("ip"), command.split(QLatin1Char(' '))) != 0)
            emit complained(QStringLiteral("\"ip %1\" failed").arg(command));
    }
}

void Appliance::comeBack()
{
    const QHostAddress next = discovery.settings.nextAddress;
    if (!next.isNull() && !setup.adapter.isEmpty()) {
        readdress(next);
        discovery.applyNextAddress();
    }
    discovery.setAway(false);
    QString error;
    if (openLinks(&error))
        emit told(whereabouts());
    else
        emit complained(QStringLiteral("the unit does not come back: ") + error);
}

bool Appliance::saveState(QString *error)
{
    saveSoon.stop();
    if (setup.stateFile.isEmpty())
        return true;
    QJsonObject json = unit.toJson();
    json.insert(QStringLiteral("network"), discovery.settings.toJson());
    QSaveFile file(setup.stateFile);
    const bool saved =
        file.open(QIODevice::WriteOnly) && file.write(QJsonDocument(json).toJson()) > 0 && file.commit();
    if (!saved)
        *error = QStringLiteral("%1 can't be written: %2").arg(setup.stateFile, file.errorString());
    return saved;
}

bool Appliance::finish(QString *error)
{
    const bool saved = !isRunning || saveState(error);
    isRunning = false;
    return saved;
}

void Appliance::saveNow()
{
    if (!isRunning)
        return;
    QString error;
    const bool failed = !saveState(&error);
    if (failed && !saveFailed)
        emit complained(error);
    saveFailed = failed;
}

QString Appliance::whereabouts() const
{
    QStringList places;
    const QString address = discovery.settings.address.toString();
    if (network.isListening())
        places.append(QStringLiteral("TCP %1:%2").arg(address).arg(UnitPort));
    if (setup.discovery)
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
    QJsonObject json = frame.toJson();
    json.insert(QStringLiteral("unit"), discovery.settings.address.toString());
    log.write(QJsonDocument(json).toJson(QJsonDocument::Compact) + '\n');
    if (log.flush())
        return;
    emit complained(QStringLiteral("%1 can't be written: %2").arg(setup.logFile, log.errorString()));
    log.close(); // told once; the frames still show in the record
}

} // namespace standin
