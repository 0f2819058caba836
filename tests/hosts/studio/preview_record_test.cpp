// What people may see of a filter's preview in "redo", given what the control says at each point.
#include "studio/filters/preview_record.h"

#include <gtest/gtest.h>

namespace orvane::studio {
namespace {

constexpr bool kRedo = true;

TEST(PreviewRecord, ACancelledPreviewIsNotMadeAgain) {
    PreviewRecord record;
    record.begin();
    record.noteStep();
    record.cancel();
    EXPECT_FALSE(record.canRedo(kRedo));
}

TEST(PreviewRecord, APreviewThatWasRefusedLeavesWhatCouldBeRedone) {
    PreviewRecord record;
    record.begin();
    record.cancel();
    EXPECT_TRUE(record.canRedo(kRedo));
}

TEST(PreviewRecord, AKeptPreviewIsAChange) {
    PreviewRecord record;
    record.begin();
    record.noteStep();
    record.keep();
    EXPECT_TRUE(record.canRedo(kRedo));
}

TEST(PreviewRecord, StepsUndoneAfterwardsCanBeMadeAgainButNotThePreview) {
    PreviewRecord record;
    record.begin();
    record.noteStep();
    record.cancel();
    record.noteUndo();
    record.noteUndo();
    EXPECT_TRUE(record.canRedo(kRedo));
    record.noteRedo();
    EXPECT_TRUE(record.canRedo(kRedo));
    record.noteRedo();
    EXPECT_FALSE(record.canRedo(kRedo));
    record.noteEdit();
    EXPECT_TRUE(record.canRedo(kRedo)) << "a new change has taken the preview's place";
}

}  // namespace
}  // namespace orvane::studio
