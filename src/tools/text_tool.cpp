#include "tools/text_tool.h"

#include <utility>

#include "base/truncate.h"
#include "tools/bounded_point.h"
#include "tools/image_commit.h"

namespace orvane {

bool TextTool::setText(std::u16string_view newText) noexcept try {
    text = std::u16string(newText);
    return true;
} catch (...) {
    return false;
}

bool TextTool::place(std::u16string_view newText, IntPoint corner) noexcept {
    if (!setText(newText)) return false;
    const IntPoint origin = bounded(corner);
    box.x = origin.x + 1;
    box.y = origin.y + 1;
    return true;
}

void TextTool::Reset() noexcept {
    TextBoxTool::Reset();
    text = {};
}

void TextTool::Draw(MutablePixelView view) noexcept {
    const std::optional<Font> current = font.current();
    if (!current || text.empty()) return;
    measure(*current);
    drawFrame(view);
    drawAt(view, *current, {box.x, box.y});
}

void TextTool::commit(ImageDocument& document, PointMap toImage) noexcept {
    if (text.empty()) return;
    const auto draw = [&](MutablePixelView image) {
        const std::optional<Font> current = font.current();
        if (!current) return;
        measure(*current);
        drawAt(image, *current, bounded(toImage({box.x, box.y})));
    };
    if (drawIntoImage(document, draw)) Reset();
}

void TextTool::measure(const Font& as) noexcept {
    const TextExtent extent = measureText(as, text);
    const IntPoint size = bounded({truncateToInt(extent.width), truncateToInt(extent.height)});
    box.width = size.x;
    box.height = size.y;
}

/// A gradient runs across the box, with a pixel to spare on each side.
void TextTool::drawAt(MutablePixelView target, const Font& as, IntPoint origin) noexcept {
    if (brush.isGradient()) {
        brush.setGradientRectangle({origin.x - 1, origin.y - 1, box.width + 2, box.height + 2});
    }
    if (const std::optional<Brush> fill = brush.current()) drawText(target, as, text, *fill, origin);
}

}  // namespace orvane
