#include "control/settingsfile.h"

#include "control/panelidentity.h"

QString settingsFilePath()
{
    return QStringLiteral("../../%1/%2/%3.ini")
        .arg(QStringLiteral(ORG_NAME), QStringLiteral(APP_NAME), QStringLiteral(APP_NAME));
}
