#include "standin/discoverycodes.h"

namespace standin {

const QVector<DiscoveryFunction> &discoveryFunctions()
{
    static const QVector<DiscoveryFunction> table = {
        {EthReq, "ETH_REQ", false, 0},
        {FwVerReq, "FWVER_REQ", false, 0},
        {SetDhcpMode, "SET_DHCPMODE", true, 1},
        {SetIpAdr, "SET_IPADR", true, 8},
        {ResetUnit, "RESET", true, 0},
        {SetDhcpName, "SET_DHCPNAME", false, 16},
        {SetMacAdr, "SET_MACADR", false, 6},
        {SetNetmask, "SET_NETMASK", false, 4},
        {SetGateway, "SET_GATEWAY", false, 4},
        {SetPriDns, "SET_PRIDNS", false, 4},
        {SetSecDns, "SET_SECDNS", false, 4},
        {GetModel, "GET_MODEL", true, 0},
        {GetModelName, "GET_MODEL_NAME", true, 0},
    };
    return table;
}

const DiscoveryFunction *discoveryFunction(int command)
{
    for (const DiscoveryFunction &function : discoveryFunctions()) {
        if (function.command == command)
            return &function;
    }
    return nullptr;
}

QString discoveryName(int command)
{
    const DiscoveryFunction *function = discoveryFunction(command);
    return function ? QString::fromLatin1(function->keyword)
                    : QStringLiteral("datagram 0x%1").arg(command, 2, 16, QLatin1Char('0'));
}

} // namespace standin
