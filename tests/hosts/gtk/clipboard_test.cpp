#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include <orvane-gtk.h>

#include "hosts/gtk/support/clipboard_peer.h"
#include "hosts/gtk/support/main_loop.h"
#include "support/temporary_folder.h"

namespace orvane::test {
namespace {

using Pixels = std::vector<std::uint32_t>;
constexpr int kImageStamp = 16;
enum FileType { kBmp = 0, kJpeg = 1, kGif = 2, kTiff = 3, kPng = 4 };

struct Picture {
    int width, height;
    Pixels pixels;

    static Picture random(int width, int height, unsigned seed) {
        std::mt19937 generator(seed);
        Pixels pixels(std::size_t(width * height));
        for (std::uint32_t& pixel : pixels) pixel = std::uint32_t(generator()) | 0xff000000u;
        return {width, height, pixels};
    }
    bool operator==(const Picture&) const = default;
};

/// A widget in a window of its own.
class Screen {
 public:
    Screen() : window_(GTK_WINDOW(gtk_window_new())), widget_(ORVANE_VISTREL(orvane_vistrel_new())) {
        g_object_ref_sink(widget_);
        gtk_window_set_child(window_, GTK_WIDGET(widget_));
        gtk_window_set_default_size(window_, 800, 600);
        gtk_window_present(window_);
    }
    ~Screen() {
        close();
        g_object_unref(widget_);
    }
    Screen(const Screen&) = delete;
    Screen& operator=(const Screen&) = delete;
    void close() {
        if (window_ != nullptr) gtk_window_destroy(window_);
        window_ = nullptr;
    }

    operator OrvaneVistrel*() const { return widget_; }
    void show(const Picture& picture) {
        std::vector<guint8> bytes(picture.pixels.size() * 4);
        std::memcpy(bytes.data(), picture.pixels.data(), bytes.size());
        ASSERT_TRUE(orvane_vistrel_load_from_image_array(widget_, bytes.data(), bytes.size(), picture.width,
                                                         picture.height));
    }
    void copy(const Picture& picture) {
        show(picture);
        orvane_vistrel_select_all(widget_);
        orvane_vistrel_copy(widget_);
    }
    [[nodiscard]] bool isPasteable() const { return orvane_vistrel_get_is_clipboard_available(widget_); }
    /// Whether a picture came of it, which is then the stamp.
    [[nodiscard]] bool paste() {
        orvane_vistrel_set_paint_status(widget_, 0);
        orvane_vistrel_paste(widget_);
        return orvane_vistrel_get_paint_status(widget_) == kImageStamp;
    }
    /// What is pasted on a larger picture of one colour, where it is placed two pixels from the corner.
    [[nodiscard]] Picture pasted(int width, int height) {
        constexpr int kInset = 2;
        const int wide = width + 2 * kInset;
        orvane_vistrel_new_image(widget_, wide, height + 2 * kInset);
        if (!paste()) return {};
        orvane_vistrel_accept(widget_);
        GBytes* bytes = orvane_vistrel_get_image_array(widget_);
        const auto* words = static_cast<const std::uint32_t*>(g_bytes_get_data(bytes, nullptr));
        Picture picture{width, height, {}};
        for (int y = 0; y < height; ++y) {
            const std::uint32_t* row = words + (y + kInset) * wide + kInset;
            picture.pixels.insert(picture.pixels.end(), row, row + width);
        }
        g_bytes_unref(bytes);
        return picture;
    }

 private:
    GtkWindow* window_;
    OrvaneVistrel* widget_;
};

GdkClipboard* clipboard() { return gdk_display_get_clipboard(gdk_display_get_default()); }

/// Every test begins with an empty clipboard.
class GtkClipboardTest : public testing::Test {
 protected:
    GtkClipboardTest() {
        clear();
        screen_.show(Picture::random(8, 8, 0));  // without a picture nothing can be pasted
    }
    void clear() {
        gdk_clipboard_set_content(clipboard(), nullptr);
        EXPECT_FALSE(screen_.isPasteable());
    }
    std::string fileOf(const Picture& picture, FileType type) {
        Screen maker;
        maker.show(picture);
        const std::string path = folder_.path("offered" + std::to_string(++files_));
        EXPECT_TRUE(orvane_vistrel_save_image(maker, path.c_str(), type));
        return path;
    }
    /// What this program offers without the widget.
    void offer(const char* mimeType, std::string_view contents) {
        GBytes* bytes = g_bytes_new(contents.data(), contents.size());
        GdkContentProvider* provider = gdk_content_provider_new_for_bytes(mimeType, bytes);
        gdk_clipboard_set_content(clipboard(), provider);
        g_object_unref(provider);
        g_bytes_unref(bytes);
    }
    [[nodiscard]] ClipboardPeer offeringPeer(const std::vector<ClipboardPeer::File>& files) {
        clear();
        return ClipboardPeer::offering(files);
    }
    [[nodiscard]] bool loopUntilPasteable() {
        return loopUntil([this] { return screen_.isPasteable(); });
    }
    [[nodiscard]] static double secondsOfFruitlessPaste(Screen& screen) {
        const gint64 begin = g_get_monotonic_time();
        EXPECT_FALSE(screen.paste());
        return double(g_get_monotonic_time() - begin) / G_USEC_PER_SEC;
    }

    TemporaryFolder folder_;
    int files_ = 0;
    Screen screen_;
};

TEST_F(GtkClipboardTest, OneWidgetPastesWhatAnotherCopiedThatIsGone) {
    const Picture picture = Picture::random(20, 10, 1);
    int notified = 0;
    const auto count = +[](GObject*, GParamSpec*, gpointer number) { ++*static_cast<int*>(number); };
    g_signal_connect(static_cast<OrvaneVistrel*>(screen_), "notify::is-clipboard-available",
                     G_CALLBACK(count), &notified);
    {
        Screen other;
        other.copy(picture);
        EXPECT_TRUE(screen_.isPasteable());
        EXPECT_EQ(notified, 1);
    }
    EXPECT_EQ(screen_.pasted(20, 10), picture);
    EXPECT_EQ(screen_.pasted(20, 10), picture) << "once more";

    gpointer offer = gdk_clipboard_get_content(clipboard());
    g_object_add_weak_pointer(G_OBJECT(offer), &offer);
    gdk_clipboard_set_text(clipboard(), "no picture");
    EXPECT_EQ(offer, nullptr) << "the picture's memory is given back";
    EXPECT_FALSE(screen_.isPasteable());
    EXPECT_EQ(notified, 2);
    EXPECT_FALSE(screen_.paste());
}

TEST_F(GtkClipboardTest, OtherProgramsTakeBmpAndPng) {
    const Picture picture = Picture::random(700, 500, 2);  // sent in several parts
    screen_.copy(picture);
    for (const char* mimeType : {"image/bmp", "image/png"}) {
        const std::string path = folder_.path("taken");
        ClipboardPeer peer = ClipboardPeer::taking({mimeType, path});
        ASSERT_TRUE(peer.hasSucceeded()) << mimeType;
        Screen reader;
        ASSERT_TRUE(orvane_vistrel_load_image(reader, path.c_str())) << mimeType;
        GBytes* bytes = orvane_vistrel_get_image_array(reader);
        ASSERT_EQ(g_bytes_get_size(bytes), picture.pixels.size() * 4) << mimeType;
        EXPECT_EQ(0, std::memcmp(g_bytes_get_data(bytes, nullptr), picture.pixels.data(),
                                 picture.pixels.size() * 4))
            << mimeType;
        g_bytes_unref(bytes);
    }
}

TEST_F(GtkClipboardTest, PastesFilesOfOtherPrograms) {
    const Picture small = Picture::random(20, 10, 3), large = Picture::random(600, 400, 4);
    const struct {
        const char* mimeType;
        FileType type;
        const Picture& picture;
    } rows[] = {{"image/png", kPng, small},
                {"image/bmp", kBmp, large},
                {"image/x-bmp", kBmp, small},
                {"image/tiff", kTiff, small},
                {"image/gif", kGif, small}};
    for (const auto& row : rows) {
        const ClipboardPeer peer = offeringPeer({{row.mimeType, fileOf(row.picture, row.type)}});
        ASSERT_TRUE(loopUntilPasteable()) << row.mimeType;
        EXPECT_TRUE(screen_.pasted(row.picture.width, row.picture.height) == row.picture) << row.mimeType;
    }
    const ClipboardPeer peer = offeringPeer({{"image/jpeg", fileOf(small, kJpeg)}});
    ASSERT_TRUE(loopUntilPasteable());
    EXPECT_TRUE(screen_.paste());
}

TEST_F(GtkClipboardTest, TakesTheFormatThatLosesLeastAndOfTwoTheFirst) {
    const Picture first = Picture::random(20, 10, 5), second = Picture::random(20, 10, 6);
    const struct {
        const char* firstType;
        const char* secondType;
        const Picture& pasted;
    } rows[] = {{"image/png", "image/bmp", first},
                {"image/bmp", "image/png", first},
                {"image/gif", "image/png", second},
                {"image/tiff", "image/bmp", second},
                {"image/svg+xml", "image/jpeg", second}};
    for (const auto& row : rows) {
        const ClipboardPeer peer =
            offeringPeer({{row.firstType, fileOf(first, kPng)}, {row.secondType, fileOf(second, kPng)}});
        ASSERT_TRUE(loopUntilPasteable());
        EXPECT_EQ(screen_.pasted(20, 10), row.pasted) << row.firstType << ' ' << row.secondType;
    }
}

TEST_F(GtkClipboardTest, PastesATextureOfThisProgram) {
    const Picture picture = Picture::random(20, 10, 7);
    GBytes* bytes = g_bytes_new(picture.pixels.data(), picture.pixels.size() * 4);
    GdkTexture* texture = gdk_memory_texture_new(20, 10, GDK_MEMORY_B8G8R8A8, bytes, 80);
    gdk_clipboard_set_texture(clipboard(), texture);
    g_object_unref(texture);
    g_bytes_unref(bytes);
    EXPECT_TRUE(screen_.isPasteable());
    EXPECT_EQ(screen_.pasted(20, 10), picture);
}

TEST_F(GtkClipboardTest, GarbageComesToNothing) {
    char* contents = nullptr;
    gsize length = 0;
    const std::string path = fileOf(Picture::random(20, 10, 8), kPng);
    ASSERT_TRUE(g_file_get_contents(path.c_str(), &contents, &length, nullptr));
    const std::string whole(contents, length);
    g_free(contents);
    const std::string bad[] = {"", "no picture", whole.substr(0, length / 2), std::string(100'000, 'B')};
    for (const std::string& file : bad) {
        offer("image/png", file);
        EXPECT_TRUE(screen_.isPasteable());
        EXPECT_LT(secondsOfFruitlessPaste(screen_), 2) << file.size();
    }
    offer("image/png", whole);
    EXPECT_TRUE(screen_.paste());
}

// --- owners that do not answer ---

/// Sends a little and never comes to an end.
struct HangingContent {
    GdkContentProvider parent;
};
struct HangingContentClass {
    GdkContentProviderClass parent;
};
GType hangingContentType() {
    const auto formats = +[](GdkContentProvider*) {
        const char* mimeTypes[] = {"image/png"};
        return gdk_content_formats_new(mimeTypes, 1);
    };
    static const auto write = +[](GdkContentProvider*, const char*, GOutputStream* stream, int, GCancellable*,
                                  GAsyncReadyCallback, gpointer) {
        g_output_stream_write_all_async(stream, "\x89PNG\r\n\x1a\n", 8, G_PRIORITY_DEFAULT, nullptr, nullptr,
                                        nullptr);
    };
    static const auto refFormats = formats;
    const auto initialise = +[](gpointer itsClass, gpointer) {
        GDK_CONTENT_PROVIDER_CLASS(itsClass)->ref_formats = refFormats;
        GDK_CONTENT_PROVIDER_CLASS(itsClass)->write_mime_type_async = write;
    };
    static const GType type = g_type_register_static_simple(GDK_TYPE_CONTENT_PROVIDER, "HangingContent",
                                                            sizeof(HangingContentClass), initialise,
                                                            sizeof(HangingContent), nullptr, GTypeFlags(0));
    return type;
}

TEST_F(GtkClipboardTest, GivesUpWhenTheOwnerSendsNoMore) {
    auto* content = static_cast<GdkContentProvider*>(g_object_new(hangingContentType(), nullptr));
    gdk_clipboard_set_content(clipboard(), content);
    g_object_unref(content);
    const double seconds = secondsOfFruitlessPaste(screen_);
    EXPECT_GT(seconds, 2.5);
    EXPECT_LT(seconds, 6);
}

// The program goes on while the widget waits, but can neither paste there nor start a slow member.
TEST_F(GtkClipboardTest, GivesUpWhenTheOwnerDoesNotAnswer) {
    const Picture picture = Picture::random(20, 10, 9);
    ClipboardPeer peer = offeringPeer({{"image/png", fileOf(picture, kPng)}});
    ASSERT_TRUE(loopUntilPasteable());
    peer.suspend();

    struct Meanwhile {
        Screen& screen;
        int looks = 0;
        int refused = 0;
    } meanwhile{screen_};
    const auto look = +[](gpointer data) -> gboolean {
        auto& state = *static_cast<Meanwhile*>(data);
        if (++state.looks > 1) return G_SOURCE_CONTINUE;
        EXPECT_FALSE(state.screen.paste());
        const auto ended = +[](GObject* source, GAsyncResult* result, gpointer refused) {
            GError* error = nullptr;
            orvane_vistrel_invoke_finish(ORVANE_VISTREL(source), result, &error);
            *static_cast<int*>(refused) += g_error_matches(error, G_IO_ERROR, G_IO_ERROR_PENDING);
            g_clear_error(&error);
        };
        orvane_vistrel_invoke_async(state.screen, "invert", nullptr, nullptr, ended, &state.refused);
        return G_SOURCE_CONTINUE;
    };
    const guint source = g_timeout_add(100, look, &meanwhile);
    const double seconds = secondsOfFruitlessPaste(screen_);
    g_source_remove(source);
    EXPECT_GT(seconds, 2.5);
    EXPECT_LT(seconds, 6);
    EXPECT_GT(meanwhile.looks, 10);
    EXPECT_EQ(meanwhile.refused, 1);

    peer.resume();  // its answer comes too late and disturbs nothing
    EXPECT_EQ(screen_.pasted(20, 10), picture);
}

TEST_F(GtkClipboardTest, APasteInTheBackgroundAnswersFromTheMainLoop) {
    ClipboardPeer peer = offeringPeer({{"image/png", fileOf(Picture::random(20, 10, 11), kPng)}});
    ASSERT_TRUE(loopUntilPasteable());
    struct Order {
        OrvaneVistrel* control;
        bool returned = false, answered = false;
    } order{screen_};
    const auto paste = +[](gpointer data) -> gboolean {
        auto* state = static_cast<Order*>(data);
        const auto ended = +[](GObject* source, GAsyncResult* result, gpointer user) {
            orvane_vistrel_invoke_finish(ORVANE_VISTREL(source), result, nullptr);
            static_cast<Order*>(user)->answered = true;
            EXPECT_TRUE(static_cast<Order*>(user)->returned);
        };
        orvane_vistrel_invoke_async(state->control, "paste", nullptr, nullptr, ended, state);
        state->returned = true;
        return G_SOURCE_REMOVE;
    };
    g_timeout_add(1, paste, &order);
    EXPECT_TRUE(loopUntil([&order] { return order.answered; }));
    EXPECT_EQ(orvane_vistrel_get_paint_status(screen_), kImageStamp);
}

TEST_F(GtkClipboardTest, AWidgetThatGoesWhileItWaitsWaitsNoLonger) {
    const Picture picture = Picture::random(20, 10, 10);
    ClipboardPeer peer = offeringPeer({{"image/png", fileOf(picture, kPng)}});
    ASSERT_TRUE(loopUntilPasteable());
    peer.suspend();
    gpointer alive = nullptr;
    double seconds = 0;
    {
        Screen other;
        other.show(picture);
        alive = static_cast<OrvaneVistrel*>(other);
        g_object_add_weak_pointer(G_OBJECT(alive), &alive);
        const auto close = +[](gpointer screen) -> gboolean {
            static_cast<Screen*>(screen)->close();
            return G_SOURCE_REMOVE;
        };
        g_timeout_add(200, close, &other);
        seconds = secondsOfFruitlessPaste(other);
    }
    EXPECT_GT(seconds, 0.15);
    EXPECT_LT(seconds, 2);
    EXPECT_TRUE(loopUntil([&alive] { return alive == nullptr; }));
}

}  // namespace
}  // namespace orvane::test
