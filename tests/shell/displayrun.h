#pragma once

#include "panelrun.h"
#include "tests/support/virtualdisplay.h"

// A machine without a graphics driver, and nothing said about how to draw.
inline void withoutGraphics(QProcessEnvironment &environment)
{
    for (const char *name : {"DISPLAY", "QT_QUICK_BACKEND", "QMLSCENE_DEVICE", "QT_XCB_GL_INTEGRATION"})
        environment.remove(QString::fromLatin1(name));
}

// The program draws there, and nothing says how.
inline Environment on(const support::VirtualDisplay &display)
{
    return [number = display.name()](QProcessEnvironment &environment) {
        withoutGraphics(environment);
        environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        environment.insert(QStringLiteral("DISPLAY"), number);
    };
}
