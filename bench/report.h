#pragma once

#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace bench {

// One result, one line of JSON on standard output; bench/all reads them.
inline void report(const QJsonObject &result)
{
    std::printf("%s\n", QJsonDocument(result).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

// The value that the given share of the samples does not exceed.
inline double quantile(std::vector<double> samples, double share)
{
    if (samples.empty())
        return 0;
    std::sort(samples.begin(), samples.end());
    const auto last = static_cast<double>(samples.size() - 1);
    return samples.at(static_cast<size_t>(last * share + 0.5));
}

} // namespace bench
