#include "discovery/hlnpstate.h"

int netCount = 0;
QHostAddress udpsocketBindAddress;
QString sameNetwork;
int allHlnpindex = 0;
int qkvindex = 0;
int currentSelect = 0;
int currentChannel = 0;
QString selectedDevice;
int returncount = 0;
int debugScanDeviceCount = 0;
int modelnameCount = 0;
bool doingScan = false;
bool commandReady = false;
QTime doScanTime;
int scanDoneCounter = 0;
int foundTMX500Count = 0;
int scan2whilecount = 0;
int udpNACKcount = 0;
int nackReturnCount = 0;
int switcherindex = 0;
int cameraindex = 0;
bool fakeonce = false;
