#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <vector>

/// Times one of our operations against a peer that does the same work, in the same run.
///
/// A single timing says more about the machine's mood than about the code: clocks change, caches are cold,
/// neighbours wake up. So both sides take turns (peer, ours, peer, ours, ...), a round yields the median of
/// each side, and the lowest median of several rounds stands for the side. What is worth comparing between
/// machines and days is the ratio, not the milliseconds.
///
///     printRatioHeader();
///     printRatioRow("box blur, radius 5", measureRatio([&] { ours(); }, [&] { peer(); }));
///
/// Compare the two results before timing them, and let both write to memory that outlives the call, so that
/// the compiler cannot drop the work.
namespace orvane::bench {

/// How often each side runs: rounds x callsPerRound samples. Calls shorter than minimumSampleMs are repeated
/// within one sample until they fill it, so that the clock's resolution does not show.
struct RatioEffort {
    int rounds = 5;
    int callsPerRound = 5;
    double minimumSampleMs = 1.0;
};

/// Milliseconds per call of each side; ratio() below 1 means that ours is faster.
struct RatioResult {
    double oursMs = 0, theirsMs = 0;
    [[nodiscard]] double ratio() const { return oursMs / theirsMs; }
};

template <class Operation>
double millisecondsPerCall(Operation& operation, int calls) {
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    for (int i = 0; i < calls; ++i) operation();
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count() / calls;
}

inline double medianOf(std::vector<double>& samples) {
    const auto middle = samples.begin() + std::ptrdiff_t(samples.size() / 2);
    std::nth_element(samples.begin(), middle, samples.end());
    return *middle;
}

/// Runs both operations alternately (once untimed first, to warm up) and returns each side's lowest median.
template <class Ours, class Theirs>
RatioResult measureRatio(Ours&& ours, Theirs&& theirs, const RatioEffort& effort = {}) {
    const auto callsPerSample = [&effort](auto& operation) {
        operation();
        const double once = std::max(millisecondsPerCall(operation, 1), 1e-5);
        return std::max(1, int(effort.minimumSampleMs / once));
    };
    const int theirCalls = callsPerSample(theirs), ourCalls = callsPerSample(ours);

    RatioResult lowest{1e300, 1e300};
    std::vector<double> ourSamples, theirSamples;
    for (int round = 0; round < effort.rounds; ++round) {
        ourSamples.clear();
        theirSamples.clear();
        for (int call = 0; call < effort.callsPerRound; ++call) {
            theirSamples.push_back(millisecondsPerCall(theirs, theirCalls));
            ourSamples.push_back(millisecondsPerCall(ours, ourCalls));
        }
        lowest.oursMs = std::min(lowest.oursMs, medianOf(ourSamples));
        lowest.theirsMs = std::min(lowest.theirsMs, medianOf(theirSamples));
    }
    return lowest;
}

inline void printRatioHeader() {
    std::printf("%-44s | %9s | %9s | %5s\n", "op", "ours ms", "theirs ms", "ratio");
}

/// Prints one row at once, so that a long run shows its progress.
inline void printRatioRow(const char* operation, const RatioResult& result) {
    std::printf("%-44s | %9.3f | %9.3f | %5.2f\n", operation, result.oursMs, result.theirsMs, result.ratio());
    std::fflush(stdout);
}

}  // namespace orvane::bench
