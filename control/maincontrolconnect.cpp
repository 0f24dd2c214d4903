#include "control/maincontrol.h"

#include "control/networkfields.h"
#include "control/settingsfile.h"
#include "device/qkv720.h"

#include <QDebug>
#include <QThread>

// The slots take their texts by value: that is how the interface calls them.
// NOLINTBEGIN(performance-unnecessary-value-param)

namespace {

constexpr int kNoLinkMethod = 999; // leaves the interface's choice of the link alone
constexpr unsigned long kAfterDisconnectMs = 200;

} // namespace

void mainControl::emitSavedConnection()
{
    emit refreshConnection(initInterface, initSerialPort, initNetcard, initDhcpMode, initIpaddr, initHostname,
                           initMac, initGateway, initMask, initPrimDns, initSecDns);
}

void mainControl::emitSavedUnit()
{
    emit refreshConnectionData(kNoLinkMethod, initNetcard, initDhcpMode, initHostname, initIpaddr, initMac,
                               initGateway, initMask, initPrimDns, initSecDns);
}

// ---- The connection panel ---------------------------------------------------------------------------------

// There is one from the constructor on.
void mainControl::makeMissingDevice(const char *log)
{
    if (qkv720Obj)
        return;
    qDebug() << log;
    qkv720Obj = new qkv720;
}

QStringList mainControl::getSerialNameList()
{
    makeMissingDevice("[getSerialNameList] New qkv720Obj");
    serialNameList = qkv720Obj->getSerialInfoList();
    return serialNameList;
}

QStringList mainControl::getNetcardList()
{
    makeMissingDevice("[getNetcardList] New qkv720Obj");
    netcardList = qkv720Obj->getHLNPNetcardList();
    return netcardList;
}

QStringList mainControl::getIPSelectList()
{
    ipSelectList = qkv720Obj->getHLNPDeviceList();
    return ipSelectList;
}

void mainControl::connectPopup(int method, int netcard)
{
    qDebug() << "MainControl connectPopup(interface):" << initInterface << method << netcard;
    if (qkv720Obj->isConnected) {
        initInterface = method + 1;
        selectedNetcard = netcard;
    }
    if (!didScan)
        emitSavedConnection();
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
        readWholeUnit();
        storeConnection(method, select, selectedNetcardIndex);
        // The getters have stopped and started the poll on their own; this choice is what counts.
        setPollInterval();
        startPollIfConnected();
    }
    qDebug() << "[mainControl::deviceConnect] Return:" << ret;
    return ret;
}

void mainControl::readWholeUnit()
{
    const QString fwversion = qkv720Obj->getFWVersion();
    const QString fpgaversion = qkv720Obj->getFPGAVersion();
    const QString blversion = qkv720Obj->getBLVersion();
    qDebug() << "ShowVersion" << fwversion << fpgaversion << blversion;
    emit showVersion(fwversion, fpgaversion, blversion);

    const video_out vv = getVOut();
    qDebug() << "ShowVout (deviceConnect)" << vv.res << vv.colorspace << vv.std;
    tellVideo();
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
    // The luma key comes before the holdout window here; a recall reads them the other way round
    // (docs/oddities.md).
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

    SettingsGroup group(*initSettings, QStringLiteral("connection"));
    group.set("interface", method);
    if (method == kSerialLink) {
        qDebug() << "Write to QSettings (RS232):" << select;
        group.set("serialport", select);
        initInterface = static_cast<int>(kSerialLink);
        initSerialPort = select;
        return;
    }

    // An address that the operator typed is in no row of the table: it is stored as without a scan.
    const bool unitKnown = didScan && index >= 0 && index < kQkvDeviceRows;
    const hlnp_network_info &unit = foundUnit(index);
    if (unitKnown)
        group.set("dhcpmode", unit.isdhcp);
    if (netcardKnown)
        group.set("netcard", netcard);
    if (unitKnown) {
        // The init fields keep what was read at start: the panel goes on showing the start-up data.
        qDebug() << "Write to QSettings:" << netcard << unit.ipadd;
        for (const NetworkField &field : kNetworkFields)
            group.set(field.key, unit.*field.found);
    } else {
        qDebug() << "Write to QSettings without DoScan:" << netcard << select;
        group.set("ipaddress", select);
        initInterface = static_cast<int>(kNetworkLink);
        initNetcard = netcard;
        initIpaddr = select;
    }
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
