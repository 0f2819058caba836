#pragma once

#include <string>
#include <string_view>

#include "tools/text_box_tool.h"
#include "tools/text_settings.h"

namespace orvane {

/// Mode 14: a text that is given, dragged into place and committed, in the font and with the brush that are
/// set at that moment. The font's size is in pixels of the window while the text is pending and of the image
/// when it is committed; the two look alike at zoom 1 only.
///
/// The box is the text's origin and, since the last `Draw`, its size.
class TextTool final : public TextBoxTool {
 public:
    TextTool(const PenSettings& sharedPen, BrushSettings& sharedBrush,
             const TextSettings& sharedFont) noexcept
        : TextBoxTool(sharedPen, sharedBrush), font(sharedFont) {}

    /// Whether a text was placed since the last Reset, even one without letters.
    [[nodiscard]] bool isPlaced() const noexcept { return box != IntRect{}; }
    /// Gives the placed text other words. False, and nothing has changed, when memory ran out.
    [[nodiscard]] bool setText(std::u16string_view newText) noexcept;
    /// Takes over a text and puts its origin one pixel right of and below `corner`, the image's top-left
    /// corner in the window. Answers false, and changes nothing, when memory ran out.
    [[nodiscard]] bool place(std::u16string_view newText, IntPoint corner) noexcept;

    void Reset() noexcept override;
    /// Nothing without a text or without the font's family; without a brush, the frame only.
    void Draw(MutablePixelView view) noexcept override;
    /// Nothing without a text. Without the font's family or a brush, a step that changes no pixel.
    void commit(ImageDocument& document, PointMap toImage) noexcept override;

    const TextSettings& font;
    std::u16string text;

 protected:
    [[nodiscard]] bool holdsContent() const noexcept override { return !text.empty(); }

 private:
    void measure(const Font& as) noexcept;
    void drawAt(MutablePixelView target, const Font& as, IntPoint origin) noexcept;
};

}  // namespace orvane
