#include "studio/picture.h"

#include <string_view>
#include <utility>

namespace orvane::studio {

/// What the end of a run needs. The program goes on until then, even without windows.
struct StudioPicture::Run {
    Run(StudioPicture* of, Done told) : picture(of), alive(of->alive_), done(std::move(told)) {
        g_application_hold(application);
    }
    ~Run() { g_application_release(application); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    GApplication* application = g_application_get_default();
    StudioPicture* picture;
    std::shared_ptr<bool> alive;
    Done done;
};

StudioPicture::StudioPicture()
    : control_(ORVANE_VISTREL(g_object_ref_sink(orvane_vistrel_new()))),
      alive_(std::make_shared<bool>(true)) {
    gtk_widget_set_hexpand(widget(), TRUE);
    gtk_widget_set_vexpand(widget(), TRUE);
    gtk_accessible_update_property(GTK_ACCESSIBLE(widget()), GTK_ACCESSIBLE_PROPERTY_LABEL, "Picture", -1);
    const auto notified = +[](GObject*, GParamSpec* property, gpointer self) {
        onNotify(static_cast<StudioPicture*>(self), property);
    };
    g_signal_connect(control(), "notify", G_CALLBACK(notified), this);
    const auto changed = +[](StudioPicture* self) { self->tellChange(); };
    g_signal_connect_swapped(control(), "picture-changed", G_CALLBACK(changed), this);
}

StudioPicture::~StudioPicture() {
    *alive_ = false;
    g_signal_handlers_disconnect_by_data(control(), this);
}

bool StudioPicture::isUnsaved() const {
    if (isEmpty()) return false;
    return orvane_vistrel_get_pending(control()) || orvane_vistrel_get_picture_serial(control()) != inFile_;
}

bool StudioPicture::canRedo() const {
    return preview_.canRedo(orvane_vistrel_get_redo_enable(control()) != FALSE);
}

std::string StudioPicture::name() const {
    if (path_.empty()) return "Untitled";
    const std::unique_ptr<char, FreeText> base(g_path_get_basename(path_.c_str()));
    return base.get();
}

void StudioPicture::setFile(std::string path) {
    path_ = std::move(path);
    hasWrittenFile_ = false;
    inFile_ = orvane_vistrel_get_picture_serial(control());
    tellChange();
}

void StudioPicture::setWrittenFile(std::string path) {
    setFile(std::move(path));
    hasWrittenFile_ = true;
}

void StudioPicture::undo() {
    preview_.noteUndo();
    orvane_vistrel_undo(control());
    tellChange();
}

void StudioPicture::redo() {
    preview_.noteRedo();
    orvane_vistrel_redo(control());
    tellChange();
}

void StudioPicture::beginPreview() { preview_.begin(); }

void StudioPicture::endPreview(bool kept) {
    if (kept) {
        preview_.keep();
    } else {
        preview_.cancel();
    }
    tellChange();
}

bool StudioPicture::runSlow(const char* member, GVariant* arguments, const char* title, Done done) {
    return run(control(), member, arguments, title, std::move(done));
}

// The call keeps the other control until its end.
bool StudioPicture::runAside(const char* member, GVariant* arguments, const char* title, Done done) {
    const ObjectRef<OrvaneVistrel> other(ORVANE_VISTREL(g_object_ref_sink(orvane_vistrel_new())));
    return run(other.get(), member, arguments, title, std::move(done));
}

bool StudioPicture::run(OrvaneVistrel* control, const char* member, GVariant* arguments, const char* title,
                        Done done) {
    if (isBusy()) {
        if (arguments != nullptr) g_variant_unref(g_variant_ref_sink(arguments));
        return false;
    }
    title_ = title;
    running_ = true;
    orvane_vistrel_invoke_async(control, member, arguments, nullptr, &StudioPicture::onDone,
                                new Run(this, std::move(done)));
    tellChange();
    return true;
}

void StudioPicture::onDone(GObject* source, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Run> run(static_cast<Run*>(data));
    GVariant* value = orvane_vistrel_invoke_finish(ORVANE_VISTREL(source), result, nullptr);
    if (*run->alive) run->picture->running_ = false;
    if (*run->alive && run->done) run->done(value);
    if (value != nullptr) g_variant_unref(value);
    if (*run->alive) run->picture->tellChange();
    if (!*run->alive) return;
    const auto ended = run->picture->runEnded_;  // which may close the window
    if (ended) ended();
}

void StudioPicture::paste() {
    if (isBusy()) return;
    const auto alive = alive_;
    title_ = "Pasting";
    pasting_ = true;
    tellChange();
    orvane_vistrel_paste(control());
    if (!*alive) return;
    pasting_ = false;
    tellChange();
    if (const auto next = std::exchange(afterPaste_, {})) next();
}

void StudioPicture::afterPaste(std::function<void()> function) {
    if (!pasting_) return function();
    afterPaste_ = std::move(function);
}

void StudioPicture::onNotify(StudioPicture* self, GParamSpec* property) {
    const std::string_view name = property->name;
    if (name == "redo-enable" && !orvane_vistrel_get_redo_enable(self->control())) self->preview_.noteEdit();
    self->tellChange();
}

void StudioPicture::tellChange() const {
    if (changed_) changed_();
}

}  // namespace orvane::studio
