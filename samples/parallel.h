#pragma once

#include <atomic>
#include <thread>
#include <vector>

namespace sample {

/// Calls work(0) to work(count - 1), spread over the processors. The calls must not depend on each other.
template <class Work>
void forEachIndex(int count, Work work) {
    std::atomic<int> next{0};
    const auto run = [&] {
        for (int i = next++; i < count; i = next++) work(i);
    };
    std::vector<std::thread> helpers(std::max(1u, std::thread::hardware_concurrency()) - 1);
    for (std::thread& helper : helpers) helper = std::thread(run);
    run();
    for (std::thread& helper : helpers) helper.join();
}

}  // namespace sample
