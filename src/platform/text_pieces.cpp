#include "platform/text_pieces.h"

namespace orvane {
namespace {

constexpr std::u16string_view kLineEnds = u"\n\r\u2028\u2029";

/// Where to cut a stretch of kMaxPieceLength characters that the line goes on behind.
std::size_t cutLength(std::u16string_view stretch) {
    const std::size_t blank = stretch.rfind(u' ');
    if (blank != std::u16string_view::npos && blank >= kMaxPieceLength / 2) return blank + 1;
    const bool splitsPair = (stretch.back() & 0xFC00) == 0xD800;
    return stretch.size() - (splitsPair ? 1 : 0);
}

}  // namespace

TextPiece textPieceAt(std::u16string_view text, std::size_t begin) noexcept {
    // One more than a piece: a line end right behind it.
    const std::u16string_view ahead = text.substr(begin, kMaxPieceLength + 1);
    const std::size_t end = ahead.find_first_of(kLineEnds);
    if (end == std::u16string_view::npos) {
        const bool isLast = ahead.size() <= kMaxPieceLength;
        const std::size_t length = isLast ? ahead.size() : cutLength(ahead.substr(0, kMaxPieceLength));
        return {begin, length, isLast, isLast, begin + length};
    }
    const std::u16string_view rest = text.substr(begin + end, 2);
    return {begin, end, true, false, begin + end + (rest == u"\r\n" ? 2 : 1)};
}

}  // namespace orvane
