#include "states.h"

namespace {

void switchAllOff(Scene &scene)
{
    emit scene.facade.refreshCKBWLevel(100, 900, false);
    emit scene.facade.refreshCKDark(false, 210, 220, 30);
    emit scene.facade.refreshCKBright(false, 310, 320, 40);
    emit scene.facade.refreshCKShadow(false, 410);
    emit scene.facade.refreshEdgeFix(false, 11, 12, 13);
}

void openPicker(Scene &scene)
{
    scene.showPage(2);
    scene.click("pageCK.imgColorPen");
    if (!QTest::qWaitFor([&] { return scene.evalIn("pageCK", "popupColorPicker.opened").toBool(); }))
        qFatal("the picker does not open");
}

void sample(Scene &scene)
{
    emit scene.facade.refreshBKColorPicker("#a8682c", 659, 408, 173, 29, 0.58, 0.42);
}

void foldSections(Scene &scene, int count)
{
    for (int i = 1; i <= count; ++i)
        scene.fold(QStringLiteral("pageCK.pageCK_ContentArea0%1").arg(i));
    scene.scrollTo("pageCK", 0);
}

QVector<State> sections()
{
    return {
        {"chroma", [](Scene &s) { s.showPage(2); }},
        {"chroma-middle",
         [](Scene &s) {
             s.showPage(2);
             s.scrollTo("pageCK", 0.5);
         }},
        {"chroma-bottom",
         [](Scene &s) {
             s.showPage(2);
             s.scrollTo("pageCK", 1);
         }},
        {"chroma-unreported",
         [](Scene &s) {
             emit s.facade.autoConnectResult("OK");
             s.awaitClosed("popupMask");
             s.click("menuChromakey");
         }},
        {"chroma-off",
         [](Scene &s) {
             s.showPage(2);
             switchAllOff(s);
         }},
        {"chroma-off-middle",
         [](Scene &s) {
             s.showPage(2);
             switchAllOff(s);
             s.scrollTo("pageCK", 0.5);
         }},
        {"chroma-off-bottom",
         [](Scene &s) {
             s.showPage(2);
             switchAllOff(s);
             s.scrollTo("pageCK", 1);
         }},
        {"chroma-matte-off",
         [](Scene &s) {
             s.showPage(2);
             s.click("pageCK.pageCK_ContentArea01", {330, 37});
         }},
        {"chroma-matte-folded",
         [](Scene &s) {
             s.showPage(2);
             s.fold("pageCK.pageCK_ContentArea01");
         }},
        {"chroma-folded",
         [](Scene &s) {
             s.showPage(2);
             foldSections(s, 6);
         }},
        {"chroma-spill-unfolded",
         [](Scene &s) {
             s.showPage(2);
             foldSections(s, 5);
             s.fold("pageCK.pageCK_ContentArea05");
             s.scrollTo("pageCK", 1);
         }},
        {"chroma-dark-rows",
         [](Scene &s) {
             s.showPage(2);
             for (const char *row : {"darkDensity", "darkBalance", "brightDensity", "brightBalance"})
                 s.evalIn("pageCK", QStringLiteral("%1.visible = true").arg(row));
             s.scrollTo("pageCK", 0.5);
         }},
        {"chroma-spill-rows",
         [](Scene &s) {
             s.showPage(2);
             s.evalIn("pageCK", "spillEnhance.visible = true");
             s.scrollTo("pageCK", 1);
         }},
    };
}

QVector<State> touches()
{
    return {
        {"chroma-spill-high",
         [](Scene &s) {
             s.showPage(2);
             s.scrollTo("pageCK", 0.75);
             s.click("pageCK.btnSpillHighImage");
         }},
        {"chroma-spill-none",
         [](Scene &s) {
             s.showPage(2);
             s.scrollTo("pageCK", 0.75);
             emit s.facade.refreshCKSpill(510, 520, 530, 540, false, 3, false, false);
         }},
        {"chroma-reset-pressed",
         [](Scene &s) {
             s.showPage(2);
             s.pressReset("pageCK.pageCK_ContentArea01");
         }},
        {"chroma-auto-pressed",
         [](Scene &s) {
             s.showPage(2);
             s.press("pageCK.btnCkBKColorAuto");
         }},
        {"chroma-step-pressed",
         [](Scene &s) {
             s.showPage(2);
             s.press("pageCK.blackLevel.itemButtonDecrease");
         }},
        {"chroma-angle-step-pressed",
         [](Scene &s) {
             s.showPage(2);
             s.press("pageCK.btnOAIncrease2");
         }},
        {"chroma-number-typed",
         [](Scene &s) {
             s.showPage(2);
             s.type("pageCK.whiteLevel.itemText", "123");
         }},
        {"chroma-angle-typed",
         [](Scene &s) {
             s.showPage(2);
             s.type("pageCK.txtChromaOAPlus", "7");
         }},
        {"chroma-colour-typed",
         [](Scene &s) {
             s.showPage(2);
             s.type("pageCK.txtBGR", "1000");
         }},
        {"chroma-slider-end",
         [](Scene &s) {
             s.showPage(2);
             s.evalIn("pageCK", "blackLevel.sliderValue = 0");
             s.evalIn("pageCK", "whiteLevel.sliderValue = 1000");
         }},
    };
}

QVector<State> picker()
{
    return {
        {"picker", [](Scene &s) { openPicker(s); }},
        {"picker-sample",
         [](Scene &s) {
             openPicker(s);
             sample(s);
         }},
        {"picker-4k",
         [](Scene &s) {
             s.facade.videoOutRes = 22;
             openPicker(s);
             s.click("pageCK.colorPickerMouseAreaItem", {479, 269});
             sample(s);
         }},
        {"picker-typed",
         [](Scene &s) {
             openPicker(s);
             s.type("pageCK.txtColorPickerX", "77");
         }},
        {"picker-step-pressed",
         [](Scene &s) {
             openPicker(s);
             s.press("pageCK.btnIncreaseX");
         }},
        {"picker-auto-pressed",
         [](Scene &s) {
             openPicker(s);
             s.press("pageCK.btnColorPickerAuto");
         }},
        {"picker-cancel-pressed",
         [](Scene &s) {
             openPicker(s);
             s.press("pageCK.btnColorPickerCancel");
         }},
        {"picker-ok-pressed",
         [](Scene &s) {
             openPicker(s);
             s.press("pageCK.btnColorPickerOK");
         }},
    };
}

} // namespace

QVector<State> chromakeyStates()
{
    return sections() + touches() + picker();
}
