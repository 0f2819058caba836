#pragma once

#include "document/pixel_surface.h"
#include "platform/image_codecs.h"

namespace orvane {

/// Lets a decoder write straight into the surface that becomes the picture.
class SurfaceTarget final : public DecodeTarget {
 public:
    MutablePixelView allocate(int width, int height) override {
        surface = PixelSurface::create(width, height);
        return surface.overwrite();
    }
    PixelSurface surface;
};

}  // namespace orvane
