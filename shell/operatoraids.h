#pragma once

class QQuickWindow;

// Gives the window what an operator works it with beside the plain mouse: the press keys, the focus ring, the hover
// edge, and a pressed face that is seen before the work. They live as long as the window.
void giveOperatorAids(QQuickWindow *window);
