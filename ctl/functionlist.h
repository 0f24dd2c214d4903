#pragma once

#include "ctl/fieldtext.h"
#include "ctl/session.h"

namespace ctl {

// Prints functions as they stand in the mirror, as a table or as an object.
void printFunctions(Session &session, const QVector<const UnitFunction *> &functions);

// The functions of these names; false, with a complaint, when one is none.
bool functionsNamed(const QStringList &names, QVector<const UnitFunction *> &functions);

} // namespace ctl
