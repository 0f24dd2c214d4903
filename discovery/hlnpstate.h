#pragma once

#include <QHostAddress>
#include <QString>
#include <QTime>

// The variables of discovery that stand beside the class. There is one HLNP object in a process.

extern int netCount; // adapters of the latest enumeration
extern QHostAddress udpsocketBindAddress; // where a scan last bound the socket; read by nothing
extern QString sameNetwork; // first three octets of the chosen adapter, for the log

extern int allHlnpindex; // next free row of allHlnpDevice
extern int qkvindex; // next free row of qkvDevice; reset by doScan() alone
extern int currentSelect; // row that acknowledgements are compared with; 0 on every path
extern int currentChannel;
extern QString selectedDevice; // address that was last asked for its model; read by nothing

extern int returncount; // records from a foreign port since the last accepted record; survives scans
extern int debugScanDeviceCount; // network records of this scan, duplicates included
extern int modelnameCount;
extern bool doingScan;
extern bool commandReady; // read by nothing
extern QTime doScanTime; // for the log

// Reset by a scan and read by nothing.
extern int scanDoneCounter;
extern int foundTMX500Count;
extern int scan2whilecount;
extern int udpNACKcount;
extern int nackReturnCount;
extern int switcherindex;
extern int cameraindex;
extern bool fakeonce;
