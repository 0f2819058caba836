#pragma once

#include <optional>

#include <orvane/pixels.h>

#include "platform/graphics/pen.h"

namespace orvane {

/// The pen that all outlining tools share.
struct PenSettings {
    float width = 1.0f;         ///< pixels
    Argb colour = 0xFFFF0000u;  ///< PenColor, with PenTransparency in its alpha byte
    int dashStyle = 0;          ///< PenStyle: 0 solid, 1..4 dashes and dots; anything else is no pen

    /// What outlines are drawn with now, if anything.
    [[nodiscard]] std::optional<Pen> current() const noexcept;
};

}  // namespace orvane
