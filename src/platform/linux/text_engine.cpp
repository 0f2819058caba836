#include "platform/linux/text_engine.h"

#include <algorithm>
#include <cmath>
#include <new>

#include <pango/pangocairo.h>
#include <pango/pangofc-fontmap.h>

#include "base/unicode.h"

namespace orvane {
namespace {

struct FreeDescription {
    void operator()(PangoFontDescription* p) const { pango_font_description_free(p); }
};
struct UnrefMetrics {
    void operator()(PangoFontMetrics* p) const { pango_font_metrics_unref(p); }
};
struct DestroyOptions {
    void operator()(cairo_font_options_t* p) const { cairo_font_options_destroy(p); }
};

template <class T>
T* existing(T* object) {
    if (object == nullptr) throw std::bad_alloc();
    return object;
}

// Text belongs to the picture, not to the screen that it was written on: the desktop's resolution, hinting
// and subpixel order must not show in it. Widths stay proportional to the font's size, and letters stand
// between pixels where they belong. Hinting is slight, that is in height only: base lines and the tops of
// small letters fall on pixel rows, without which text below some 16 pixels looks soft.
void fixRendering(FcPattern* wanted, gpointer) {
    for (const char* property : {FC_ANTIALIAS, FC_HINTING, FC_HINT_STYLE, FC_AUTOHINT, FC_RGBA, FC_DPI}) {
        FcPatternDel(wanted, property);
    }
    FcPatternAddBool(wanted, FC_ANTIALIAS, FcTrue);
    FcPatternAddBool(wanted, FC_HINTING, FcTrue);
    FcPatternAddInteger(wanted, FC_HINT_STYLE, FC_HINT_SLIGHT);
    FcPatternAddBool(wanted, FC_AUTOHINT, FcFalse);
    FcPatternAddInteger(wanted, FC_RGBA, FC_RGBA_NONE);
}

void fixRendering(PangoContext* context) {
    const std::unique_ptr<cairo_font_options_t, DestroyOptions> options(cairo_font_options_create());
    cairo_font_options_set_antialias(options.get(), CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options.get(), CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options.get(), CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(context, options.get());
    pango_context_set_round_glyph_positions(context, FALSE);
}

std::unique_ptr<PangoFontDescription, FreeDescription> descriptionOf(const Font& font) {
    std::unique_ptr<PangoFontDescription, FreeDescription> description(pango_font_description_new());
    pango_font_description_set_family(description.get(), shownUtf8FromUtf16(font.family).c_str());
    pango_font_description_set_absolute_size(description.get(), double(font.emPixels) * PANGO_SCALE);
    pango_font_description_set_weight(description.get(), font.bold ? PANGO_WEIGHT_BOLD : PANGO_WEIGHT_NORMAL);
    pango_font_description_set_style(description.get(),
                                     font.italic ? PANGO_STYLE_ITALIC : PANGO_STYLE_NORMAL);
    return description;
}

/// Pango measures upward from the base line to the stroke's top edge.
TextEngine::Stroke strokeOf(int position, int thickness) {
    const auto rows = [](int units) { return int(std::lround(double(units) / PANGO_SCALE)); };
    return {rows(-position), std::max(1, rows(thickness))};
}

bool isSame(const Font& a, const Font& b) {
    return a.emPixels == b.emPixels && a.bold == b.bold && a.italic == b.italic &&
           a.underline == b.underline && a.strikeout == b.strikeout;
}

}  // namespace

TextEngine& TextEngine::ofThisThread() {
    static thread_local TextEngine engine;
    return engine;
}

TextEngine::TextEngine() {
    fonts_.reset(existing(pango_cairo_font_map_new_for_font_type(CAIRO_FONT_TYPE_FT)));
    pango_fc_font_map_set_default_substitute(PANGO_FC_FONT_MAP(fonts_.get()), fixRendering, nullptr, nullptr);
    context_.reset(existing(pango_font_map_create_context(fonts_.get())));
    fixRendering(context_.get());
    layout_.reset(existing(pango_layout_new(context_.get())));
}

void TextEngine::chooseFont(const Font& font) {
    const auto description = descriptionOf(font);
    pango_layout_set_font_description(layout_.get(), description.get());
    underline_ = strikeout_ = {};
    if (!font.underline && !font.strikeout) return;
    const OwnedObject<PangoFont> loaded(
        existing(pango_font_map_load_font(fonts_.get(), context_.get(), description.get())));
    const std::unique_ptr<PangoFontMetrics, UnrefMetrics> metrics(
        existing(pango_font_get_metrics(loaded.get(), nullptr)));
    if (font.underline) {
        underline_ = strokeOf(pango_font_metrics_get_underline_position(metrics.get()),
                              pango_font_metrics_get_underline_thickness(metrics.get()));
    }
    if (font.strikeout) {
        strikeout_ = strokeOf(pango_font_metrics_get_strikethrough_position(metrics.get()),
                              pango_font_metrics_get_strikethrough_thickness(metrics.get()));
    }
}

const TextBlock& TextEngine::block(const Font& font, std::u16string_view text) {
    if (text_ == text && family_ == font.family && isSame(font_, font)) return block_;
    text_.clear();  // should memory run out below, there is no block
    family_ = font.family;
    font_ = font;
    font_.family = {};
    chooseFont(font);
    block_ = {};
    block_ = makeTextBlock(*this, text);
    text_ = text;
    return block_;
}

PangoLayoutLine* TextEngine::shaped(std::u16string_view piece) {
    const std::string utf8 = shownUtf8FromUtf16(piece);
    pango_layout_set_text(layout_.get(), utf8.data(), int(utf8.size()));
    return existing(pango_layout_get_line_readonly(layout_.get(), 0));
}

}  // namespace orvane
