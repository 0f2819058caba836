// How long a program takes from its start until the screen shows its picture of 24 megapixels: the widget
// alone in a window, the Studio, and the toolkit with a picture widget of its own.
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtk/gtk.h>

#include "gtk/orvane-gtk.h"
#include "gtk/screen_pixels.h"
#include "support/photograph.h"
#include "support/ratio_timer.h"

namespace {

using namespace orvane;
using namespace orvane::bench;
namespace fs = std::filesystem;

constexpr IntSize kPicture{6000, 4000}, kWindow{1280, 900};
constexpr int kRuns = 5;
constexpr double kLimitMs = 1000.0;

// --- the programs ---

/// Runs until it is ended from outside.
int show(GtkWidget* picture) {
    GtkWidget* window = gtk_window_new();
    gtk_window_set_default_size(GTK_WINDOW(window), kWindow.width, kWindow.height);
    gtk_window_set_child(GTK_WINDOW(window), picture);
    gtk_window_present(GTK_WINDOW(window));
    while (true) g_main_context_iteration(nullptr, TRUE);
}

int showWithWidget(const char* file) {
    gtk_init();
    GtkWidget* picture = orvane_vistrel_new();
    if (!orvane_vistrel_load_image(ORVANE_VISTREL(picture), file)) return 1;
    return show(picture);
}

int showWithToolkit(const char* file) {
    gtk_init();
    return show(gtk_picture_new_for_filename(file));
}

// --- the picture ---

/// A colour in the middle of the picture that no desktop and no window has.
constexpr unsigned kRed = 0xE0, kGreen = 0x70, kBlue = 0x20;

std::vector<Argb> pictureWithMark() {
    std::vector<Argb> pixels = photograph(kPicture.width, kPicture.height);
    for (int y = kPicture.height * 3 / 10; y < kPicture.height * 7 / 10; ++y) {
        for (int x = kPicture.width * 3 / 10; x < kPicture.width * 7 / 10; ++x)
            pixels[std::size_t(y) * kPicture.width + std::size_t(x)] = makeOpaque(kRed, kGreen, kBlue);
    }
    return pixels;
}

bool savePictures(const fs::path& jpeg, const fs::path& png) {
    const std::vector<Argb> pixels = pictureWithMark();
    auto* control = ORVANE_VISTREL(g_object_ref_sink(orvane_vistrel_new()));
    const bool saved =
        orvane_vistrel_load_from_image_array(control, reinterpret_cast<const guint8*>(pixels.data()),
                                             pixels.size() * sizeof(Argb), kPicture.width, kPicture.height) &&
        orvane_vistrel_save_image(control, jpeg.c_str(), 1) &&
        orvane_vistrel_save_image(control, png.c_str(), 4);
    g_object_unref(control);
    return saved;
}

// JPEG changes colours a little.
bool isMark(std::uint32_t pixel) {
    constexpr int kTolerance = 12;
    const auto near = [](unsigned value, unsigned wanted) {
        return std::abs(int(value) - int(wanted)) <= kTolerance;
    };
    return near(pixel >> 16 & 255, kRed) && near(pixel >> 8 & 255, kGreen) && near(pixel & 255, kBlue);
}

// --- the clock ---

/// Whether the middle of the screen shows the picture, or no longer does, within some seconds.
bool waitForMark(bool shown) {
    const gint64 end = g_get_monotonic_time() + 20 * G_USEC_PER_SEC;
    while (g_get_monotonic_time() < end) {
        const auto pixels =
            screenPixels(gdk_display_get_default(), {kWindow.width / 2, kWindow.height / 2, 1, 1});
        if (!pixels.empty() && isMark(pixels.front()) == shown) return true;
        g_usleep(1000);
    }
    return false;
}

/// Milliseconds; negative when the picture never came.
double startOf(const std::vector<std::string>& command) {
    std::vector<char*> words;
    for (const std::string& word : command) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    GPid process = 0;
    const gint64 start = g_get_monotonic_time();
    if (!g_spawn_async(nullptr, words.data(), nullptr, G_SPAWN_DEFAULT, nullptr, nullptr, &process, nullptr))
        return -1;
    const bool shown = waitForMark(true);
    const double ms = double(g_get_monotonic_time() - start) / 1000;
    kill(process, SIGKILL);
    return shown && waitForMark(false) ? ms : -1;
}

struct Program {
    const char* name;
    std::vector<std::string> command;
    std::vector<double> times{};
};

/// The programs take turns.
bool measure(const char* kind, const fs::path& file, std::vector<Program> programs) {
    for (int run = 0; run < kRuns; ++run) {
        for (Program& program : programs) {
            std::vector<std::string> command = program.command;
            command.push_back(file);
            program.times.push_back(startOf(command));
            if (program.times.back() < 0) {
                std::printf("%s, %s: no picture\n", program.name, kind);
                return false;
            }
        }
    }
    const double toolkit = medianOf(programs.back().times);
    for (Program& program : programs) {
        const double median = medianOf(program.times);
        std::printf("%-5s %-8s | %7.0f ms | ratio %5.2f | %s\n", kind, program.name, median, median / toolkit,
                    median <= kLimitMs ? "within the limit" : "OVER THE LIMIT");
        std::fflush(stdout);
    }
    return true;
}

int runBench(const std::string& self) {
    gtk_init();
    if (!isOnXServer(gdk_display_get_default())) {
        std::puts("The picture is looked for on an X server: run this under tests/support/with_display.");
        return 1;
    }
    char* folder = g_dir_make_tmp("orvane-start-XXXXXX", nullptr);
    const fs::path jpeg = fs::path(folder) / "picture.jpg", png = fs::path(folder) / "picture.png";
    g_free(folder);
    const std::vector<Program> programs = {{"widget", {self, "--widget"}},
                                           {"Studio", {ORVANE_STUDIO_PROGRAM}},
                                           {"toolkit", {self, "--toolkit"}}};
    std::printf("%d x %d pixels, from the start of the program to the picture on the screen\n",
                kPicture.width, kPicture.height);
    const bool measured =
        savePictures(jpeg, png) && measure("JPEG", jpeg, programs) && measure("PNG", png, programs);
    fs::remove_all(jpeg.parent_path());
    return measured ? 0 : 1;
}

}  // namespace

int main(int count, char** arguments) {
    const std::string part = count > 2 ? arguments[1] : "";
    if (part == "--widget") return showWithWidget(arguments[2]);
    if (part == "--toolkit") return showWithToolkit(arguments[2]);
    return runBench(fs::canonical("/proc/self/exe"));
}
