#pragma once

#include <QByteArray>
#include <QHostAddress>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTcpSocket>
#include <QTimer>
#include <QUdpSocket>

// HLNP is the small UDP protocol by which the panel finds the units on the local network, learns their
// network settings, identifies their model and rewrites their settings. The wire format is drawn in
// hlnpwire.h.

// The network identity of one device. Addresses and identifiers are text everywhere except on the wire.
struct hlnp_network_info
{
    bool isdhcp = false;
    QString name; // host name, at most 16 characters
    QString ipadd; // dotted decimal; later replies are matched by it
    QString macadd; // upper-case hexadecimal with ":"; duplicates are known by it
    QString maskadd;
    QString gatewayadd;
    QString primdnsadd;
    QString secdnsadd;
    QString vid; // vendor identifier, four upper-case hexadecimal digits, from the reply to GET_MODEL
    QString pid; // product identifier, likewise
    QString modelname; // stays empty: nothing on the panel's paths asks for it
    QString fwver; // written by getFWVersion() alone
};

// Holds the network identity of every kind of device, camera or not. Only `hlnpnetwork` carries data.
struct zcm_camera_info
{
    hlnp_network_info hlnpnetwork;
    int mapping = 0;
    bool exist = false;
    int speed = 0;
    bool vflip = false;
    bool hflip = false;
    int wbmode = 0;
    int rgain = 0;
    int bgain = 0;
    int fmode = 0;
    int shutter = 0;
    int irismode = 0;
    int gain = 0;
    bool osdon = false;
    bool colorbaron = false;
    bool tallyon = false;
    char videomode = 0;
    int ptdir = 0;
    QString cameraModel;
    QString versionMCPU;
    QString versionFPGA;
    QString versionMCTL;
};

// Never written.
struct switcher_info
{
    hlnp_network_info hlnpnetwork;
    QString projectname;
    QString devicename;
    QString deviceversion;
};

// One row of a device table. All code reaches a row's data as `zcm.hlnpnetwork`.
struct hlnp_device_info
{
    zcm_camera_info zcm;
    switcher_info switcher; // never written
    hlnp_network_info tmx500; // never written
    unsigned char series = 0; // sort key: the last octet of the IP address
    int type = 0; // 1 switcher, 2 ZCM camera, 3 remote control unit, 4 recorder, 99 others; never written
};

constexpr int kAllDeviceRows = 100;
constexpr int kQkvDeviceRows = 10;

// The order of the device tables: by the last octet of the IP address, as a number.
bool seriesCompare(hlnp_device_info lhs, hlnp_device_info rhs);

// Helpers that judge a device by host name or MAC text. No step of a scan consults them: a unit is recognised
// by its identifiers alone.
bool findTMX500(QString hostname);
bool findSwitcher(QString hostname);
bool findCamera(QString hostname, QString macaddr);
bool findQKV(QString hostname, QString macaddr);

struct HlnpSetting;
struct HlnpAddressSetting;

// Discovery and remote network configuration. One instance lives for the whole process. Everything is
// synchronous and blocks the calling thread; nothing is read from the UDP socket outside a call.
class HLNP : public QObject
{
    Q_OBJECT
    Q_PROPERTY(
        QStringList netcardModels READ netcardModels WRITE setnetcardModels NOTIFY netcardModelsChanged)

public:
    explicit HLNP(QObject *parent = nullptr);
    ~HLNP() override;

    // Lists the host's usable IPv4 adapters: running, not loopback, address not in 127.x or 169.x. Fills
    // `netcardIP` and `netcardName` anew and appends "[address] name" lines to `netcardlist`, which is never
    // cleared. Always true, also for a host without an adapter.
    bool hLNPpreScanProcess();

    // The adapter lines; an index into them is the `netcardIndex` of a scan.
    QStringList netcardModels() const;
    // Stores nothing; logs the count and emits netcardModelsChanged().
    void setnetcardModels(QStringList nModel);

    // The addresses of the QKV-720 units of the latest scan, in the order of the rows of `qkvDevice`.
    QStringList qkvDeviceList() const;
    // The address of row `index` of `allHlnpDevice`; a null address for an index outside the table.
    QHostAddress getDeviceIP(int index);

    // Empties the tables, broadcasts ETH_REQ once, waits 500 ms and collects the replies once (up to 1.1 s).
    // A failed write shows in the log only.
    void doScan();
    // Broadcasts GET_MODEL for the row with this address (the last such row; row 0 when there is none) and
    // collects once (up to 1.1 s). Sends nothing when the row's MAC is not six groups.
    void getModel(QString targetDeviceIP);
    // The same with GET_MODEL_NAME. Dormant: no path of the panel calls it.
    void getModelName(QString targetDeviceIP);
    // Sends FWVER_REQ to the address and stores bytes 3 and 4 of the last datagram read as text in row 0's
    // `fwver`, whichever unit was asked. Up to 3.1 s. Dormant: no path of the panel calls it.
    void getFWVersion(QString targetDeviceIP);
    // The model number of a switcher ("2410", "130" or "150"), by the MAC of its network record.
    QString checkMachineModelNameInfo(QByteArray buffer);

    // Keeps the form's values for the log and binds the UDP socket to the adapter if it is not bound yet.
    // Always 1.
    int initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP, QString txtIPAddr,
                       QString txtHostname, QString txtNetmask, QString txtGateway, QString txtPrimdns,
                       QString txtSecdns);
    // Asks the operator whether to reset (mode 0) or save (mode 1) the network settings. False on No, with
    // setNetConfigBusy(false) and the button's signal; true in all other cases, also for other modes.
    bool beforeSaveNetConfig(int mode);

    // Remote configuration: one setting each, one blocking request and reply. They return "OK" for an ACK and
    // for silence alike (after 11 tries: 12.1 s, the DNS commands 13.2 s), "NACK" for a refusal, and
    // otherwise a translated error text. A badly formed text sends nothing. `currentNetcardIP` is used by
    // none of them: the adapter is the one that the socket is bound to.

    // Restarts the unit (broadcast, chosen by MAC). Raises setNetConfigBusy(true); setNetConfigBusy(false)
    // and hlnpResetDone() follow only when the unit stayed silent.
    QString reset(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP);
    // Switches DHCP: 0 off, 1 on (broadcast, chosen by MAC).
    QString setDhcpMode(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP, int dhcp);
    // Sets IP address and gateway (broadcast, chosen by MAC).
    QString setIpAdr(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP, QString ipadd,
                     QString gateadd);
    // Sets the host name; a longer one is cut to 15 characters.
    QString setDhcpName(QString currentNetcardIP, QString targetDeviceIP, QString name);
    // Sets the MAC address. Nothing calls it.
    QString setMacAdr(QString currentNetcardIP, QString targetDeviceIP, QString MAC_ADDR);
    QString setNetmask(QString currentNetcardIP, QString targetDeviceIP, QString netMask);
    QString setGateway(QString currentNetcardIP, QString targetDeviceIP, QString gateway);
    QString setPrimDNS(QString currentNetcardIP, QString targetDeviceIP, QString pri);
    QString setSecDNS(QString currentNetcardIP, QString targetDeviceIP, QString sec);

    QStringList netcardlist; // "[address] name", never cleared
    QStringList netcardIP; // addresses of the latest enumeration
    QStringList netcardName; // interface names, parallel to netcardIP
    QString thisNetwork; // address of the adapter of the latest scan
    QTcpSocket *swiTcpSocket; // the control link; made here, used by the device class alone
    bool socketOpened = false; // read by nothing

    hlnp_device_info allHlnpDevice[kAllDeviceRows]; // every device of the latest scan
    int deviceCount = 0; // rows of allHlnpDevice in use
    hlnp_device_info qkvDevice[kQkvDeviceRows]; // the QKV-720 units among them, sorted
    bool scanDone = false; // the latest collection left nothing in the socket's queue

    int beforeDhcpIndex = 0; // the form's last values, read for the log alone
    QString beforeMacaddr;
    QString beforeCurrentNetCardIP;
    QString beforeIPAddr;
    QString beforeHostname;
    QString beforeNetmask;
    QString beforeGateway;
    QString beforePrimdns;
    QString beforeSecdns;

public slots:
    // With "clear" resets counters alone. With any other text binds the socket to the adapter at
    // `netcardIndex` and runs doScan(). An index outside the list sends and binds nothing: it leaves the
    // tables empty and `scanDone` true.
    void scanSlot(QString cmd, int netcardIndex);
    // Reads up to 11 datagrams and files what they say; 100 ms for each read that found nothing. Settles
    // `scanDone`: true when the socket's queue is empty at the end.
    void processDatagrams();
    // Sorts the rows and lists the QKV-720 units among them.
    void onZcmScanDone();
    // Blocks the calling thread.
    void msleep(unsigned long ms);

    // Dormant: nothing calls or connects these three.
    bool shutdown();
    void onApplicationState(Qt::ApplicationState appState);
    void onApplicationResume();

    // The timer-driven form of the scan. Dormant: no path starts the timers.
    void onGetDeviceModel();
    void onGetDeviceModelName();
    void onGetDeviceModelVersion();

signals:
    void clearComboNetcard(const QString &text);
    void setComboNetcard(const QString &text);
    void netcardModelsChanged();
    void scanHlnpNumberSignal(int number);
    void setDebugMessage(const QString &text);
    void zcmScanDone();
    void setNetConfigBusy(const bool &onoff);
    void SetButtonReset(const bool &onoff);
    void SetButtonSave(const bool &onoff);
    void hlnpResetDone();

private:
    bool bindSocket(const QHostAddress &address);
    void useAdapter(const QHostAddress &address);
    void emptyTables();
    static void forgetNetwork(hlnp_network_info &network); // but for the firmware version
    int rowOfAddress(const QString &address) const;
    // Broadcasts `code` for the unit of that row and collects; nothing when the row's MAC is not six groups.
    void askRow(int row, unsigned char code);
    // The dormant form of asking: each device of the table, with a wait and a second collection.
    void askEachRow(void (HLNP::*ask)(QString));

    // What each kind of datagram does.
    void fileNetworkRecord(const QByteArray &buffer, const QString &sender, quint16 port);
    void fillRow(hlnp_device_info &row, const QByteArray &buffer);
    void logRefusal(const QByteArray &buffer, const QString &sender);
    void fileModel(const QByteArray &buffer, const QString &sender);
    void fileModelName(const QByteArray &buffer, const QString &sender);

    // One setting: `logged` is what its log line shows of the value.
    QString configure(const HlnpSetting &setting, const QByteArray &datagram, const QString &targetDeviceIP,
                      const QString &logged);
    QString setAddress(const HlnpAddressSetting &setting, const QString &targetDeviceIP,
                       const QString &address);

    QUdpSocket *udpSocket; // the only discovery socket, for sending and receiving
    QStringList qkvList; // `ipadd` of each row of qkvDevice, in the same order
    QStringList switcherIP;
    QString cIP; // sender of a record dropped for its port
    QByteArray hlnpReadBuffer; // fixed allocation, used by no path
    QByteArray sendBuffer; // likewise
    QHostAddress broadcastIP; // never assigned: every broadcast goes to 255.255.255.255
    QMutex mutex; // never locked: everything runs on one thread
    QTimer *getModelTimer;
    QTimer *getModelNameTimer;
    QTimer *getModelVersionTimer;
};
