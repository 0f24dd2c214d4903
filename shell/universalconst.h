#pragma once

// The panel's fixed names and version. They are defined where the facade reads them, so that control/ needs
// nothing from shell/.
#include "control/panelidentity.h" // IWYU pragma: export
