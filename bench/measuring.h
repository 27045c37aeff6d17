#pragma once

#include <algorithm>
#include <chrono>
#include <vector>

namespace quillon {

template<typename Action>
double seconds(const Action &action)
{
    const auto start = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// The middle one of @p values, which must not be empty.
inline double median(std::vector<double> values)
{
    const auto middle = values.begin() + std::ptrdiff_t(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

} // namespace quillon
