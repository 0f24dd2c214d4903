#pragma once

struct SettingsObstacle;

// Looks, for 2 s at most, whether the settings file can be used. When something stands in its way, says on standard
// error and in a window what it is, whose, and what to do. False: the program ends. True: it starts; where the
// operator chose so, without storing anything until the obstacle is gone.
//
// The words are English in any case: the language is one of the things that stand in the file.
bool settingsCanBeUsed();

// The window alone. True when the operator wants to go on without storing.
bool goesOnWithout(const SettingsObstacle &obstacle);
