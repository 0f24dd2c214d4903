#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QVector>

namespace support {

// One line of tests/vectors/exchanges.txt: bytes as they go over the serial link.
struct Vector
{
    QString verb; // get, set, reset
    QString function;
    QByteArray out;
    QByteArray in; // empty for a reset: the unit's own defaults
    QMap<QString, int> values;
    QString title() const { return verb + QLatin1Char(' ') + function; }
};

// Empty when the file can't be read.
QVector<Vector> readVectors();

// One line of tests/vectors/datagrams.txt.
struct Datagram
{
    QString request; // the keyword and its values
    QByteArray out;
    QByteArray in;
};

QVector<Datagram> readDatagrams();

} // namespace support
