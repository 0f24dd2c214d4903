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

struct Attempt
{
    QString words; // what differs from the model; empty when nothing does
    int lateMs; // how long the machine kept the panel and its unit from running when they could have
};

// Tries one in this process, which then ends.
Attempt tryCase(const Case &cell);

} // namespace matrix
