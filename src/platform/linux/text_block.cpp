#include "platform/linux/text_block.h"

#include <algorithm>
#include <cmath>

#include "platform/linux/text_engine.h"
#include "platform/text_pieces.h"

namespace orvane {
namespace {

double pixels(int pangoUnits) { return double(pangoUnits) / PANGO_SCALE; }

/// Rows above and below the base line. Whole ones, so that every line falls on the pixels in the same way.
struct LineHeight {
    std::int64_t ascent = 0, descent = 0;

    void include(const LineHeight& other) {
        ascent = std::max(ascent, other.ascent);
        descent = std::max(descent, other.descent);
    }
};

struct ShapedSize {
    double width = 0;
    LineHeight height;
    TextBounds ink;  ///< from the start of the base line
};

void includeStroke(TextBounds& ink, TextEngine::Stroke stroke, double width) {
    if (stroke.height == 0 || width <= 0) return;
    const TextBounds line{0, double(stroke.top), width, double(stroke.top + stroke.height)};
    ink = ink.isEmpty() ? line
                        : TextBounds{std::min(ink.left, line.left), std::min(ink.top, line.top),
                                     std::max(ink.right, line.right), std::max(ink.bottom, line.bottom)};
}

ShapedSize sizeOf(TextEngine& engine, std::u16string_view piece) {
    PangoRectangle ink, logical;
    pango_layout_line_get_extents(engine.shaped(piece), &ink, &logical);
    ShapedSize size;
    size.width = pixels(logical.width);
    size.height.ascent = std::lround(-pixels(logical.y));
    size.height.descent = std::int64_t(std::ceil(pixels(logical.y) + pixels(logical.height)));
    if (ink.width > 0 && ink.height > 0) {
        size.ink = {pixels(ink.x), pixels(ink.y), pixels(ink.x) + pixels(ink.width),
                    pixels(ink.y) + pixels(ink.height)};
    }
    includeStroke(size.ink, engine.underline(), size.width);
    includeStroke(size.ink, engine.strikeout(), size.width);
    return size;
}

/// Builds a block piece by piece. Pieces of the line in progress stand on row 0 until its height is known.
class BlockBuilder {
 public:
    explicit BlockBuilder(TextEngine& engine) : engine_(engine), fontHeight_(sizeOf(engine, {}).height) {}

    void add(std::u16string_view text, const TextPiece& piece) {
        if (piece.length > 0) {
            const ShapedSize size = sizeOf(engine_, text.substr(piece.begin, piece.length));
            lineHeight_.include(size.height);
            if (!size.ink.isEmpty()) {
                block_.pieces.push_back({piece.begin, piece.length, x_, size.width, 0, size.ink});
            }
            x_ += size.width;
        }
        if (piece.endsLine) endLine();
    }

    [[nodiscard]] TextBlock take() { return std::move(block_); }

 private:
    // A line is never lower than the font's own, whatever other families stepped in.
    void endLine() {
        lineHeight_.include(fontHeight_);
        const std::int64_t baseline = block_.height + lineHeight_.ascent;
        for (; firstOfLine_ < block_.pieces.size(); ++firstOfLine_) {
            TextBlock::Piece& piece = block_.pieces[firstOfLine_];
            piece.baseline = baseline;
            piece.ink.left += piece.x;
            piece.ink.right += piece.x;
            piece.ink.top += double(baseline);
            piece.ink.bottom += double(baseline);
        }
        block_.width = std::max(block_.width, x_);
        block_.height = baseline + lineHeight_.descent;
        lineHeight_ = {};
        x_ = 0;
    }

    TextEngine& engine_;
    LineHeight fontHeight_, lineHeight_;
    TextBlock block_;
    std::size_t firstOfLine_ = 0;
    double x_ = 0;
};

}  // namespace

TextBlock makeTextBlock(TextEngine& engine, std::u16string_view text) {
    BlockBuilder builder(engine);
    TextPiece piece;
    do {
        piece = textPieceAt(text, piece.next);
        builder.add(text, piece);
    } while (!piece.endsText);
    return builder.take();
}

}  // namespace orvane
