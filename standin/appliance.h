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
    struct Options
    {
        bool network = true;
        bool discovery = true;
        QString serial; // empty: none; "pty": a pseudo-terminal; else the path of a device
        QString stateFile;
        QString logFile; // JSON lines
        QString adapter; // readdressed on a restart with a new address; empty: the host's address stays
        int prefixLength = 24;
        int restartMs = 1500;
    };

    explicit Appliance(QObject *parent = nullptr);
    ~Appliance() override;

    Unit unit;
    NetworkLink network{unit};
    SerialLink serial{unit};
    DiscoveryLink discovery{unit};

    // Before start(): what the state file holds goes over the settings that stand already.
    bool loadState(const QString &file, QString *error);
    bool start(const Options &options, QString *error);
    // As after RESET: the links go, and come back after the restart time at the address that was set last.
    void restart();
    bool saveState();
    // One line that says where the unit can be reached.
    QString whereabouts() const;

signals:
    // For people: frames by name with their values, clients that come and go, restarts.
    void told(const QString &line);

private:
    bool openLinks(QString *error);
    void comeBack();
    void logFrame(const FrameRecord &frame);

    Options options;
    QFile log;
    QTimer saveSoon;
};

} // namespace standin
