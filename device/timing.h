#pragma once

#include "device/qkv720commands.h"

#include <array>
#include <cstddef>

// The waits and the retries of both links. docs/protocol.md prints these tables, and a test compares the two.

// How long the unit is given before its reply is read. A row tests one byte of the frame, counted from its
// end: not 0 gives the row's time, 0 the link's default. The first row whose command matches decides, even
// when its test fails.
//
// The checksum, not the payload, decides in all rows but the first: a frame whose sum happens to be 0 gets
// the short wait. And on the serial link input and cursor commands wait less than any other command.
// docs/oddities.md tells what depends on both.
struct ReplyWait
{
    int command;
    int testedFromEnd;
    unsigned long networkMs;
    unsigned long serialMs;
};
constexpr int kChecksum = 1;
constexpr int kLastPayloadByte = 2;
constexpr unsigned long kNetworkDefaultMs = 50;
constexpr unsigned long kSerialDefaultMs = 150;
constexpr ReplyWait kReplyWaits[] = {
    {QKV720_SET_CK_BACKCOLOR_AUTOCK, kLastPayloadByte, 2000, 2000},
    {QKV720_SET_VIDEOOUT_RESOLUTION, kChecksum, 2000, 2000},
    {QKV720_SET_FGBGAUX_INPUTSOURCE, kChecksum, 100, 100},
    {QKV720_SET_CURSORPOSITION, kChecksum, 50, 100},
};
// The automatic key on the serial link waits on its own, past that table.
constexpr unsigned long kSerialAutoKeyMs = 3000;

// What the table says of `frame` on link `method`.
unsigned long replyWaitMs(const QByteArray &frame, uint method);

// The sleeps between the attempts of one command: one attempt more than there are sleeps.
struct RetryLadder
{
    std::array<unsigned long, 3> sleepsMs;
    size_t retries;
};
constexpr RetryLadder kStandardLadder{{300, 500, 1000}, 3};
constexpr RetryLadder kNetworkStatusLadder{{300, 300, 0}, 2};
constexpr RetryLadder kShortLadder{{300, 500, 0}, 2};
constexpr RetryLadder kNetworkCursorLadder{{200, 200, 0}, 2};
// It falls where the others rise: after a first failure the unit may still be scanning the picture.
constexpr RetryLadder kNetworkKeyColorLadder{{3000, 1000, 500}, 3};

// After a recall the panel reads the unit back slowly; these are its pauses together, the exchanges not
// counted.
constexpr unsigned long kRecallPausesMs = 2600;

// Between a scan and the questions for the models.
constexpr unsigned long kBeforeModelsMs = 500;

// A write to the serial port that failed is tried again after each of these; the network link writes three
// times at once.
constexpr std::array<unsigned long, 3> kSerialWriteSleepsMs{100, 300, 500};
constexpr int kNetworkWrites = 3;
