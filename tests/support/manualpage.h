#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

// A page of the operator's manual, read as what it is to a reader: headings, rows, links, texts.
namespace support {

// A table's row: the texts of its cells, and what stands in the first one as a message or as code.
struct Row
{
    QStringList cells;
    QStringList messages;
};

struct Page
{
    QString error; // why it is no well-formed page, or empty
    QString heading;
    QString text;
    QStringList ids; // in their order
    QStringList targets;
    QVector<Row> rows;
};

// Empty if there is no such file.
QByteArray contentOf(const QString &path);

// Each page is read once in a process.
const Page &readPage(const QString &path);

} // namespace support
