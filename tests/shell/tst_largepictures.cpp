// The pictures at twice their size, for large screens: they show what the small ones show, and stay few bytes.

#include <QDir>
#include <QImage>
#include <QtTest>

namespace {

constexpr QImage::Format kWithAlpha = QImage::Format_ARGB32_Premultiplied;

QStringList folders()
{
    return {QStringLiteral(":/img/pc/"), QStringLiteral(":/img/pc/CN/"), QStringLiteral(":/img/pc/TW/")};
}

} // namespace

class TestLargePictures : public QObject
{
    Q_OBJECT

private slots:
    void showTheSameAtTwiceTheSize();
    void takeLittleRoomAtTwiceTheSize();
};

// Four dots of the large picture make one of the small: on the whole the same, but for edges that fall between dots.
void TestLargePictures::showTheSameAtTwiceTheSize()
{
    for (const QString &folder : folders()) {
        const QStringList files = QDir(folder).entryList({QStringLiteral("*@2x.png")}, QDir::Files);
        for (const QString &file : files) {
            const QImage small =
                QImage(folder + QString(file).remove(QStringLiteral("@2x"))).convertToFormat(kWithAlpha);
            QImage shrunk = QImage(folder + file).convertToFormat(kWithAlpha);
            shrunk = shrunk.scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            qint64 apart = 0;
            for (int y = 0; y < small.height(); ++y) {
                for (int x = 0; x < small.width(); ++x) {
                    const QRgb a = small.pixel(x, y);
                    const QRgb b = shrunk.pixel(x, y);
                    apart +=
                        qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b));
                }
            }
            const double mean = double(apart) / (3.0 * small.width() * small.height());
            QVERIFY2(mean < 10, qPrintable(QStringLiteral("%1%2: %3").arg(folder, file).arg(mean)));
        }
    }
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
    QVERIFY2(bytes <= 240 * 1024, qPrintable(QString::number(bytes)));
}

QTEST_GUILESS_MAIN(TestLargePictures)
#include "tst_largepictures.moc"
