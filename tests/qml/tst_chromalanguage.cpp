#include "chromapanel.h"

// The chromakey page over a switch of the language: words, faces, places.
class TestChromaLanguage : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void languageRenewsFacesAndTexts();
    void facesAfterALanguageSwitchStayWrongUntilTheNextReport();
    void nothingMovesWithTheLanguage();
    void titlesEndBeforeTheirSliders_data();
    void titlesEndBeforeTheirSliders();

private:
    // How wide the title of a row is written.
    qreal titleWidth(const char *row) const;

    std::unique_ptr<ChromaPanel> h;
};

void TestChromaLanguage::init()
{
    h = std::make_unique<ChromaPanel>();
    QVERIFY(h->show());
    h->fill();
}

void TestChromaLanguage::cleanup()
{
    QCOMPARE(Messages::warnings(), QStringList());
    h.reset();
}

void TestChromaLanguage::languageRenewsFacesAndTexts()
{
    h->translator.setTranslation(QStringLiteral("zh_TW"));
    QCOMPARE(h->text("sourcePath"), QStringLiteral("qrc:/img/pc/TW/"));
    QCOMPARE(h->text("pageCK_ContentHeader01.title"), QString::fromUtf8("遮罩產生"));
    QCOMPARE(h->face("btnSpillMidImage.source"), QStringLiteral("TW/btn_p_spill_mid_chromakey"));
    QCOMPARE(h->face("btnColorPickerOK.source"), QStringLiteral("TW/btn_n_ok_adjust_color"));
    for (int i = 1; i <= 6; ++i) {
        const QString header = QStringLiteral("pageCK_ContentHeader0%1.").arg(i);
        QCOMPARE(h->face(header + "resetSource"), QStringLiteral("TW/btn_n_reset_dashboard"));
        if (i != 5)
            QCOMPARE(h->face(header + "switchSource"), QStringLiteral("TW/btn_switch_on_dashboard"));
    }
    QVERIFY(Messages::logs().contains("onLanguageChanged(chromakey)"));
    h->translator.setTranslation(QStringLiteral("zh_CN"));
    QCOMPARE(h->text("sourcePath"), QStringLiteral("qrc:/img/pc/CN/"));
    QCOMPARE(h->text("pageCK_ContentHeader01.title"), QString::fromUtf8("屏蔽产生"));
}

void TestChromaLanguage::facesAfterALanguageSwitchStayWrongUntilTheNextReport()
{
    h->click("pageCK_ContentHeader01.switchButton");
    emit h->facade.refreshCKDark(false, 210, 220, 30);
    h->translator.setTranslation(QStringLiteral("zh_CN"));
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("CN/btn_n_auto_bg_chromakey"));
    QCOMPARE(h->face("btnMatteGenResetImage.source"), QStringLiteral("CN/btn_n_reset_dashboard"));
    QCOMPARE(h->face("pageCK_ContentHeader02.resetSource"), QStringLiteral("CN/btn_n_reset_dashboard"));
    QCOMPARE(h->face("pageCK_ContentHeader01.switchSource"), QStringLiteral("CN/btn_switch_off_dashboard"));
    QCOMPARE(h->face("pageCK_ContentHeader02.switchSource"), QStringLiteral("CN/btn_switch_off_dashboard"));
    QVERIFY(!h->flag("btnCkBKColorAuto.enabled || btnMGReset.enabled"));
    emit h->facade.refreshCKBWLevel(100, 900, false);
    QCOMPARE(h->face("btnCkBKColorAuto.source"), QStringLiteral("CN/btn_d_auto_bg_chromakey"));
    QCOMPARE(h->face("btnMatteGenResetImage.source"), QStringLiteral("CN/btn_d_reset_dashboard"));
}

qreal TestChromaLanguage::titleWidth(const char *row) const
{
    const QString title = h->text(QLatin1String(row) + ".title");
    for (QQuickItem *text : h->item(QLatin1String(row))->findChildren<QQuickItem *>()) {
        if (text->property("text").toString() == title && text->property("contentWidth").isValid())
            return text->property("contentWidth").toReal();
    }
    return 1e6;
}

void TestChromaLanguage::nothingMovesWithTheLanguage()
{
    QStringList ids = {"txtBackingColor",
                       "recColorAdjust",
                       "imgColorPen",
                       "btnCkBKColorAuto",
                       "txtBGR",
                       "txtBGG",
                       "txtBGB",
                       "txtOpenAngle",
                       "sliderOPPlus",
                       "sliderOPMinus",
                       "btnOADecrease",
                       "btnOAIncrease",
                       "btnOADecrease2",
                       "btnOAIncrease2",
                       "txtChromaOAPlus",
                       "txtChromaOAMinus",
                       "txtDefaultBrightLevel",
                       "btnSpillLowImage",
                       "btnSpillMidImage",
                       "btnSpillHighImage"};
    for (const ChromaRow &row : chromaRows()) {
        if (!row.shown)
            continue;
        for (const char *part :
             {"", ".itemSlider", ".itemButtonDecrease", ".itemButtonIncrease", ".itemText"})
            ids << QLatin1String(row.id) + QLatin1String(part);
    }
    for (int i = 1; i <= 6; ++i) {
        for (const char *part : {"", ".foldButton", ".switchButton", ".resetButton"})
            ids << QStringLiteral("pageCK_ContentHeader0%1").arg(i) + QLatin1String(part);
    }
    const auto places = [&] {
        QStringList list;
        for (const QString &id : ids) {
            const QPoint place = h->at(h->item(id), 0, 0);
            list << QStringLiteral("%1 at %2, %3").arg(id).arg(place.x()).arg(place.y());
        }
        return list;
    };
    const QStringList english = places();
    QVERIFY(english.contains("blackLevel.itemSlider at 444, 488"));
    for (const char *language : {"zh_TW", "zh_CN", "en_US"}) {
        h->translator.setTranslation(language);
        QTest::qWait(50); // columns and rows lay themselves out with the next frame
        QCOMPARE(places(), english);
    }
}

void TestChromaLanguage::titlesEndBeforeTheirSliders_data()
{
    QTest::addColumn<QString>("language");
    for (const char *language : {"en_US", "zh_TW", "zh_CN"})
        QTest::newRow(language) << language;
}

void TestChromaLanguage::titlesEndBeforeTheirSliders()
{
    QFETCH(QString, language);
    h->translator.setTranslation(language);
    for (const ChromaRow &row : chromaRows())
        QVERIFY2(titleWidth(row.id) <= 178, row.id);
}

QTEST_MAIN(TestChromaLanguage)
#include "tst_chromalanguage.moc"
