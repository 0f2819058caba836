#pragma once

#include <gtest/gtest.h>
#include <hwy/targets.h>

namespace orvane::test {

/// Runs a check once with each instruction set that this machine can run and the kernels are compiled for, so
/// that those for lesser machines are tested too. The one in use is named when something fails.
template <class Check>
void onEveryTarget(const Check& check) {
    for (const std::int64_t target : hwy::SupportedAndGeneratedTargets()) {
        hwy::SetSupportedTargetsForTest(target);
        hwy::GetChosenTarget().DeInit();
        const testing::ScopedTrace trace(__FILE__, __LINE__, hwy::TargetName(target));
        check();
    }
    hwy::SetSupportedTargetsForTest(0);
    hwy::GetChosenTarget().DeInit();
}

}  // namespace orvane::test
