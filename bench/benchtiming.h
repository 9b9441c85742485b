#pragma once
// Timing shared by the benchmarks.

#include <QElapsedTimer>
#include <algorithm>
#include <vector>

namespace quorvel::bench {

// Median of seven rounds of `rounds` calls, in nanoseconds per call: the
// median keeps one disturbed round on a shared machine out of the result.
template <typename F>
double Measure(F &&work, int rounds)
{
    std::vector<double> samples;
    for (int r = 0; r < 7; ++r) {
        QElapsedTimer t;
        t.start();
        for (int i = 0; i < rounds; ++i)
            work(i);
        samples.push_back(double(t.nsecsElapsed()) / rounds);
    }
    std::sort(samples.begin(), samples.end());
    return samples[samples.size() / 2];
}

} // namespace quorvel::bench
