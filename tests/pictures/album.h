#pragma once

#include <QDir>
#include <QHash>
#include <QImage>
#include <QMap>
#include <QVector>

// The pictures of many states in two small files: a sheet of tiles, each kept once, and a list that names for every
// state its tiles in reading order. Most of a window is the same in most states, so a hundred of them are a few
// hundred kilobytes, and none depends on another: a state that is drawn anew changes its own line and adds tiles.
class Album
{
public:
    // NAME.png and NAME.txt of the folder.
    Album(const QDir &folder, const QString &name);

    // False if there is none, or none that can be read.
    bool read();
    bool write() const;

    void put(const QString &state, const QImage &picture);
    // Null if the album has no such state.
    QImage picture(const QString &state) const;
    QStringList states() const { return m_pages.keys(); }

private:
    struct Page
    {
        QSize size;
        QVector<int> tiles;
    };

    int numberOf(const QImage &tile);
    QString line(const QString &state, const Page &page) const;
    bool readLine(const QString &line);

    QString m_sheet;
    QString m_list;
    QVector<QImage> m_tiles;
    QHash<QByteArray, int> m_numbers;
    QMap<QString, Page> m_pages;
};
