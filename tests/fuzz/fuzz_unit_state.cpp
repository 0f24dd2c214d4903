// The stand-in's state file: what is refused changes nothing, and what is taken is saved as it was read.

#include <cstdint>
#include <cstdlib>

#include "standin/discoverylink.h"

#include <QJsonDocument>

// The toolkit's reader loses the first of two values of one key, if it is an object: a leak of its own, once per file.
extern "C" const char *__asan_default_options() // NOLINT(bugprone-reserved-identifier)
{
    return "detect_leaks=0";
}

namespace {

// `Holder` is what a part of the file goes into.
template <typename Holder>
void readInto(const QJsonObject &json)
{
    Holder holder;
    const QJsonObject before = holder.toJson();
    const QString error = holder.fromJson(json);
    const QJsonObject after = holder.toJson();
    if (!error.isEmpty() && after != before)
        std::abort();
    Holder again;
    if (!again.fromJson(after).isEmpty() || again.toJson() != after)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray text(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QJsonObject json = QJsonDocument::fromJson(text).object();
    readInto<standin::Unit>(json);
    readInto<standin::NetworkSettings>(json.value(QStringLiteral("network")).toObject());
    return 0;
}
