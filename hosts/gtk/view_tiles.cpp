#include "gtk/view_tiles.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace orvane::gtk {
namespace {

/// A multiple of every usual scale. Smaller tiles follow a stroke more closely, and are more to go through.
constexpr int kTileSize = 128;

std::size_t rowBytes(IntRect area) { return std::size_t(area.width) * sizeof(Argb); }

// Surfaces may pad their rows.
unsigned char* rowOf(cairo_surface_t* surface, int y) {
    return cairo_image_surface_get_data(surface) +
           std::ptrdiff_t(y) * cairo_image_surface_get_stride(surface);
}

bool holds(cairo_surface_t* surface, PixelView picture, IntRect area) {
    for (int y = 0; y < area.height; ++y) {
        if (std::memcmp(rowOf(surface, y), picture.row(area.y + y) + area.x, rowBytes(area)) != 0)
            return false;
    }
    return true;
}

void copyInto(cairo_surface_t* surface, PixelView picture, IntRect area) {
    cairo_surface_flush(surface);  // who has recorded it keeps what it was
    for (int y = 0; y < area.height; ++y)
        std::memcpy(rowOf(surface, y), picture.row(area.y + y) + area.x, rowBytes(area));
    cairo_surface_mark_dirty(surface);
}

// Opaque pixels are the same with and without premultiplied alpha, and the renderers take premultiplied ones
// as they are. The texture borrows the surface's memory.
GskRenderNode* newTextureNode(cairo_surface_t* surface, IntRect area, const graphene_rect_t& place) {
    const auto stride = gsize(cairo_image_surface_get_stride(surface));
    const auto free = [](gpointer held) { cairo_surface_destroy(static_cast<cairo_surface_t*>(held)); };
    GBytes* bytes =
        g_bytes_new_with_free_func(cairo_image_surface_get_data(surface), stride * gsize(area.height), free,
                                   cairo_surface_reference(surface));
    GdkTexture* texture =
        gdk_memory_texture_new(area.width, area.height, GDK_MEMORY_B8G8R8A8_PREMULTIPLIED, bytes, stride);
    g_bytes_unref(bytes);
    GskRenderNode* node = gsk_texture_node_new(texture, &place);
    g_object_unref(texture);
    return node;
}

GskRenderNode* newSurfaceNode(cairo_surface_t* surface, const graphene_rect_t& place, int scale) {
    GskRenderNode* node = gsk_cairo_node_new(&place);
    cairo_t* cairo = gsk_cairo_node_get_draw_context(node);
    cairo_translate(cairo, double(place.origin.x), double(place.origin.y));
    cairo_scale(cairo, 1.0 / scale, 1.0 / scale);
    cairo_set_source_surface(cairo, surface, 0, 0);
    cairo_pattern_set_filter(cairo_get_source(cairo), CAIRO_FILTER_NEAREST);
    cairo_paint(cairo);
    cairo_destroy(cairo);
    return node;
}

}  // namespace

void ViewTiles::update(PixelView picture, int scale, Kind kind) noexcept try {
    const IntSize size{picture.width, picture.height};
    if (size != size_ || scale != scale_ || kind != kind_) {
        scale_ = scale;
        kind_ = kind;
        layOut(size);
    }
    for (Tile& tile : tiles_) {
        if (tile.node == nullptr || !holds(tile.pixels.get(), picture, tile.area)) renew(tile, picture);
    }
} catch (...) {
    // What has no tile shows the window's background until a picture finds memory again.
}

void ViewTiles::append(GtkSnapshot* snapshot) const noexcept {
    for (const Tile& tile : tiles_) {
        if (tile.node != nullptr) gtk_snapshot_append_node(snapshot, tile.node.get());
    }
}

void ViewTiles::layOut(IntSize size) {
    tiles_.clear();
    size_ = {};
    for (int y = 0; y < size.height; y += kTileSize) {
        for (int x = 0; x < size.width; x += kTileSize) {
            const int width = std::min(kTileSize, size.width - x),
                      height = std::min(kTileSize, size.height - y);
            tiles_.push_back({{x, y, width, height}, nullptr, nullptr, nullptr});
        }
    }
    size_ = size;
}

// The renderer holds the last node and its pixels until it has drawn the next, so that two surfaces take
// turns.
void ViewTiles::renew(Tile& tile, PixelView picture) const {
    const IntRect area = tile.area;
    const bool isFree = tile.before != nullptr && cairo_surface_get_reference_count(tile.before.get()) == 1;
    if (!isFree) tile.before.reset(cairo_image_surface_create(CAIRO_FORMAT_RGB24, area.width, area.height));
    cairo_surface_t* surface = tile.before.get();
    if (cairo_surface_status(surface) != CAIRO_STATUS_SUCCESS)
        return tile.before.reset();  // the last pixels stay
    std::swap(tile.pixels, tile.before);
    copyInto(surface, picture, area);
    const auto units = [this](int pixels) { return float(pixels) / float(scale_); };
    const graphene_rect_t place =
        GRAPHENE_RECT_INIT(units(area.x), units(area.y), units(area.width), units(area.height));
    tile.node.reset(kind_ == Kind::Textures ? newTextureNode(surface, area, place)
                                            : newSurfaceNode(surface, place, scale_));
}

}  // namespace orvane::gtk
