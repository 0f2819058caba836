#pragma once

#include <memory>
#include <vector>

#include <gtk/gtk.h>

#include <orvane/geometry.h>
#include <orvane/pixels.h>

namespace orvane::gtk {

/// The picture that a widget shows, cut into squares. The toolkit draws only those again whose pixels have
/// changed: a stroke changes a few, and most of a frame's time goes into moving pixels to the screen.
class ViewTiles {
 public:
    /// For whom the tiles are made. All renderers draw both kinds; each is slow with the other's.
    enum class Kind {
        Textures,  ///< what a graphics processor keeps
        Surfaces,  ///< what the renderer without one paints as it is; a texture it would convert each time
    };

    /// Takes over a picture of opaque pixels. `scale`: pixels of the picture in one unit of the widget.
    /// Without memory the last picture stays.
    void update(PixelView picture, int scale, Kind kind) noexcept;
    void append(GtkSnapshot* snapshot) const noexcept;
    [[nodiscard]] bool isEmpty() const noexcept { return tiles_.empty(); }
    [[nodiscard]] int scale() const noexcept { return scale_; }

 private:
    struct FreeSurface {
        void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
    };
    using Surface = std::unique_ptr<cairo_surface_t, FreeSurface>;
    struct FreeNode {
        void operator()(GskRenderNode* node) const { gsk_render_node_unref(node); }
    };
    struct Tile {
        IntRect area;
        Surface pixels;
        Surface before;  ///< what the tile showed before these, to be written anew
        std::unique_ptr<GskRenderNode, FreeNode> node;
    };

    void layOut(IntSize size);
    void renew(Tile& tile, PixelView picture) const;

    std::vector<Tile> tiles_;
    IntSize size_;
    int scale_ = 1;
    Kind kind_ = Kind::Textures;
};

}  // namespace orvane::gtk
