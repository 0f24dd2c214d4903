#pragma once

#include "standin/framereader.h"

#include <QObject>

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
    // Makes a link to the pseudo-terminal at this path, until the line is closed. Whatever lies there already
    // stays and is an error, but for a link that a killed run left behind.
    bool publish(const QString &path);
    void close();
    bool isOpen() const { return file >= 0; }
    // The path that a panel opens: the pseudo-terminal's other end, or the device itself.
    QString portName() const { return port; }
    QString errorString() const { return error; }

private:
    bool watch();
    bool fail(const QString &what);
    void take();
    void write(const QByteArray &bytes) const;

    FrameReader reader;
    std::unique_ptr<QSocketNotifier> notifier;
    int file = -1;
    int slave = -1; // held open, so that the master sees no hang-up between two openings by the panel
    QString port;
    QByteArray link; // the path that leads to the pseudo-terminal
    QString error;
};

} // namespace standin
