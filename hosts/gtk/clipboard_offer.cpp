#include "gtk/clipboard_offer.h"

#include <memory>
#include <span>
#include <string_view>
#include <utility>

#include <orvane/clipboard_pictures.h>

using Bytes = std::vector<std::uint8_t>;

struct OrvaneClipboardOffer {
    GdkContentProvider parent;
    /// Shared with the requests that are being answered; null only while the offer is made.
    std::shared_ptr<const Bytes>* block;
};

struct OrvaneClipboardOfferClass {
    GdkContentProviderClass parent;
};

G_DEFINE_TYPE(OrvaneClipboardOffer, orvane_clipboard_offer, GDK_TYPE_CONTENT_PROVIDER)

namespace {

using Encode = Bytes (*)(std::span<const std::uint8_t>) noexcept;

/// Who can read both takes what stands first; a bitmap is made and read faster.
constexpr struct {
    const char* mimeType;
    Encode encode;
} kOffered[] = {{"image/bmp", orvane::bmpFromClipboardBlock}, {"image/png", orvane::pngFromClipboardBlock}};

OrvaneClipboardOffer* offerOf(gpointer object) { return static_cast<OrvaneClipboardOffer*>(object); }

bool isOffer(GdkContentProvider* content) {
    return content != nullptr && G_TYPE_CHECK_INSTANCE_TYPE(content, orvane_clipboard_offer_get_type());
}

GdkContentFormats* refFormats(GdkContentProvider*) {
    GdkContentFormatsBuilder* builder = gdk_content_formats_builder_new();
    for (const auto& offered : kOffered) gdk_content_formats_builder_add_mime_type(builder, offered.mimeType);
    return gdk_content_formats_builder_free_to_formats(builder);
}

// --- answering a request: encode on a thread, then write ---

/// Belongs to the task that the asker waits for.
struct Request {
    Request(std::shared_ptr<const Bytes> from, Encode how, GOutputStream* to)
        : block(std::move(from)), encode(how), stream(G_OUTPUT_STREAM(g_object_ref(to))) {}
    ~Request() { g_object_unref(stream); }
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;

    std::shared_ptr<const Bytes> block;
    Encode encode;
    GOutputStream* stream;
    Bytes file;
};

Request& requestOf(GTask* task) { return *static_cast<Request*>(g_task_get_task_data(task)); }

/// Ends a request; owns the task's reference. Without an error it has succeeded.
void finish(GTask* task, GError* error) {
    if (error != nullptr) {
        g_task_return_error(task, error);
    } else {
        g_task_return_boolean(task, TRUE);
    }
    g_object_unref(task);
}

void onWritten(GObject* stream, GAsyncResult* result, gpointer asked) {
    GError* error = nullptr;
    g_output_stream_write_all_finish(G_OUTPUT_STREAM(stream), result, nullptr, &error);
    finish(G_TASK(asked), error);
}

void onEncoded(GObject*, GAsyncResult* result, gpointer asked) {
    auto* task = G_TASK(asked);
    GError* error = nullptr;
    if (!g_task_propagate_boolean(G_TASK(result), &error)) return finish(task, error);
    Request& request = requestOf(task);
    g_output_stream_write_all_async(request.stream, request.file.data(), request.file.size(),
                                    g_task_get_priority(task), g_task_get_cancellable(task), onWritten, task);
}

void encodeOnThread(GTask* encoding, gpointer, gpointer data, GCancellable*) {
    auto& request = *static_cast<Request*>(data);
    request.file = request.encode(*request.block);
    if (!request.file.empty()) return g_task_return_boolean(encoding, TRUE);
    g_task_return_new_error(encoding, G_IO_ERROR, G_IO_ERROR_FAILED, "The picture cannot be encoded");
}

Encode encoderFor(std::string_view mimeType) {
    for (const auto& offered : kOffered) {
        if (mimeType == offered.mimeType) return offered.encode;
    }
    return nullptr;
}

void writeAsync(GdkContentProvider* provider, const char* mimeType, GOutputStream* stream, int priority,
                GCancellable* cancellable, GAsyncReadyCallback callback, gpointer data) {
    GTask* task = g_task_new(provider, cancellable, callback, data);
    g_task_set_priority(task, priority);
    const Encode encode = encoderFor(mimeType);
    if (encode == nullptr) {
        return finish(task, g_error_new_literal(G_IO_ERROR, G_IO_ERROR_NOT_SUPPORTED, "Not offered"));
    }
    auto* request = new Request(*offerOf(provider)->block, encode, stream);
    g_task_set_task_data(task, request, [](gpointer owned) { delete static_cast<Request*>(owned); });

    GTask* encoding = g_task_new(provider, cancellable, onEncoded, task);
    g_task_set_priority(encoding, priority);
    g_task_set_task_data(encoding, request, nullptr);
    g_task_run_in_thread(encoding, encodeOnThread);
    g_object_unref(encoding);
}

gboolean writeFinish(GdkContentProvider*, GAsyncResult* result, GError** error) {
    return g_task_propagate_boolean(G_TASK(result), error);
}

void finalize(GObject* object) {
    delete offerOf(object)->block;
    G_OBJECT_CLASS(orvane_clipboard_offer_parent_class)->finalize(object);
}

}  // namespace

static void orvane_clipboard_offer_class_init(OrvaneClipboardOfferClass* offerClass) {
    G_OBJECT_CLASS(offerClass)->finalize = finalize;
    auto* provider = GDK_CONTENT_PROVIDER_CLASS(offerClass);
    provider->ref_formats = refFormats;
    provider->write_mime_type_async = writeAsync;
    provider->write_mime_type_finish = writeFinish;
}

static void orvane_clipboard_offer_init(OrvaneClipboardOffer*) {}

namespace orvane::gtk {

GdkContentProvider* newClipboardOffer(std::vector<std::uint8_t> block) {
    auto shared =
        std::make_unique<std::shared_ptr<const Bytes>>(std::make_shared<const Bytes>(std::move(block)));
    auto* provider =
        static_cast<GdkContentProvider*>(g_object_new(orvane_clipboard_offer_get_type(), nullptr));
    offerOf(provider)->block = shared.release();
    return provider;
}

std::optional<std::vector<std::uint8_t>> blockOfOffer(GdkContentProvider* content) {
    if (!isOffer(content)) return std::nullopt;
    return **offerOf(content)->block;
}

}  // namespace orvane::gtk
