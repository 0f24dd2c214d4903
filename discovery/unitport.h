#pragma once

#include <QtGlobal>

// What the control link and discovery share: the unit listens on one port number for both, TCP and UDP.
constexpr quint16 kUnitPort = 5002;
// The longest that one wait of a socket lasts, for bytes to leave and for bytes to arrive.
constexpr int kSocketWaitMs = 1000;
// The most that the control socket holds of what a peer sends while nothing reads. No reply is longer than
// 110 bytes; without a bound, whatever answers on the unit's port could fill the panel's memory.
constexpr int kSocketReadLimit = 64 * 1024;
