#pragma once

#include <QObject>
#include <QSerialPort>
#include <QSerialPortInfo>
#include <QString>
#include <QStringList>

// The RS-232 port to the unit: 19200 baud, 8 data bits, no parity, one stop bit, no flow control. It does one
// write or one read at a time and blocks while it does.
class serialPort : public QObject
{
    Q_OBJECT

public:
    explicit serialPort(QObject *parent = nullptr);
    ~serialPort() override;

    // Opens the named port with the fixed settings. "OK", or the port's own error text.
    QString openSerialPort(QString select);

    // Closes the port if it is open.
    void closeSerialPort();

    // Writes the whole array and waits up to 1 s for it to leave. The result is that of the write alone:
    // the bytes taken, or -1, for example on a closed port.
    qint64 writeData(QByteArray &data);

    // Waits up to 1 s for bytes and replaces `data` by what has arrived by then; empty when nothing came.
    void readData(QByteArray &data);

    // Closes the port on a resource error and does nothing on any other. Not connected to the port's error
    // signal: a lost port comes to light at the next failing write.
    void handleError(QSerialPort::SerialPortError error);

    // The names of the machine's ports, in the system's order.
    QStringList getSerialInfoList();

    void about();

private:
    QSerialPort *serial;
    QSerialPortInfo *serialInfo;

    // Only the numbers reach the port. The name always comes from openSerialPort, and the texts describe.
    QString name = QStringLiteral("COM3");
    qint32 baudRate = 19200;
    QString stringBaudRate = QStringLiteral("19200");
    QSerialPort::DataBits dataBits = QSerialPort::Data8;
    QString stringDataBits = QStringLiteral("8");
    QSerialPort::Parity parity = QSerialPort::NoParity;
    QString stringParity = QStringLiteral("NoParity");
    QSerialPort::StopBits stopBits = QSerialPort::OneStop;
    QString stringStopBits = QStringLiteral("OneStop");
    QSerialPort::FlowControl flowControl = QSerialPort::NoFlowControl;
    QString stringFlowControl = QStringLiteral("NoFlowControl");
    bool localEchoEnabled = false;
};
