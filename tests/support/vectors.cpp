#include "tests/support/vectors.h"

#include <QFile>
#include <QStringList>

namespace support {

QVector<Vector> readVectors()
{
    QVector<Vector> vectors;
    QFile file(QStringLiteral(QT_TESTCASE_SOURCEDIR "/vectors/exchanges.txt"));
    if (!file.open(QIODevice::ReadOnly))
        return vectors;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).trimmed();
        const QStringList columns = line.split(QLatin1Char('|'));
        if (line.startsWith(QLatin1Char('#')) || columns.size() != 4)
            continue;
        const QStringList title = columns.at(0).trimmed().split(QLatin1Char(' '));
        Vector vector;
        vector.verb = title.value(0);
        vector.function = title.value(1);
        vector.out = QByteArray::fromHex(columns.at(1).toLatin1());
        vector.in = QByteArray::fromHex(columns.at(2).toLatin1());
        for (const QString &pair : columns.at(3).simplified().split(QLatin1Char(' '))) {
            if (pair.contains(QLatin1Char('=')))
                vector.values.insert(pair.section(QLatin1Char('='), 0, 0),
                                     pair.section(QLatin1Char('='), 1).toInt());
        }
        vectors.append(vector);
    }
    return vectors;
}

} // namespace support
