#include "tests/support/vectors.h"

#include <QFile>
#include <QStringList>

namespace support {

namespace {

// The lines that are no comment, cut at the bars.
QVector<QStringList> rowsOf(const QString &name, int columns)
{
    QVector<QStringList> rows;
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/vectors/") + name);
    if (!file.open(QIODevice::ReadOnly))
        return rows;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const QStringList row = line.split(QLatin1Char('|'));
        if (!line.startsWith(QLatin1Char('#')) && row.size() == columns)
            rows.append(row);
    }
    return rows;
}

} // namespace

QVector<Vector> readVectors()
{
    QVector<Vector> vectors;
    for (const QStringList &row : rowsOf(QStringLiteral("exchanges.txt"), 4)) {
        const QStringList title = row.at(0).trimmed().split(QLatin1Char(' '));
        Vector vector;
        vector.verb = title.value(0);
        vector.function = title.value(1);
        vector.out = QByteArray::fromHex(row.at(1).toLatin1());
        vector.in = QByteArray::fromHex(row.at(2).toLatin1());
        for (const QString &pair : row.at(3).simplified().split(QLatin1Char(' '))) {
            if (pair.contains(QLatin1Char('=')))
                vector.values.insert(pair.section(QLatin1Char('='), 0, 0),
                                     pair.section(QLatin1Char('='), 1).toInt());
        }
        vectors.append(vector);
    }
    return vectors;
}

QVector<Datagram> readDatagrams()
{
    QVector<Datagram> datagrams;
    for (const QStringList &row : rowsOf(QStringLiteral("datagrams.txt"), 3))
        datagrams.append({row.at(0).trimmed(), QByteArray::fromHex(row.at(1).toLatin1()),
                          QByteArray::fromHex(row.at(2).toLatin1())});
    return datagrams;
}

} // namespace support
