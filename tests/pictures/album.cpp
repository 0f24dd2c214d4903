#include "album.h"

#include <QImageWriter>
#include <QPainter>
#include <QTextStream>

#include <cstring>

namespace {

constexpr int kTile = 32;
constexpr int kTilesInARow = 64;
constexpr int kSmallestFile = 100; // of 100: the writer's word for its most thorough compression
constexpr QImage::Format kFormat = QImage::Format_RGB32;

int tilesAcross(int length)
{
    return (length + kTile - 1) / kTile;
}

QRect placeOf(int number, int inARow)
{
    return {number % inARow * kTile, number / inARow * kTile, kTile, kTile};
}

} // namespace

Album::Album(const QDir &folder, const QString &name)
    : m_sheet(folder.filePath(name + QStringLiteral(".png")))
    , m_list(folder.filePath(name + QStringLiteral(".txt")))
{
}

bool Album::read()
{
    const QImage sheet = QImage(m_sheet).convertToFormat(kFormat);
    QFile list(m_list);
    if (sheet.isNull() || sheet.width() != kTile * kTilesInARow || !list.open(QIODevice::ReadOnly))
        return false;
    const int count = sheet.height() / kTile * kTilesInARow;
    for (int number = 0; number < count; ++number)
        m_tiles << sheet.copy(placeOf(number, kTilesInARow));
    while (!list.atEnd()) {
        if (!readLine(QString::fromUtf8(list.readLine()).trimmed()))
            return false;
    }
    return true;
}

bool Album::write() const
{
    const int rows = (m_tiles.size() + kTilesInARow - 1) / kTilesInARow;
    QImage sheet(kTile * kTilesInARow, kTile * rows, kFormat);
    sheet.fill(Qt::black);
    QPainter painter(&sheet);
    for (int number = 0; number < m_tiles.size(); ++number)
        painter.drawImage(placeOf(number, kTilesInARow), m_tiles.at(number));
    painter.end();
    QImageWriter writer(m_sheet, "png");
    writer.setCompression(kSmallestFile);
    QFile list(m_list);
    if (!writer.write(sheet) || !list.open(QIODevice::WriteOnly))
        return false;
    QTextStream text(&list);
    for (auto page = m_pages.cbegin(); page != m_pages.cend(); ++page)
        text << line(page.key(), page.value()) << '\n';
    return true;
}

void Album::put(const QString &state, const QImage &picture)
{
    const int across = tilesAcross(picture.width());
    const int down = tilesAcross(picture.height());
    Page page{picture.size(), {}};
    // Beyond the edge a tile is black, whatever the picture.
    QImage padded(across * kTile, down * kTile, kFormat);
    padded.fill(Qt::black);
    QPainter(&padded).drawImage(0, 0, picture);
    for (int place = 0; place < across * down; ++place)
        page.tiles << numberOf(padded.copy(placeOf(place, across)));
    m_pages.insert(state, page);
}

int Album::numberOf(const QImage &tile)
{
    const QByteArray bits(reinterpret_cast<const char *>(tile.constBits()), int(tile.sizeInBytes()));
    const auto known = m_numbers.constFind(bits);
    if (known != m_numbers.cend())
        return *known;
    m_numbers.insert(bits, m_tiles.size());
    m_tiles << tile;
    return m_tiles.size() - 1;
}

QImage Album::picture(const QString &state) const
{
    const auto page = m_pages.constFind(state);
    if (page == m_pages.cend())
        return {};
    const int across = tilesAcross(page->size.width());
    QImage picture(across * kTile, tilesAcross(page->size.height()) * kTile, kFormat);
    for (int place = 0; place < page->tiles.size(); ++place) {
        const QRect target = placeOf(place, across);
        const QImage &tile = m_tiles.at(page->tiles.at(place));
        for (int y = 0; y < kTile; ++y)
            std::memcpy(picture.scanLine(target.y() + y) + target.x() * 4, tile.constScanLine(y), kTile * 4);
    }
    return picture.copy(QRect({0, 0}, page->size));
}

// "name 1366x768 0-42 7 7 43-90": runs of numbers that follow each other stand as their ends.
QString Album::line(const QString &state, const Page &page) const
{
    QStringList words{state, QStringLiteral("%1x%2").arg(page.size.width()).arg(page.size.height())};
    const QVector<int> &tiles = page.tiles;
    for (int first = 0, last = 0; first < tiles.size(); first = ++last) {
        while (last + 1 < tiles.size() && tiles.at(last + 1) == tiles.at(last) + 1)
            ++last;
        words << (first == last ? QString::number(tiles.at(first))
                                : QStringLiteral("%1-%2").arg(tiles.at(first)).arg(tiles.at(last)));
    }
    return words.join(QLatin1Char(' '));
}

bool Album::readLine(const QString &line)
{
    const QStringList words = line.split(QLatin1Char(' '));
    const QStringList size = words.value(1).split(QLatin1Char('x'));
    Page page{{size.value(0).toInt(), size.value(1).toInt()}, {}};
    for (const QString &word : words.mid(2)) {
        const QStringList ends = word.split(QLatin1Char('-'));
        for (int number = ends.first().toInt(); number <= ends.last().toInt(); ++number) {
            if (number >= m_tiles.size())
                return false;
            page.tiles << number;
        }
    }
    m_pages.insert(words.first(), page);
    return page.tiles.size() == tilesAcross(page.size.width()) * tilesAcross(page.size.height());
}
