#pragma once

// Names and version of the panel. The window title in main.qml carries the version once more, as a literal.

#define APP_NAME "qkv720"
#define ORG_NAME "halvorine"

#define MAJORVERSION 1
#define MINORVERSION 6
#define BUILDVERSION 7

// The settings file, relative to the working folder. Filled with ORG_NAME, APP_NAME, APP_NAME wherever a handle
// on the file is opened.
#define SETTINGS_PATH_FORMAT "../../%1/%2/%3.ini"
