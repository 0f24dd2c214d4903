#pragma once

#include <QtGlobal>

// For tests that bound how far the process may grow.
#ifdef __SANITIZE_ADDRESS__
constexpr qint64 kMayGrow = 60'000'000;
// The sanitizer keeps what was freed for a while: 256 MB of it, which is more than some of the floods here.
extern "C" inline __attribute__((used, visibility("default"))) const char *__asan_default_options()
{
    return "quarantine_size_mb=8";
}
#else
constexpr qint64 kMayGrow = 5'000'000;
#endif
