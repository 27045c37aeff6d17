#pragma once

#include <QtGlobal>

#include <algorithm>
#include <ctime>
#include <limits>

namespace quillon {

/// How many times more processor time @p work(8 * size) takes than @p work(size), in the best of some runs:
/// about 8 where the time grows with the size, 64 where it grows with the square.
template<typename Work>
double growthOfEightfold(qsizetype size, const Work &work)
{
    const auto cost = [&work](qsizetype each) {
        double best = std::numeric_limits<double>::max();
        for (int run = 0; run < 3; ++run) {
            const std::clock_t start = std::clock();
            work(each);
            best = std::min(best, double(std::clock() - start));
        }
        return std::max(best, 1.0);
    };
    return cost(8 * size) / cost(size);
}

/// Growth between that of the size and that of its square.
inline constexpr double tolerableGrowth = 24;

} // namespace quillon
