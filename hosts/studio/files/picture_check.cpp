#include "studio/files/picture_check.h"

#include <utility>

#include "studio/files/open_picture.h"
#include "studio/window.h"

namespace orvane::studio {

void checkPicture(StudioWindow& window, const std::string& path, std::function<void()> isPicture) {
    if (!g_utf8_validate(path.c_str(), -1, nullptr)) return tellNotOpened(window, path);
    const std::function<void(GVariant*)> read = [&window, path,
                                                 isPicture = std::move(isPicture)](GVariant* result) {
        if (result == nullptr || !g_variant_get_boolean(result)) return tellNotOpened(window, path);
        isPicture();
    };
    window.picture().runAside("load-image", g_variant_new("(s)", path.c_str()), "Opening",
                              window.whileOpen(read));
}

}  // namespace orvane::studio
