#include "device/serialport.h"

#include <QDebug>

namespace {
constexpr int kWriteWaitMs = 1000;
constexpr int kReadWaitMs = 1000;
} // namespace

serialPort::serialPort(QObject *parent)
    : QObject(parent)
    , serial(new QSerialPort)
    , serialInfo(new QSerialPortInfo)
{
}

serialPort::~serialPort()
{
    delete serialInfo;
    delete serial;
}

QString serialPort::openSerialPort(QString select)
{
    qDebug() << "Serial Port:" << select;
    serial->setPortName(select);
    serial->setBaudRate(baudRate);
    serial->setDataBits(dataBits);
    serial->setParity(parity);
    serial->setStopBits(stopBits);
    serial->setFlowControl(flowControl);
    if (!serial->open(QIODevice::ReadWrite))
        return serial->errorString();
    return QStringLiteral("OK");
}

void serialPort::closeSerialPort()
{
    if (serial->isOpen())
        serial->close();
}

qint64 serialPort::writeData(QByteArray &data)
{
    const qint64 written = serial->write(data);
    serial->waitForBytesWritten(kWriteWaitMs);
    return written;
}

void serialPort::readData(QByteArray &data)
{
    serial->waitForReadyRead(kReadWaitMs);
    data = serial->readAll();
}

void serialPort::handleError(QSerialPort::SerialPortError error)
{
    if (error == QSerialPort::ResourceError)
        closeSerialPort();
}

QStringList serialPort::getSerialInfoList()
{
    QStringList names;
    const QList<QSerialPortInfo> ports = QSerialPortInfo::availablePorts();
    for (const QSerialPortInfo &port : ports)
        names.append(port.portName());
    return names;
}

void serialPort::about() { }
