#pragma once

#include <QString>

// The state that the whole process shares. The facade's constructor sets it up; all of it belongs to the main
// thread.

// The device table stems from a scan. Decides what deviceConnect stores and whether connectPopup reports the
// saved connection. autoRun sets it after its scan, whatever the scan returned.
extern bool didScan;
// The settings file held an address when the facade was made. Never changes afterwards.
extern bool iniExist;
// Written by autoRun, read by nothing.
extern bool autoConnect;
// The last user memory, 1 to 8.
extern uint lastMemory;
// The language last asked for: written by the facade's constructor, which logs it, and by
// QmlTranslator::setTranslation. Nothing depends on it.
extern QString mainCurrentLanguage;
