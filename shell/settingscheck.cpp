#include "shell/settingscheck.h"

#include <QDebug>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

#include "control/settingsfile.h"
#include "shell/logtext.h"

namespace {

constexpr int kStartWaitMs = 2000;

QString sentence(const SettingsObstacle &obstacle)
{
    const QString what = obstacle.kind == SettingsObstacle::Lock
        ? QStringLiteral(
            "The settings of the panel are locked by %1, which belongs to %2. If no other panel is "
            "running, delete it and start the panel again.")
        : QStringLiteral(
            "The settings of the panel cannot be read: %1, which belongs to %2, is not a file. Remove "
            "it and start the panel again.");
    // The lock's holder is a text that another machine may have written.
    return what.arg(escapedForLog(obstacle.path), escapedForLog(obstacle.holder));
}

// Nobody sees a window there, and nobody could answer it.
bool isUnseen()
{
    const QString platform = QGuiApplication::platformName();
    return platform == QLatin1String("offscreen") || platform == QLatin1String("minimal");
}

} // namespace

bool settingsCanBeUsed()
{
    const SettingsObstacle obstacle = findSettingsObstacle(settingsFilePath(), kStartWaitMs);
    if (obstacle.kind == SettingsObstacle::Nothing)
        return true;
    qCritical().noquote() << sentence(obstacle);
    return !isUnseen() && goesOnWithout(obstacle);
}

bool goesOnWithout(const SettingsObstacle &obstacle)
{
    QMessageBox box;
    box.setIcon(QMessageBox::Warning);
    box.setWindowTitle(QStringLiteral("QKV-720"));
    box.setTextFormat(Qt::PlainText);
    box.setText(sentence(obstacle));
    const QPushButton *goOn = nullptr;
    if (obstacle.kind == SettingsObstacle::Lock) {
        box.setInformativeText(QStringLiteral(
            "The panel can also start now: it works as usual, but stores nothing until the lock is gone."));
        goOn = box.addButton(QStringLiteral("Start Without Storing"), QMessageBox::AcceptRole);
    }
    box.setDefaultButton(box.addButton(QStringLiteral("Quit"), QMessageBox::RejectRole));
    box.exec();
    return goOn && box.clickedButton() == goOn;
}
