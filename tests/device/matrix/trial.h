#pragma once

#include "tests/device/matrix/operations.h"

namespace matrix {

// One cell of the matrix.
struct Case
{
    int operation;
    Form form;
    uint method;
};

// All of them, in a fixed order.
const QVector<Case> &allCases();
QString nameOf(const Case &cell);

// Tries one in this process, which then ends: what differs from the model, in words; empty when nothing does.
QString tryCase(const Case &cell);

} // namespace matrix
