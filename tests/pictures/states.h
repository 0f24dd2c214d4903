#pragma once

#include "scene.h"

#include <QVector>

// One state of the screen: its name, which is that of its picture, and the way into it from a fresh window.
struct State
{
    const char *name;
    void (*enter)(Scene &scene);
};

QVector<State> windowStates();
QVector<State> chromakeyStates();
QVector<State> pageStates();
