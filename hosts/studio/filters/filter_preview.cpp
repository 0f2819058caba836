#include "studio/filters/filter_preview.h"

#include <utility>

namespace orvane::studio {

FilterPreview::FilterPreview(StudioPicture& picture, const Filter& filter, const char* title)
    : picture_(picture), filter_(filter), title_(title) {
    picture_.beginPreview();
}

FilterPreview::~FilterPreview() {
    if (wanted_ != nullptr) g_variant_unref(wanted_);
}

void FilterPreview::show(GVariant* arguments) {
    g_variant_ref_sink(arguments);
    // A dialog that closes still takes over the number that was being typed.
    if (hasEnded_) return g_variant_unref(arguments);
    if (wanted_ != nullptr) g_variant_unref(wanted_);
    wanted_ = arguments;
    hidden_ = false;
    goOn();
}

void FilterPreview::hide() {
    if (hasEnded_) return;
    if (wanted_ != nullptr) g_variant_unref(std::exchange(wanted_, nullptr));
    hidden_ = true;
    goOn();
}

void FilterPreview::keep() {
    end_ = End::Keep;
    hasEnded_ = true;
    goOn();
}

void FilterPreview::cancel() {
    hide();
    end_ = End::Cancel;
    hasEnded_ = true;
    goOn();
}

void FilterPreview::goOn() {
    if (isRunning_) return;
    if (wanted_ != nullptr) {
        run();
    } else {
        if (hidden_) takeBack();
        if (end_ != End::None) finish();
    }
}

// One frame shows the next result in place of the one before: what lies between is not presented.
void FilterPreview::run() {
    OrvaneVistrel* control = picture_.control();
    orvane_vistrel_begin_update(control);
    takeBack();
    const guint64 before = orvane_vistrel_get_picture_serial(control);
    GVariant* arguments = std::exchange(wanted_, nullptr);
    isRunning_ = true;
    const auto done = [self = shared_from_this(), control, before](GVariant*) {
        self->isRunning_ = false;
        // Arguments that the filter refuses make no step.
        self->isIn_ = orvane_vistrel_get_picture_serial(control) != before;
        if (self->isIn_) self->picture_.notePreviewStep();
        orvane_vistrel_end_update(control);
        self->goOn();
    };
    if (!picture_.runSlow(filter_.member, arguments, title_, done)) {
        isRunning_ = false;
        orvane_vistrel_end_update(control);
    }
    g_variant_unref(arguments);
}

void FilterPreview::takeBack() {
    if (isIn_) orvane_vistrel_undo(picture_.control());
    isIn_ = false;
}

void FilterPreview::finish() {
    end_ = End::None;
    picture_.endPreview(isIn_);
}

}  // namespace orvane::studio
