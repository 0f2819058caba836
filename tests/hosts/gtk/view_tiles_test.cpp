#include "gtk/view_tiles.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "support/pictures.h"

namespace orvane::test {
namespace {

using gtk::ViewTiles;

struct FreeNode {
    void operator()(GskRenderNode* node) const { gsk_render_node_unref(node); }
};
using Node = std::unique_ptr<GskRenderNode, FreeNode>;

struct Picture {
    int width, height;
    std::vector<Argb> pixels = randomPicture(std::size_t(width) * std::size_t(height), 5u);

    Picture(int w, int h) : width(w), height(h) {
        for (Argb& pixel : pixels) pixel |= 0xFF000000u;
    }
    [[nodiscard]] PixelView view() const { return {pixels.data(), width, height, width}; }
};

Node nodeOf(const ViewTiles& tiles) {
    GtkSnapshot* snapshot = gtk_snapshot_new();
    tiles.append(snapshot);
    return Node(gtk_snapshot_free_to_node(snapshot));
}

/// What a screen with this many pixels in a unit shows.
std::vector<Argb> drawn(GskRenderNode* node, const Picture& picture, int scale) {
    std::vector<Argb> pixels(picture.pixels.size());
    cairo_surface_t* surface = cairo_image_surface_create_for_data(
        reinterpret_cast<unsigned char*>(pixels.data()), CAIRO_FORMAT_ARGB32, picture.width, picture.height,
        4 * picture.width);
    cairo_t* cairo = cairo_create(surface);
    cairo_scale(cairo, scale, scale);
    gsk_render_node_draw(node, cairo);
    cairo_destroy(cairo);
    cairo_surface_destroy(surface);
    return pixels;
}

constexpr ViewTiles::Kind kKinds[] = {ViewTiles::Kind::Textures, ViewTiles::Kind::Surfaces};

}  // namespace

TEST(ViewTiles, ShowThePictureAsItIs) {
    constexpr IntSize kSizes[] = {{1, 1}, {127, 129}, {128, 128}, {300, 201}};
    for (const ViewTiles::Kind kind : kKinds) {
        for (const int scale : {1, 2}) {
            ViewTiles tiles;
            for (const IntSize size : kSizes) {
                const Picture picture(size.width, size.height);
                tiles.update(picture.view(), scale, kind);
                EXPECT_EQ(drawn(nodeOf(tiles).get(), picture, scale), picture.pixels)
                    << size.width << " x " << size.height << ", scale " << scale << ", kind " << int(kind);
            }
        }
    }
}

TEST(ViewTiles, AreKeptWhereNothingHasChanged) {
    for (const ViewTiles::Kind kind : kKinds) {
        Picture picture(300, 200);
        ViewTiles tiles;
        tiles.update(picture.view(), 1, kind);
        const Node before = nodeOf(tiles);
        picture.pixels[199 * 300 + 128] ^= 1;  // the second column's last row
        tiles.update(picture.view(), 1, kind);
        const Node after = nodeOf(tiles);
        ASSERT_EQ(gsk_container_node_get_n_children(after.get()), 6u);
        for (guint i = 0; i < 6; ++i) {
            const bool isKept =
                gsk_container_node_get_child(before.get(), i) == gsk_container_node_get_child(after.get(), i);
            EXPECT_EQ(isKept, i != 4) << "tile " << i;
        }
        EXPECT_EQ(drawn(after.get(), picture, 1), picture.pixels);
    }
}

// A screen with other pixels, or a window with another renderer.
TEST(ViewTiles, AreMadeAnewForAnotherScaleOrRenderer) {
    const Picture picture(130, 10);
    ViewTiles tiles;
    tiles.update(picture.view(), 1, ViewTiles::Kind::Textures);
    EXPECT_EQ(gsk_render_node_get_node_type(gsk_container_node_get_child(nodeOf(tiles).get(), 1)),
              GSK_TEXTURE_NODE);
    tiles.update(picture.view(), 2, ViewTiles::Kind::Textures);
    graphene_rect_t bounds;
    gsk_render_node_get_bounds(nodeOf(tiles).get(), &bounds);
    EXPECT_EQ(bounds.size.width, 65);
    tiles.update(picture.view(), 2, ViewTiles::Kind::Surfaces);
    EXPECT_EQ(gsk_render_node_get_node_type(gsk_container_node_get_child(nodeOf(tiles).get(), 1)),
              GSK_CAIRO_NODE);
}

}  // namespace orvane::test
