#pragma once

#include <cstddef>
#include <string_view>

namespace orvane {

/// A part of a text that is laid out at once: a line, or a stretch of a very long one.
struct TextPiece {
    std::size_t begin = 0, length = 0;
    bool endsLine = false, endsText = false;
    std::size_t next = 0;  ///< where the following piece begins, behind the line end if there is one
};

/// The piece that begins at `begin`, which may be the end of the text: an empty piece. A line
/// end at the end of the text has an empty piece behind it. Lines end at a line
/// feed, a carriage return, both, or one of Unicode's two separators. A line longer than kMaxPieceLength
/// characters is cut, behind a blank where it has one, so that no layout grows without bounds.
inline constexpr std::size_t kMaxPieceLength = 1024;
[[nodiscard]] TextPiece textPieceAt(std::u16string_view text, std::size_t begin) noexcept;

}  // namespace orvane
