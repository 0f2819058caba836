#include "studio/renderer.h"

#include <string_view>

#include <glib.h>

namespace orvane::studio {
namespace {

bool hasRenderDevice() {
    GDir* folder = g_dir_open("/dev/dri", 0, nullptr);
    if (folder == nullptr) return false;
    bool found = false;
    while (const char* name = g_dir_read_name(folder)) found |= std::string_view(name).starts_with("renderD");
    g_dir_close(folder);
    return found;
}

// Some drivers have devices of their own, without the usual one beside them.
bool hasGraphicsProcessor() {
    return hasRenderDevice() || g_file_test("/dev/nvidiactl", G_FILE_TEST_EXISTS) ||
           g_file_test("/dev/dxg", G_FILE_TEST_EXISTS);
}

}  // namespace

void chooseRenderer() {
    constexpr gboolean kKeepChosen = FALSE;
    if (!hasGraphicsProcessor()) g_setenv("GSK_RENDERER", "cairo", kKeepChosen);
}

}  // namespace orvane::studio
