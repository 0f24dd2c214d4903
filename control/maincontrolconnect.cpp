#include "control/maincontrol.h"

#include "device/qkv720.h"
#include "discovery/hlnp.h"

#include <QDebug>
#include <QThread>

// The slots take their texts by value: that is how the interface calls them.
// NOLINTBEGIN(performance-unnecessary-value-param)

namespace {

constexpr int kNoLinkMethod = 999; // leaves the interface's choice of the link alone
constexpr unsigned long kAfterDisconnectMs = 200;
constexpr unsigned long kBeforeModelsMs = 500;

// The opening bracket and the address of an adapter entry "[address] name".
QString adapterAddress(const QString &entry)
{
    return entry.section(QLatin1Char(']'), 0, 0);
}

} // namespace

void mainControl::tellConnection()
{
    emit refreshConnection(initInterface, initSerialPort, initNetcard, initDhcpMode, initIpaddr, initHostname,
                           initMac, initGateway, initMask, initPrimDns, initSecDns);
}

void mainControl::tellSavedUnit()
{
    emit refreshConnectionData(kNoLinkMethod, initNetcard, initDhcpMode, initHostname, initIpaddr, initMac,
                               initGateway, initMask, initPrimDns, initSecDns);
}

// ---- The automatic connection -----------------------------------------------------------------------------

void mainControl::autoRun()
{
    if (!iniExist) {
        connectPopup(0, 0);
        qDebug() << "ini is empty";
        return;
    }
    if (initInterface == static_cast<int>(kNetworkLink))
        autoRunNetwork();
    else if (initInterface == static_cast<int>(kSerialLink))
        autoRunSerial();
}

void mainControl::autoRunNetwork()
{
    if (findSavedNetcard()) {
        qDebug() << "ini exists and auto do Scan";
        hlnpScan(QStringLiteral("scan"), selectedNetcard);
        // Whatever the scan said: its table is what stands from now on.
        didScan = true;
    } else {
        qDebug() << "ini exists and netcard not exist";
        emit autoConnectResult(tr("Previous selected netcard") + initNetcard + tr("is not existing."));
    }

    tellSavedUnit();
    if (findSavedUnit())
        return;
    if (initDhcpMode)
        qDebug() << "ini exists and it is DHCP mode";
}

bool mainControl::findSavedNetcard()
{
    const QString iniNetCheck = adapterAddress(initNetcard);
    bool netCheckOK = false;
    // No early exit: of several matches the last one counts. An empty saved text is contained in every entry.
    for (int i = 0; i < netcardList.size(); ++i) {
        if (!adapterAddress(netcardList.at(i)).contains(iniNetCheck, Qt::CaseInsensitive))
            continue;
        netCheckOK = true;
        selectedNetcard = i;
    }
    return netCheckOK;
}

bool mainControl::findSavedUnit()
{
    bool dataNotMatch = false;
    for (int i = 0; i < kQkvDeviceRows; ++i) {
        const hlnp_network_info &found = foundUnit(i);
        if (initMac != found.macadd) {
            autoConnect = false;
            if (i == kQkvDeviceRows - 1 && !dataNotMatch) {
                qDebug() << "ini exists and MAC not found" << initMac << found.macadd << found.ipadd;
                emit autoConnectResult(tr("Previous device MAC address ") + initMac + tr("\nis not found."));
            }
            continue;
        }
        if (!agreesWithSaved(found)) {
            // An empty saved MAC agrees with every empty row, so this may be told ten times.
            markDifferences(found);
            emit autoConnectResult(tr("Saved device info is not match.\nPlease scan again to refresh."));
            qDebug() << "ini exists and StaticIP device info is not match";
            dataNotMatch = true;
            continue;
        }
        autoConnect = true;
        emit markHLNPDataRed(0);
        emit autoConnectResult(deviceConnect(kNetworkLink, initIpaddr, static_cast<uint>(selectedNetcard)));
        qDebug() << "ini exists and StaticIP auto connect";
        tellSavedUnit();
        return true;
    }
    return false;
}

// The DHCP flag is no part of the comparison: the saved address decides, as for a fixed one.
bool mainControl::agreesWithSaved(const hlnp_network_info &found) const
{
    return initIpaddr == found.ipadd && initHostname == found.name && initGateway == found.gatewayadd
        && initMask == found.maskadd && initPrimDns == found.primdnsadd && initSecDns == found.secdnsadd;
}

void mainControl::markDifferences(const hlnp_network_info &found)
{
    if (initIpaddr != found.ipadd)
        emit markHLNPDataRed(1);
    if (initHostname != found.name)
        emit markHLNPDataRed(2);
    if (initGateway != found.gatewayadd)
        emit markHLNPDataRed(3);
    if (initMask != found.maskadd)
        emit markHLNPDataRed(4);
    if (initPrimDns != found.primdnsadd)
        emit markHLNPDataRed(5);
    if (initSecDns != found.secdnsadd)
        emit markHLNPDataRed(6);
}

void mainControl::autoRunSerial()
{
    bool comCheckOK = false;
    // No early exit here either: the last match counts.
    for (int i = 0; i < serialNameList.size(); ++i) {
        qDebug() << "com vs serialList" << serialNameList.at(i) << initSerialPort;
        if (!serialNameList.at(i).contains(initSerialPort, Qt::CaseInsensitive))
            continue;
        comCheckOK = true;
        selectedCom = i;
    }

    if (comCheckOK) {
        emit autoConnectResult(deviceConnect(kSerialLink, initSerialPort, 0));
        connectPopup(1, selectedCom);
    } else {
        connectPopup(1, 0);
    }
    qDebug() << "ini exists and com check OK";
}

// ---- The connection panel ---------------------------------------------------------------------------------

void mainControl::connectPopup(int method, int netcard)
{
    qDebug() << "MainControl connectPopup(interface):" << initInterface << method << netcard;
    if (qkv720Obj->isConnected) {
        initInterface = method + 1;
        selectedNetcard = netcard;
    }
    if (!didScan)
        tellConnection();
    qDebug() << "MainControl connectPopup:" << didScan << initInterface << initSerialPort << initNetcard
             << initDhcpMode << initIpaddr << initHostname << initMac << initGateway << initMask
             << initPrimDns << initSecDns;
}

uint mainControl::hlnpScan(QString cmd, int netcardIndex)
{
    const uint ret = qkv720Obj->HLNPScan(cmd, netcardIndex);
    selectedNetcard = netcardIndex;
    QThread::msleep(kBeforeModelsMs);
    // A scan that reports 0 still identifies, sorts and publishes what it has.
    qkv720Obj->HLNPGetModel();
    qkv720Obj->HLNPDoScanDone();
    ipSelectList = qkv720Obj->getHLNPDeviceList();
    qDebug() << "Refresh IP List:" << ipSelectList;
    emit refreshIPSelectList(ipSelectList);
    didScan = ret != 0;
    return ret;
}

void mainControl::getHLNPDeviceInfo(uint index)
{
    if (qkv720Obj->hlnpObj->deviceCount == 0 || index >= static_cast<uint>(kQkvDeviceRows))
        return;
    const hlnp_network_info &unit = foundUnit(static_cast<int>(index));
    emit refreshConnectionData(kNoLinkMethod, QStringLiteral("na"), unit.isdhcp, unit.name, unit.ipadd,
                               unit.macadd, unit.gatewayadd, unit.maskadd, unit.primdnsadd, unit.secdnsadd);
}

const hlnp_network_info &mainControl::foundUnit(int index) const
{
    static const hlnp_network_info nothing;
    if (index < 0 || index >= kQkvDeviceRows)
        return nothing;
    return qkv720Obj->hlnpObj->qkvDevice[index].zcm.hlnpnetwork;
}

// ---- Connect and disconnect -------------------------------------------------------------------------------

QString mainControl::deviceConnect(uint method, QString select, uint selectedNetcardIndex)
{
    timerRefreshStatus->stop();
    qkv720Obj->disconnectDevice(method);
    QThread::msleep(kAfterDisconnectMs);
    qDebug() << "Connect to" << method << select;

    QString ret = qkv720Obj->connectDevice(method, select);
    if (ret == QLatin1String("OK")) {
        currentConnectMethod = method;
        tellWholeUnit();
        storeConnection(method, select, selectedNetcardIndex);
        // The getters have stopped and started the poll on their own; this choice is what counts.
        setPollInterval();
        startPollIfConnected();
    }
    qDebug() << "[mainControl::deviceConnect] Return:" << ret;
    return ret;
}

void mainControl::tellWholeUnit()
{
    const QString fwversion = qkv720Obj->getFWVersion();
    const QString fpgaversion = qkv720Obj->getFPGAVersion();
    const QString blversion = qkv720Obj->getBLVersion();
    qDebug() << "ShowVersion" << fwversion << fpgaversion << blversion;
    emit showVersion(fwversion, fpgaversion, blversion);

    const video_out vv = getVOut();
    qDebug() << "ShowVout (deviceConnect)" << vv.res << vv.colorspace << vv.std;
    tellVOut();
    tellOutputs();
    tellInputResolution();
    tellInputSource();
    tellInputFreeze();
    tellGenlock();
    qDebug() << "Page Input Info:" << qkv720Obj->getInputRes(1) << qkv720Obj->getInputRes(2)
             << qkv720Obj->getInputRes(3) << qkv720Obj->getInputRes(4) << qkv720Obj->genlockStatus
             << qkv720Obj->getInputSource(1) << qkv720Obj->getInputSource(2) << qkv720Obj->getInputSource(3)
             << qkv720Obj->getInputFreeze(1) << qkv720Obj->getInputFreeze(2) << qkv720Obj->getInputFreeze(3)
             << qkv720Obj->genlockSrc << qkv720Obj->genlock_H << qkv720Obj->genlock_V;

    getBKColor();
    getCKAngle();
    getCKBWLevel();
    getCKDark();
    getCKBright();
    getEdgeFix();
    getCKShadow();
    getCKSpillBright();
    getPPFGPostAmp();
    getPPFGRGBCorrect();
    getBGBlur();
    getWindow();
    // The luma key comes before the holdout window here; a recall reads them the other way round.
    getLumaKey();
    getHoldoutWindow();

    qDebug() << "Memory Refresh:" << lastMemory;
    emit refreshUserMemory(static_cast<int>(lastMemory));
}

void mainControl::storeConnection(uint method, const QString &select, uint selectedNetcardIndex)
{
    const int index = ipSelectList.indexOf(select, 0);
    // An adapter outside the list leaves the saved one alone.
    const bool netcardKnown = selectedNetcardIndex < static_cast<uint>(netcardList.size());
    const QString netcard =
        netcardKnown ? netcardList.at(static_cast<int>(selectedNetcardIndex)) : initNetcard;

    initSettings->beginGroup(QStringLiteral("connection"));
    if (method == kNetworkLink) {
        // An address that the operator typed is in no row of the table: it is stored as without a scan.
        const bool unitKnown = didScan && index >= 0 && index < kQkvDeviceRows;
        initSettings->setValue(QStringLiteral("interface"), method);
        if (unitKnown)
            initSettings->setValue(QStringLiteral("dhcpmode"), foundUnit(index).isdhcp);
        if (netcardKnown)
            initSettings->setValue(QStringLiteral("netcard"), netcard);
        if (unitKnown) {
            // The init fields keep what was read at start: the panel goes on showing the start-up data.
            qDebug() << "Write to QSettings:" << netcard << foundUnit(index).ipadd;
            storeFoundUnit(foundUnit(index));
        } else {
            qDebug() << "Write to QSettings without DoScan:" << netcard << select;
            initSettings->setValue(QStringLiteral("ipaddress"), select);
            initInterface = static_cast<int>(kNetworkLink);
            initNetcard = netcard;
            initIpaddr = select;
        }
    } else if (method == kSerialLink) {
        qDebug() << "Write to QSettings (RS232):" << select;
        initSettings->setValue(QStringLiteral("interface"), method);
        initInterface = static_cast<int>(kSerialLink);
        initSettings->setValue(QStringLiteral("serialport"), select);
        initSerialPort = select;
    }
    initSettings->endGroup();
    initSettings->sync();
}

void mainControl::storeFoundUnit(const hlnp_network_info &unit)
{
    initSettings->setValue(QStringLiteral("ipaddress"), unit.ipadd);
    initSettings->setValue(QStringLiteral("hostname"), unit.name);
    initSettings->setValue(QStringLiteral("mac"), unit.macadd);
    initSettings->setValue(QStringLiteral("gateway"), unit.gatewayadd);
    initSettings->setValue(QStringLiteral("mask"), unit.maskadd);
    initSettings->setValue(QStringLiteral("primarydns"), unit.primdnsadd);
    initSettings->setValue(QStringLiteral("seconddns"), unit.secdnsadd);
}

void mainControl::deviceDisConnect(uint method)
{
    timerRefreshStatus->stop();
    qkv720Obj->disconnectDevice(method);
}

void mainControl::warnningConnectionBroken()
{
    qDebug() << "warnningConnectionBroken";
    timerRefreshStatus->stop();
    qkv720Obj->isConnected = false;
    emit warning(tr("Disconnected"));
}

// NOLINTEND(performance-unnecessary-value-param)
