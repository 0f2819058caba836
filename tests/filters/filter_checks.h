#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "document/image_document.h"
#include "filters/reference_picture.h"
#include "support/every_target.h"
#include "support/pictures.h"

/// Holding a filter against its literal definition.
namespace orvane::test {

/// Whether there is time for large pictures: the definitions take theirs.
#ifdef NDEBUG
constexpr bool kFastBuild = true;
#else
constexpr bool kFastBuild = false;
#endif

/// A filter with its arguments, and what it must give.
struct Operation {
    std::string name;
    std::function<void(ImageDocument&)> run;
    std::function<std::vector<Argb>(const reference::Picture&)> expected;
};

/// "Blur 3": a filter's name with its arguments.
template <class... Values>
std::string named(const char* name, Values... values) {
    std::string text = name;
    ((text += " " + std::to_string(values)), ...);
    return text;
}

/// The first difference in words, or "".
inline std::string difference(const std::vector<Argb>& actual, const std::vector<Argb>& expected, int width) {
    if (actual.size() != expected.size()) return "sizes differ";
    for (std::size_t i = 0; i < actual.size(); ++i) {
        if (actual[i] == expected[i]) continue;
        char text[128];
        std::snprintf(text, sizeof text, "pixel %d, %d: %08X, not %08X", int(i) % width, int(i) / width,
                      actual[i], expected[i]);
        return text;
    }
    return {};
}

/// Expects the definition's result on every instruction set, as one step that can be taken back.
inline void checkOperation(const Operation& operation, const reference::Picture& source) {
    const std::vector<Argb> expected = operation.expected(source);
    onEveryTarget([&] {
        ImageDocument document;
        loadPicture(document, source.pixels, source.width, source.height);
        operation.run(document);
        EXPECT_EQ(difference(pictureOf(document), expected, source.width), "")
            << operation.name << ", " << source.width << " x " << source.height;
        EXPECT_TRUE(document.undoEnabled()) << operation.name;
        document.undo();
        EXPECT_TRUE(pictureOf(document) == source.pixels && !document.undoEnabled()) << operation.name;
    });
}

}  // namespace orvane::test
