#include "control/maincontrol.h"

#include "device/qkv720.h"
#include "discovery/hlnp.h"

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

enum Mark {
    NoMark = 0,
    AddressMark = 1,
    HostNameMark = 2,
    GatewayMark = 3,
    NetmaskMark = 4,
    PrimaryDnsMark = 5,
    SecondaryDnsMark = 6,
};

// Parts are counted, not read: what they hold is the discovery object's affair.
bool hasFourParts(const QString &address)
{
    return address.split(QLatin1Char('.')).size() == 4;
}

} // namespace

// The connection panel's form as it came.
struct mainControl::NetworkForm
{
    QString netcardIP;
    QString target; // address of the unit as last scanned: every command of a save goes there
    QString mac;
    QString name;
    int mode;
    QString ipaddr;
    QString mask;
    QString gateway;
    QString priDns;
    QString secDns;
};

struct mainControl::SaveOutcome
{
    QString ret = QStringLiteral("OK"); // the result of the last command
    QString error;
};

// ---- The whole form ---------------------------------------------------------------------------------------

QString mainControl::hlnpSave(QString currentNetcardIP, QString currentNetcardText, int ipSelectIndex,
                              QString macAdd, QString name, int mode, QString ipaddr, QString mask,
                              QString gateway, QString priDns, QString secDns)
{
    qDebug() << "[hlnpSave] DHCP mode=" << mode;
    timerRefreshStatus->stop();

    // The row of the last scan is the reference for what has changed; a save does not update it.
    const hlnp_network_info before = foundUnit(ipSelectIndex);
    const NetworkForm form{currentNetcardIP, before.ipadd, macAdd,  name,   mode,
                           ipaddr,           mask,         gateway, priDns, secDns};
    SaveOutcome outcome;
    checkForm(form, outcome);
    storeForm(form, currentNetcardText);
    if (mode == kFormFixedAddress)
        saveFixedAddress(form, before, outcome);
    else
        saveDhcp(form, before, outcome);

    // The last command alone decides: an earlier failure shows in its mark only.
    return outcome.ret == QLatin1String("OK") ? outcome.ret : outcome.error;
}

// A failed test stops nothing, and a later one overwrites the text of an earlier one.
void mainControl::checkForm(const NetworkForm &form, SaveOutcome &outcome)
{
    const struct
    {
        const QString &address;
        const char *words;
        Mark mark;
    } tests[] = {
        {form.ipaddr, QT_TR_NOOP("IP Address format incorrect."), AddressMark},
        {form.gateway, QT_TR_NOOP("Gateway Address format incorrect."), GatewayMark},
        {form.mask, QT_TR_NOOP("Mask Address format incorrect."), NetmaskMark},
        {form.priDns, QT_TR_NOOP("Primary DNS Address format incorrect."), PrimaryDnsMark},
        {form.secDns, QT_TR_NOOP("Secondary DNS Address format incorrect."), SecondaryDnsMark},
    };
    for (const auto &test : tests) {
        if (hasFourParts(test.address))
            continue;
        outcome.error = tr(test.words);
        emit markHLNPDataRed(test.mark);
    }
}

// Stored whatever the tests found, and before any command goes out.
void mainControl::storeForm(const NetworkForm &form, const QString &netcardText)
{
    initSettings->beginGroup(QStringLiteral("connection"));
    initSettings->setValue(QStringLiteral("netcard"), netcardText);
    initSettings->setValue(QStringLiteral("mac"), form.mac);
    initSettings->setValue(QStringLiteral("hostname"), form.name);
    initSettings->setValue(QStringLiteral("dhcpmode"), form.mode == kFormDhcp);
    initSettings->setValue(QStringLiteral("ipaddress"), form.ipaddr);
    initSettings->setValue(QStringLiteral("mask"), form.mask);
    initSettings->setValue(QStringLiteral("gateway"), form.gateway);
    initSettings->setValue(QStringLiteral("primarydns"), form.priDns);
    initSettings->setValue(QStringLiteral("seconddns"), form.secDns);
    initSettings->endGroup();
    initSettings->sync();
}

void mainControl::settle(SaveOutcome &outcome, const QString &result, int mark)
{
    outcome.ret = result;
    if (result == QLatin1String("OK"))
        return;
    outcome.error = result + outcome.error;
    if (mark != NoMark)
        emit markHLNPDataRed(mark);
}

void mainControl::saveFixedAddress(const NetworkForm &form, const hlnp_network_info &before,
                                   SaveOutcome &outcome)
{
    HLNP &hlnp = *qkv720Obj->hlnpObj;
    if (before.isdhcp) {
        settle(outcome, hlnp.setDhcpMode(form.mac, form.netcardIP, form.target, kWireDhcpOff), NoMark);
        msecSleep(kAfterDhcpOffMs);
    }
    if (form.ipaddr != before.ipadd) {
        settle(outcome, hlnp.setIpAdr(form.mac, form.netcardIP, form.target, form.ipaddr, form.gateway),
               AddressMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.name != before.name) {
        settle(outcome, hlnp.setDhcpName(form.netcardIP, form.target, form.name), HostNameMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.gateway != before.gatewayadd) {
        settle(outcome, hlnp.setGateway(form.netcardIP, form.target, form.gateway), GatewayMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.mask != before.maskadd) {
        settle(outcome, hlnp.setNetmask(form.netcardIP, form.target, form.mask), NetmaskMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.priDns != before.primdnsadd) {
        settle(outcome, hlnp.setPrimDNS(form.netcardIP, form.target, form.priDns), PrimaryDnsMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.secDns != before.secdnsadd)
        settle(outcome, hlnp.setSecDNS(form.netcardIP, form.target, form.secDns), SecondaryDnsMark);
}

// Under DHCP the addresses are the server's affair: only the mode and the name go out.
void mainControl::saveDhcp(const NetworkForm &form, const hlnp_network_info &before, SaveOutcome &outcome)
{
    HLNP &hlnp = *qkv720Obj->hlnpObj;
    if (!before.isdhcp) {
        settle(outcome, hlnp.setDhcpMode(form.mac, form.netcardIP, form.target, kWireDhcpOn), NoMark);
        msecSleep(kAfterSettingMs);
    }
    if (form.name != before.name)
        settle(outcome, hlnp.setDhcpName(form.netcardIP, form.target, form.name), HostNameMark);
}

QString mainControl::hlnpReboot(QString targetDeviceMAC, QString currentNetcardIP, QString targetDeviceIP)
{
    timerRefreshStatus->stop();
    return qkv720Obj->hlnpObj->reset(targetDeviceMAC, currentNetcardIP, targetDeviceIP);
}

// ---- One setting each -------------------------------------------------------------------------------------

void mainControl::storeSetting(const QString &key, const QVariant &value)
{
    initSettings->beginGroup(QStringLiteral("connection"));
    initSettings->setValue(key, value);
    initSettings->endGroup();
    initSettings->sync();
}

QString mainControl::hlnpSetDhcpName(QString currentNetcardIP, QString targetDeviceIP, QString content,
                                     QString macAdd, QString currentNetcardText)
{
    timerRefreshStatus->stop();
    initSettings->beginGroup(QStringLiteral("connection"));
    initSettings->setValue(QStringLiteral("hostname"), content);
    if (!iniExist) {
        initSettings->setValue(QStringLiteral("netcard"), currentNetcardText);
        initSettings->setValue(QStringLiteral("mac"), macAdd);
    }
    initSettings->endGroup();
    initSettings->sync();
    return qkv720Obj->hlnpObj->setDhcpName(currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetDhcpMode(QString targetDeviceMAC, QString currentNetcardIP,
                                     QString targetDeviceIP, int mode)
{
    timerRefreshStatus->stop();
    storeSetting(QStringLiteral("dhcpmode"), mode == kFormDhcp);
    // The number goes out as it stands, unlike in hlnpSave: 0 is stored as DHCP and turns it off at the unit.
    // Callers of this slot count on the wire's own numbers.
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
    initSettings->beginGroup(QStringLiteral("connection"));
    initSettings->setValue(QStringLiteral("ipaddress"), ipaddr);
    initSettings->setValue(QStringLiteral("gateway"), gateway);
    initSettings->endGroup();
    initSettings->sync();
    return qkv720Obj->hlnpObj->setIpAdr(targetDeviceMAC, currentNetcardIP, targetDeviceIP, ipaddr, gateway);
}

QString mainControl::hlnpSetGateway(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(content)) {
        qDebug() << "Gateway Address format failed";
        return tr("Gateway Address format incorrect.");
    }
    storeSetting(QStringLiteral("gateway"), content);
    return qkv720Obj->hlnpObj->setGateway(currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetNetmask(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(content)) {
        qDebug() << "Netmask Address format failed";
        return tr("Netmask Address format incorrect.");
    }
    storeSetting(QStringLiteral("mask"), content);
    return qkv720Obj->hlnpObj->setNetmask(currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetPrimDNS(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(content)) {
        qDebug() << "PrimDNS Address format failed";
        return tr("PrimDNS Address format incorrect.");
    }
    storeSetting(QStringLiteral("primarydns"), content);
    return qkv720Obj->hlnpObj->setPrimDNS(currentNetcardIP, targetDeviceIP, content);
}

QString mainControl::hlnpSetSecDNS(QString currentNetcardIP, QString targetDeviceIP, QString content)
{
    timerRefreshStatus->stop();
    if (!hasFourParts(content)) {
        qDebug() << "SecDNS Address format failed";
        return tr("SecDNS Address format incorrect.");
    }
    storeSetting(QStringLiteral("seconddns"), content);
    return qkv720Obj->hlnpObj->setSecDNS(currentNetcardIP, targetDeviceIP, content);
}

int mainControl::initHLNPConfig(int dhcpIndex, QString txtMacaddr, QString currentNetCardIP,
                                QString txtIPAddr, QString txtHostname, QString txtNetmask,
                                QString txtGateway, QString txtPrimdns, QString txtSecdns)
{
    return qkv720Obj->hlnpObj->initHLNPConfig(dhcpIndex, txtMacaddr, currentNetCardIP, txtIPAddr, txtHostname,
                                              txtNetmask, txtGateway, txtPrimdns, txtSecdns);
}

// NOLINTEND(performance-unnecessary-value-param)
