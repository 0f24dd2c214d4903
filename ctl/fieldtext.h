#pragma once

#include "device/functions.h"

#include <QJsonValue>
#include <QString>
#include <QStringList>

namespace ctl {

// The table of functions in words: what stands on a command line and in a show file.

// The function of that name in any case of letters; null when there is none. It knows the aux mode too, which
// is no part of functions::all() because its two bytes are the first two of the blur.
const UnitFunction *functionNamed(const QString &name);
QVector<const UnitFunction *> everyFunction();
const UnitField *fieldNamed(const UnitFunction &function, const QString &name);

// "on", "200", "45 degrees". A value that no word names stays a number.
QString valueText(const UnitField &field, qint64 value);
// A word where there is one, else the number alone.
QJsonValue valueJson(const UnitField &field, qint64 value);
// "0 to 120 degrees", "off or on".
QString rangeText(const UnitField &field);
// A word in any case of letters, or a number with or without its unit. False: no value of this field.
bool parseValue(const UnitField &field, const QString &text, qint64 &value);

// One row's place, "DARK level".
QString placeText(const UnitFunction &function, const UnitField &field);

} // namespace ctl
