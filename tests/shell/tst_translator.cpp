// The language switch: what it loads, stores, reports and tells.

#include <QDir>
#include <QFile>
#include <QSettings>
#include <QSignalSpy>
#include <QtTest>

#include "control/panelstate.h"
#include "shell/qmltranslator.h"

namespace {

QString settingsPath()
{
    return QDir::current().absoluteFilePath(QStringLiteral("../../halvorine/qkv720/qkv720.ini"));
}

// The file as it lies on disk: a QSettings of the test's own would first write down what the translator's holds back.
QString storedLanguage()
{
    QFile file(settingsPath());
    if (!file.open(QIODevice::ReadOnly))
        return QString();
    const QString rest = QString::fromUtf8(file.readAll()).section(QStringLiteral("language="), 1);
    return rest.section(QLatin1Char('\n'), 0, 0);
}

} // namespace

class TestTranslator : public QObject
{
    Q_OBJECT

private slots:
    void init() { QFile::remove(settingsPath()); }

    void startsInEnglishAndStoresNothing()
    {
        QmlTranslator translator;
        QCOMPARE(translator.currentLanguage(), QStringLiteral("en_US"));
        QVERIFY(!QFile::exists(settingsPath()));
    }

    void tellsTheCodeOfEachLanguage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("code");
        QTest::newRow("English") << "en_US" << 0;
        QTest::newRow("traditional Chinese") << "zh_TW" << 1;
        QTest::newRow("simplified Chinese") << "zh_CN" << 2;
        QTest::newRow("unknown") << "de_DE" << 0;
        QTest::newRow("empty") << "" << 0;
    }

    void tellsTheCodeOfEachLanguage()
    {
        QFETCH(QString, name);
        QFETCH(int, code);
        QmlTranslator translator;
        QSignalSpy changed(&translator, &QmlTranslator::languageChanged);
        translator.setTranslation(name);
        QCOMPARE(changed.count(), 1);
        QCOMPARE(changed.first().first().toInt(), code);
        QCOMPARE(translator.currentLanguage(), name);
        QCOMPARE(mainCurrentLanguage, name);
        QVERIFY(QFile::exists(settingsPath()));
        QCOMPARE(storedLanguage(), name);
    }

    // The file is written before the signal leaves, so that a listener may read it.
    void storesBeforeItTells()
    {
        QmlTranslator translator;
        QString seen;
        connect(&translator, &QmlTranslator::languageChanged, [&seen] { seen = storedLanguage(); });
        translator.setTranslation(QStringLiteral("zh_TW"));
        QCOMPARE(seen, QStringLiteral("zh_TW"));
    }

    void switchingTwiceToOneLanguageTellsTwice()
    {
        QmlTranslator translator;
        QSignalSpy changed(&translator, &QmlTranslator::languageChanged);
        translator.setTranslation(QStringLiteral("zh_CN"));
        translator.setTranslation(QStringLiteral("zh_CN"));
        QCOMPARE(changed.count(), 2);
        QCOMPARE(changed.at(0).first().toInt(), 2);
        QCOMPARE(changed.at(1).first().toInt(), 2);
        QCOMPARE(storedLanguage(), QStringLiteral("zh_CN"));
        QCOMPARE(QCoreApplication::translate("main", "Matte"), QStringLiteral("键源"));
    }

    void textsFollowEachSwitch()
    {
        QmlTranslator translator;
        translator.setTranslation(QStringLiteral("zh_TW"));
        QCOMPARE(QCoreApplication::translate("main", "Matte"), QStringLiteral("遮罩"));
        translator.setTranslation(QStringLiteral("en_US"));
        QCOMPARE(QCoreApplication::translate("main", "Matte"), QStringLiteral("Matte"));
        QCOMPARE(QCoreApplication::translate("HLNP", "Gate address format error"),
                 QStringLiteral("Gateway address format error"));
        translator.setTranslation(QStringLiteral("xx_XX"));
        QCOMPARE(QCoreApplication::translate("HLNP", "Gate address format error"),
                 QStringLiteral("Gate address format error"));
    }

    void theEmptyStringIsEmptyInEveryLanguage()
    {
        QmlTranslator translator;
        QCOMPARE(translator.property("e_str").toString(), QString());
        for (const char *name : {"en_US", "zh_TW", "zh_CN", "xx"}) {
            translator.setTranslation(QLatin1String(name));
            QVERIFY(translator.property("e_str").isValid());
            QCOMPARE(translator.property("e_str").toString(), QString());
        }
    }

    // Other keys of the file are not the translator's business.
    void leavesTheOtherKeysAlone()
    {
        {
            QSettings settings(settingsPath(), QSettings::IniFormat);
            settings.setValue(QStringLiteral("connection/ipaddress"), QStringLiteral("192.168.72.10"));
            settings.setValue(QStringLiteral("last_info/memory"), 5);
        }
        QmlTranslator translator;
        translator.setTranslation(QStringLiteral("zh_CN"));
        QSettings settings(settingsPath(), QSettings::IniFormat);
        QCOMPARE(settings.value(QStringLiteral("connection/ipaddress")).toString(),
                 QStringLiteral("192.168.72.10"));
        QCOMPARE(settings.value(QStringLiteral("last_info/memory")).toInt(), 5);
        QCOMPARE(settings.allKeys().size(), 3);
    }

    // A place where nothing can be written harms nothing and is not told to anybody.
    void survivesAnUnwritableFile()
    {
        QDir().mkpath(settingsPath()); // a folder stands where the file should be
        QmlTranslator translator;
        QSignalSpy changed(&translator, &QmlTranslator::languageChanged);
        translator.setTranslation(QStringLiteral("zh_TW"));
        QCOMPARE(changed.count(), 1);
        QCOMPARE(translator.currentLanguage(), QStringLiteral("zh_TW"));
        QVERIFY(QFileInfo(settingsPath()).isDir());
    }
};

QTEST_MAIN(TestTranslator)
#include "tst_translator.moc"
