#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

#include <pango/pangocairo.h>

#include "platform/linux/text_engine.h"
#include "platform/text_back_end.h"

namespace orvane::text_back_end {
namespace {

struct DestroyCairo {
    void operator()(cairo_t* p) const { cairo_destroy(p); }
    void operator()(cairo_surface_t* p) const { cairo_surface_destroy(p); }
};

/// The sides of cairo's surfaces have 15 bits, and its rows begin at multiples of four bytes.
constexpr int kTileSide = 16384;
constexpr int kRowAlignment = 4;

/// The text's place on the raster. Base lines are whole rows from `top`.
struct Placed {
    TextEngine& engine;
    const TextBlock& block;
    std::u16string_view text;
    double left = 0, top = 0;
};

/// The pixels of an area that bounds touch, with one more all around for what hinting moves.
IntRect touched(const TextBounds& bounds, double left, double top, IntRect area) {
    const auto edge = [](double position, int low, int high) {
        return int(std::clamp(position, double(low), double(high)));
    };
    const int x0 = edge(std::floor(left + bounds.left) - 1, area.x, area.right());
    const int x1 = edge(std::ceil(left + bounds.right) + 1, area.x, area.right());
    const int y0 = edge(std::floor(top + bounds.top) - 1, area.y, area.bottom());
    const int y1 = edge(std::ceil(top + bounds.bottom) + 1, area.y, area.bottom());
    return {x0, y0, x1 - x0, y1 - y0};
}

IntRect united(IntRect a, IntRect b) {
    if (a.isEmpty()) return b;
    if (b.isEmpty()) return a;
    const int x = std::min(a.x, b.x), y = std::min(a.y, b.y);
    return {x, y, std::max(a.right(), b.right()) - x, std::max(a.bottom(), b.bottom()) - y};
}

IntRect visibleArea(const Placed& placed, IntRect raster) {
    IntRect area;
    for (const TextBlock::Piece& piece : placed.block.pieces) {
        area = united(area, touched(piece.ink, placed.left, placed.top, raster));
    }
    return area;
}

// Glyphs are filled as outlines: cairo's own glyphs stand on whole pixels only, which makes their distances
// uneven. Each run is filled by itself, because fonts wind their outlines in different directions and would
// cut holes into each other.
void fillGlyphs(cairo_t* cairo, PangoLayoutLine* line, double x, double baseline) {
    int advance = 0;
    for (const GSList* link = line->runs; link != nullptr; link = link->next) {
        const auto* run = static_cast<const PangoLayoutRun*>(link->data);
        cairo_move_to(cairo, x + double(advance) / PANGO_SCALE, baseline);
        pango_cairo_glyph_string_path(cairo, run->item->analysis.font, run->glyphs);
        cairo_fill(cairo);
        advance += pango_glyph_string_get_width(run->glyphs);
    }
}

/// A line under or through a piece: whole pixels, so that it is crisp and the next piece's goes on
/// seamlessly.
void fillStroke(cairo_t* cairo, TextEngine::Stroke stroke, double x, double width, double baseline) {
    if (stroke.height == 0) return;
    const double left = std::round(x), right = std::round(x + width);
    cairo_rectangle(cairo, left, baseline + stroke.top, right - left, stroke.height);
    cairo_fill(cairo);
}

void fillPieces(cairo_t* cairo, const Placed& placed, IntRect tile) {
    for (const TextBlock::Piece& piece : placed.block.pieces) {
        if (touched(piece.ink, placed.left, placed.top, tile).isEmpty()) continue;
        const double x = placed.left + piece.x - tile.x;
        const double baseline = placed.top + double(piece.baseline) - tile.y;
        fillGlyphs(cairo, placed.engine.shaped(placed.text.substr(piece.begin, piece.length)), x, baseline);
        fillStroke(cairo, placed.engine.underline(), x, piece.width, baseline);
        fillStroke(cairo, placed.engine.strikeout(), x, piece.width, baseline);
    }
}

void fillTile(Coverage& mask, const Placed& placed, IntRect tile) {
    std::uint8_t* const first = mask.bytes.data() + std::size_t(tile.y - mask.area.y) * mask.strideBytes +
                                std::size_t(tile.x - mask.area.x);
    const std::unique_ptr<cairo_surface_t, DestroyCairo> surface(cairo_image_surface_create_for_data(
        first, CAIRO_FORMAT_A8, tile.width, tile.height, int(mask.strideBytes)));
    const std::unique_ptr<cairo_t, DestroyCairo> cairo(cairo_create(surface.get()));
    fillPieces(cairo.get(), placed, tile);
    cairo_surface_flush(surface.get());
    if (cairo_status(cairo.get()) != CAIRO_STATUS_SUCCESS) throw std::bad_alloc();
}

}  // namespace

TextExtent measure(const Font& font, std::u16string_view text) {
    const TextBlock& block = TextEngine::ofThisThread().block(font, text);
    return {block.width, double(block.height)};
}

Coverage coverage(const Font& font, std::u16string_view text, double x, double y, IntSize raster) {
    TextEngine& engine = TextEngine::ofThisThread();
    const Placed placed{engine, engine.block(font, text), text, x, std::round(y)};
    Coverage mask;
    mask.area = visibleArea(placed, {0, 0, raster.width, raster.height});
    if (mask.area.isEmpty()) return {};
    mask.strideBytes = (std::size_t(mask.area.width) + kRowAlignment - 1) / kRowAlignment * kRowAlignment;
    mask.bytes.resize(mask.strideBytes * std::size_t(mask.area.height));
    const IntRect area = mask.area;
    for (int top = area.y; top < area.bottom(); top += kTileSide) {
        for (int left = area.x; left < area.right(); left += kTileSide) {
            fillTile(mask, placed,
                     {left, top, std::min(kTileSide, area.right() - left),
                      std::min(kTileSide, area.bottom() - top)});
        }
    }
    return mask;
}

}  // namespace orvane::text_back_end
