#include "pageharness.h"
#include "tests/support/checked.h"

// The drop-down, by mouse and keys.
class TestComboBox : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void comboTextStandsByTheLanguage();
    void comboOpensAListOfThreeHundred();
    void comboChoosesByMouseAndKeys();
    void comboWithEmptyModelIsEmpty();
    void comboIsGreyWhenDisabled();
    void comboTextColorIsTheCallers();

private:
    void makeCombo(const QByteArray &more);

    std::unique_ptr<PageHarness> h;
};

void TestComboBox::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestComboBox::makeCombo(const QByteArray &more)
{
    h = std::make_unique<PageHarness>("MyComboBox { id: page; x: 30; y: 10; width: 150; height: 32; " + more
                                      + " }");
    QVERIFY(h->show());
}

void TestComboBox::comboTextStandsByTheLanguage()
{
    CHECKED(makeCombo("model: ['HDMI']"));
    for (const char *language : {"en_US", "zh_TW", "zh_CN"}) {
        h->translator.setTranslation(language);
        const bool latin = QByteArray(language) == "en_US";
        QCOMPARE(h->number("contentText.topPadding"), latin ? 2 : 0);
        QCOMPARE(h->number("contentText.bottomPadding"), latin ? 0 : 2);
    }
}

void TestComboBox::comboOpensAListOfThreeHundred()
{
    CHECKED(makeCombo("model: ['SDI', 'HDMI']"));
    QVERIFY(!h->flag("thiscombo.popupVisible"));
    h->click(h->page);
    QTRY_VERIFY(h->flag("thiscombo.popupVisible"));
    QCOMPARE(h->number("thiscombo.popupHeight"), 300);
    QCOMPARE(h->number("thiscombo.popup.y"), 31);
    QCOMPARE(h->number("thiscombo.popup.width"), 150);
    QCOMPARE(h->number("thiscombo.popup.padding"), 1);
}

void TestComboBox::comboChoosesByMouseAndKeys()
{
    CHECKED(makeCombo("model: ['SDI', 'HDMI', 'AUX']"));
    h->click(h->page);
    QTRY_VERIFY(h->flag("thiscombo.popupVisible"));
    const QPoint second = h->at(h->page, 60, 32 * 2 + 16);
    h->press(second);
    h->release(second);
    QTRY_VERIFY(!h->flag("thiscombo.popupVisible"));
    QCOMPARE(h->number("thiscombo.currentIndex"), 1);
    QCOMPARE(h->text("thiscombo.contentItem.text"), QStringLiteral("HDMI"));
    h->page->forceActiveFocus();
    QTest::keyClick(h->window, Qt::Key_Down);
    QCOMPARE(h->number("thiscombo.currentIndex"), 2);
    h->eval("thiscombo.clearModel()");
    QCOMPARE(h->number("thiscombo.count"), 3);
}

void TestComboBox::comboWithEmptyModelIsEmpty()
{
    CHECKED(makeCombo("model: []"));
    QCOMPARE(h->text("thiscombo.currentText"), QString());
    QCOMPARE(h->text("thiscombo.contentItem.text"), QString());
}

void TestComboBox::comboIsGreyWhenDisabled()
{
    CHECKED(makeCombo("model: ['SDI']"));
    QCOMPARE(h->color("thiscombo.txtColor"), QStringLiteral("#D8D8D8"));
    const QImage before = h->grab(h->window->contentItem(), "combo");
    h->page->setEnabled(false);
    QCOMPARE(h->color("thiscombo.txtColor"), QStringLiteral("#7C828B"));
    QTRY_VERIFY(h->grab(h->window->contentItem(), "combo-off") != before);
    h->click(h->page);
    QVERIFY(!h->flag("thiscombo.popupVisible"));
}

void TestComboBox::comboTextColorIsTheCallers()
{
    makeCombo("model: ['SDI']; txtColor: '#aa0000'");
    QCOMPARE(h->color("thiscombo.txtColor"), QStringLiteral("#AA0000"));
}

QTEST_MAIN(TestComboBox)
#include "tst_combobox.moc"
