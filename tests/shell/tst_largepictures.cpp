// The pictures at twice their size, for large screens: they show what the small ones show, and stay few bytes.

#include <QDir>
#include <QImage>
#include <QMap>
#include <QtTest>

#include <array>

namespace {

constexpr QImage::Format kFormat = QImage::Format_ARGB32_Premultiplied;

QStringList folders()
{
    return {QStringLiteral(":/img/pc/"), QStringLiteral(":/img/pc/CN/"), QStringLiteral(":/img/pc/TW/")};
}

QMap<QString, QImage> smallPictures()
{
    QMap<QString, QImage> pictures;
    for (const QString &folder : folders()) {
        const QStringList files = QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files);
        for (const QString &file : files) {
            if (!file.contains(QLatin1Char('@')))
                pictures.insert(folder + file, QImage(folder + file).convertToFormat(kFormat));
        }
    }
    return pictures;
}

// The mean over all dots and channels.
double distance(const QImage &a, const QImage &b)
{
    qint64 apart = 0;
    for (int y = 0; y < a.height(); ++y) {
        const uchar *first = a.constScanLine(y);
        const uchar *second = b.constScanLine(y);
        for (int x = 0; x < 4 * a.width(); ++x)
            apart += qAbs(first[x] - second[x]);
    }
    return double(apart) / (4.0 * a.width() * a.height());
}

// A picture of its size, all in its mean colour.
QImage flat(const QImage &picture)
{
    std::array<qint64, 4> sum{};
    for (int y = 0; y < picture.height(); ++y) {
        const uchar *row = picture.constScanLine(y);
        for (int x = 0; x < 4 * picture.width(); ++x)
            sum[size_t(x % 4)] += row[x];
    }
    QImage mean(picture.size(), kFormat);
    for (int y = 0; y < mean.height(); ++y) {
        uchar *row = mean.scanLine(y);
        for (int x = 0; x < 4 * mean.width(); ++x)
            row[x] = uchar(sum[size_t(x % 4)] / (qint64(picture.width()) * picture.height()));
    }
    return mean;
}

} // namespace

class TestLargePictures : public QObject
{
    Q_OBJECT

private slots:
    void showTheSameAtTwiceTheSize();
    void takeLittleRoomAtTwiceTheSize();
};

// Four dots of the large picture make one of the small, but for edges that fall between dots. So it lies nearer to its
// small picture than to any other of that size, and than to one of a single colour.
void TestLargePictures::showTheSameAtTwiceTheSize()
{
    const QMap<QString, QImage> all = smallPictures();
    int looked = 0;
    for (auto own = all.cbegin(); own != all.cend(); ++own) {
        const QString file = QString(own.key()).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
        const QImage large(file);
        if (large.isNull())
            continue;
        QCOMPARE(large.size(), own->size() * 2);
        const QImage shrunk = large.convertToFormat(kFormat).scaled(own->size(), Qt::IgnoreAspectRatio,
                                                                    Qt::SmoothTransformation);
        const double apart = distance(shrunk, *own);
        QVERIFY2(apart <= distance(*own, flat(*own)) / 2, qPrintable(file));
        for (auto other = all.cbegin(); other != all.cend(); ++other) {
            if (other->size() != own->size() || *other == *own)
                continue;
            // The two Chinese alphabets write one of the words alike.
            constexpr double kAlike = 1.01;
            QVERIFY2(apart <= kAlike * distance(shrunk, *other), qPrintable(file + " is " + other.key()));
        }
        ++looked;
    }
    QVERIFY(looked > 60);
}

void TestLargePictures::takeLittleRoomAtTwiceTheSize()
{
    qint64 bytes = 0;
    for (const QString &folder : folders()) {
        const QFileInfoList files = QDir(folder).entryInfoList({QStringLiteral("*@2x.png")}, QDir::Files);
        for (const QFileInfo &file : files)
            bytes += file.size();
    }
    QVERIFY(bytes > 0);
    QVERIFY2(bytes <= qint64(240) * 1024, qPrintable(QString::number(bytes)));
}

QTEST_GUILESS_MAIN(TestLargePictures)
#include "tst_largepictures.moc"
