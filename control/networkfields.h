#pragma once

#include "control/maincontrol.h"
#include "discovery/hlnp.h"

// The numbers of markHLNPDataRed: which field of the connection panel is shown in red.
enum Mark {
    NoMark = 0, // clears all marks
    AddressMark = 1,
    HostNameMark = 2,
    GatewayMark = 3,
    NetmaskMark = 4,
    PrimaryDnsMark = 5,
    SecondaryDnsMark = 6,
};

// One text of a unit's network settings: its mark, its key in group "connection", where the facade keeps the saved
// one, where a record of the unit table holds it, and what an operator is told about one that is no address.
struct NetworkField
{
    Mark mark;
    const char *key;
    QString mainControl::*saved;
    QString hlnp_network_info::*found;
    const char *malformed; // null: any text will do
};

// The order is that in which fields are read, compared, marked, stored after a scan, and sent by a save. The MAC
// address has no mark: it names the unit and is never changed.
constexpr NetworkField kNetworkFields[] = {
    {AddressMark, "ipaddress", &mainControl::initIpaddr, &hlnp_network_info::ipadd,
     QT_TRANSLATE_NOOP("mainControl", "IP Address format incorrect.")},
    {HostNameMark, "hostname", &mainControl::initHostname, &hlnp_network_info::name, nullptr},
    {NoMark, "mac", &mainControl::initMac, &hlnp_network_info::macadd, nullptr},
    {GatewayMark, "gateway", &mainControl::initGateway, &hlnp_network_info::gatewayadd,
     QT_TRANSLATE_NOOP("mainControl", "Gateway Address format incorrect.")},
    {NetmaskMark, "mask", &mainControl::initMask, &hlnp_network_info::maskadd,
     QT_TRANSLATE_NOOP("mainControl", "Mask Address format incorrect.")},
    {PrimaryDnsMark, "primarydns", &mainControl::initPrimDns, &hlnp_network_info::primdnsadd,
     QT_TRANSLATE_NOOP("mainControl", "Primary DNS Address format incorrect.")},
    {SecondaryDnsMark, "seconddns", &mainControl::initSecDns, &hlnp_network_info::secdnsadd,
     QT_TRANSLATE_NOOP("mainControl", "Secondary DNS Address format incorrect.")},
};
