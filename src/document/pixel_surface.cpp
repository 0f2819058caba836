#include "document/pixel_surface.h"

#include <algorithm>
#include <cstring>
#include <new>

#include "platform/image_codecs.h"
#include "platform/pixel_memory.h"

namespace orvane {
namespace {

std::uint64_t nextContentId() noexcept {
    static std::atomic<std::uint64_t> last{0};
    return ++last;
}

bool allOpaque(const Argb* pixels, std::size_t count) noexcept {
    constexpr std::size_t kBlock = 4096;  // long enough to vectorise, short enough to stop early
    for (std::size_t start = 0; start < count; start += kBlock) {
        const std::size_t end = std::min(count, start + kBlock);
        Argb common = 0xFFFFFFFFu;
        for (std::size_t i = start; i < end; ++i) common &= pixels[i];
        if (alphaOf(common) != 255u) return false;
    }
    return true;
}

}  // namespace

struct PixelSurface::Buffer {
    enum class Opacity { Unknown, Opaque, Mixed };

    explicit Buffer(std::size_t pixelCount) noexcept
        : bytes(pixelCount * sizeof(Argb)), pixels(static_cast<Argb*>(allocatePixelMemory(bytes))) {}
    ~Buffer() { freePixelMemory(pixels, bytes); }
    Buffer(const Buffer&) = delete;
    Buffer& operator=(const Buffer&) = delete;

    void contentsChange() noexcept {
        contentId = nextContentId();
        opacity = Opacity::Unknown;
    }

    std::size_t bytes;
    Argb* pixels;
    std::uint64_t contentId = nextContentId();
    Opacity opacity = Opacity::Unknown;
};

PixelSurface PixelSurface::create(int width, int height) noexcept {
    PixelSurface surface;
    if (!isAllowedImageSize(width, height)) return surface;
    try {
        auto buffer = std::make_shared<Buffer>(std::size_t(width) * std::size_t(height));
        if (buffer->pixels == nullptr) return surface;
        surface.buffer_ = std::move(buffer);
        surface.width_ = width;
        surface.height_ = height;
    } catch (const std::bad_alloc&) {
        // The null surface says it.
    }
    return surface;
}

PixelView PixelSurface::read() const noexcept {
    if (isNull()) return {};
    return {buffer_->pixels, width_, height_, width_};
}

MutablePixelView PixelSurface::write() noexcept {
    if (isNull()) return {};
    if (buffer_.use_count() > 1) {
        PixelSurface detached = create(width_, height_);
        if (detached.isNull()) return {};
        std::memcpy(detached.buffer_->pixels, buffer_->pixels, buffer_->bytes);
        *this = std::move(detached);
    } else {
        buffer_->contentsChange();
    }
    return {buffer_->pixels, width_, height_, width_};
}

MutablePixelView PixelSurface::overwrite() noexcept {
    if (isNull()) return {};
    if (buffer_.use_count() > 1) {
        PixelSurface detached = create(width_, height_);
        if (detached.isNull()) return {};
        *this = std::move(detached);
    } else {
        buffer_->contentsChange();
    }
    return {buffer_->pixels, width_, height_, width_};
}

std::uint64_t PixelSurface::contentId() const noexcept { return isNull() ? 0 : buffer_->contentId; }

bool PixelSurface::isOpaque() const noexcept {
    if (isNull()) return false;
    if (buffer_->opacity == Buffer::Opacity::Unknown) {
        const bool opaque = allOpaque(buffer_->pixels, read().pixelCount());
        buffer_->opacity = opaque ? Buffer::Opacity::Opaque : Buffer::Opacity::Mixed;
    }
    return buffer_->opacity == Buffer::Opacity::Opaque;
}

void PixelSurface::markOpaque() noexcept {
    if (!isNull()) buffer_->opacity = Buffer::Opacity::Opaque;
}

void PixelSurface::takeOpacityFrom(const PixelSurface& other) noexcept {
    if (!isNull() && !other.isNull()) buffer_->opacity = other.buffer_->opacity;
}

}  // namespace orvane
