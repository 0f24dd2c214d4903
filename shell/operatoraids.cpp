#include "shell/operatoraids.h"

#include "shell/focusring.h"
#include "shell/framepace.h"
#include "shell/hoveredge.h"
#include "shell/presskeys.h"
#include "shell/seenfirst.h"

void giveOperatorAids(QQuickWindow *window)
{
    // The last one hears an event first, and the press keys may keep it for themselves.
    new PressKeys(window);
    new HoverEdge(window);
    new FocusRing(window);
    new SeenFirst(window, new FramePace(window));
}
