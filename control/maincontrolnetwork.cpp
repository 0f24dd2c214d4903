#include "control/maincontrol.h"

#include "control/networkfields.h"
#include "control/settingsfile.h"
#include "device/qkv720.h"

#include <QDebug>

// The slots take their texts by value: that is how the interface calls them.
// NOLINTBEGIN(performance-unnecessary-value-param)

namespace {

constexpr int kFormDhcp = 0;
constexpr int kFormFixedAddress = 1;
// On the wire the sense is the other way about than in the form.
constexpr int kWireDhcpOff = 0;
constexpr int kWireDhcpOn = 1;

constexpr uint kAfterDhcpOffMs = 500;
constexpr uint kAfterSettingMs = 300;

// Parts are counted, not read: the discovery object reads them.
bool hasFourParts(const QString &address)
{
    return address.split(QLatin1Char('.')).size() == 4;
}

} // namespace

// ---- The whole form ---------------------------------------------------------------------------------------

// One save of the connection panel's form. Every command goes to the address that the unit had at the last scan,
// also after a new one has been sent. The last command alone decides the result: an earlier failure shows in its
// mark only (docs/oddities.md).
class mainControl::NetworkSave
{
public:
    NetworkSave(mainControl &facade, QString adapterIP, int scannedRow, hlnp_network_info wanted, int mode)
        : control(facade)
        , hlnp(*facade.qkv720Obj->hlnpObj)
        , netcardIP(std::move(adapterIP))
        , scanned(facade.foundUnit(scannedRow))
        , form(std::move(wanted))
        , formMode(mode)
    {
    }

    // A failed test stops nothing, and a later one overwrites the text of an earlier one.
    void checkAddresses()
    {
        for (const NetworkField &field : kNetworkFields) {
            if (!field.malformed || hasFourParts(form.*field.found))
                continue;
            error = tr(field.malformed);
            emit control.markHLNPDataRed(field.mark);
        }
    }

    // Stored whatever the tests found, and before any command goes out.
    void store(const QString &netcardText)
    {
        SettingsGroup group(*control.initSettings, QStringLiteral("connection"));
        group.set("netcard", netcardText);
        group.set("mac", form.macadd);
        group.set("hostname", form.name);
        group.set("dhcpmode", formMode == kFormDhcp);
        group.set("ipaddress", form.ipadd);
        group.set("mask", form.maskadd);
        group.set("gateway", form.gatewayadd);
        group.set("primarydns", form.primdnsadd);
        group.set("seconddns", form.secdnsadd);
    }

    // Sends what differs from the last scan.
    void send()
    {
        if (formMode == kFormFixedAddress)
            sendFixedAddress();
        else
            sendDhcp();
    }

    QString result() const { return succeeded() ? lastResult : error; }

private:
    void sendFixedAddress()
    {
        if (scanned.isdhcp) {
            judge(hlnp.setDhcpMode(form.macadd, netcardIP, scanned.ipadd, kWireDhcpOff), NoMark);
            control.msecSleep(kAfterDhcpOffMs);
        }
        for (const NetworkField &field : kNetworkFields) {
            if (field.mark == NoMark || form.*field.found == scanned.*field.found)
                continue;
            judge(sendField(field.mark), field.mark);
            if (field.mark != SecondaryDnsMark)
                control.msecSleep(kAfterSettingMs);
        }
    }

    // Under DHCP the server sets the addresses: only the mode and the name go out.
    void sendDhcp()
    {
        if (!scanned.isdhcp) {
            judge(hlnp.setDhcpMode(form.macadd, netcardIP, scanned.ipadd, kWireDhcpOn), NoMark);
            control.msecSleep(kAfterSettingMs);
        }
        if (form.name != scanned.name)
            judge(sendField(HostNameMark), HostNameMark);
    }

    QString sendField(Mark field)
    {
        switch (field) {
        case AddressMark:
            return hlnp.setIpAdr(form.macadd, netcardIP, scanned.ipadd, form.ipadd, form.gatewayadd);
        case HostNameMark:
            return hlnp.setDhcpName(netcardIP, scanned.ipadd, form.name);
        case GatewayMark:
            return hlnp.setGateway(netcardIP, scanned.ipadd, form.gatewayadd);
        case NetmaskMark:
            return hlnp.setNetmask(netcardIP, scanned.ipadd, form.maskadd);
        case PrimaryDnsMark:
            return hlnp.setPrimDNS(netcardIP, scanned.ipadd, form.primdnsadd);
        case SecondaryDnsMark:
            return hlnp.setSecDNS(netcardIP, scanned.ipadd, form.secdnsadd);
        case NoMark:
            break;
        }
        return lastResult;
    }

    bool succeeded() const { return lastResult == QLatin1String("OK"); }

    // Keeps the result of one command; the words of a failure go in front of the earlier ones.
    void judge(const QString &answer, Mark mark)
    {
        lastResult = answer;
        if (succeeded())
            return;
        error = answer + error;
        if (mark != NoMark)
            emit control.markHLNPDataRed(mark);
    }

    mainControl &control;
    HLNP &hlnp;
    const QString netcardIP;
    const hlnp_network_info scanned; // the reference for what has changed; a save does not update the row
    const hlnp_network_info form;
    const int formMode;
    QString lastResult = QStringLiteral("OK");
    QString error;
};

QString mainControl::hlnpSave(QString currentNetcardIP, QString currentNetcardText, int ipSelectIndex,
                              QString macAdd, QString name, int mode, QString ipaddr, QString mask,
                              QString gateway, QString priDns, QString secDns)
{
    qDebug() << "[hlnpSave] DHCP mode=" << mode;
    timerRefreshStatus->stop();

    hlnp_network_info form;
    form.name = name;
    form.ipadd = ipaddr;
    form.macadd = macAdd;
    form.maskadd = mask;
    form.gatewayadd = gateway;
    form.primdnsadd = priDns;
    form.secdnsadd = secDns;
    NetworkSave save(*this, currentNetcardIP, ipSelectIndex, form, mode);
    save.checkAddresses();
    save.store(currentNetcardText);
    save.send();
    return save.result();
}

QString mainControl::hlnpReboot(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP)
{
    timerRefreshStatus->stop();
    return qkv720Obj->hlnpObj->reset(targetDeviceMAC, currentNetcardIP, targetDeviceIP);
}

// ---- One setting each -------------------------------------------------------------------------------------

QString mainControl::hlnpSetDhcpName(QString currentNetcardIP, QString targetDeviceIP, QString content,
                                     QString macAdd, QString currentNetcardText)
{
    timerRefreshStatus->stop();
    {
        SettingsGroup group(*initSettings, QStringLiteral("connection"));
        group.set("hostname", content);
        if (!iniExist) {
            group.set("netcard", currentNetcardText);
            group.set("mac", macAdd);
        }
    }
    return qkv720Obj->hlnpObj->setDhcpName(currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetDhcpMode(QString targetDeviceMAC, QString currentNetcardIP,
                                     QString targetDeviceIP, int mode)
{
    timerRefreshStatus->stop();
    SettingsGroup(*initSettings, QStringLiteral("connection")).set("dhcpmode", mode == kFormDhcp);
    // The number goes out as it stands, unlike in hlnpSave: 0 is stored as DHCP and turns it off at the unit.
    // Callers of this slot count on the wire's own numbers (docs/oddities.md).
    return qkv720Obj->hlnpObj->setDhcpMode(targetDeviceMAC, currentNetcardIP, targetDeviceIP, mode);
}

QString mainControl::hlnpSetIpAdr(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP,
                                  QString ipaddr, QString gateway)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(ipaddr)) {
        qDebug() << "IP Address format incorrect." << ipaddr.split(QLatin1Char('.'));
        return tr("IP Address format incorrect.");
    }
    if (!hasFourParts(gateway)) {
        qDebug() << "Gateway Address format incorrect." << gateway.split(QLatin1Char('.'));
        return tr("Gateway Address format incorrect.");
    }
    {
        SettingsGroup group(*initSettings, QStringLiteral("connection"));
        group.set("ipaddress", ipaddr);
        group.set("gateway", gateway);
    }
    return qkv720Obj->hlnpObj->setIpAdr(targetDeviceMAC, currentNetcardIP, targetDeviceIP, ipaddr, gateway);
}

// One address that is tested, stored and sent in the same way whichever it is.
struct mainControl::AddressSetting
{
    const char *key;
    const char *malformedLog;
    const char *malformed;
    QString (*send)(HLNP &unit, const QString &currentNetcardIP, const QString &targetDeviceIP,
                    const QString &content);
};

namespace {

template <QString (HLNP::*operation)(QString, QString, QString)>
QString sendBy(HLNP &unit, const QString &currentNetcardIP, const QString &targetDeviceIP,
               const QString &content)
{
    return (unit.*operation)(currentNetcardIP, targetDeviceIP, content);
}

} // namespace

QString mainControl::setAddress(const AddressSetting &setting, const QString &currentNetcardIP,
                                const QString &targetDeviceIP, const QString &content)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(content)) {
        qDebug() << setting.malformedLog;
        return tr(setting.malformed);
    }
    SettingsGroup(*initSettings, QStringLiteral("connection")).set(setting.key, content);
    return setting.send(*qkv720Obj->hlnpObj, currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetGateway(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    static constexpr AddressSetting setting{"gateway", "Gateway Address format failed",
                                            QT_TR_NOOP("Gateway Address format incorrect."),
                                            sendBy<&HLNP::setGateway>};
    return setAddress(setting, currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetNetmask(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    static constexpr AddressSetting setting{"mask", "Netmask Address format failed",
                                            QT_TR_NOOP("Netmask Address format incorrect."),
                                            sendBy<&HLNP::setNetmask>};
    return setAddress(setting, currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetPrimDNS(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    static constexpr AddressSetting setting{"primarydns", "PrimDNS Address format failed",
                                            QT_TR_NOOP("PrimDNS Address format incorrect."),
                                            sendBy<&HLNP::setPrimDNS>};
    return setAddress(setting, currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetSecDNS(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    static constexpr AddressSetting setting{"seconddns", "SecDNS Address format failed",
                                            QT_TR_NOOP("SecDNS Address format incorrect."),
                                            sendBy<&HLNP::setSecDNS>};
    return setAddress(setting, currentNetcardIP, targetDeviceIP, content);
}

int mainControl::initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP,
                                QString txtIPAddr, QString txtHostname, QString txtNetmask,
                                QString txtGateway, QString txtPrimdns, QString txtSecdns)
{
    return qkv720Obj->hlnpObj->initHLNPConfig(dhcpIndex, txtMacaddr, currentNetCardIP, txtIPAddr, txtHostname,
                                              txtNetmask, txtGateway, txtPrimdns, txtSecdns);
}

// NOLINTEND(performance-unnecessary-value-param)
