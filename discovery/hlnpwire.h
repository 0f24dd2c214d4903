#pragma once

#include <QByteArray>
#include <QString>

// One hexadecimal digit, upper case: 0x00 to 0x0F give "0" to "F", any other value an empty string.
QString Hex_to_Char(unsigned char dt);
// Its inverse for the digits of either case; 0xFF for anything else.
unsigned char Char_to_Hex(unsigned char *dt);

// The wire format of HLNP. Every datagram, both ways, begins with
//
//   0  2  total length, big-endian, these two bytes included
//   2  1  0x80 request to all units, 0x81 request to one unit; not read in a reply
//   3  1  command code; a reply repeats the code of its request
//
// A request spells out its command as an ASCII keyword. In a broadcast request the six bytes of the wanted
// unit's MAC stand before the keyword, since a broadcast reaches every unit; ETH_REQ alone means all of them.
//
//   network record, 47 bytes             acknowledgement, 5 bytes        reply to GET_MODEL, 8 bytes
//   3   1  0x00                          3  1  code of the command       3  1  0x40
//   4   1  DHCP flag                     4  1  0x06 ACK, 0x15 NACK       4  2  vendor, high byte first
//   5  16  host name                                                     6  2  product, high byte first
//   21  6  MAC
//   27  4  IP address                    reply to GET_MODEL_NAME
//   31  4  netmask                       3  1  0x41
//   35  4  gateway                       4     model name, ended by 0x00
//   39  4  primary DNS
//   43  4  secondary DNS
namespace HlnpWire {

constexpr int UDPBUFFERSIZE = 50; // a longer datagram is cut to this and then fails the length test
constexpr int kReadsPerCollection = 11;

enum Type : unsigned char { ToAll = 0x80, ToOne = 0x81 };

enum Code : unsigned char {
    EthReq = 0x00,
    FwverReq = 0x01,
    SetDhcpMode = 0x02,
    SetIpAdr = 0x03,
    Reset = 0x04,
    Bootloader = 0x08, // a unit's own; the panel only names it in the log
    SetDhcpName = 0x09,
    SetMacAdr = 0x0A,
    SetNetmask = 0x0B,
    SetGateway = 0x0C,
    SetPriDns = 0x0D,
    SetSecDns = 0x0E,
    GetModel = 0x40,
    GetModelName = 0x41,
};

// One request. Its keyword is empty where the panel never sends it.
struct Command
{
    const char *keyword;
    const char *label; // its name in the log
    int length; // of the whole datagram, as its length field says
    Code code;
    Type type;
};
constexpr Command kCommands[] = {
    {"ETH_REQ", "HLNP Scan ", 11, EthReq, ToAll},
    {"FWVER_REQ", "FW Version Request ", 13, FwverReq, ToOne},
    {"SET_DHCPMODE", "Set DHCP Mode ", 23, SetDhcpMode, ToAll},
    {"SET_IPADR", "Set IP ", 27, SetIpAdr, ToAll},
    {"RESET", "Reset ", 15, Reset, ToAll},
    {"", "Bootloader ", 0, Bootloader, ToAll},
    {"SET_DHCPNAME", "Set DHCP Name ", 32, SetDhcpName, ToOne},
    {"SET_MACADR", "Set MAC ", 20, SetMacAdr, ToOne},
    {"SET_NETMASK", "Set NetMask ", 19, SetNetmask, ToOne},
    {"SET_GATEWAY", "Set Gateway ", 19, SetGateway, ToOne},
    {"SET_PRIDNS", "Set Primary DNS ", 18, SetPriDns, ToOne},
    {"SET_SECDNS", "Set Second DNS ", 18, SetSecDns, ToOne},
    {"GET_MODEL", "Get Model VIDPID ", 19, GetModel, ToAll},
    {"GET_MODEL_NAME", "Get ModelName ", 24, GetModelName, ToAll},
};
// The row of a code; null for a code outside the table.
const Command *commandOf(unsigned char code);

enum Answer : unsigned char { Ack = 0x06, Nack = 0x15 };

enum RecordOffset {
    AnswerAt = 4,
    DhcpAt = 4,
    HostNameAt = 5,
    MacAt = 21,
    IpAt = 27,
    NetmaskAt = 31,
    GatewayAt = 35,
    PrimaryDnsAt = 39,
    SecondaryDnsAt = 43,
    VendorAt = 4,
    ProductAt = 6,
    ModelNameAt = 4,
};

constexpr int kHostNameBytes = 16;

// Header, MAC (six bytes in a broadcast, none in ETH_REQ and in a request to one unit), keyword, value. The
// length field is that of the table and is not counted: it keeps its value when a host name with characters
// outside ASCII makes the datagram longer.
QByteArray request(unsigned char code, const QByteArray &mac = {}, const QByteArray &value = {});
int lengthField(const QByteArray &buffer);
unsigned char byteAt(const QByteArray &buffer, int at);

// Text to bytes; the caller has counted the parts. A part that is no number gives 0x00, and a number that
// does not fit is cut to 8 bits: 300 goes out as 0x2C.
bool isMac(const QString &text); // exactly six parts between ":"
bool isAddress(const QString &text); // exactly four parts between "."
QByteArray macBytes(const QString &text);
QByteArray addressBytes(const QString &text);
// At most 15 characters in UTF-8, then 0x00 up to 16 characters.
QByteArray nameField(const QString &name);

// Bytes to text.
QString macText(const QByteArray &buffer, int at);
QString addressText(const QByteArray &buffer, int at);
QString identifierText(const QByteArray &buffer, int at); // two bytes as four hexadecimal digits
QString textUpToZero(const QByteArray &buffer, int at, int most);

// Whether the host's address is one that an adapter may be chosen by: dotted, not 127.x, not 169.x.
bool isUsableAdapterAddress(const QString &text);

} // namespace HlnpWire
