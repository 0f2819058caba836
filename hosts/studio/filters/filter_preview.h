#pragma once

#include <functional>
#include <memory>

#include "studio/filters/filter_table.h"
#include "studio/picture.h"

namespace orvane::studio {

/// One filter on the picture, with values that change while somebody looks. At most one run is under way;
/// when it ends, the newest values follow. At any time at most one step of it is in the history.
class FilterPreview : public std::enable_shared_from_this<FilterPreview> {
 public:
    FilterPreview(StudioPicture& picture, const Filter& filter, const char* title);
    ~FilterPreview();
    FilterPreview(const FilterPreview&) = delete;
    FilterPreview& operator=(const FilterPreview&) = delete;

    /// Shows the filter with these arguments, which are taken over. Nothing after the end.
    void show(GVariant* arguments);
    /// Shows the picture without the filter.
    void hide();
    /// The end: the step for what was shown last stays, or none. Comes to pass when the run under way has
    /// ended, which outlives the caller.
    void keep();
    void cancel();

 private:
    enum class End { None, Keep, Cancel };
    void goOn();
    void run();
    void takeBack();
    void finish();

    StudioPicture& picture_;
    const Filter& filter_;
    const char* title_;
    GVariant* wanted_ = nullptr;  ///< arguments not shown yet
    bool hidden_ = false;         ///< the step that is in is to be taken back
    bool isRunning_ = false, isIn_ = false;
    End end_ = End::None;
    bool hasEnded_ = false;
};

}  // namespace orvane::studio
