#include <algorithm>
#include <memory>
#include <new>
#include <optional>
#include <span>
#include <string>

#include <fontconfig/fontconfig.h>
#include <glib.h>

#include "base/unicode.h"
#include "platform/text_back_end.h"

namespace orvane::text_back_end {
namespace {

struct Destroy {
    void operator()(FcPattern* p) const { FcPatternDestroy(p); }
    void operator()(FcObjectSet* p) const { FcObjectSetDestroy(p); }
    void operator()(FcFontSet* p) const { FcFontSetDestroy(p); }
};
template <class T>
using Owned = std::unique_ptr<T, Destroy>;

/// fontconfig answers null when memory ran out.
template <class T>
Owned<T> owned(T* object) {
    if (object == nullptr) throw std::bad_alloc();
    return Owned<T>(object);
}

/// Families of the same widths and similar shapes: a name among them that the system answers by another of
/// them is as good as installed.
constexpr std::u16string_view kSansMetrics[] = {
    u"Arial",      u"Helvetica",   u"Liberation Sans", u"Arimo",          u"Albany",
    u"Albany AMT", u"Nimbus Sans", u"Nimbus Sans L",   u"TeX Gyre Heros",
};
constexpr std::u16string_view kSerifMetrics[] = {
    u"Times New Roman", u"Times",        u"Liberation Serif",   u"Tinos",           u"Thorndale",
    u"Thorndale AMT",   u"Nimbus Roman", u"Nimbus Roman No9 L", u"TeX Gyre Termes",
};
constexpr std::u16string_view kMonoMetrics[] = {
    u"Courier New",    u"Courier",        u"Liberation Mono", u"Cousine",         u"Cumberland",
    u"Cumberland AMT", u"Nimbus Mono PS", u"Nimbus Mono L",   u"TeX Gyre Cursor",
};

struct MetricAlias {
    std::u16string_view name;
    std::span<const std::u16string_view> families;
};
constexpr MetricAlias kMetricAliases[] = {
    {u"Arial", kSansMetrics},
    {u"Helvetica", kSansMetrics},
    {u"Times New Roman", kSerifMetrics},
    {u"Courier New", kMonoMetrics},
};

std::string_view stringOf(const FcPattern* pattern, const char* object, int n) {
    FcChar8* value = nullptr;
    if (FcPatternGetString(pattern, object, n, &value) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(value);
}

/// Only outlines in these formats are shaped and drawn.
bool isDrawable(const FcPattern* font) {
    FcBool isOutline = FcFalse;
    const std::string_view format = stringOf(font, FC_FONTFORMAT, 0);
    return FcPatternGetBool(font, FC_OUTLINE, 0, &isOutline) == FcResultMatch && isOutline != FcFalse &&
           (format == "TrueType" || format == "CFF");
}

void appendName(std::vector<std::u16string>& names, std::string_view name) {
    auto converted = utf16FromUtf8(name);
    if (converted && !converted->empty()) names.push_back(std::move(*converted));
}

/// A font has its names in several languages, and more than one in a language where it belongs to a family
/// within a family ("DejaVu Sans Condensed"). The English ones are listed; the first where there is none.
void appendNames(std::vector<std::u16string>& names, const FcPattern* font) {
    const std::size_t before = names.size();
    for (int i = 0; !stringOf(font, FC_FAMILY, i).empty(); ++i) {
        if (stringOf(font, FC_FAMILYLANG, i) == "en") appendName(names, stringOf(font, FC_FAMILY, i));
    }
    if (names.size() == before) appendName(names, stringOf(font, FC_FAMILY, 0));
}

/// The family that the system takes for a name.
std::u16string answerTo(std::u16string_view name) {
    const std::string utf8 = utf8FromUtf16(name).value_or(std::string());
    const auto wanted = owned(FcPatternCreate());
    if (FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(utf8.c_str())) ==
            FcFalse ||
        FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern) == FcFalse) {
        throw std::bad_alloc();
    }
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const Owned<FcPattern> found(FcFontMatch(nullptr, wanted.get(), &result));
    if (!found) return {};
    return utf16FromUtf8(stringOf(found.get(), FC_FAMILY, 0)).value_or(std::u16string());
}

bool isAnswered(const MetricAlias& alias) {
    const std::u16string answer = answerTo(alias.name);
    return std::find(alias.families.begin(), alias.families.end(), answer) != alias.families.end();
}

}  // namespace

std::vector<std::u16string> families() {
    const auto any = owned(FcPatternCreate());
    const auto properties =
        owned(FcObjectSetBuild(FC_FAMILY, FC_FAMILYLANG, FC_OUTLINE, FC_FONTFORMAT, nullptr));
    const auto fonts = owned(FcFontList(nullptr, any.get(), properties.get()));
    std::vector<std::u16string> names;
    for (int i = 0; i < fonts->nfont; ++i) {
        if (isDrawable(fonts->fonts[i])) appendNames(names, fonts->fonts[i]);
    }
    for (const MetricAlias& alias : kMetricAliases) {
        if (isAnswered(alias)) names.emplace_back(alias.name);
    }
    return names;
}

char16_t upperCase(char16_t letter) noexcept {
    const gunichar upper = g_unichar_toupper(letter);
    return upper < 0x10000 ? static_cast<char16_t>(upper) : letter;
}

}  // namespace orvane::text_back_end
