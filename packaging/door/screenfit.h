#pragma once

#include <string>

// The room that a window's contents have on the screen.
struct Room
{
    int width = 0;
    int height = 0;
    bool canDrawByGl = false; // as far as the display tells: its extension GLX is there
};

// Asks the X server that DISPLAY names: the primary monitor, less what the desktop keeps for itself (its bars) and less
// the frame that its window manager would put around a window. Returns an empty text, or a sentence why it could not
// be found.
std::string findRoom(Room &room);

// The factor at which a window of this size is seen whole: below 1 in hundredths on a screen smaller than the window,
// and on larger ones the largest of 1, 1.25, 1.5, 2 and 3 that fits.
double factorFor(Room room, Room window);
