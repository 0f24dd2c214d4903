#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>
#include <QVector>

namespace ctl {

// Standard output carries what was asked for, standard error what there is to say about it. Control characters
// in either, such as a unit's host name may hold, are written out.

void print(const QString &line);
// Columns as wide as their widest cell, two spaces apart.
void printTable(const QVector<QStringList> &rows);
void printJson(const QJsonObject &object);
// One object on one line.
void printJsonLine(const QJsonObject &object);
// From here on tables and whole objects are dropped: where each frame is printed, they would stand in between.
void keepResultsAway();
// "qkv720ctl: ..." on standard error.
void complain(const QString &sentence);

// Nothing that the device classes log reaches the terminal, unless it is asked for.
void keepLogAway(bool verbose);

// A line on standard error that tells how far it is: only on a terminal, and only from the second second on.
class Progress
{
public:
    explicit Progress(const QString &what, int steps);
    ~Progress();
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;
    void step();

private:
    QString m_what;
    int m_steps;
    int m_done = 0;
    bool m_shown = false;
    qint64 m_startMs;
};

} // namespace ctl
