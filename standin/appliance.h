#pragma once

#include "standin/discoverylink.h"
#include "standin/networklink.h"
#include "standin/seriallink.h"
#include "standin/unit.h"

#include <QFile>
#include <QObject>
#include <QTimer>

namespace standin {

// The whole stand-in as a program runs it: the unit, its links, its state file, its log, its restart.
class Appliance : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        bool network = true;
        bool discovery = true;
        QString serial; // empty: none; "pty": a pseudo-terminal; else the path of a device
        QString serialLink; // a link to the pseudo-terminal, made at this path
        QString stateFile;
        QString logFile; // JSON lines
        QString adapter; // readdressed on a restart with a new address; empty: the host's address stays
        int prefixLength = 24;
        int restartMs = 1500;
        Pace pace;
    };

    explicit Appliance(QObject *parent = nullptr);
    ~Appliance() override;

    Unit unit;
    NetworkLink network{unit};
    SerialLink serial{unit};
    DiscoveryLink discovery{unit};

    // Before start(): what the state file holds goes over the settings that stand already. No file is good too:
    // the first save makes it.
    bool loadState(const QString &file, QString *error);
    bool start(const Setup &wanted, QString *error);
    // As after RESET: the links go, and come back after the restart time at the address that was set last.
    void restart();
    bool saveState(QString *error);
    // The last save. Nothing is written after it, nor before a start that succeeded.
    bool finish(QString *error);
    // One line that says where the unit can be reached.
    QString whereabouts() const;

signals:
    // For people: frames by name with their values, clients that come and go, restarts.
    void told(const QString &line);
    // What it could not do while it runs.
    void complained(const QString &line);

private:
    bool openLog(QString *error);
    bool openSerial(QString *error);
    bool openLinks(QString *error);
    void saveNow();
    void readdress(const QHostAddress &next);
    void comeBack();
    void logFrame(const FrameRecord &frame);

    Setup setup;
    QFile log;
    QTimer saveSoon;
    bool isRunning = false;
    bool saveFailed = false; // told once, until a save succeeds
};

} // namespace standin
