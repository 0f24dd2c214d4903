#include "control/maincontrol.h"

#include "control/networkfields.h"
#include "device/qkv720.h"

#include <QDebug>

// The automatic connection: once, 1500 ms after the start.

namespace {

// The opening bracket and the address of an adapter entry "[address] name".
QString adapterAddress(const QString &entry)
{
    return entry.section(QLatin1Char(']'), 0, 0);
}

} // namespace

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
        // Whatever the scan returned: its table is the present one.
        didScan = true;
    } else {
        qDebug() << "ini exists and netcard not exist";
        emit autoConnectResult(tr("Previous selected netcard") + initNetcard + tr("is not existing."));
    }

    emitSavedUnit();
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
        if (markDifferences(found)) {
            // An empty saved MAC agrees with every empty row, so this may be emitted ten times.
            emit autoConnectResult(tr("Saved device info is not match.\nPlease scan again to refresh."));
            qDebug() << "ini exists and StaticIP device info is not match";
            dataNotMatch = true;
            continue;
        }
        autoConnect = true;
        emit markHLNPDataRed(NoMark);
        emit autoConnectResult(deviceConnect(kNetworkLink, initIpaddr, static_cast<uint>(selectedNetcard)));
        qDebug() << "ini exists and StaticIP auto connect";
        emitSavedUnit();
        return true;
    }
    return false;
}

// Whether any field differs. The DHCP flag is not compared: the saved address decides, as for a fixed one.
bool mainControl::markDifferences(const hlnp_network_info &found)
{
    bool differs = false;
    for (const NetworkField &field : kNetworkFields) {
        if (this->*field.saved == found.*field.found)
            continue;
        differs = true;
        emit markHLNPDataRed(field.mark);
    }
    return differs;
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
