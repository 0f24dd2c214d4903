#pragma once

#include <QString>

namespace standin {

// Command codes of the discovery datagrams.
enum DiscoveryCommand {
    EthReq = 0x00,
    FwVerReq = 0x01,
    SetDhcpMode = 0x02,
    SetIpAdr = 0x03,
    ResetUnit = 0x04,
    SetDhcpName = 0x09,
    SetMacAdr = 0x0A,
    SetNetmask = 0x0B,
    SetGateway = 0x0C,
    SetPriDns = 0x0D,
    SetSecDns = 0x0E,
    GetModel = 0x40,
    GetModelName = 0x41
};

// The command's keyword, or its number.
inline QString discoveryName(int command)
{
    switch (command) {
    case EthReq:
        return QStringLiteral("ETH_REQ");
    case FwVerReq:
        return QStringLiteral("FWVER_REQ");
    case SetDhcpMode:
        return QStringLiteral("SET_DHCPMODE");
    case SetIpAdr:
        return QStringLiteral("SET_IPADR");
    case ResetUnit:
        return QStringLiteral("RESET");
    case SetDhcpName:
        return QStringLiteral("SET_DHCPNAME");
    case SetMacAdr:
        return QStringLiteral("SET_MACADR");
    case SetNetmask:
        return QStringLiteral("SET_NETMASK");
    case SetGateway:
        return QStringLiteral("SET_GATEWAY");
    case SetPriDns:
        return QStringLiteral("SET_PRIDNS");
    case SetSecDns:
        return QStringLiteral("SET_SECDNS");
    case GetModel:
        return QStringLiteral("GET_MODEL");
    case GetModelName:
        return QStringLiteral("GET_MODEL_NAME");
    default:
        return QStringLiteral("datagram 0x%1").arg(command, 2, 16, QLatin1Char('0'));
    }
}

inline bool isDiscoveryCommand(int command)
{
    return !discoveryName(command).startsWith(QLatin1String("datagram"));
}

} // namespace standin
