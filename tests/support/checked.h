#pragma once

#include <QtTest>

// An assertion inside a helper leaves the helper alone: CHECKED(helper(...)) ends the test with it.
#define CHECKED(call)                                                                                        \
    do {                                                                                                     \
        call;                                                                                                \
        if (QTest::currentTestFailed())                                                                      \
            return;                                                                                          \
    } while (false)
