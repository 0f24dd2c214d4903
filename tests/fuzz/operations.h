#pragma once

#include "device/qkv720.h"
#include "discovery/hlnp.h"
#include "tests/fuzz/world.h"

#include <QVector>

#include <memory>

// Every operation of the device class that talks to the unit, its arguments taken from the input.
struct FuzzedOperation
{
    using Call = QString (*)(qkv720 &device, uint method, Script &script);

    const char *name;
    int frames; // that it sends at the most, retries not counted
    bool asksFirst; // whether it sends nothing on a network link that is down
    Call call;
};

const QVector<FuzzedOperation> &fuzzedOperations();

// A device with its serial and its discovery object, which the panel leaves to the end of the process.
class ShortLivedDevice
{
public:
    ~ShortLivedDevice()
    {
        const std::unique_ptr<HLNP> discovery(device->hlnpObj);
        const std::unique_ptr<serialPort> serial(device->serialObj);
        device.reset();
    }
    ShortLivedDevice() = default;
    ShortLivedDevice(const ShortLivedDevice &) = delete;
    ShortLivedDevice &operator=(const ShortLivedDevice &) = delete;

    qkv720 &operator*() { return *device; }
    qkv720 *operator->() { return device.get(); }

private:
    std::unique_ptr<qkv720> device = std::make_unique<qkv720>();
};
