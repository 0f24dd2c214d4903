// The pictures of the screen: each is there under its name, in every folder that looks for it, in the size
// that the layouts count on, and the states of one control differ in nothing that would make it jump.

#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QImageReader>
#include <QProcess>
#include <QSet>
#include <QtTest>

namespace {

struct Picture
{
    QString states; // a letter each; empty for a name without one
    QString name;
    QSize size;
};

using Pictures = QVector<Picture>;

const QSize kWideFace{110, 36};
const QSize kFace{90, 36};
const QSize kMemoryFace{60, 30};
const QSize kSwitch{64, 30};
const QSize kSquare{40, 40};
const QSize kSign{64, 64};

Picture one(const char *name, QSize size)
{
    return {QString(), QLatin1String(name), size};
}

Picture button(const char *states, const char *name, QSize size)
{
    return {QLatin1String(states), QLatin1String(name), size};
}

// Looked for through the path of the language, so in all three folders.
Pictures picturesByLanguage()
{
    return {
        one("btn_bg_adjust_color", kWideFace),          button("np", "auto_pick_color", kWideFace),
        button("np", "cancel_adjust_color", kWideFace), button("np", "connect_connect", kWideFace),
        button("np", "default_setup", kWideFace),       button("np", "disconnect_connect", kWideFace),
        button("np", "load_usermemory", kMemoryFace),   button("np", "ok_adjust_color", kWideFace),
        button("np", "save_usermemory", kMemoryFace),   button("np", "scan_connect", kWideFace),
        button("np", "spill_high_chromakey", kFace),    button("np", "spill_low_chromakey", kFace),
        button("np", "spill_mid_chromakey", kFace),     button("npd", "auto_bg_chromakey", kWideFace),
        button("npd", "reset_dashboard", kFace),        button("npd", "save_connect", kWideFace),
        one("btn_switch_on_dashboard", kSwitch),        one("btn_switch_off_dashboard", kSwitch),
        one("btn_switch_d_on_dashboard", kSwitch),      one("btn_switch_d_off_dashboard", kSwitch),
        one("img_bg_pick_color_chromakey", {522, 522}),
    };
}

// Named outright, so in the first folder alone.
Pictures picturesForAll()
{
    return {
        button("np", "connect_dashboard", kSquare),
        button("np", "menu_dashboard", {166, 58}),
        button("np", "checkbox_output", {20, 20}),
        button("npd", "setup_dashboard", kSquare),
        button("npd", "increase_s_chromakey", kSquare),
        button("npd", "reduce_s_chromakey", kSquare),
        button("nd", "slider_chromakey", {22, 22}),
        button("npsd", "radio_lumakey", {26, 26}),
        button("n", "close_dialog", {28, 28}),
        button("n", "hide_dashboard", {30, 30}),
        button("n", "show_dashboard", {30, 30}),
        // The dropper also has a grey face, shown while the matte is off.
        button("nd", "pickcolor_chromakey", {36, 36}),
        one("ico_alert", {24, 24}),
        one("icon_drop_nav", {16, 16}),
        one("icon_lock_output", {30, 30}),
        one("icon_unlock_output", {30, 30}),
        one("img_bg_02_dashboard", {1366, 768}),
        one("img_bg_connect", {660, 720}),
        one("img_bg_content_dashbpard", {80, 620}),
        one("img_bg_header_dashboard", {1366, 48}),
        one("img_bg_input_line", {1110, 74}),
        one("img_bg_menu_dashbpard", {176, 620}),
        one("img_bg_notify", {520, 300}),
        one("img_bg_output_dashboard", {1366, 100}),
        one("img_bg_setup", {500, 450}),
        one("img_notify_error", kSign),
        one("img_notify_info", kSign),
        one("img_notify_question", kSign),
        one("img_notify_success", kSign),
        one("img_slider_01_chromakey", {346, 6}),
        one("img_up_arrow", {60, 100}),
        one("img_launch_image", {640, 360}),
    };
}

QStringList fileNames(const Picture &picture)
{
    if (picture.states.isEmpty())
        return {picture.name + QStringLiteral(".png")};
    QStringList names;
    for (const QChar state : picture.states)
        names << QStringLiteral("btn_%1_%2.png").arg(state).arg(picture.name);
    return names;
}

// The same picture at twice its size, which the toolkit takes on a large screen.
QString large(const QString &file)
{
    return QString(file).replace(QStringLiteral(".png"), QStringLiteral("@2x.png"));
}

QStringList folders()
{
    return {QStringLiteral(":/img/pc/"), QStringLiteral(":/img/pc/CN/"), QStringLiteral(":/img/pc/TW/")};
}

Pictures picturesIn(const QString &folder)
{
    return folder == folders().first() ? picturesByLanguage() + picturesForAll() : picturesByLanguage();
}

QImage loaded(const QString &path)
{
    return QImage(path).convertToFormat(QImage::Format_ARGB32);
}

bool hasCorners(const QString &file)
{
    return file.startsWith(QLatin1String("btn_")) && !file.contains(QLatin1String("menu"));
}

// Signs that stand bare on whatever lies behind them.
bool isBare(const QString &file)
{
    static const QStringList bare{
        QStringLiteral("slider"), QStringLiteral("radio"),    QStringLiteral("close_"),
        QStringLiteral("hide_"),  QStringLiteral("show_"),    QStringLiteral("ico_alert"),
        QStringLiteral("drop_"),  QStringLiteral("_notify_"), QStringLiteral("arrow"),
    };
    return std::any_of(bare.cbegin(), bare.cend(),
                       [&file](const QString &part) { return file.contains(part); });
}

// The box of all pixels of the face's inside that are not its fill: the letters.
QRect letters(const QImage &face)
{
    const QRect inside = face.rect().adjusted(3, 3, -3, -3);
    const QRgb fill = face.pixel(inside.topLeft());
    QRect box;
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            if (face.pixel(x, y) != fill)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

} // namespace

class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void standInTheirFolders_data();
    void standInTheirFolders();
    void areTheOnlyOnes();
    void areOpaque_data();
    void areOpaque();
    void showSomething();
    void speakTheLanguageOfTheirFolder();
    void shareTheFacesWithoutWords();
    void keepLettersOffTheEdge();
    void sinkByOnePixelWhenPressed();
    void areGreyWhenDisabled();
    void joinAtTheEdges();
    void includeTheIcon();
    void areWhatTheScriptDraws();

private:
    void listFiles();
};

void TestPictures::listFiles()
{
    QTest::addColumn<QString>("folder");
    QTest::addColumn<QString>("file");
    QTest::addColumn<QSize>("size");
    for (const QString &folder : folders()) {
        const Pictures all = picturesIn(folder);
        for (const Picture &picture : all) {
            const QStringList names = fileNames(picture);
            for (const QString &name : names)
                QTest::newRow(qPrintable(folder + name)) << folder << name << picture.size;
        }
    }
}

void TestPictures::standInTheirFolders_data()
{
    listFiles();
}

void TestPictures::standInTheirFolders()
{
    QFETCH(QString, folder);
    QFETCH(QString, file);
    QFETCH(QSize, size);
    const QImage image(folder + file);
    QVERIFY2(!image.isNull(), "no such picture, or it cannot be read");
    QCOMPARE(image.size(), size);
    QCOMPARE(QImage(folder + large(file)).size(), size * 2);
}

void TestPictures::areTheOnlyOnes()
{
    for (const QString &folder : folders()) {
        QStringList expected;
        const Pictures all = picturesIn(folder);
        for (const Picture &picture : all) {
            const QStringList names = fileNames(picture);
            for (const QString &name : names)
                expected << name << large(name);
        }
        QStringList found = QDir(folder).entryList(QDir::Files);
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
    }
}

void TestPictures::areOpaque_data()
{
    listFiles();
}

// A face or a background lets nothing through but at the round corners of a face.
void TestPictures::areOpaque()
{
    QFETCH(QString, folder);
    QFETCH(QString, file);
    const QImage image = loaded(folder + file);
    QVERIFY(!image.isNull());
    if (isBare(file)) {
        QVERIFY(qAlpha(image.pixel(0, 0)) < 16); // the round end of the groove touches its corner
        return;
    }
    const int corner = hasCorners(file) || file.startsWith(QLatin1String("icon_")) ? 4 : 0;
    const QRect upright = image.rect().adjusted(corner, 0, -corner, 0);
    const QRect flat = image.rect().adjusted(0, corner, 0, -corner);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (upright.contains(x, y) || flat.contains(x, y))
                QVERIFY2(qAlpha(image.pixel(x, y)) == 255,
                         qPrintable(QStringLiteral("at %1, %2").arg(x).arg(y)));
        }
    }
}

void TestPictures::showSomething()
{
    for (const QString &folder : folders()) {
        const QStringList files = QDir(folder).entryList(QDir::Files);
        for (const QString &file : files) {
            const QImage image = loaded(folder + file);
            QSet<QRgb> colours;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x)
                    colours.insert(image.pixel(x, y));
            }
            // The ground behind everything is the one even surface.
            const bool even = file.startsWith(QLatin1String("img_bg_02_dashboard"));
            QVERIFY2(even == (colours.size() == 1), qPrintable(folder + file));
        }
    }
}

void TestPictures::speakTheLanguageOfTheirFolder()
{
    const Pictures all = picturesByLanguage();
    for (const Picture &picture : all) {
        const bool wordless = picture.name.contains(QLatin1String("_bg_")) && picture.states.isEmpty();
        if (wordless)
            continue;
        const QStringList names = fileNames(picture);
        for (const QString &name : names) {
            const QImage english = loaded(folders().at(0) + name);
            QVERIFY2(english != loaded(folders().at(1) + name), qPrintable(name));
            QVERIFY2(english != loaded(folders().at(2) + name), qPrintable(name));
        }
    }
    // The same word is written differently in the two Chinese scripts.
    const QString connect = QStringLiteral("btn_n_connect_connect.png");
    QVERIFY(loaded(folders().at(1) + connect) != loaded(folders().at(2) + connect));
}

void TestPictures::shareTheFacesWithoutWords()
{
    for (const char *name : {"btn_bg_adjust_color.png", "img_bg_pick_color_chromakey.png"}) {
        const QImage first = loaded(folders().first() + QLatin1String(name));
        for (const QString &folder : folders())
            QCOMPARE(loaded(folder + QLatin1String(name)), first);
    }
}

void TestPictures::keepLettersOffTheEdge()
{
    for (const QString &folder : folders()) {
        const Pictures all = picturesByLanguage();
        for (const Picture &picture : all) {
            if (picture.states.isEmpty())
                continue;
            const QStringList names = fileNames(picture);
            for (const QString &name : names) {
                const QImage face = loaded(folder + name);
                const QRect box = letters(face);
                QVERIFY2(!box.isEmpty(), qPrintable(folder + name));
                QVERIFY2(box.left() >= 6 && box.right() < face.width() - 6, qPrintable(folder + name));
                QVERIFY2(qAbs(box.left() + box.right() + 1 - face.width()) <= 3, qPrintable(folder + name));
            }
        }
    }
}

void TestPictures::sinkByOnePixelWhenPressed()
{
    for (const QString &folder : folders()) {
        const Pictures all = picturesByLanguage();
        for (const Picture &picture : all) {
            if (!picture.states.contains(QLatin1Char('p')))
                continue;
            const QStringList names = fileNames(picture);
            const QRect normal = letters(loaded(folder + names.at(0)));
            QCOMPARE(letters(loaded(folder + names.at(1))), normal.translated(0, 1));
            if (names.size() > 2)
                QCOMPARE(letters(loaded(folder + names.at(2))), normal);
        }
    }
}

// The colour says whether a control lives: no blue is left on what cannot be used.
void TestPictures::areGreyWhenDisabled()
{
    for (const QString &folder : folders()) {
        const QStringList files = QDir(folder).entryList(
            {QStringLiteral("btn_d_*.png"), QStringLiteral("btn_switch_d_*.png")}, QDir::Files);
        QVERIFY(files.size() >= 5);
        for (const QString &file : files) {
            const QImage face = loaded(folder + file);
            for (int y = 0; y < face.height(); ++y) {
                for (int x = 0; x < face.width(); ++x) {
                    const QRgb pixel = face.pixel(x, y);
                    if (qAlpha(pixel) == 255)
                        QVERIFY2(qBlue(pixel) - qRed(pixel) <= 16, qPrintable(folder + file));
                }
            }
        }
    }
}

// Lines that run on from one picture into its neighbour have one colour.
void TestPictures::joinAtTheEdges()
{
    const QString folder = folders().first();
    const QImage menu = loaded(folder + QStringLiteral("img_bg_menu_dashbpard.png"));
    const QImage content = loaded(folder + QStringLiteral("img_bg_content_dashbpard.png"));
    const QImage entry = loaded(folder + QStringLiteral("btn_n_menu_dashboard.png"));
    const QImage chosen = loaded(folder + QStringLiteral("btn_p_menu_dashboard.png"));
    QCOMPARE(menu.pixel(20, 0), content.pixel(20, 0));
    QCOMPARE(entry.pixel(165, 20), menu.pixel(175, 300));
    QCOMPARE(entry.pixel(20, 20), menu.pixel(20, 300));
    QCOMPARE(entry.pixel(20, 57), menu.pixel(20, 9));
    // The chosen entry opens into the content.
    QCOMPARE(chosen.pixel(165, 20), content.pixel(0, 20));
    QCOMPARE(QColor(chosen.pixel(1, 20)), QColor(QStringLiteral("#8DC6E8")));
}

void TestPictures::includeTheIcon()
{
    QImageReader reader(QStringLiteral(":/img/qkv720.ico"));
    const QVector<int> sizes{16, 24, 32, 48, 64, 128};
    QCOMPARE(reader.imageCount(), sizes.size());
    for (int at = 0; at < sizes.size(); ++at) {
        QVERIFY(reader.jumpToImage(at));
        const QImage image = reader.read().convertToFormat(QImage::Format_ARGB32);
        QCOMPARE(image.size(), QSize(sizes.at(at), sizes.at(at)));
        const int middle = sizes.at(at) / 2;
        QCOMPARE(qAlpha(image.pixel(middle, middle)), 255);
        QVERIFY(qAlpha(image.pixel(0, 0)) < 255);
        // Left half lit, right half not.
        QVERIFY(qBlue(image.pixel(middle - 1, middle)) > qBlue(image.pixel(middle + 1, middle)));
    }
}

// Who changes a colour or a word draws the pictures anew.
void TestPictures::areWhatTheScriptDraws()
{
    QProcess script;
    script.setProcessChannelMode(QProcess::MergedChannels);
    script.start(
        QStringLiteral("/usr/bin/python3"),
        {QStringLiteral(QT_TESTCASE_SOURCEDIR "/../resources/artwork/draw.py"), QStringLiteral("--check")});
    QVERIFY(script.waitForFinished(600000));
    const QByteArray told = script.readAll();
    QVERIFY2(script.exitStatus() == QProcess::NormalExit && script.exitCode() == 0, told.constData());
    // All of them were looked at; the icon is drawn by the same script.
    int pictures = 1;
    for (const QString &folder : folders())
        pictures += QDir(folder).entryList({QStringLiteral("*.png")}, QDir::Files).size();
    QVERIFY2(told.contains(QByteArray::number(pictures) + " pictures are as drawn"), told.constData());
}

QTEST_GUILESS_MAIN(TestPictures)

#include "tst_pictures.moc"
