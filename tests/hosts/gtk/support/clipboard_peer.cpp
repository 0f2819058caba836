#include "hosts/gtk/support/clipboard_peer.h"

#include <cerrno>
#include <csignal>
#include <string_view>

#include <gtk/gtk.h>
#include <sys/wait.h>

#include "hosts/gtk/support/main_loop.h"

namespace orvane::test {
namespace {

constexpr const char* kOption = "--clipboard-peer";
constexpr const char* kOffer = "offer";
constexpr const char* kTake = "take";
constexpr int kFirstFile = 3;

GdkClipboard* theClipboard() { return gdk_display_get_clipboard(gdk_display_get_default()); }

// --- the other program ---

int offer(int argc, char** argv) {
    std::vector<GdkContentProvider*> providers;
    for (int i = kFirstFile; i + 1 < argc; i += 2) {
        char* contents = nullptr;
        gsize length = 0;
        if (!g_file_get_contents(argv[i + 1], &contents, &length, nullptr)) return 1;
        GBytes* bytes = g_bytes_new_take(contents, length);
        providers.push_back(gdk_content_provider_new_for_bytes(argv[i], bytes));
        g_bytes_unref(bytes);
    }
    GdkContentProvider* all = gdk_content_provider_new_union(providers.data(), providers.size());
    if (!gdk_clipboard_set_content(theClipboard(), all)) return 1;
    g_object_unref(all);
    for (;;) g_main_context_iteration(nullptr, TRUE);
}

int take(const char* mimeType, const char* path) {
    const auto isOffered = [mimeType] {
        return gdk_content_formats_contain_mime_type(gdk_clipboard_get_formats(theClipboard()), mimeType);
    };
    if (!loopUntil(isOffered)) return 1;

    const auto save = +[](GObject* clipboard, GAsyncResult* result, gpointer file) {
        GInputStream* in = gdk_clipboard_read_finish(GDK_CLIPBOARD(clipboard), result, nullptr, nullptr);
        if (in == nullptr) return;
        GFileOutputStream* out =
            g_file_replace(G_FILE(file), nullptr, FALSE, G_FILE_CREATE_NONE, nullptr, nullptr);
        const auto both = GOutputStreamSpliceFlags(G_OUTPUT_STREAM_SPLICE_CLOSE_SOURCE |
                                                   G_OUTPUT_STREAM_SPLICE_CLOSE_TARGET);
        const auto saved = +[](GObject* stream, GAsyncResult* spliced, gpointer whole) {
            const gssize count = g_output_stream_splice_finish(G_OUTPUT_STREAM(stream), spliced, nullptr);
            if (count >= 0) g_object_set_data(G_OBJECT(whole), "saved", whole);
        };
        g_output_stream_splice_async(G_OUTPUT_STREAM(out), in, both, G_PRIORITY_DEFAULT, nullptr, saved,
                                     file);
    };
    GFile* file = g_file_new_for_path(path);
    const char* mimeTypes[] = {mimeType, nullptr};
    gdk_clipboard_read_async(theClipboard(), mimeTypes, G_PRIORITY_DEFAULT, nullptr, save, file);
    return loopUntil([file] { return g_object_get_data(G_OBJECT(file), "saved") != nullptr; }) ? 0 : 1;
}

}  // namespace

bool isClipboardPeer(int argc, char** argv) {
    return argc >= kFirstFile + 2 && std::string_view(argv[1]) == kOption;
}

int runClipboardPeer(int argc, char** argv) {
    return std::string_view(argv[2]) == kOffer ? offer(argc, argv)
                                               : take(argv[kFirstFile], argv[kFirstFile + 1]);
}

// --- this one ---

ClipboardPeer::ClipboardPeer(const char* task, const std::vector<File>& files) {
    std::vector<const char*> arguments = {"/proc/self/exe", kOption, task};
    for (const File& file : files) {
        arguments.push_back(file.mimeType.c_str());
        arguments.push_back(file.path.c_str());
    }
    arguments.push_back(nullptr);
    process_ = g_subprocess_newv(arguments.data(), G_SUBPROCESS_FLAGS_NONE, nullptr);
}

ClipboardPeer ClipboardPeer::offering(const std::vector<File>& files) { return {kOffer, files}; }
ClipboardPeer ClipboardPeer::taking(const File& file) { return {kTake, {file}}; }

ClipboardPeer::~ClipboardPeer() {
    g_subprocess_force_exit(process_);
    g_subprocess_wait(process_, nullptr, nullptr);
    g_object_unref(process_);
}

// GLib would send signals from a thread of its own, some time later.
void ClipboardPeer::signal(int number, int awaited) {
    const pid_t id = pid_t(g_ascii_strtoll(g_subprocess_get_identifier(process_), nullptr, 10));
    kill(id, number);
    siginfo_t info;
    while (waitid(P_PID, id_t(id), &info, awaited) != 0 && errno == EINTR) {
    }
}

void ClipboardPeer::suspend() { signal(SIGSTOP, WSTOPPED); }
void ClipboardPeer::resume() { signal(SIGCONT, WCONTINUED); }

bool ClipboardPeer::hasSucceeded() {
    return loopUntil([this] { return g_subprocess_get_identifier(process_) == nullptr; }) &&
           g_subprocess_get_successful(process_);
}

}  // namespace orvane::test
