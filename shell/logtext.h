#pragma once

#include <QString>

// `text` with every character written out that could end a line, reach a terminal as a command or turn the reading
// direction: line break, return and tab as \n, \r and \t, other control and format characters, line and paragraph
// separators and unpaired surrogates as \uXXXX. Anything else stays as it is.
QString escapedForLog(const QString &text);

// From now on every log line, of C++ and QML alike, goes out escaped, in the toolkit's usual form and to the usual
// place. QDebug escapes the texts that it quotes, console.log does not, and a unit's host name reaches both: without
// this, anyone on the network could forge lines of the log.
void escapeLogLines();
