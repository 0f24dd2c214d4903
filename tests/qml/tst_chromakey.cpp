#include "pageharness.h"

// The chromakey page under real mouse and key events.
class TestChromakey : public QObject
{
    Q_OBJECT

private slots:
    void loadingIsNoChange();
};

namespace {

const QByteArray kPage = QByteArrayLiteral("PageChromakey { id: page; width: 1190; height: 620 }");

}

void TestChromakey::loadingIsNoChange()
{
    PageHarness panel(kPage);
    QVERIFY(panel.show());
    QTest::qWait(150);
    QCOMPARE(panel.facade.calls, QStringList());
    QCOMPARE(panel.number("commandIndex"), 0);
    panel.grab(panel.window->contentItem(), "chroma-start");
    QCOMPARE(Messages::warnings(), QStringList());
}

QTEST_MAIN(TestChromakey)
#include "moc_recordedfacade.cpp"
#include "tst_chromakey.moc"
