#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace orvane {

class TextEngine;

/// Edges in pixels.
struct TextBounds {
    double left = 0, top = 0, right = 0, bottom = 0;

    [[nodiscard]] bool isEmpty() const { return left >= right || top >= bottom; }
};

/// Where the pieces of a text stand, from the top-left corner of the box that it takes.
struct TextBlock {
    struct Piece {
        std::size_t begin = 0, length = 0;
        double x = 0, width = 0;
        std::int64_t baseline = 0;  ///< a whole row
        TextBounds ink;             ///< what the glyphs and the lines under and through them cover
    };

    double width = 0;
    std::int64_t height = 0;
    std::vector<Piece> pieces;  ///< those that show anything, line by line
};

/// Lays the text out in the font that the engine has chosen.
[[nodiscard]] TextBlock makeTextBlock(TextEngine& engine, std::u16string_view text);

}  // namespace orvane
