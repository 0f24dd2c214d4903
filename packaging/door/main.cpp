// What the launcher cannot do in shell, without any toolkit, so that it also works where the toolkit is what is missing:
//   qkv720-door factor WIDTH HEIGHT             prints the factor at which a window of this size is seen, the room, and
//                                               "gl", or "flat" where the display draws no GL
//   qkv720-door run LOG plain|timed PROGRAM...  runs the program and keeps what it says, with times

#include "packaging/door/runlog.h"
#include "packaging/door/screenfit.h"

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kNoScreen = 1;
constexpr int kUsage = 2;

// 0 for what is no number of pixels.
int pixels(const char *word)
{
    const long number = std::strtol(word, nullptr, 10);
    return number > 0 && number <= INT_MAX ? static_cast<int>(number) : 0;
}

int tellFactor(const char *width, const char *height)
{
    const Room window = {pixels(width), pixels(height), false};
    if (window.width <= 0 || window.height <= 0)
        return kUsage;
    Room room;
    const std::string obstacle = findRoom(room);
    if (!obstacle.empty()) {
        std::fprintf(stderr, "%s\n", obstacle.c_str());
        return kNoScreen;
    }
    std::printf("%g %d %d %s\n", factorFor(room, window), room.width, room.height,
                room.canDrawByGl ? "gl" : "flat");
    return 0;
}

} // namespace

int main(int argc, char *argv[])
{
    if (argc == 4 && std::strcmp(argv[1], "factor") == 0)
        return tellFactor(argv[2], argv[3]);
    if (argc >= 5 && std::strcmp(argv[1], "run") == 0) {
        RunLog log(argv[2]);
        return runLogged(log, std::strcmp(argv[3], "timed") == 0, argv + 4);
    }
    std::fprintf(stderr, "usage: qkv720-door factor WIDTH HEIGHT | run LOG plain|timed PROGRAM...\n");
    return kUsage;
}
