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

    // Two programs are slow to make; a unit of its own for each input is what counts.
    static standin::Appliance first;
    static standin::Appliance second;
    static const bool areUp = [] {
        standin::Appliance::Setup setup; // no links: a restart must not open any either
        setup.network = false;
        setup.discovery = false;
        QString error;
        return first.start(setup, &error) && second.start(setup, &error);
    }();
    require(areUp);
    for (standin::Appliance *appliance : {&first, &second})
        appliance->unit = standin::Unit();
    standin::Console console({&first, &second});
    int answers = 0;
    for (int at = 0; at < typed.size(); at += piece)
        answers += console.take(typed.mid(at, piece)).size();
    require(answers <= typed.count('\n') + typed.size() / (64 * 1024));
    for (const standin::Appliance *appliance : {&first, &second}) {
        const QJsonObject kept = appliance->unit.toJson();
        standin::Unit other;
        require(other.fromJson(kept).isEmpty() && other.toJson() == kept);
    }
    QCoreApplication::processEvents(); // a restart that came due
    return 0;
}
