#include "states.h"

// The input, post-processor, mask and luma key pages.

namespace {

QVector<State> input()
{
    return {
        {"input", [](Scene &s) { s.showPage(1); }},
        {"input-unreported",
         [](Scene &s) {
             emit s.facade.autoConnectResult("OK");
             s.awaitClosed("popupMask");
         }},
        {"input-frozen-locked",
         [](Scene &s) {
             s.showPage(1);
             emit s.facade.refreshInputFreeze(true, false, true);
             emit s.facade.refreshInputResolution(32, 24, 1, 2, 1);
         }},
        {"input-4k",
         [](Scene &s) {
             s.showPage(1);
             emit s.facade.refreshInputResolution(25, 31, 17, 23, 1);
         }},
        {"input-hdmi",
         [](Scene &s) {
             s.showPage(1);
             emit s.facade.refreshInputSource(1, 0, 0);
         }},
        {"input-genlock-off",
         [](Scene &s) {
             s.showPage(1);
             emit s.facade.refreshGenlock(0, 5500, -500);
         }},
        {"input-genlock-folded",
         [](Scene &s) {
             s.showPage(1);
             s.fold("pageIN.pageInput_ContentGenlock");
         }},
        {"input-sources",
         [](Scene &s) {
             s.showPage(1);
             s.openList("pageIN.comboFGSource");
         }},
        {"input-reset-pressed",
         [](Scene &s) {
             s.showPage(1);
             s.press("pageIN.btnGenlockReset");
         }},
        {"input-step-pressed",
         [](Scene &s) {
             s.showPage(1);
             s.press("pageIN.horizontalOffset.itemButtonIncrease");
         }},
        {"input-number-typed",
         [](Scene &s) {
             s.showPage(1);
             s.type("pageIN.verticalOffset.itemText", "-42");
         }},
    };
}

void postOff(Scene &scene)
{
    scene.showPage(3);
    emit scene.facade.refreshPPFGPostAmp(false, 480, 520, 610, 35);
    emit scene.facade.refreshPPFGRGBCorrector(false, 900, 20, 910, 30, 920, 40);
    emit scene.facade.refreshPPBGBlur(false, 33, 7);
}

QVector<State> postProcessor()
{
    return {
        {"post", [](Scene &s) { s.showPage(3); }},
        {"post-bottom",
         [](Scene &s) {
             s.showPage(3);
             s.scrollTo("pagePP", 1);
         }},
        {"post-unreported",
         [](Scene &s) {
             emit s.facade.autoConnectResult("OK");
             s.awaitClosed("popupMask");
             s.click("menuPostProcessor");
         }},
        {"post-off", [](Scene &s) { postOff(s); }},
        {"post-off-bottom",
         [](Scene &s) {
             postOff(s);
             s.scrollTo("pagePP", 1);
         }},
        {"post-switched-off",
         [](Scene &s) {
             s.showPage(3);
             s.click("pagePP.pagePP_ContentArea01", {330, 37});
         }},
        {"post-first-folded",
         [](Scene &s) {
             s.showPage(3);
             s.fold("pagePP.pagePP_ContentArea01");
         }},
        {"post-folded",
         [](Scene &s) {
             s.showPage(3);
             for (int i = 1; i <= 3; ++i)
                 s.fold(QStringLiteral("pagePP.pagePP_ContentArea0%1").arg(i));
             s.scrollTo("pagePP", 0);
         }},
        {"post-reset-pressed",
         [](Scene &s) {
             s.showPage(3);
             s.pressReset("pagePP.pagePP_ContentArea02");
         }},
    };
}

QVector<State> masks()
{
    return {
        {"garbage", [](Scene &s) { s.showPage(4); }},
        {"garbage-inverted",
         [](Scene &s) {
             s.showPage(4);
             emit s.facade.refreshWindow(true, 1, 0, 1000, 0, 1000, 100);
         }},
        {"garbage-off",
         [](Scene &s) {
             s.showPage(4);
             emit s.facade.refreshWindow(false, 0, 110, 890, 120, 880, 15);
         }},
        {"garbage-off-inverted",
         [](Scene &s) {
             s.showPage(4);
             emit s.facade.refreshWindow(false, 1, 110, 890, 120, 880, 15);
         }},
        {"garbage-reset-pressed",
         [](Scene &s) {
             s.showPage(4);
             s.press("pageGM.btnWindowResetImage");
         }},
        {"holdout", [](Scene &s) { s.showPage(5); }},
        {"holdout-inverted",
         [](Scene &s) {
             s.showPage(5);
             emit s.facade.refreshHoldoutWindow(true, 1, 0, 3840, 0, 2160, 100);
         }},
        {"holdout-off",
         [](Scene &s) {
             s.showPage(5);
             emit s.facade.refreshHoldoutWindow(false, 0, 400, 3400, 220, 1900, 25);
         }},
        {"holdout-off-inverted",
         [](Scene &s) {
             s.showPage(5);
             emit s.facade.refreshHoldoutWindow(false, 1, 400, 3400, 220, 1900, 25);
         }},
        {"holdout-reset-pressed",
         [](Scene &s) {
             s.showPage(5);
             s.press("pageHW.holdoutWindowLeft", {1045, -37});
         }},
    };
}

QVector<State> lumaKey()
{
    return {
        {"luma-unreported",
         [](Scene &s) {
             emit s.facade.autoConnectResult("OK");
             s.awaitClosed("popupMask");
             s.click("menuAuxLumakey");
         }},
        {"luma", [](Scene &s) { s.showPage(6); }},
        {"luma-white-swapped",
         [](Scene &s) {
             s.showPage(6);
             emit s.facade.refreshLumaKey(true, 1, 1000, 0, 1, 20, 500);
         }},
        {"luma-off",
         [](Scene &s) {
             s.showPage(6);
             emit s.facade.refreshLumaKey(false, 0, 300, 400, 0, 8, 750);
         }},
        {"luma-off-swapped",
         [](Scene &s) {
             s.showPage(6);
             emit s.facade.refreshLumaKey(false, 1, 300, 400, 1, 8, 750);
         }},
        {"luma-radio-pressed",
         [](Scene &s) {
             s.showPage(6);
             s.press("pageAL.btnAuxLumakeyKeymodeWhiteImage");
         }},
        {"luma-reset-pressed",
         [](Scene &s) {
             s.showPage(6);
             s.press("pageAL.btnAuxLumakeyResetImage");
         }},
    };
}

} // namespace

QVector<State> pageStates()
{
    return input() + postProcessor() + masks() + lumaKey();
}
