#pragma once

#include <QImage>

// Two pictures of the same state, dot by dot.
struct Comparison
{
    int dots = 0; // how many differ by more than the tolerance in a channel; all where the sizes differ
    QRect where; // the box of those dots
    QImage difference; // the first picture dimmed, with those dots in red; null where nothing differs
};

Comparison compare(const QImage &expected, const QImage &found, int tolerance);
