#pragma once

#include "tests/qml/recordedfacade.h"

// The facade as the main document sees it, with no unit behind: what the pages use and the connection, routing,
// memory and setup besides.
class PanelFacade : public RecordedFacade
{
    Q_OBJECT
    Q_PROPERTY(QStringList serialNameList READ serialNames NOTIFY refreshSerialPortNames)
    Q_PROPERTY(QStringList netcardList READ netcards NOTIFY refreshNetcardList)
    Q_PROPERTY(QStringList ipSelectList READ addresses NOTIFY refreshIPSelectList)

public:
    using RecordedFacade::RecordedFacade;

    QStringList serialPorts{"ttyS0", "ttyUSB0"};
    QStringList adapters{"[192.168.72.10] enp3s0", "[10.0.5.7] wlan0"};
    QStringList units;
    QStringList unitsAfterScan{"192.168.72.128", "192.168.72.129"};
    QString connectResult = QStringLiteral("OK");
    QString saveResult = QStringLiteral("OK");
    bool connected = false;

    QStringList serialNames() const { return serialPorts; }
    QStringList netcards() const { return adapters; }
    QStringList addresses() const { return units; }

    Q_INVOKABLE void setCurrentPage(int id) { note("setCurrentPage", {id}); }
    Q_INVOKABLE bool isConnected()
    {
        note("isConnected", {});
        return connected;
    }
    Q_INVOKABLE uint hlnpScan(QString cmd, int netcardIndex)
    {
        note("hlnpScan", {cmd, netcardIndex});
        units = unitsAfterScan;
        emit refreshIPSelectList(units);
        return 1;
    }

    // A unit reports all that it holds.
    void report()
    {
        emit showVersion(QStringLiteral("1.42"), QStringLiteral("2.07"), QStringLiteral("0.9"));
        emit showVout(14, 1, 0);
        emit refreshOutputSourcePGM(6, false, false);
        emit refreshOutputSourcePGMHDMI(1, false, false);
        emit refreshOutputSourcePVW(4, false, true);
        emit refreshUserMemory(3);
        emit refreshInputResolution(14, 6, 3, 0, 0);
        emit refreshInputSource(0, 0, 0);
        emit refreshInputFreeze(false, true, false);
        emit refreshGenlock(1, -1200, 75);
        emit refreshBKColorAdjust(QStringLiteral("#1fa24a"), 122, 639, 290, 140, 0.68, 0.38);
        emit refreshCKAngle(21, 62);
        emit refreshCKBWLevel(100, 900, true);
        emit refreshCKDark(true, 210, 220, 30);
        emit refreshCKBright(true, 310, 320, 40);
        emit refreshCKShadow(true, 410);
        emit refreshCKSpill(510, 520, 530, 540, false, 1, false, false);
        emit refreshEdgeFix(true, 11, 12, 13);
        emit refreshPPFGPostAmp(true, 480, 520, 610, 35);
        emit refreshPPFGRGBCorrector(true, 900, 20, 910, 30, 920, 40);
        emit refreshPPBGBlur(true, 33, 7);
        emit refreshWindow(true, 0, 110, 890, 120, 880, 15);
        emit refreshHoldoutWindow(true, 0, 400, 3400, 220, 1900, 25);
        emit refreshLumaKey(true, 0, 300, 400, 0, 8, 750);
    }

public slots:
    void connectPopup(int method, int netcard) { note("connectPopup", {method, netcard}); }
    QString deviceConnect(uint method, QString select, uint selectedNetcardIndex)
    {
        note("deviceConnect", {method, select, selectedNetcardIndex});
        return connectResult;
    }
    void deviceDisConnect(uint method) { note("deviceDisConnect", {method}); }
    void getHLNPDeviceInfo(uint index) { note("getHLNPDeviceInfo", {index}); }
    void setVOut(uint resIndex, uint colorFormatIndex, uint std)
    {
        note("setVOut", {resIndex, colorFormatIndex, std});
    }
    void saveSetup() { note("saveSetup", {}); }
    void loadMemory(uint index) { note("loadMemory", {index}); }
    void saveMemory(uint index) { note("saveMemory", {index}); }
    void setOutSelect(uint pgmSource, bool pgmLock, bool pgmMirror, uint pvwSource, bool pvwLock,
                      bool pvwMirror, uint pgmhdmiSource, bool pgmhdmiLock, bool pgmhdmiMirror,
                      uint pvwhdmiSource, bool pvwhdmLiock, bool pvwhdmiMirror)
    {
        note("setOutSelect",
             {pgmSource, pgmLock, pgmMirror, pvwSource, pvwLock, pvwMirror, pgmhdmiSource, pgmhdmiLock,
              pgmhdmiMirror, pvwhdmiSource, pvwhdmLiock, pvwhdmiMirror});
    }
    QString hlnpSave(QString currentNetcardIP, QString currentNetcardText, int ipSelectIndex, QString macAdd,
                     QString name, int mode, QString ipaddr, QString mask, QString gateway, QString priDns,
                     QString secDns)
    {
        note("hlnpSave",
             {currentNetcardIP, currentNetcardText, ipSelectIndex, macAdd, name, mode, ipaddr, mask, gateway,
              priDns, secDns});
        return saveResult;
    }
    QString hlnpReboot(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP)
    {
        note("hlnpReboot", {targetDeviceMAC, currentNetcardIP, targetDeviceIP});
        return QStringLiteral("OK");
    }

signals:
    void refreshConnection(int method, QString serialport, QString netcard, bool dhcpMode, QString ipaddr,
                           QString hostname, QString macaddr, QString gateway, QString mask, QString primDns,
                           QString secDns);
    void refreshConnectionData(int test, QString test1, bool test0, QString test2, QString test3,
                               QString test4, QString test5, QString test6, QString test7, QString test8);
    void showVersion(QString fwversion, QString fpgaversion, QString blversion);
    void showVout(uint res, uint colorformat, uint std);
    void refreshOutputSourcePGM(uint source, bool lock, bool mirror);
    void refreshOutputSourcePVW(uint source, bool lock, bool mirror);
    void refreshOutputSourcePGMHDMI(uint source, bool lock, bool mirror);
    void refreshOutputSourcePVWHDMI(uint source, bool lock, bool mirror);
    void refreshSerialPortNames(QStringList portNameList);
    void refreshNetcardList(QStringList netList);
    void refreshIPSelectList(QStringList ipList);
    void refreshLanguage(QString lan);
    void refreshMainImage();
    void refreshChromaImage();
    void refreshAuxMode(uint auxFunc, uint auxPolar);
    void warning(QString msg);
    void refreshUserMemory(int index);
    void markHLNPDataRed(int index);
    void autoConnectResult(QString msg);
};
