// An operator's days with the program as it ships, from the first start on: every gesture is a real event, and what
// counts is what the unit saw, what the file holds and what stands on the screen.

#include "tests/outside/realpanel.h"

#include <QtTest>

namespace {

constexpr int kSetLevels = 0xD2;

QByteArray storedFile()
{
    QFile file(settingsPath());
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class TestJourney : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        studio = std::make_unique<Studio>();
        QVERIFY2(studio->complaint().isEmpty(), qPrintable(studio->complaint()));
    }
    void init() { QFile::remove(settingsPath()); }
    void cleanupTestCase() { studio.reset(); }

    void fromTheFirstStartToTheSecond();
    void theLanguageComesBack();
    void allPagesOnce();

private:
    std::unique_ptr<Studio> studio;
};

// First start, scan, connect, the first change of the picture; then the second start, which connects by itself.
void TestJourney::fromTheFirstStartToTheSecond()
{
    QImage page;
    QImage fresh;
    {
        RealPanel panel(studio->panelPlace());
        QVERIFY2(panel.complaint().isEmpty() && panel.stands(), qPrintable(panel.run().output()));
        QVERIFY(panel.run().printed(kStarted));
        fresh = panel.look(QStringLiteral("pageIN"));
        panel.click(QStringLiteral("btnConnect"));
        QVERIFY(panel.changes(QStringLiteral("connectForm"), panel.look(QStringLiteral("connectForm"))));
        panel.click(QStringLiteral("imgConnectScan"));
        QVERIFY2(panel.run().printed(QStringLiteral("Refresh IP List: (\"192.168.72.10\")")),
                 qPrintable(panel.run().output()));
        QVERIFY(panel.run().printed(QStringLiteral("STUDIO-1")));
        QCOMPARE(studio->unit->clientCount(), 0);
        panel.click(QStringLiteral("btnConnectConnect"));
        QVERIFY(studio->isConnected());
        QVERIFY(panel.run().printed(QStringLiteral("device connect: OK")));
        for (const char *line : {"interface=1", "ipaddress=192.168.72.10", "hostname=STUDIO-1",
                                 "mac=00:50:C2:72:00:01", "netcard=[192.168.72.1] eth0"})
            QVERIFY2(storedFile().contains(line), storedFile().constData());
        QVERIFY(panel.changes(QStringLiteral("pageIN"), fresh)); // neither mask nor panel over it

        panel.click(QStringLiteral("menuChromakey"));
        panel.click(QStringLiteral("pageCK.pageCK_ContentHeader01.switchButton"));
        QVERIFY(studio->sees(kSetLevels));
        panel.drag(QStringLiteral("pageCK.blackLevel.itemSlider"), 10, 50);
        QVERIFY2(QTest::qWaitFor([this] {
                     const QString last = studio->unit->frames({0x60, 0x62}).last();
                     return last.startsWith(QLatin1String("d2 f4 01"))
                         || last.startsWith(QLatin1String("d2 f3 01"))
                         || last.startsWith(QLatin1String("d2 f5 01"))
                         || last.startsWith(QLatin1String("d2 f6 01"));
                 }),
                 qPrintable(studio->unit->frames({0x60, 0x62}).join(QLatin1Char('\n'))));
        panel.run().readOn(500);
        page = panel.look(QStringLiteral("pageIN"));
        QCOMPARE(panel.close(), 0);
        QCOMPARE(panel.strangeLines(), QStringList());
    }
    const QByteArray stored = storedFile();
    QTRY_COMPARE(studio->unit->clientCount(), 0);
    studio->unit->clearRecord();

    RealPanel panel(studio->panelPlace());
    QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
    QVERIFY2(studio->isConnected(), qPrintable(panel.run().output()));
    QCOMPARE(studio->unit->count(kSetLevels), 0);
    panel.click(QStringLiteral("menuChromakey"));
    QVERIFY(panel.shows(QStringLiteral("pageCK.blackLevel.itemSlider"),
                        page.copy(RealPanel::place(QStringLiteral("pageCK.blackLevel.itemSlider"))
                                      .translated(-RealPanel::place(QStringLiteral("pageIN")).topLeft()))));
    QCOMPARE(panel.close(), 0);
    QCOMPARE(storedFile(), stored);
    QCOMPARE(panel.strangeLines(), QStringList());
}

void TestJourney::theLanguageComesBack()
{
    const QString words = QStringLiteral("menuPostProcessor");
    QImage english;
    QImage chinese;
    {
        RealPanel panel(studio->panelPlace());
        QVERIFY2(panel.stands() && panel.run().printed(kStarted), qPrintable(panel.run().output()));
        english = panel.look(words);
        QVERIFY(panel.choose(QStringLiteral("comboMainLanguage"), 1));
        QVERIFY(panel.changes(words, english));
        QTRY_VERIFY(storedFile().contains("language=zh_TW"));
        chinese = panel.atRest(words);
        QCOMPARE(panel.close(), 0);
        QCOMPARE(panel.strangeLines(), QStringList());
    }
    RealPanel panel(studio->panelPlace());
    QVERIFY2(panel.stands(), qPrintable(panel.run().output()));
    QVERIFY(panel.shows(words, chinese));
    QVERIFY(storedFile().contains("language=zh_TW"));
    QCOMPARE(panel.close(), 0);
    QCOMPARE(panel.strangeLines(), QStringList());
}

// Each page comes, is like no other, and sends nothing but the poll.
void TestJourney::allPagesOnce()
{
    const auto panel = studio->connectedPanel();
    QVERIFY(panel->run().printed(QStringLiteral("StaticIP auto connect")));
    QVERIFY(studio->isIdle(*panel));
    QVector<QImage> seen{panel->look(QStringLiteral("pageIN"))};
    for (const char *entry :
         {"menuChromakey", "menuPostProcessor", "menuGarbageMask", "menuHoldoutWindow", "menuAuxLumakey"}) {
        panel->click(QLatin1String(entry));
        QVERIFY2(panel->changes(QStringLiteral("pageIN"), seen.last()), entry);
        const QImage page = panel->atRest(QStringLiteral("pageIN"));
        QVERIFY2(!seen.contains(page), entry);
        seen.append(page);
    }
    panel->click(QStringLiteral("menuInput"));
    QVERIFY(panel->shows(QStringLiteral("pageIN"), seen.first()));
    QCOMPARE(studio->unit->frames({0x60, 0x62}), QStringList());
    QCOMPARE(panel->close(), 0);
    QCOMPARE(panel->strangeLines(), QStringList());
}

NETWORK_TEST_MAIN(TestJourney)
#include "tst_journey.moc"
