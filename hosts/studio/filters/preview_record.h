#pragma once

namespace orvane::studio {

/// What a cancelled preview leaves behind in the control, and what people should not see of it: the control
/// offers to redo the preview, though nobody made it.
class PreviewRecord {
 public:
    void begin() {
        previewing_ = true;
        madeStep_ = false;
    }
    /// The control has made a step for it, in place of all that could be redone.
    void noteStep() { madeStep_ = true; }
    /// It was taken back; nothing happened.
    void cancel() {
        previewing_ = false;
        if (!madeStep_) return;
        hidesRedo_ = true;
        undosSince_ = 0;
    }
    /// It stays, as a change like any other.
    void keep() { *this = {}; }

    void noteUndo() {
        if (hidesRedo_) ++undosSince_;
    }
    void noteRedo() {
        if (undosSince_ > 0) --undosSince_;
    }
    /// The control has nothing to redo any more: a new change has taken the preview's place.
    void noteEdit() {
        if (!previewing_) *this = {};
    }

    /// Whether there is a step to redo that somebody made, given what the control says.
    [[nodiscard]] bool canRedo(bool redoEnable) const {
        return redoEnable && (!hidesRedo_ || undosSince_ > 0);
    }

 private:
    bool previewing_ = false, madeStep_ = false;
    bool hidesRedo_ = false;
    int undosSince_ = 0;  ///< steps undone since the preview was cancelled, less those made again
};

}  // namespace orvane::studio
