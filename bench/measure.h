#pragma once
// What every benchmark shares: medians of interleaved rounds, so that a noisy machine disturbs all peers
// alike, and the output lines.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

namespace bench {

inline double seconds() {
    using namespace std::chrono;
    return duration<double>(steady_clock::now().time_since_epoch()).count();
}

/// Of this process, so that what else runs on the machine does not count.
inline double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

inline double median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

/// Keeps the compiler from dropping a computation.
template <class T>
void keep(const T& value) {
    asm volatile("" : : "r,m"(value) : "memory");
}

/// One candidate: a name and a function that does the work once; where the work uses something up, a function
/// that makes it anew before each time, which isn't measured.
struct Candidate {
    std::string name;
    std::function<void()> work;
    std::function<void()> prepare = {};
};

/// Runs the candidates once unmeasured, then in turn, `rounds` times each; gives the median seconds of a run
/// of each, by a clock.
inline std::vector<double> interleaved(const std::vector<Candidate>& candidates, int rounds,
                                       double (*clock)() = processorSeconds) {
    std::vector<std::vector<double>> times(candidates.size());
    const auto run = [clock](const Candidate& candidate) {
        if (candidate.prepare) candidate.prepare();
        const double start = clock();
        candidate.work();
        return clock() - start;
    };
    for (const Candidate& candidate : candidates)
        run(candidate); // memory and caches are made now
    for (int round = 0; round < rounds; ++round)
        for (std::size_t i = 0; i < candidates.size(); ++i)
            times[i].push_back(run(candidates[i]));
    std::vector<double> medians;
    medians.reserve(times.size());
    for (const auto& t : times)
        medians.push_back(median(t));
    return medians;
}

/// One figure: the peer's time divided by ours; above 1 we are ahead.
inline void ratio(const std::string& name, const std::string& peer, double ours, double theirs) {
    std::printf("ratio\t%s\t%s\t%.2f\n", name.c_str(), peer.c_str(), theirs / ours);
    std::fflush(stdout);
}

/// How far ahead the best possible would be: the peer's time divided by that of the bare machine.
inline void floor(const std::string& name, const std::string& peer, double machine, double theirs) {
    std::printf("floor\t%s\t%s\t%.2f\n", name.c_str(), peer.c_str(), theirs / machine);
    std::fflush(stdout);
}

/// The time of one operation of ours, for the eye: it is the machine's as much as ours.
inline void time(const std::string& name, double oneCall) {
    std::printf("time\t%s\t%.1f ns\n", name.c_str(), oneCall * 1e9);
    std::fflush(stdout);
}

/// Measures the first candidate against each of the others.
inline void compare(const std::string& name, const std::vector<Candidate>& candidates, int rounds = 15) {
    const auto times = interleaved(candidates, rounds);
    for (std::size_t i = 1; i < candidates.size(); ++i)
        ratio(name, candidates[i].name, times[0], times[i]);
}

} // namespace bench
