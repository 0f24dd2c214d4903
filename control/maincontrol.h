#pragma once

#include "control/panelstate.h"
#include "device/qkv720state.h"

#include <QObject>
#include <QSettings>
#include <QString>
#include <QStringList>
#include <QTimer>

class QColor;
class qkv720;
struct hlnp_network_info;

// The one object that the interface talks to, published to QML as `mainObject`. It owns the device
// object, reads and writes the settings file, runs the status poll, and turns each device operation into
// the signals that the pages listen to.
//
// All of it runs on the main thread, and every operation that talks to the unit blocks until the device
// object is done. Unless noted otherwise such an operation returns at once when no link is up, stops the
// poll, does its work, and starts the poll again if the link still stands, so that a poll never falls due
// within a period after a user action. "get" reads the unit and emits what it read, "set" sends and
// emits nothing, "reset" has the unit restore its defaults and emits them. No operation returns whether
// the unit answered: a link that breaks emits `warning` as soon as the device object notices, and after
// a failed read the signals repeat the values that the device object holds.
class mainControl : public QObject
{
    Q_OBJECT

    Q_PROPERTY(
        QString vOutResolution READ vOutResolution WRITE setVOutResolution NOTIFY vOutResolutionChanged)
    Q_PROPERTY(
        QString vOutColorSpace READ vOutColorSpace WRITE setVOutColorSpace NOTIFY vOutColorSpaceChanged)
    Q_PROPERTY(QString vOutStd READ vOutStd WRITE setVOutStd NOTIFY vOutStdChanged)
    Q_PROPERTY(QStringList serialNameList READ getSerialNameList NOTIFY refreshSerialPortNames)
    Q_PROPERTY(QStringList netcardList READ getNetcardList NOTIFY refreshNetcardList)
    Q_PROPERTY(QStringList ipSelectList READ getIPSelectList NOTIFY refreshIPSelectList)
    Q_PROPERTY(int currentPage READ getCurrentPage WRITE setCurrentPage NOTIFY currentPageChanged)

public:
    // Reads the settings file, makes the device object (which lists the adapters) and arms the start-up
    // timer: autoRun follows 1500 ms later, from the event loop. Opens no link.
    explicit mainControl(QObject *parent = nullptr);
    // Closes both links, whichever is in use, and frees the device object.
    ~mainControl() override;

    // ---- State ------------------------------------------------------------------------------------------

    uint currentConnectMethod = 1; // link of the last good connect: 1 network, 2 serial
    QStringList serialNameList; // as the property was last read
    QStringList netcardList; // the same; entries "[address] name"
    QStringList ipSelectList; // addresses of the units of the last scan
    int selectedNetcard = 0; // index into netcardList
    int selectedCom = 0; // index into serialNameList
    QTimer *timerRefreshStatus; // the status poll
    QTimer *timerStartUp; // fires once, into autoRun
    int currentPage = 1;
    QSettings *initSettings; // lives to the end of the process
    QString appVersion;
    // The saved connection as read at start. Connects with a scan behind them do not keep it in step.
    int initInterface = 1;
    QString initNetcard;
    QString initSerialPort;
    bool initDhcpMode = false;
    QString initIpaddr;
    QString initHostname;
    QString initMac;
    QString initGateway;
    QString initMask;
    QString initPrimDns;
    QString initSecDns;

    // ---- Poll and page ----------------------------------------------------------------------------------

    // The page that the interface shows: 1 input and output, 2 chromakey, 3 post-processor, 4 garbage mask,
    // 5 holdout window, 6 aux lumakey. Page 1 is polled every 1500 ms, any other every 3000 ms.
    Q_INVOKABLE void setCurrentPage(int id);
    Q_INVOKABLE int getCurrentPage() const;

    // The device object's belief that a link is up.
    Q_INVOKABLE bool isConnected() const;

    // Scans on the adapter at netcardIndex (2.2 s and more, blocking; 50 s more when replies were left
    // over) and emits refreshIPSelectList whatever came of it. 1 when the scan was done, else 0. `cmd` is
    // "scan".
    Q_INVOKABLE uint hlnpScan(QString cmd, int netcardIndex);

    // Reads the output standard, with or without a link. A lost link shows as `std` ERROR in the result,
    // and the poll stays stopped then.
    video_out getVOut();

    // ---- Property accessors -----------------------------------------------------------------------------

    // Empty shells: reads give "", writes ignore the value and, with a link, emit their notify signal.
    QString vOutResolution() const;
    void setVOutResolution(QString &value);
    QString vOutColorSpace() const;
    void setVOutColorSpace(QString &value);
    QString vOutStd() const;
    void setVOutStd(QString &value);

    // Each read refreshes the list that the connection flows then compare with. Ports are enumerated
    // afresh, adapters were listed once at start, addresses are those of the last scan.
    QStringList getSerialNameList();
    QStringList getNetcardList();
    QStringList getIPSelectList();

public slots:
    // ---- Connection -------------------------------------------------------------------------------------

    void mainExit(); // empty; nothing calls it
    void initObj(); // puts a new device object in the place of the present one; nothing calls it
    void doPreprocess(); // lists the adapters once more; nothing calls it

    // The automatic connection, once after start: scans and connects when a connection was saved and the
    // unit still agrees with it, else reports what is amiss and leaves the choice to the operator.
    void autoRun();

    // Emits the saved connection unless a scan was made. `method` counts from 0 here: 0
    // network, 1 serial. With a link up it also becomes the saved method in memory, and `netcard` the
    // chosen adapter.
    void connectPopup(int method, int netcard);

    // Opens link `method` to `select` (address or port name), reads the whole unit, refreshes every page,
    // stores the connection and starts the poll. Returns "OK", or the device object's words for the
    // operator; then the poll is stopped and nothing was stored. selectedNetcardIndex is used for the
    // network link alone.
    QString deviceConnect(uint method, QString select, uint selectedNetcardIndex);

    // Stops the poll and closes the link. No signal: the operator asked for it.
    void deviceDisConnect(uint method);

    // Emits refreshConnectionData for the unit at `index` of the last scan. Nothing when there is none.
    void getHLNPDeviceInfo(uint index);

    // The device object lost the link: stops the poll and warns, each time anew.
    void warnningConnectionBroken();

    // ---- Poll -------------------------------------------------------------------------------------------

    // One tick: reads the output standard and the input resolutions and emits them; warns when the link
    // is gone.
    void refreshStatus();

    // Starts or stops the poll, with or without a link. A tick without a link warns and stops it again.
    void setRefreshTimer(bool start);

    // Blocks for `msec` milliseconds.
    void msecSleep(uint msec);

    // ---- Video format and routing -----------------------------------------------------------------------

    // The output resolution as read now, 0 without a link.
    int getVideoOutRes();
    // Sets the output standard (2 s) and emits what the unit accepted.
    void setVOut(uint resIndex, uint colorFormatIndex, uint std);
    // Routes the four outputs. Emits nothing: the interface shows what it sent.
    void setOutSelect(uint pgmSource, bool pgmLock, bool pgmMirror, uint pvwSource, bool pvwLock,
                      bool pvwMirror, uint pgmhdmiSource, bool pgmhdmiLock, bool pgmhdmiMirror,
                      uint pvwhdmiSource, bool pvwhdmLiock, bool pvwhdmiMirror);
    // The mirror flag of output `target` as last read or set: 1 PGM, 2 PVW, 3 PGM HDMI, 4 PVW HDMI.
    bool getOutputMirror(int target);
    // Sources, freeze flags and genlock. Starts the poll with or without a link.
    void setVInSource(uint fgSource, uint bgSource, uint auxSource, bool fgFreeze, bool bgFreeze,
                      bool auxFreeze, bool genLock, qint16 gen_H, qint16 gen_V);
    // Genlock defaults; blocks 700 ms. Starts the poll with or without a link.
    void resetGenlock();

    // ---- Key colour; the unit counts each of r, g, b from 0 to 1000 -------------------------------------

    // Reads the colour under the cursor and uses none of its arguments. Nothing calls it.
    void refreshCursor(uint x, uint y, uint r, uint g, uint b, uint h, uint s, uint i, uint autoCK);
    // Moves the cursor (cursor_control 3 shows it, 0 hides it) and emits refreshBKColorPicker with the
    // colour under it.
    void setCursorData(uint cursor_control, uint x, uint y);
    void getBKColor();
    // Sets the key colour; 999, 999, 999 stands for the colour last picked. autock 0 reads colour, angle
    // and levels back; 1 AutoDef and 2 AutoBack emit what the unit worked out (seconds).
    void setBKColor(uint r, uint g, uint b, uint autock);
    // The same from a colour's text, with its 8-bit numbers sent unscaled and no read-back.
    void setBKColor(QString color, uint autoCK);
    // Resets colour, angle and levels. Reports the colour through refreshBKColorPicker.
    void resetBKColor();

    // ---- Key shaping ------------------------------------------------------------------------------------

    void getCKAngle(); // 0 to 120 each
    void setCKAngle(uint l, uint r);
    void resetCKAngle();
    void getCKBWLevel(); // 0 to 1000 each
    void setCKBWLevel(uint black, uint white, bool matteOn);
    void resetCKBWLevel();
    void getCKDark(); // level and density 0 to 1000, balance 0 to 100
    void setCKDark(bool enable, uint level, uint density, uint balance);
    void resetCKDark();
    void getCKBright(); // as dark
    void setCKBright(bool enable, uint level, uint density, uint balance);
    void resetCKBright();
    void getEdgeFix();
    void setEdgeFix(bool enable, uint left, uint right, uint edge);
    void resetEdgeFix();
    void getCKShadow();
    void setCKShadow(bool enable, uint level);
    void resetCKShadow();

    // The spill settings; the unit's default byte holds the preset (bits 0 to 2: 0 low, 1 mid, 2 high), the
    // enhance option (0x08) and the vivid option (0x10). The two option flags only ever become true.
    void getCKSpillBright();
    // checkVivid adds 16 to defaultValue, checkEnhance adds 8.
    void setCKSpillBright(uint suppression, uint enhance, uint balance, uint brightness, uint vivid,
                          uint defaultValue, bool checkVivid, bool checkEnhance);
    // Restores the values of preset spillDefault.
    void resetCKSpillBright(uint spillDefault, bool spiSupEnhance);

    // ---- Post-processing, windows, aux ------------------------------------------------------------------

    void getPPFGPostAmp();
    void setPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue);
    void resetPPFGPostAmp();
    void getPPFGRGBCorrect();
    void setPPFGRGBCorrect(bool enable, uint r_white, uint r_black, uint g_white, uint g_black, uint b_white,
                           uint b_black);
    void resetPPFGRGBCorrect();
    void getWindow();
    void setWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border);
    void resetWindow();
    void getHoldoutWindow();
    void setHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                          uint border);
    void resetHoldoutWindow();
    void getAuxMode();
    void setAuxMode(uint auxFunc, uint polarity);
    void resetAuxMode();
    void getBGBlur();
    void setBGBlur(bool enable, uint blurvalue, uint blurtime);
    void resetBGBlur();
    void getLumaKey();
    void setLumaKey(bool enable, uint keymode, quint16 cutoff, quint16 softness, uint layer, uint swaptime,
                    quint16 opacity);
    void resetLumaKey();

    // ---- Memory and setup -------------------------------------------------------------------------------

    // Recalls user memory `index` (0 is the factory reset), reads the whole unit back and refreshes every
    // page. Blocks for 2600 ms and the exchanges. Stores the index as the last memory, the factory reset
    // as 1.
    void loadMemory(uint index);
    // Stores the index as the last memory, then has the unit save its settings there.
    void saveMemory(uint index);
    // Has the unit keep its setup and emits the output standard.
    void saveSetup();

    // ---- Network settings of the unit -------------------------------------------------------------------
    // All stop the poll and leave it stopped. They return "OK" for an ACK and for silence alike, "NACK",
    // or a message for the operator. The mode numbers are those of the form: 0 DHCP, 1 fixed address.

    // The whole form: checks it, stores it, and sends the unit what differs from row ipSelectIndex of the
    // last scan. The last command alone decides the result. Marks fields by markHLNPDataRed.
    QString hlnpSave(QString currentNetcardIP, QString currentNetcardText, int ipSelectIndex, QString macAdd,
                     QString name, int mode, QString ipaddr, QString mask, QString gateway, QString priDns,
                     QString secDns);
    // Restarts the unit. Stores nothing.
    QString hlnpReboot(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP);

    // One setting each, stored before it is sent; a badly formed address is neither stored nor sent.
    QString hlnpSetDhcpName(QString currentNetcardIP, QString targetDeviceIP, QString content, QString macAdd,
                            QString currentNetcardText);
    // Sends `mode` as it stands, which the unit reads the other way about: 0 turns DHCP off.
    QString hlnpSetDhcpMode(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP,
                            int mode);
    QString hlnpSetIpAdr(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP,
                         QString ipaddr, QString gateway);
    QString hlnpSetGateway(QString currentNetcardIP, QString targetDeviceIP, QString content);
    QString hlnpSetNetmask(QString currentNetcardIP, QString targetDeviceIP, QString content);
    QString hlnpSetPrimDNS(QString currentNetcardIP, QString targetDeviceIP, QString content);
    QString hlnpSetSecDNS(QString currentNetcardIP, QString targetDeviceIP, QString content);
    // Passes the form on to the discovery object, which binds its socket if it has no address yet.
    // Always 1.
    int initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP, QString txtIPAddr,
                       QString txtHostname, QString txtNetmask, QString txtGateway, QString txtPrimdns,
                       QString txtSecdns);

signals:
    // The interface's handlers read these arguments by name.

    // The saved connection as a whole; method 1 network, 2 serial.
    void refreshConnection(int method, QString serialport, QString netcard, bool dhcpMode, QString ipaddr,
                           QString hostname, QString macaddr, QString gateway, QString mask, QString primDns,
                           QString secDns);
    // One unit's network data: 999, adapter text or "na", DHCP flag, host name, address, MAC, gateway,
    // netmask, primary and secondary DNS. Host name and address stand the other way round than in
    // refreshConnection.
    void refreshConnectionData(int test, QString test1, bool test0, QString test2, QString test3,
                               QString test4, QString test5, QString test6, QString test7, QString test8);
    void vOutChanged();
    void vOutResolutionChanged();
    void vOutColorSpaceChanged();
    void vOutStdChanged();
    void showVersion(QString fwversion, QString fpgaversion, QString blversion);
    void showVout(uint res, uint colorformat, uint std);
    void refreshOutputSourcePGM(uint source, bool lock, bool mirror);
    void refreshOutputSourcePVW(uint source, bool lock, bool mirror);
    void refreshOutputSourcePGMHDMI(uint source, bool lock, bool mirror);
    void refreshOutputSourcePVWHDMI(uint source, bool lock, bool mirror);
    void refreshSerialPortNames(QStringList portNameList); // never emitted: the property is read instead
    void refreshInputResolution(uint fg, uint bg, uint aux, uint sync, int genStatus);
    void refreshInputSource(uint fg, uint bg, uint aux);
    // Key colour as text for drawing, raw numbers, and hue, saturation and lightness of the 8-bit colour.
    void refreshBKColorAdjust(QString colorString, int r, int g, int b, int h, qreal s, qreal l);
    // The same for the colour under the cursor.
    void refreshBKColorPicker(QString colorString, int r, int g, int b, int h, qreal s, qreal l);
    void refreshCKAngle(uint minus, uint plus);
    void refreshCKBWLevel(uint black, uint white, bool matte);
    void refreshCKDark(bool enable, int level, int density, int balance);
    void refreshCKBright(bool enable, int level, int density, int balance);
    void refreshEdgeFix(bool enable, uint left, uint right, uint edge);
    void refreshCKShadow(bool enable, int shadowValue);
    void refreshCKSpill(uint spillSuppressionValue, uint spillEnhanceValue, uint spillBalanceValue,
                        uint edgeBrightnessValue, bool vividValue, uint spillDefButton,
                        bool spillVividDefault, bool spillSupEnhanceValue);
    void refreshPPFGPostAmp(bool enable, uint bright, uint contrast, uint sat, uint hue);
    void refreshPPFGRGBCorrector(bool enable, uint rWhite, uint rBlack, uint gWhite, uint gBlack, uint bWhite,
                                 uint bBlack);
    void refreshWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom, uint border);
    void refreshHoldoutWindow(bool enable, uint invert, uint left, uint right, uint top, uint bottom,
                              uint border);
    void refreshAuxMode(uint auxFunc, uint auxPolar);
    void refreshLumaKey(bool enable, uint keymode, quint16 cutoff, quint16 softness, uint layer,
                        uint swaptime, quint16 opa);
    void refreshNetcardList(QStringList netList); // never emitted: the property is read instead
    void refreshIPSelectList(QStringList ipList);
    void currentPageChanged(); // never emitted
    void refreshLanguage(QString lan); // emitted by main, once the document stands
    void refreshMainImage(); // never emitted
    void refreshChromaImage(); // never emitted
    void warning(QString msg);
    void refreshUserMemory(int index);
    // 0 clears all marks; 1 address, 2 host name, 3 gateway, 4 netmask, 5 primary DNS, 6 secondary DNS.
    void markHLNPDataRed(int index);
    void autoConnectResult(QString msg);
    void refreshPPBGBlur(bool enable, uint blurvalue, uint blurtime);
    void refreshGenlock(int gen, qint16 gen_h, qint16 gen_v);
    void refreshInputFreeze(bool fgFreeze, bool bgFreeze, bool auxFreeze);

private:
    class PollPause;
    class NetworkSave;
    struct AddressSetting;
    // Emits a refresh signal, or several, from the fields of the device object.
    using Tell = void (mainControl::*)();
    // When an operation emits what it has to tell: before or after the poll runs again. On one thread the two
    // differ in the order of events alone; the order is fixed operation by operation (docs/oddities.md).
    enum Order { BeforeRestart, AfterRestart };
    using ColorSignal = void (mainControl::*)(QString, int, int, int, int, qreal, qreal);

    // Under a pause of the poll: `call(device object, link method)`, then `tell` before or after the poll
    // runs again. Nothing without a link.
    template <typename Call>
    void operate(Call call, Tell tell, Order order);
    // The same for an operation that emits nothing; `arguments` follow the link method.
    template <typename Call, typename... Arguments>
    void forward(Call call, Arguments... arguments);

    void readSettings();
    void setPollInterval();
    void startPollIfConnected();

    void makeMissingDevice(const char *log);

    void autoRunNetwork();
    void autoRunSerial();
    bool findSavedNetcard();
    bool findSavedUnit();
    bool markDifferences(const hlnp_network_info &found);
    void readWholeUnit();
    void storeConnection(uint method, const QString &select, uint selectedNetcardIndex);
    void storeLastMemory(uint index);

    // The unit at `index` of the last scan; an empty record for an index outside the table.
    const hlnp_network_info &foundUnit(int index) const;
    QString setAddress(const AddressSetting &setting, const QString &currentNetcardIP,
                       const QString &targetDeviceIP, const QString &content);

    void emitSavedConnection();
    void emitSavedUnit();
    void emitColor(ColorSignal signal, const QColor &drawn, int r, int g, int b);

    void tellVOut();
    void tellOutputs();
    void tellInputResolution();
    void tellInputSource();
    void tellInputFreeze();
    void tellGenlock();
    void tellVideo(); // the six above
    void tellKeyColor();
    void tellPickedColor();
    void tellCKAngle();
    void tellCKBWLevel();
    void tellCKDark();
    void tellCKBright();
    void tellCKShadow();
    void tellEdgeFix();
    void tellCKSpill();
    void tellWindow();
    void tellHoldoutWindow();
    void tellPPFGPostAmp();
    void tellPPFGRGBCorrector();
    void tellAuxMode();
    void tellBGBlur();
    void tellLumaKey();

    qkv720 *qkv720Obj = nullptr;
};
