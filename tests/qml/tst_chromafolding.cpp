#include "chromapanel.h"
#include "tests/support/stopwatch.h"

#include <numeric>

// The chromakey page: heights of the sections, folding, scrolling.
class TestChromaFolding : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void folding_data();
    void folding();
    void hiddenRowsTakeTheirPlace_data();
    void hiddenRowsTakeTheirPlace();
    void foldingTheMatteHidesTheWhiteLevel();
    void contentScrolls();

private:
    std::unique_ptr<ChromaPanel> h;
};

void TestChromaFolding::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestChromaFolding::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestChromaFolding::folding_data()
{
    QTest::addColumn<int>("section");
    QTest::addColumn<int>("atStart");
    QTest::addColumn<int>("unfolded");
    QTest::addColumn<QString>("inside");
    QTest::newRow("matte") << 1 << 444 << 444 << "blackLevel";
    QTest::newRow("dark") << 2 << 150 << 150 << "darkLevel";
    QTest::newRow("bright") << 3 << 150 << 150 << "brightLevel";
    QTest::newRow("shadow") << 4 << 150 << 150 << "shadow";
    QTest::newRow("spill") << 5 << 370 << 420 << "spillBalance";
    QTest::newRow("edge") << 6 << 296 << 296 << "softEdge";
}

void TestChromaFolding::folding()
{
    QFETCH(int, section);
    QFETCH(int, atStart);
    QFETCH(int, unfolded);
    QFETCH(QString, inside);
    const QString header = QStringLiteral("pageCK_ContentHeader0%1.").arg(section);
    const QString height = QStringLiteral("pageCK_ContentArea0%1.height").arg(section);
    const QString folded = QStringLiteral("area0%1Folded").arg(section);
    const int others = h->number("scrollContent.contentHeight") - atStart;
    QCOMPARE(h->number(height), atStart);
    QCOMPARE(h->face(header + "foldButton.source"), QStringLiteral("btn_n_show_dashboard"));
    h->seen(header + "foldButton");
    const support::Stopwatch clock;
    h->click(h->seen(header + "foldButton"));
    QVERIFY(h->flag(folded));
    QVERIFY(!h->flag(inside + ".enabled"));
    QCOMPARE(h->face(header + "foldButton.source"), QStringLiteral("btn_n_hide_dashboard"));
    QVERIFY(h->number(height) > 74);
    QTRY_COMPARE(h->number(height), 74);
    VERIFY_TOOK(clock, 180, 330);
    QCOMPARE(h->number("scrollContent.contentHeight"), others + 74);
    h->click(h->seen(header + "foldButton"));
    QVERIFY(h->flag(inside + ".enabled"));
    QTRY_COMPARE(h->number(height), unfolded);
    QCOMPARE(h->face(header + "foldButton.source"), QStringLiteral("btn_n_show_dashboard"));
    QCOMPARE(h->facade.calls, QStringList());
}

void TestChromaFolding::hiddenRowsTakeTheirPlace_data()
{
    QTest::addColumn<QString>("row");
    QTest::addColumn<QVector<int>>("atStart");
    QTest::addColumn<QVector<int>>("unfolded");
    // The sections bright and shadow unfold by the dark section's row.
    QTest::newRow("dark density") << "darkDensity" << QVector<int>({444, 296, 150, 150, 370, 296})
                                  << QVector<int>({444, 296, 296, 296, 420, 296});
    QTest::newRow("bright density") << "brightDensity" << QVector<int>({444, 150, 296, 150, 370, 296})
                                    << QVector<int>({444, 150, 150, 150, 420, 296});
    QTest::newRow("spill enhance") << "spillEnhance" << QVector<int>({444, 150, 150, 150, 470, 296})
                                   << QVector<int>({444, 150, 150, 150, 520, 296});
    QTest::newRow("balances") << "darkBalance" << QVector<int>({444, 150, 150, 150, 370, 296})
                              << QVector<int>({444, 150, 150, 150, 420, 296});
}

void TestChromaFolding::hiddenRowsTakeTheirPlace()
{
    QFETCH(QString, row);
    QFETCH(QVector<int>, atStart);
    QFETCH(QVector<int>, unfolded);
    const auto heights = [this] {
        QVector<int> list;
        for (int section = 1; section <= 6; ++section)
            list << h->number(QStringLiteral("pageCK_ContentArea0%1.height").arg(section));
        return list;
    };
    h->eval(row + ".visible = true");
    QCOMPARE(heights(), atStart);
    for (int section = 1; section <= 6; ++section) {
        const QString height = QStringLiteral("pageCK_ContentArea0%1.height").arg(section);
        const QString fold = QStringLiteral("pageCK_ContentHeader0%1.foldButton").arg(section);
        h->click(h->seen(fold));
        QTRY_COMPARE(h->number(height), 74);
        h->click(h->seen(fold));
        QTRY_COMPARE(h->number(height), unfolded.at(section - 1));
        // The column lays out what lies below with the next frame.
        QTRY_COMPARE(h->number("pageCK_ContentArea06.y + pageCK_ContentArea06.height"),
                     h->number("scrollContent.contentHeight"));
    }
    QCOMPARE(heights(), unfolded);
    QCOMPARE(h->number("scrollContent.contentHeight"),
             std::accumulate(unfolded.cbegin(), unfolded.cend(), 0));
}

void TestChromaFolding::foldingTheMatteHidesTheWhiteLevel()
{
    h->click("pageCK_ContentHeader01.foldButton");
    QVERIFY(!h->flag("whiteLevel.visible"));
    QVERIFY(h->flag("blackLevel.visible"));
    emit h->facade.refreshCKBWLevel(7, 8, true);
    QCOMPARE(h->number("whiteLevel.sliderValue"), 8);
}

void TestChromaFolding::contentScrolls()
{
    QCOMPARE(h->text("[scrollContent.x, scrollContent.y, scrollContent.width, scrollContent.height].join()"),
             QStringLiteral("30,10,1140,610"));
    QVERIFY(h->flag("scrollContent.clip"));
    QCOMPARE(h->number("scrollContent.contentHeight"), 444 + 150 + 150 + 150 + 370 + 296);
    QQuickItem *bar = h->item("scrollContent.scrollBar");
    QCOMPARE(bar->property("policy").toInt(), 2); // always on
    QCOMPARE(bar->mapToItem(h->item("scrollContent"), QPointF()), QPointF(1110 + 14, 0));
    QCOMPARE(bar->height(), 610.0);
    // To the end of the bar, and the last row stands whole above the page's lower edge.
    h->press(h->at(bar, 6, 20));
    for (int y = 20; y <= 605; y += 45)
        h->move(h->at(bar, 6, y));
    h->release(h->at(bar, 6, 605));
    QQuickItem *last = h->item("softEdge");
    QTRY_COMPARE(last->mapToItem(h->item("scrollContent"), QPointF(0, last->height())).y(), 610.0);
}

QTEST_MAIN(TestChromaFolding)
#include "tst_chromafolding.moc"
