// Conversions to integers that are defined for every number.
#ifndef MOX_SATURATE_H
#define MOX_SATURATE_H

#include <QtGlobal>

#include <algorithm>
#include <cmath>
#include <limits>

/** What the sliders need between their formulas and the int positions of QSlider. Without state, for any thread. */
namespace Saturate {

/**
 * @p number cut toward zero. What is not a number gives 0; what is too large stops so far below the 64-bit limits that a
 * sum with a few 32-bit numbers stays within them.
 */
inline qint64 truncated(double number)
{
    constexpr double limit = 4611686018427387904.0; // 2^62
    return std::isnan(number) ? 0 : static_cast<qint64>(std::clamp(number, -limit, limit));
}

/** @p number, or the end of the range of int on its side. */
inline int toInt(qint64 number)
{
    using Int = std::numeric_limits<int>;
    return static_cast<int>(std::clamp<qint64>(number, Int::min(), Int::max()));
}

} // namespace Saturate

#endif
