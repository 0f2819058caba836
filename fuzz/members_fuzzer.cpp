// A sequence of member calls, puts, gets and window messages, taken from the input; every invariant is tested
// after each.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "support/random_steps.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    orvane::FuzzInput data(bytes, size);
    orvane::RandomSteps steps;
    for (int count = 0; !data.isExhausted() && count < 60; ++count) {
        steps.step(data);
        const std::string broken = steps.brokenInvariant();
        if (!broken.empty()) {
            std::fprintf(stderr, "%s\n", broken.c_str());
            std::abort();
        }
    }
    return 0;
}
