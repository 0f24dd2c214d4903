#pragma once

// Names and version of the panel. The window title in main.qml carries the version once more, as a literal.

#define APP_NAME "qkv720"
#define ORG_NAME "halvorine"

#define MAJORVERSION 1
#define MINORVERSION 6
#define BUILDVERSION 7
