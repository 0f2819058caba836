#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <pango/pango.h>

#include "platform/linux/text_block.h"
#include "platform/text.h"

namespace orvane {

struct UnrefObject {
    void operator()(void* object) const { g_object_unref(object); }
};
template <class T>
using OwnedObject = std::unique_ptr<T, UnrefObject>;

/// What shapes text on one thread: Pango's fonts and one layout that every text goes through, and the last
/// text's block. Created at a thread's first text and released at its end, because Pango's objects serve one
/// thread at a time and are dear to make.
///
/// GLib ends the process when its own small allocations fail, as no system makes them do; what grows with
/// the text beyond a piece is allocated here and throws std::bad_alloc.
class TextEngine {
 public:
    [[nodiscard]] static TextEngine& ofThisThread();

    TextEngine();

    /// The text laid out, valid until the next call. The same text and font as before cost nothing.
    [[nodiscard]] const TextBlock& block(const Font& font, std::u16string_view text);

    /// One piece of the last block's text, shaped; valid until the next call. Never null.
    [[nodiscard]] PangoLayoutLine* shaped(std::u16string_view piece);

    /// Rows of the lines under and through the last block's text, from the base line, downward.
    struct Stroke {
        int top = 0, height = 0;  ///< without height there is none
    };
    [[nodiscard]] Stroke underline() const { return underline_; }
    [[nodiscard]] Stroke strikeout() const { return strikeout_; }

 private:
    void chooseFont(const Font& font);

    OwnedObject<PangoFontMap> fonts_;
    OwnedObject<PangoContext> context_;
    OwnedObject<PangoLayout> layout_;
    Stroke underline_, strikeout_;

    // What the block was made of; no block has an empty text.
    std::u16string family_, text_;
    Font font_;
    TextBlock block_;
};

}  // namespace orvane
