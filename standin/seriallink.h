#pragma once

#include "standin/unit.h"

#include <QObject>
#include <QTimer>

#include <memory>

QT_BEGIN_NAMESPACE
class QSocketNotifier;
QT_END_NAMESPACE

namespace standin {

// The unit's end of the serial link: a pseudo-terminal whose other end a panel opens by its path, or a real
// device at 19200 baud, 8 data bits, no parity, one stop bit, no flow control.
class SerialLink : public QObject
{
    Q_OBJECT

public:
    explicit SerialLink(Unit &unit, QObject *parent = nullptr);
    ~SerialLink() override;

    bool openPty();
    bool openDevice(const QString &path);
    void close();
    bool isOpen() const { return file >= 0; }
    // The path that a panel opens: the pseudo-terminal's other end, or the device itself.
    QString portName() const { return port; }
    QString errorString() const { return error; }

private:
    bool watch();
    bool fail(const QString &what);
    void take();
    void send(const Response &response);
    void write(const QByteArray &bytes) const;

    Unit &unit;
    StreamSplitter splitter{LinkKind::Serial};
    QTimer patience;
    std::unique_ptr<QSocketNotifier> notifier;
    int file = -1;
    int slave = -1; // held open, so that the master sees no hang-up between two openings by the panel
    QString port;
    QString error;
};

} // namespace standin
