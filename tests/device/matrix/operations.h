#pragma once

#include "device/qkv720.h"
#include "tests/device/matrix/model.h"

namespace matrix {

// One public operation, called on the device class and on the model of a panel. Both tell their result in words.
struct Operation
{
    QString name;
    int faultedCode; // whose answers suffer
    bool opensLink = false; // a connect; all others find the link up
    std::function<QString(qkv720 &device, uint method)> call;
    std::function<QString(PanelModel &panel)> expect;
};

// `target` is where a connect goes.
QVector<Operation> allOperations(const std::function<QString()> &target);

} // namespace matrix
