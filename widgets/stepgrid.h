// The step grid that all value widgets snap to, and arithmetic that wraps around.
#ifndef MOX_STEPGRID_H
#define MOX_STEPGRID_H

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

/**
 * One rule for all value widgets: the grid starts at the minimum of the range, a value goes to the nearest grid line, a
 * tie goes up, and the ends of the range are never moved.
 *
 * Integers are computed as two's complement hardware does, without undefined behaviour: what overflows wraps around, and
 * a 64-bit result at the limits of the type may lie outside the range. Free functions without state, for any thread.
 */
namespace StepGrid {

/** The sum of two signed integers, wrapped around on overflow. */
template<class Int> constexpr Int wrappingAdd(Int a, Int b)
{
    using Unsigned = std::make_unsigned_t<Int>;
    return static_cast<Int>(static_cast<Unsigned>(a) + static_cast<Unsigned>(b));
}

/** The difference of two signed integers, wrapped around on overflow. */
template<class Int> constexpr Int wrappingSubtract(Int a, Int b)
{
    using Unsigned = std::make_unsigned_t<Int>;
    return static_cast<Int>(static_cast<Unsigned>(a) - static_cast<Unsigned>(b));
}

/** The product of two signed integers of at least the size of int, wrapped around on overflow. */
template<class Int> constexpr Int wrappingMultiply(Int a, Int b)
{
    using Unsigned = std::make_unsigned_t<Int>;
    static_assert(sizeof(Int) >= sizeof(int), "smaller types would be promoted to int and overflow there");
    return static_cast<Int>(static_cast<Unsigned>(a) * static_cast<Unsigned>(b));
}

/**
 * The distance from the minimum at which a value stands after snapping; @p distance is the one before.
 *
 * Integers: the half step is @p step shifted right by one bit, so with a step of 5 a remainder of 2 already goes up,
 * although down is nearer. This is settled. A step of 0 has no grid lines: every distance stays.
 *
 * Floating point: exactly 0.0 is the only remainder that counts as none. A step of 0.0 gives a result that is not a
 * number; nothing guards against it.
 */
template<class T> T snapDistance(T distance, T step)
{
    if constexpr (std::is_integral_v<T>) {
        // Dividing the smallest number by -1 traps on some machines; no remainder is left by it in any case.
        const T rest = step == 0 || step == -1 ? 0 : distance % step;
        if (rest == 0)
            return distance;
        if (rest < (step >> 1))
            return wrappingSubtract(distance, rest);
        return wrappingAdd(distance, wrappingSubtract(step, rest));
    } else {
        const T quotient = distance / step;
        // As a conversion to a 64-bit integer and back would cut it, which quotients beyond its range must not take.
        const T rest = (quotient - std::trunc(quotient)) * step;
        if (rest == T(0))
            return distance;
        if (T(0.5) * step > rest)
            return distance - rest;
        return distance + (step - rest);
    }
}

/**
 * @p value snapped to the grid: the ends of the range are returned as they are, and a result beyond @p maximum becomes
 * @p maximum, which so stays within reach off the grid. A value below @p minimum is not brought back to it.
 */
template<class T> T snap(T value, T minimum, T maximum, T step)
{
    if (value == minimum || value == maximum)
        return value;
    T result;
    if constexpr (std::is_integral_v<T>) {
        result = wrappingAdd(minimum, snapDistance(wrappingSubtract(value, minimum), step));
        // Rounded up beyond the largest number. Of 64 bits it stays there, which is settled.
        constexpr auto largest = static_cast<long long>(std::numeric_limits<T>::max());
        if (sizeof(T) < sizeof(long long) && value > minimum && static_cast<long long>(value) - result > largest)
            result = maximum;
    } else {
        result = minimum + snapDistance(value - minimum, step);
    }
    return std::min(result, maximum); // in this order: what is not a number stays so
}

} // namespace StepGrid

#endif
