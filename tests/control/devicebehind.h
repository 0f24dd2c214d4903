#pragma once

#include "control/maincontrol.h"
#include "device/qkv720.h"
#include "discovery/hlnp.h"

#include <QSettings>

#include <memory>

// The device object behind the facade: reached by naming the member in an explicit instantiation, which may.
template <qkv720 *mainControl::*Member>
struct DeviceBehind
{
    friend qkv720 *deviceOf(mainControl &control) { return control.*Member; }
};
qkv720 *deviceOf(mainControl &control);
template struct DeviceBehind<&mainControl::qkv720Obj>;

inline QString settingsPath()
{
    return QStringLiteral("../../halvorine/qkv720/qkv720.ini");
}

// Ends a run of the panel. The facade leaves its settings handle, and the device object its serial and
// discovery objects, to the end of the process; tests end more often than that.
inline void discard(std::unique_ptr<mainControl> &control)
{
    if (!control)
        return;
    const qkv720 *device = deviceOf(*control);
    const std::unique_ptr<HLNP> discovery(device->hlnpObj);
    const std::unique_ptr<serialPort> serial(device->serialObj);
    const std::unique_ptr<QSettings> settings(control->initSettings);
    control.reset();
}
