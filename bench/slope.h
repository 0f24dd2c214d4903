#pragma once

#include <cstddef>
#include <vector>

namespace bench {

// Least squares over equidistant samples: growth from one sample to the next.
inline double slope(const std::vector<double> &samples)
{
    const auto count = static_cast<double>(samples.size());
    double sumX = 0;
    double sumY = 0;
    double sumXY = 0;
    double sumXX = 0;
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const auto x = static_cast<double>(i);
        sumX += x;
        sumY += samples[i];
        sumXY += x * samples[i];
        sumXX += x * x;
    }
    return (count * sumXY - sumX * sumY) / (count * sumXX - sumX * sumX);
}

} // namespace bench
