#pragma once

#include "standin/fault.h"

#include <QString>

namespace standin {

// A code as people write it: "D2", "0xD2", "SET_LEVELS", "any", or a discovery keyword such as "ETH_REQ".
// -2 when it is none of these.
int codeFromText(const QString &text);
constexpr int NoCode = -2;

// How a fault is written: CODE KIND [values] [times]
QString faultHelp();
// Reads such a line; an empty result is success, any other text says what is wrong.
QString parseFault(const QString &text, int &code, Fault &fault);

} // namespace standin
