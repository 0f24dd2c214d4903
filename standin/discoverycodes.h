#pragma once

#include <QString>
#include <QVector>

namespace standin {

// Command codes of the discovery datagrams: 00 to 04, 09 to 0E, 40 and 41.
enum DiscoveryCommand {
    EthReq,
    FwVerReq,
    SetDhcpMode,
    SetIpAdr,
    ResetUnit,
    SetDhcpName = 0x09,
    SetMacAdr,
    SetNetmask,
    SetGateway,
    SetPriDns,
    SetSecDns,
    GetModel = 0x40,
    GetModelName
};

// One command as its datagrams have it: header, the MAC of the unit that is meant if it is sent to all, keyword,
// values.
struct DiscoveryFunction
{
    int command;
    const char *keyword;
    bool namesAUnit; // by its MAC
    int valueBytes;
};

const QVector<DiscoveryFunction> &discoveryFunctions();
// nullptr for a command that the unit doesn't know.
const DiscoveryFunction *discoveryFunction(int command);
// The command's keyword, or its number.
QString discoveryName(int command);

} // namespace standin
