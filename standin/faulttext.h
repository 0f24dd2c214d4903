#pragma once

#include "standin/fault.h"

#include <QString>

namespace standin {

// A code as people write it: "D2", "0xD2", "SET_LEVELS", "RESET_LEVELS", "any", or a discovery keyword such as
// "ETH_REQ". NoCode when it is none of these.
int codeFromText(const QString &text);
constexpr int NoCode = -2;

// The kinds of fault, one a line.
QString faultHelp();
// Every code by the names that the frames are logged under, with the values behind it, one function a line.
QString codeHelp();
// Reads CODE KIND [values] [times]; an empty result is success, any other text says what is wrong.
QString parseFault(const QString &text, int &code, Fault &fault);
// A whole number in a range, written in decimal; false for anything else.
bool numberFromText(const QString &text, int least, int most, int &number);
// The same in hexadecimal, with or without 0x before it.
bool hexFromText(const QString &text, int most, int &number);

} // namespace standin
