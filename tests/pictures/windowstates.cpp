#include "states.h"

// What the window itself shows: start mask, header, output band, connection panel, notices, setup panel.

namespace {

QVector<State> start()
{
    return {
        {"start-busy", [](Scene &s) { s.holdMask(0.8); }},
        {"start",
         [](Scene &s) {
             s.eval("maskbusy.running = false; maskbusy.visible = false");
             s.holdMask(0.4);
         }},
        {"start-languages",
         [](Scene &s) {
             s.eval("maskbusy.running = false; maskbusy.visible = false");
             s.holdMask(0.4);
             s.openList("comboMainLanguage");
         }},
    };
}

QVector<State> band()
{
    return {
        {"band-locked",
         [](Scene &s) {
             s.showPage(4);
             emit s.facade.refreshOutputSourcePGM(2, true, true);
             emit s.facade.refreshOutputSourcePGMHDMI(3, true, false);
             emit s.facade.refreshOutputSourcePVW(5, true, true);
         }},
        {"band-lock-clicked",
         [](Scene &s) {
             s.showPage(4);
             s.click("btnLockPGMHDMI");
             s.click("checkboxPGMSDI");
         }},
        {"band-blank",
         [](Scene &s) {
             s.showPage(4);
             emit s.facade.refreshOutputSourcePGM(0, false, true);
             emit s.facade.refreshOutputSourcePGMHDMI(0, false, true);
             emit s.facade.refreshOutputSourcePVW(0, true, false);
         }},
        {"band-pgm-sdi-list", [](Scene &s) { s.showPage(4), s.openList("comboPgmSdiOutput"); }},
        {"band-pgm-hdmi-list", [](Scene &s) { s.showPage(4), s.openList("comboPgmHdmiOutput"); }},
        {"band-pvw-list", [](Scene &s) { s.showPage(4), s.openList("comboPvwOutput"); }},
        {"band-memory-open", [](Scene &s) { s.showPage(4), s.click("outputMemoryLock"); }},
        {"band-memory-list",
         [](Scene &s) {
             s.showPage(4);
             s.click("outputMemoryLock");
             s.openList("comboUserMem");
         }},
        {"band-load-pressed",
         [](Scene &s) {
             s.showPage(4);
             s.click("outputMemoryLock");
             s.press("outputMemoryLoad");
         }},
        {"band-save-pressed",
         [](Scene &s) {
             s.showPage(4);
             s.click("outputMemoryLock");
             s.press("outputMemorySave");
         }},
        {"band-completed",
         [](Scene &s) {
             s.showPage(4);
             s.click("outputMemoryLock");
             s.click("outputMemoryLoad");
         }},
    };
}

void openConnect(Scene &scene)
{
    scene.holdMask(0.4);
    scene.eval("maskbusy.running = false; maskbusy.visible = false");
    scene.click("btnConnect");
    scene.awaitOpened("popupConnect");
}

void fillForm(Scene &scene, bool dhcp, const QString &address)
{
    openConnect(scene);
    scene.facade.units = scene.facade.unitsAfterScan;
    emit scene.facade.refreshIPSelectList(scene.facade.units);
    emit scene.facade.refreshConnectionData(999, "na", dhcp, "QKV_720_A", address, "00:1E:C0:5A:07:20",
                                            "192.168.72.254", "255.255.255.0", "192.168.72.1", "8.8.8.8");
}

void fillStatic(Scene &scene)
{
    fillForm(scene, false, "192.168.72.128");
}

void openSerial(Scene &scene)
{
    openConnect(scene);
    scene.eval("comboConnectInterface.currentIndex = 1");
}

QVector<State> connectionForm()
{
    return {
        {"connect-empty", [](Scene &s) { openConnect(s); }},
        {"connect-dhcp", [](Scene &s) { fillForm(s, true, "192.168.72.128"); }},
        {"connect-static", [](Scene &s) { fillStatic(s); }},
        {"connect-outside", [](Scene &s) { fillForm(s, false, "192.168.73.128"); }},
        {"connect-marked",
         [](Scene &s) {
             fillStatic(s);
             for (int mark = 1; mark <= 6; ++mark)
                 emit s.facade.markHLNPDataRed(mark);
             emit s.facade.autoConnectResult(
                 "Saved device info is not match.\nPlease scan again to refresh.");
         }},
        {"connect-one-marked",
         [](Scene &s) {
             fillForm(s, true, "192.168.72.128");
             emit s.facade.markHLNPDataRed(4);
         }},
        {"connect-unscanned",
         [](Scene &s) {
             fillStatic(s);
             s.eval("didScan = false");
         }},
        {"connect-typed",
         [](Scene &s) {
             fillStatic(s);
             s.type("txtHostname", "STUDIO_4");
         }},
        {"connect-address-typed",
         [](Scene &s) {
             fillStatic(s);
             s.type("txtGateway", "10.0.0.");
         }},
        {"connect-serial", [](Scene &s) { openSerial(s); }},
        {"connect-serial-ports",
         [](Scene &s) {
             openSerial(s);
             s.openList("comboConnectComPort");
         }},
        {"connect-interfaces",
         [](Scene &s) {
             fillStatic(s);
             s.openList("comboConnectInterface");
         }},
        {"connect-adapters",
         [](Scene &s) {
             fillStatic(s);
             s.openList("comboConnectComPort");
         }},
        {"connect-units",
         [](Scene &s) {
             fillStatic(s);
             s.openList("comboIPSelect");
         }},
        {"connect-address-modes",
         [](Scene &s) {
             fillStatic(s);
             s.openList("comboAddrmode");
         }},
    };
}

QVector<State> connectionTouches()
{
    return {
        {"connect-scanning",
         [](Scene &s) {
             fillStatic(s);
             // The picture of Scan stands right of the adapters and has no name of its own.
             s.press("comboConnectComPort", {370, 16});
         }},
        {"connect-connect-pressed",
         [](Scene &s) {
             fillStatic(s);
             s.press("btnConnectConnect");
         }},
        {"connect-disconnect-pressed",
         [](Scene &s) {
             fillStatic(s);
             s.press("btnConnectDisconnect");
         }},
        {"connect-save-pressed",
         [](Scene &s) {
             openConnect(s);
             s.press("btnConnectSave");
         }},
        {"connect-save-refused",
         [](Scene &s) {
             openConnect(s);
             s.click("btnConnectSave");
         }},
        {"connect-refused",
         [](Scene &s) {
             fillForm(s, false, "192.168.73.128");
             s.click("btnConnectConnect");
         }},
        {"connect-failed",
         [](Scene &s) {
             fillStatic(s);
             s.facade.connectResult = "HLNP";
             s.click("btnConnectConnect");
         }},
    };
}

// The operator disconnects: the notice stands, its clock with it.
void disconnect(Scene &scene)
{
    scene.connectUnit();
    scene.facade.connected = true;
    scene.click("btnConnect");
    scene.awaitOpened("popupConnect");
    scene.click("btnConnectDisconnect");
    scene.eval("notifyTimer.stop()");
    scene.awaitOpened("popupDisConnect");
    scene.awaitClosed("popupConnect");
    scene.holdMask(0.4);
}

// The link is lost.
void warn(Scene &scene)
{
    scene.showPage(2);
    emit scene.facade.warning(scene.eval("qsTr('Disconnected')").toString());
    scene.awaitOpened("popupWarning");
}

QVector<State> notices()
{
    return {
        {"disconnecting",
         [](Scene &s) {
             disconnect(s);
             s.eval("txtDisconnectNotifyInfoCountDown.text = '...'");
         }},
        {"disconnected",
         [](Scene &s) {
             disconnect(s);
             s.eval("countDown = 0; notifyTimer.interval = 20; notifyTimer.start()");
             s.awaitOpened("popupConnect");
         }},
        {"warning", [](Scene &s) { warn(s); }},
        {"warning-reconnect-pressed",
         [](Scene &s) {
             warn(s);
             s.press("btnWarningReconnect");
         }},
        {"warning-config-pressed",
         [](Scene &s) {
             warn(s);
             s.press("btnWarningConfig");
         }},
        {"warning-config",
         [](Scene &s) {
             warn(s);
             s.click("btnWarningConfig");
             s.awaitOpened("popupConnect");
         }},
        {"warning-refused",
         [](Scene &s) {
             warn(s);
             s.eval("txtIPAddr.text = '172.16.0.9'");
             s.click("btnWarningReconnect");
         }},
    };
}

void openSetup(Scene &scene)
{
    scene.showPage(5);
    scene.click("btnSetup");
    scene.awaitOpened("popupSetup");
}

void askForReset(Scene &scene)
{
    openSetup(scene);
    scene.click("btnSetupFactoryDefault");
    scene.awaitOpened("popupFactoryDefault");
}

QVector<State> setup()
{
    return {
        {"setup", [](Scene &s) { openSetup(s); }},
        {"setup-automatic",
         [](Scene &s) {
             openSetup(s);
             emit s.facade.showVout(24, 2, 1);
         }},
        {"setup-resolutions",
         [](Scene &s) {
             openSetup(s);
             s.openList("comboSetupVOutRes");
         }},
        {"setup-formats",
         [](Scene &s) {
             openSetup(s);
             s.openList("comboSetupVOutOutputFormat");
         }},
        {"setup-outside-list",
         [](Scene &s) {
             openSetup(s);
             emit s.facade.showVout(3, 0, 0);
         }},
        {"setup-save-pressed",
         [](Scene &s) {
             openSetup(s);
             s.press("btnSetupSave");
         }},
        {"setup-saved",
         [](Scene &s) {
             openSetup(s);
             s.click("btnSetupSave");
             s.awaitOpened("popupSetupSaveFinished");
         }},
        {"setup-saved-ok-pressed",
         [](Scene &s) {
             openSetup(s);
             s.click("btnSetupSave");
             s.awaitOpened("popupSetupSaveFinished");
             s.press("btnSetupSaveFinished");
         }},
        {"factory-question", [](Scene &s) { askForReset(s); }},
        {"factory-cancel-pressed",
         [](Scene &s) {
             askForReset(s);
             s.press("btnFactoryCancel");
         }},
        {"factory-reset-pressed",
         [](Scene &s) {
             askForReset(s);
             s.press("btnFactoryReset");
         }},
        {"factory-done",
         [](Scene &s) {
             askForReset(s);
             s.click("btnFactoryReset");
             s.awaitOpened("popupSetupFactoryReset");
             s.awaitClosed("popupFactoryDefault");
         }},
        {"factory-done-ok-pressed",
         [](Scene &s) {
             askForReset(s);
             s.click("btnFactoryReset");
             s.awaitOpened("popupSetupFactoryReset");
             s.awaitClosed("popupFactoryDefault");
             s.press("btnSetupFactoryReset");
         }},
    };
}

} // namespace

QVector<State> windowStates()
{
    return start() + band() + connectionForm() + connectionTouches() + notices() + setup();
}
