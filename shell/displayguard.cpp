#include "shell/displayguard.h"

#include <QString>
#include <QtGlobal>

#include <cstdlib>

namespace {

QtMessageHandler usualHandler = nullptr;
bool guarding = false;

QString sentence(const QString &toolkitSays)
{
    QString named;
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY"}) {
        if (!qEnvironmentVariableIsEmpty(variable))
            named += QStringLiteral(" %1=%2").arg(QLatin1String(variable), qEnvironmentVariable(variable));
    }
    const QString what = named.isEmpty() ? QStringLiteral("neither DISPLAY nor WAYLAND_DISPLAY is set")
                                         : QStringLiteral("nothing can be shown on%1").arg(named);
    return QStringLiteral("The panel finds no display: %1. (%2)").arg(what, toolkitSays.simplified());
}

void endOnFatal(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (type != QtFatalMsg || !guarding) {
        usualHandler(type, context, text);
        return;
    }
    usualHandler(QtCriticalMsg, context, sentence(text));
    std::_Exit(DisplayGuard::kNoDisplay); // nothing stands yet that would have to be torn down
}

} // namespace

DisplayGuard::DisplayGuard()
{
    guarding = true;
    usualHandler = qInstallMessageHandler(endOnFatal);
}

DisplayGuard::~DisplayGuard()
{
    guarding = false;
    // A plugin of the toolkit may have put a handler of its own before this one meanwhile: it stays.
    const QtMessageHandler current = qInstallMessageHandler(usualHandler);
    if (current != endOnFatal)
        qInstallMessageHandler(current);
}
