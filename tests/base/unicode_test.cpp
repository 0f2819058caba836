#include "base/unicode.h"

#include <gtest/gtest.h>

namespace orvane {
namespace {

TEST(Unicode, ConvertsBothWays) {
    const struct {
        const char* utf8;
        const char16_t* utf16;
    } rows[] = {{"", u""},
                {"plain.png", u"plain.png"},
                {"\xC3\xBC\xE2\x82\xAC", u"\u00FC\u20AC"},
                {"\xF0\x9F\x93\xB7.jpg", u"\U0001F4F7.jpg"},
                {"\xF4\x8F\xBF\xBF\xEF\xBF\xBF", u"\U0010FFFF\uFFFF"}};
    for (const auto& row : rows) {
        EXPECT_EQ(utf8FromUtf16(row.utf16), row.utf8);
        EXPECT_EQ(utf16FromUtf8(row.utf8), row.utf16);
    }
}

TEST(Unicode, RefusesWhatIsMalformed) {
    using namespace std::string_view_literals;
    for (const std::string_view bad :
         {"\x80"sv, "\xC3"sv, "\xC0\xAF"sv, "\xE2\x82"sv, "\xED\xA0\x80"sv, "\xF0\x80\x80\x80"sv,
          "\xF4\x90\x80\x80"sv, "\xFF"sv, "a\xC3z"sv, "\xE0\x9F\xBF"sv}) {
        EXPECT_FALSE(utf16FromUtf8(bad)) << bad;
    }
    for (const std::u16string_view bad :
         {u"\xD800"sv, u"\xDC00"sv, u"\xD800x"sv, u"\xDC00\xD800"sv, u"a\0b"sv}) {
        EXPECT_FALSE(utf8FromUtf16(bad));
    }
}

TEST(Unicode, ShownTextReplacesUnpairedSurrogates) {
    const struct {
        const char16_t* utf16;
        const char* utf8;
    } rows[] = {{u"a\xD800", "a\xEF\xBF\xBD"},
                {u"\xDC00\xD800z", "\xEF\xBF\xBD\xEF\xBF\xBDz"},
                {u"\xD800\xD83D\xDCF7", "\xEF\xBF\xBD\xF0\x9F\x93\xB7"}};
    for (const auto& row : rows) EXPECT_EQ(shownUtf8FromUtf16(row.utf16), row.utf8);
}

}  // namespace
}  // namespace orvane
