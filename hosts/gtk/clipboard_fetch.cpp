#include "gtk/clipboard_fetch.h"

#include <array>
#include <utility>

namespace orvane::gtk {
namespace {

constexpr gint64 kSilenceUs = 3 * G_USEC_PER_SEC;  ///< without a byte
constexpr gint64 kWholeUs = 60 * G_USEC_PER_SEC;   ///< in all
constexpr guint kLookPeriodMs = 100;
constexpr std::size_t kMaxFileBytes = 0x7fffffff;

}  // namespace

/// Held by the fetch and by the one call to the clipboard or its stream that is under way.
struct ClipboardFetch::Transfer {
    enum class State { Running, Whole, Failed };
    using Held = std::shared_ptr<Transfer>;

    Transfer() : begin(g_get_monotonic_time()), progress(begin) {}
    ~Transfer() {
        g_object_unref(cancellable);
        g_clear_object(&stream);
    }
    Transfer(const Transfer&) = delete;
    Transfer& operator=(const Transfer&) = delete;

    [[nodiscard]] bool isRunning() const { return state == State::Running; }
    void fail() {
        if (!isRunning()) return;
        state = State::Failed;
        g_cancellable_cancel(cancellable);
    }

    static void readOn(std::unique_ptr<Held> held);
    static void onOpened(GObject* clipboard, GAsyncResult* result, gpointer data);
    static void onRead(GObject* stream, GAsyncResult* result, gpointer data);
    static gboolean onLook(gpointer data);
    void take(gssize count) noexcept;

    State state = State::Running;
    gint64 begin, progress;
    GCancellable* cancellable = g_cancellable_new();
    GInputStream* stream = nullptr;
    std::array<std::uint8_t, 64 * 1024> chunk{};
    std::vector<std::uint8_t> file;
};

void ClipboardFetch::Transfer::readOn(std::unique_ptr<Held> held) {
    Transfer& transfer = **held;
    if (!transfer.isRunning()) return;
    g_input_stream_read_async(transfer.stream, transfer.chunk.data(), transfer.chunk.size(),
                              G_PRIORITY_DEFAULT, transfer.cancellable, onRead, held.release());
}

void ClipboardFetch::Transfer::onOpened(GObject* clipboard, GAsyncResult* result, gpointer data) {
    std::unique_ptr<Held> held(static_cast<Held*>(data));
    Transfer& transfer = **held;
    transfer.stream = gdk_clipboard_read_finish(GDK_CLIPBOARD(clipboard), result, nullptr, nullptr);
    if (transfer.stream == nullptr) return transfer.fail();
    transfer.progress = g_get_monotonic_time();
    readOn(std::move(held));
}

void ClipboardFetch::Transfer::onRead(GObject* stream, GAsyncResult* result, gpointer data) {
    std::unique_ptr<Held> held(static_cast<Held*>(data));
    (*held)->take(g_input_stream_read_finish(G_INPUT_STREAM(stream), result, nullptr));
    readOn(std::move(held));
}

/// The bytes in the chunk; 0 is the end, -1 an error.
void ClipboardFetch::Transfer::take(gssize count) noexcept try {
    if (!isRunning()) return;
    if (count == 0) {
        state = State::Whole;
    } else if (count < 0 || file.size() + std::size_t(count) > kMaxFileBytes) {
        fail();
    } else {
        file.insert(file.end(), chunk.begin(), chunk.begin() + count);
        progress = g_get_monotonic_time();
    }
} catch (...) {
    fail();
}

gboolean ClipboardFetch::Transfer::onLook(gpointer data) {
    auto& transfer = *static_cast<Transfer*>(data);
    const gint64 now = g_get_monotonic_time();
    if (now - transfer.progress > kSilenceUs || now - transfer.begin > kWholeUs) transfer.fail();
    return G_SOURCE_CONTINUE;
}

std::optional<std::vector<std::uint8_t>> ClipboardFetch::run(GdkClipboard* clipboard,
                                                             const char* mimeType) noexcept try {
    transfer_ = std::make_shared<Transfer>();
    auto held = std::make_unique<Transfer::Held>(transfer_);
    const char* mimeTypes[] = {mimeType, nullptr};
    gdk_clipboard_read_async(clipboard, mimeTypes, G_PRIORITY_DEFAULT, transfer_->cancellable,
                             Transfer::onOpened, held.release());
    const guint look = g_timeout_add(kLookPeriodMs, Transfer::onLook, transfer_.get());
    while (transfer_->isRunning()) g_main_context_iteration(nullptr, TRUE);
    g_source_remove(look);
    if (transfer_->state != Transfer::State::Whole) return std::nullopt;
    return std::move(transfer_->file);
} catch (...) {
    return std::nullopt;
}

void ClipboardFetch::cancel() noexcept {
    if (transfer_ != nullptr) transfer_->fail();
}

}  // namespace orvane::gtk
