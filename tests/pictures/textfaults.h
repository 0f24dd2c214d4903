#pragma once

#include <QQuickWindow>
#include <QStringList>

// What is wrong with the texts that the window shows: one that is cut short or off, that lies over another, that crosses the
// edge of a picture or field beside it, or that is longer than its field. A sentence for each.
QStringList textFaults(const QQuickWindow &window);

// What is soft on a screen of more than one dot a pixel: each picture with fewer dots than it is shown with.
QStringList softPictures(const QQuickWindow &window);
