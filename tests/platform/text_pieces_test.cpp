#include "platform/text_pieces.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace orvane {
namespace {

/// The pieces of a text, with a bar behind those that end a line.
std::vector<std::u16string> piecesOf(std::u16string_view text) {
    std::vector<std::u16string> pieces;
    TextPiece piece;
    do {
        piece = textPieceAt(text, piece.next);
        pieces.emplace_back(text.substr(piece.begin, piece.length));
        if (piece.endsLine) pieces.back() += u'|';
    } while (!piece.endsText && pieces.size() < 10);
    return pieces;
}

using Pieces = std::vector<std::u16string>;

TEST(TextPieces, LinesEndAtEveryKindOfLineEnd) {
    const struct {
        const char16_t* text;
        Pieces pieces;
    } rows[] = {
        {u"", {u"|"}},
        {u"a", {u"a|"}},
        {u"a\nb", {u"a|", u"b|"}},
        {u"a\r\nb\r", {u"a|", u"b|", u"|"}},
        {u"\n\ra", {u"|", u"|", u"a|"}},
        {u"a\r\r\nb", {u"a|", u"|", u"b|"}},
        {u"a\u2028b\u2029", {u"a|", u"b|", u"|"}},
    };
    for (const auto& row : rows) EXPECT_EQ(piecesOf(row.text), row.pieces);
}

TEST(TextPieces, LongLinesAreCutBehindABlankAndNeverWithinACharacter) {
    constexpr std::size_t kMost = kMaxPieceLength;
    const auto letters = [](std::size_t count) { return std::u16string(count, u'x'); };
    const std::u16string pair = u"\U0001F4F7";
    const struct {
        const char* what;
        std::u16string text;
        Pieces pieces;
    } rows[] = {
        {"just fits", letters(kMost), {letters(kMost) + u"|"}},
        {"just fits a line", letters(kMost) + u"\nb", {letters(kMost) + u"|", u"b|"}},
        {"one too many", letters(kMost + 1), {letters(kMost), u"x|"}},
        {"blank in the second half",
         letters(700) + u" " + letters(500),
         {letters(700) + u" ", letters(500) + u"|"}},
        {"blank too early",
         letters(10) + u" " + letters(kMost),
         {letters(10) + u" " + letters(kMost - 11), letters(11) + u"|"}},
        {"pair across the cut", letters(kMost - 1) + pair, {letters(kMost - 1), pair + u"|"}},
    };
    for (const auto& row : rows) EXPECT_EQ(piecesOf(row.text), row.pieces) << row.what;
}

}  // namespace
}  // namespace orvane
