#include <cstdio>
#include <filesystem>

#include <orvane/headless_window.h>
#include <orvane/vistrel.h>

// Opens a picture, warms its colours, and saves the result and what the control's window shows of it.
//
// The window here is one in memory; a program with a window of its own implements orvane::WindowServices and
// passes on its window's messages in the same way.
int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s PICTURE RESULT.png\n", argv[0]);
        return 2;
    }
    // Strings are UTF-16 at the interface, in every host and on every system.
    const std::u16string picture = std::filesystem::path(argv[1]).u16string();
    const std::u16string result = std::filesystem::path(argv[2]).u16string();

    orvane::HeadlessWindow window(640, 480);
    orvane::Vistrel control(window);
    control.onSize(640, 480);

    // No member throws. What a member could not do shows in its result, or in the control's unchanged state.
    if (!control.LoadImage(picture)) {
        std::fprintf(stderr, "%s is not a picture\n", argv[1]);
        return 1;
    }
    std::printf("%d x %d pixels\n", control.get_ImageWidth(), control.get_ImageHeight());

    control.Autocolor();
    control.Temperature(12);
    control.Blur(3);
    control.Undo();  // every change can be taken back, up to seven
    control.ZoomToFit();

    constexpr int kPng = 4;
    if (!control.SaveImage(result, kPng)) {
        std::fprintf(stderr, "cannot write %s\n", argv[2]);
        return 1;
    }
    std::printf("shown at %.0f %%, redrawn %ld times\n", control.get_Zoom() * 100, window.presents());
    return 0;
}
