// The stand-in's console: whatever is typed at two units, in whatever pieces, every line has its answer, and what
// was set can be saved and read again.

#include <cstdint>
#include <cstdlib>

#include "standin/console.h"

#include <QCoreApplication>

namespace {

void require(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    if (size < 1)
        return 0;
    const int piece = 1 + data[0];
    const QByteArray typed(reinterpret_cast<const char *>(data + 1), static_cast<int>(size - 1));

    standin::Appliance first;
    standin::Appliance second;
    standin::Appliance::Setup setup;
    setup.network = false;
    setup.discovery = false;
    QString error;
    require(first.start(setup, &error) && second.start(setup, &error));
    standin::Console console({&first, &second});
    int answers = 0;
    for (int at = 0; at < typed.size(); at += piece)
        answers += console.take(typed.mid(at, piece)).size();
    require(answers <= typed.count('\n') + typed.size() / (64 * 1024));
    for (standin::Appliance *appliance : {&first, &second}) {
        standin::Unit other;
        require(other.fromJson(appliance->unit.toJson()).isEmpty());
        require(other.toJson() == appliance->unit.toJson());
    }
    QCoreApplication::processEvents(); // a restart that came due
    return 0;
}
