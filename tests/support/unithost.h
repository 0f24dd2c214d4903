#pragma once

#include "standin/discoverylink.h"
#include "standin/unit.h"

#include <QString>
#include <QStringList>
#include <QVector>

#include <functional>
#include <memory>

namespace support {

// A stand-in unit on a thread of its own, since the panel blocks its own thread. Every call is safe from the
// test's thread. A host that can't listen ends the test's process with a plain sentence.
class UnitHost
{
public:
    struct Options
    {
        QString address; // empty: a loopback address 127.x.y.z that no other host of this machine has
        bool network = true; // TCP port 5002
        bool serial = false; // a pseudo-terminal
        bool discovery = false; // UDP port 5002 of the address
        bool broadcasts = false; // and what is sent to all; only inside a namespace of the test's own
        QString netNamespace{}; // the unit's thread lives in this network namespace
    };

    UnitHost();
    explicit UnitHost(const Options &options);
    ~UnitHost();
    UnitHost(const UnitHost &) = delete;
    UnitHost &operator=(const UnitHost &) = delete;

    QString address() const; // listens on address():5002
    QString serialPortName() const; // full path of the pty's slave

    QVector<standin::FrameRecord> record() const;
    QVector<int> codes() const; // the codes of the record, in order
    // The frames of the record from the command byte on and without the checksum: "d1 03 04", "reset d1 00 00".
    // Those with the codes `without` are left out, such as what the poll reads.
    QStringList frames(const QVector<int> &without = {}) const;
    // All frames whole, as they lay on the link, with lengths and checksum: "00 06 03 00 6C 6F".
    QStringList wireFrames() const;
    QStringList requests() const; // the names of the datagrams of the record: "SET_GATEWAY"
    void clearRecord();
    int count(int code) const; // frames with this code since the last clearRecord()

    void setFault(int code, const standin::Fault &fault);
    void clearFaults();

    void drop(); // cuts the TCP link off, as a restart would; the unit still listens
    void stopListening(); // new connections are refused from now on
    bool listenAgain();
    int clientCount() const;

    // Runs in the unit's thread and waits for it: read or change its state, e.g. unit.setValue(standin::Dark,
    // "level", 7) or unit.setData(standin::Dark, QByteArray::fromHex("01c800e80364")).
    void withUnit(const std::function<void(standin::Unit &)> &action);
    // The same for what discovery shows and sets; needs the option `discovery`.
    void withNetwork(const std::function<void(standin::NetworkSettings &)> &action);
    int restarts() const; // RESET requests that were carried out

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace support
