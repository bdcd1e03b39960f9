// The clock of the benchmarks that compare two sides in one run.
#ifndef MOXBENCH_STOPWATCH_H
#define MOXBENCH_STOPWATCH_H

#include <algorithm>
#include <ctime>
#include <vector>

namespace MoxBench {

/** The processor time that @p work takes on this thread, in microseconds: other programs that run meanwhile do not count. */
template<class Work> double microseconds(Work work)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return double(time.tv_sec) * 1e6 + double(time.tv_nsec) / 1e3;
    };
    const double start = now();
    work();
    return now() - start;
}

/** What stands for several rounds of the same work: the quickest one, since all that disturbs makes a round slower. */
inline double quickest(const std::vector<double> &rounds)
{
    return *std::min_element(rounds.begin(), rounds.end());
}

} // namespace MoxBench

#endif
