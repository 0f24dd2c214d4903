#pragma once

// The heap of the start. The toolkit asks for some ten MB in small pieces while it builds the screen, and the system
// gives them page by page: thousands of faults, a tenth of the whole start.

// One heap for all threads, its first part in pages as large as the system has. The toolkit reads the documents in a
// thread of its own while the other one waits: a second heap would grow beside this one, and what is freed in it would
// not serve the panel. First thing in the process.
void prepareStartHeap();

// Gives back what the load has freed, and lets the heap be an ordinary one from here on.
void settleStartHeap();
