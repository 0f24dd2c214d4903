#include "control/maincontrol.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

// The version stands in one header; what can't read it there must agree with it.

class TestVersion : public QObject
{
    Q_OBJECT

private slots:
    void everyPlaceTellsTheSame_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("pattern");
        QTest::newRow("window title") << QT_TESTCASE_SOURCEDIR "/../qml/main.qml"
                                      << "title: \"QKV-720 v([^\"]*)\"";
        QTest::newRow("package, by the build") << PANEL_BUILD_DIR "/CPackConfig.cmake"
                                               << "CPACK_PACKAGE_VERSION \"([^\"]*)\"";
        QTest::newRow("metainfo") << PANEL_BUILD_DIR "/packaging/com.halvorine.qkv720_panel.metainfo.xml"
                                  << "<release version=\"([^\"]*)\"";
        QTest::newRow("changelog") << QT_TESTCASE_SOURCEDIR "/../CHANGELOG.md"
                                   << "\\n## ([0-9.]+)";
    }

    void everyPlaceTellsTheSame()
    {
        QFETCH(QString, path);
        QFETCH(QString, pattern);
        QFile file(path);
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(path));
        const QRegularExpressionMatch match =
            QRegularExpression(pattern).match(QString::fromUtf8(file.readAll()));
        QVERIFY2(match.hasMatch(), qPrintable(path + QStringLiteral(" names no version")));
        const mainControl facade;
        QCOMPARE(match.captured(1), facade.appVersion);
    }
};

QTEST_MAIN(TestVersion)
#include "tst_version.moc"
