// The letters of the program are the same whatever the machine's font settings ask for: grey, antialiased, in the
// same places. Each case draws the real program twice, on a machine that asks for nothing and on one that does.

#include "displayrun.h"

#include <QtTest>

namespace {

// The mask's arrow swells and fades for ever; here it does.
const QRect kArrow(1180, 40, 60, 70);
// The inside of the language box, where letters stand on black.
const QRect kLanguage(1278, 10, 60, 28);
// The open angle rows, where the signs stand alone.
const QRect kPlusRow(396, 308, 40, 70);
const QRect kMinusRow(396, 382, 40, 70);

QString rules(const QString &edits)
{
    return QStringLiteral("<match target=\"pattern\">%1</match><match target=\"font\">%1</match>").arg(edits);
}

QString edit(const char *name, const char *value)
{
    return QStringLiteral("<edit name=\"%1\" mode=\"assign\">%2</edit>")
        .arg(QLatin1String(name), QLatin1String(value));
}

const char kSubpixels[] = "<const>rgb</const>";
const char kYes[] = "<bool>true</bool>";
const char kNo[] = "<bool>false</bool>";
const char kFullHinting[] = "<const>hintfull</const>";

// Where the system keeps its settings, and its list of fonts.
const char kOfTheSystem[] = "<include>/etc/fonts/fonts.conf</include>";
// Without the system's list, which knows the fonts by the names that they have.
const char kNewList[] = "<dir>/usr/share/fonts</dir><cachedir prefix=\"cwd\">fontcache</cachedir>";

// A file of font settings: WHERE the fonts are, and the RULES behind that.
QString settingsOf(const char *where, const QString &rules)
{
    const QString path = QDir::current().absoluteFilePath(QStringLiteral("fonts.conf"));
    QFile file(path);
    const QString text = QStringLiteral("<?xml version=\"1.0\"?><!DOCTYPE fontconfig SYSTEM \"fonts.dtd\">"
                                        "<fontconfig>%1%2</fontconfig>")
                             .arg(QLatin1String(where), rules);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0)
        qFatal("can't write %s", qPrintable(path));
    return path;
}

// One machine, with GNOME on it: its font settings, and what the desktop says past them.
struct Machine
{
    QString rules;
    QByteArray resources;
    bool named = true; // the environment says where its settings are
    QString language = {}; // by which a face is chosen for what the asked one has not
};

QImage shown(const Machine &asked, const QString &awaited, const QRect &moving)
{
    const support::VirtualDisplay display;
    if (!display.isGood())
        qFatal("Xvfb cannot be started");
    if (!asked.resources.isEmpty()) {
        QProcess xprop;
        xprop.start(QStringLiteral("xprop"),
                    {QStringLiteral("-display"), display.name(), QStringLiteral("-root"),
                     QStringLiteral("-f"), QStringLiteral("RESOURCE_MANAGER"), QStringLiteral("8s"),
                     QStringLiteral("-set"), QStringLiteral("RESOURCE_MANAGER"),
                     QString::fromLatin1(asked.resources)});
        if (!xprop.waitForFinished(kStartMs) || xprop.exitCode() != 0)
            qFatal("xprop cannot set the resources of the display");
    }
    Run panel(QStringLiteral(PANEL_PROGRAM), QDir::currentPath(), QStringLiteral("C.UTF-8"),
              [&](QProcessEnvironment &environment) {
                  on(display)(environment);
                  if (asked.named)
                      environment.insert(QStringLiteral("FONTCONFIG_FILE"),
                                         settingsOf(kOfTheSystem, asked.rules));
                  else
                      environment.remove(QStringLiteral("FONTCONFIG_FILE"));
                  if (!asked.language.isEmpty())
                      environment.insert(QStringLiteral("FC_LANG"), asked.language);
                  environment.insert(QStringLiteral("XDG_CURRENT_DESKTOP"), QStringLiteral("GNOME"));
              });
    if (!panel.printed(awaited))
        qFatal("the panel does not start: %s", qPrintable(panel.output()));
    // Until the window stands and nothing but the arrow moves.
    QImage last;
    for (int equal = 0; equal < 3;) {
        panel.readOn(300);
        QImage now = display.picture();
        for (int y = moving.top(); y <= moving.bottom(); ++y) {
            for (int x = moving.left(); x <= moving.right(); ++x)
                now.setPixel(x, y, qRgb(0, 0, 0));
        }
        equal = now == last ? equal + 1 : 0;
        last = now;
    }
    return last;
}

int coloured(const QImage &picture, const QRect &place)
{
    int count = 0;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            const QRgb dot = picture.pixel(x, y);
            count += qRed(dot) != qGreen(dot) || qGreen(dot) != qBlue(dot) ? 1 : 0;
        }
    }
    return count;
}

void listMachines()
{
    QTest::addColumn<QString>("rules");
    QTest::addColumn<QByteArray>("resources");
    const QString hinted = edit("hinting", kYes) + edit("hintstyle", kFullHinting);
    QTest::newRow("subpixels, full hinting") << rules(edit("rgba", kSubpixels) + hinted) << QByteArray();
    QTest::newRow("no antialiasing") << rules(edit("antialias", kNo) + hinted) << QByteArray();
    QTest::newRow("GNOME's own settings")
        << QString()
        << QByteArray("Xft.rgba:\trgb\nXft.antialias:\t1\nXft.hinting:\t1\nXft.hintstyle:\thintfull\n");
}

// The box of everything in PLACE that has the colour of the signs.
QRect signIn(const QImage &picture, const QRect &place)
{
    QRect box;
    for (int y = place.top(); y <= place.bottom(); ++y) {
        for (int x = place.left(); x <= place.right(); ++x) {
            if (qGreen(picture.pixel(x, y)) > 0x50)
                box |= QRect(x, y, 1, 1);
        }
    }
    return box;
}

} // namespace

class TestLettering : public QObject
{
    Q_OBJECT

private slots:
    void init() { QDir(QFileInfo(settingsPath()).absolutePath()).removeRecursively(); }

    void theWindowIsTheSameOnEveryMachine_data() { listMachines(); }

    void theWindowIsTheSameOnEveryMachine()
    {
        QFETCH(QString, rules);
        QFETCH(QByteArray, resources);
        const QImage plain = shown({}, kStarted, kArrow);
        QVERIFY(plain.pixel(kLanguage.center()) != plain.pixel(20, 20)); // the window is there
        const QImage asked = shown({rules, resources}, kStarted, kArrow);
        QCOMPARE(coloured(asked, kLanguage), 0);
        QVERIFY(asked == plain);
    }

    void itsOwnListFindsWhatTheSystemsDoes_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<QString>("machines");
        QTest::newRow("English") << QStringLiteral("en_US") << QStringLiteral("en");
        QTest::newRow("Chinese in Taiwan") << QStringLiteral("zh_TW") << QStringLiteral("zh-tw");
        QTest::newRow("Chinese in China") << QStringLiteral("zh_CN") << QStringLiteral("zh-cn");
    }

    // The panel reads the system's settings only when it is told to.
    void itsOwnListFindsWhatTheSystemsDoes()
    {
        QFETCH(QString, language);
        QFETCH(QString, machines);
        storeLanguage(language);
        const QImage told = shown({{}, {}, true, machines}, kStarted, kArrow);
        storeLanguage(language);
        const QImage own = shown({{}, {}, false, machines}, kStarted, kArrow);
        QVERIFY(own.pixel(kLanguage.center()) != own.pixel(20, 20));
        QVERIFY(own == told);
    }

    void aQuestionIsTheSameOnEveryMachine_data() { listMachines(); }

    // The one window that is not drawn by the documents: it would show subpixels.
    void aQuestionIsTheSameOnEveryMachine()
    {
        QFETCH(QString, rules);
        QFETCH(QByteArray, resources);
        QVERIFY(QDir().mkpath(settingsPath() + QStringLiteral(".lock")));
        const QString asks = QStringLiteral("critical|The settings of the panel");
        const QImage plain = shown({}, asks, {});
        const QImage asked = shown({rules, resources}, asks, {});
        QVERIFY(asked == plain);
    }

    void theSignsStandInTheirPlaces_data()
    {
        QTest::addColumn<QByteArray>("where");
        QTest::addColumn<QString>("rules");
        QTest::newRow("no face of the name") << QByteArray(kOfTheSystem) << QString();
        // Some other face, which the list of fonts gives this name.
        QTest::newRow("Courier New is there")
            << QByteArray(kNewList)
            << QStringLiteral(
                   "<match target=\"scan\"><test name=\"family\"><string>Noto Serif CJK TC</string></test>"
                   "<edit name=\"family\" mode=\"assign\"><string>Courier New</string></edit></match>");
    }

    void theSignsStandInTheirPlaces()
    {
        QFETCH(QByteArray, where);
        QFETCH(QString, rules);
        QProcess pictures;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("FONTCONFIG_FILE"), settingsOf(where, rules));
        pictures.setProcessEnvironment(environment);
        pictures.start(QStringLiteral(PANEL_PICTURES),
                       {QStringLiteral("write"), QStringLiteral("."), QStringLiteral("--state"),
                        QStringLiteral("^chroma$"), QStringLiteral("--language"), QStringLiteral("en_US")});
        QVERIFY(pictures.waitForFinished(60000));
        QCOMPARE(pictures.exitCode(), 0);
        const QImage page(QStringLiteral("en_US-chroma.png"));
        QVERIFY(!page.isNull());
        QCOMPARE(signIn(page, kPlusRow), QRect(407, 334, 18, 18));
        QCOMPARE(signIn(page, kMinusRow), QRect(407, 415, 18, 4));
    }
};

QTEST_GUILESS_MAIN(TestLettering)
#include "tst_lettering.moc"
