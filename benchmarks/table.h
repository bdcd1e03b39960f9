// The lines that all benchmarks print, for `./run bench` to make one table of.
#ifndef MOXBENCH_TABLE_H
#define MOXBENCH_TABLE_H

#include "stopwatch.h"

#include <cstdio>
#include <map>
#include <string>
#include <utility>

namespace MoxBench {

/** "12.3 us", in the unit that suits the number. */
inline std::string timeText(double microseconds)
{
    char text[32];
    if (microseconds < 1000)
        std::snprintf(text, sizeof text, microseconds < 10 ? "%.2f us" : "%.1f us", microseconds);
    else
        std::snprintf(text, sizeof text, microseconds < 10000 ? "%.2f ms" : "%.1f ms", microseconds / 1000);
    return text;
}

/**
 * The rows of one family. Each row is printed at once, its cells divided by tabs:
 *
 *     ratio   family  operation  size  baseline  ours  ratio
 *     growth  family  operation  sizes  factor of size  factor of the baseline's time  factor of our time
 *
 * A growth follows by itself where an operation is added at another size.
 */
class Table
{
public:
    explicit Table(std::string family) : m_family(std::move(family)) { }

    /** Times in microseconds. A @p size of 0 stands for an operation that has none. */
    void add(const std::string &operation, int size, double baseline, double ours)
    {
        std::printf("ratio\t%s\t%s\t%s\t%s\t%s\t%.2f\n", m_family.c_str(), operation.c_str(), sizeText(size).c_str(),
                    timeText(baseline).c_str(), timeText(ours).c_str(), ours / baseline);
        const auto [found, isNew] = m_last.try_emplace(operation, Measured{size, baseline, ours});
        if (!isNew) {
            const Measured last = std::exchange(found->second, Measured{size, baseline, ours});
            std::printf("growth\t%s\t%s\t%d to %d\t%.1f\t%.1f\t%.1f\n", m_family.c_str(), operation.c_str(), last.size,
                        size, double(size) / last.size, baseline / last.baseline, ours / last.ours);
        }
        std::fflush(stdout);
    }
    /** A figure that has nothing beside it. */
    void count(const std::string &operation, int size, long figure)
    {
        std::printf("ratio\t%s\t%s\t%s\t-\t%ld\t-\n", m_family.c_str(), operation.c_str(), sizeText(size).c_str(),
                    figure);
        std::fflush(stdout);
    }
    /**
     * Measures and adds. Both sides take turns, once in vain and then @p rounds times; each turn does the work @p steps
     * times by itself.
     */
    template<class Baseline, class Ours>
    void compare(const std::string &operation, int size, int rounds, int steps, Baseline baseline, Ours ours)
    {
        std::vector<double> theirs, our;
        for (int round = -1; round < rounds; ++round) {
            const double first = microseconds(baseline);
            const double second = microseconds(ours);
            if (round < 0)
                continue;
            theirs.push_back(first / steps);
            our.push_back(second / steps);
        }
        add(operation, size, quickest(theirs), quickest(our));
    }

private:
    struct Measured
    {
        int size;
        double baseline, ours;
    };

    static std::string sizeText(int size) { return size ? std::to_string(size) : "-"; }

    const std::string m_family;
    std::map<std::string, Measured> m_last;
};

} // namespace MoxBench

#endif
