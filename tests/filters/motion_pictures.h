#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "filters/motion_reference.h"
#include "support/pictures.h"

/// What the tests of the filters along paths share.
namespace orvane::test {

/// Random colours and alphas.
inline reference::Picture noisyPicture(int width, int height) {
    const std::size_t count = std::size_t(width) * std::size_t(height);
    return {width, height, randomPicture(count, unsigned(width * 1000 + height))};
}

inline reference::Picture opaquePicture(int width, int height) {
    reference::Picture picture = noisyPicture(width, height);
    for (Argb& pixel : picture.pixels) pixel |= 0xFF000000u;
    return picture;
}

/// The picture after one operation on a document that holds `source`.
template <class Operation>
reference::Picture resultOf(const reference::Picture& source, const Operation& operation) {
    ImageDocument document;
    loadPicture(document, source.pixels, source.width, source.height);
    operation(document);
    EXPECT_TRUE(document.undoEnabled());
    return {document.width(), document.height(), pictureOf(document)};
}

/// Where two pictures first differ, or an empty text.
inline std::string difference(const reference::Picture& actual, const reference::Picture& expected) {
    if (actual.width != expected.width || actual.height != expected.height) return "sizes differ";
    for (std::size_t i = 0; i < actual.pixels.size(); ++i) {
        if (actual.pixels[i] == expected.pixels[i]) continue;
        char text[128];
        std::snprintf(text, sizeof text, "%d x %d, pixel (%zu, %zu): %08X, not %08X", actual.width,
                      actual.height, i % std::size_t(actual.width), i / std::size_t(actual.width),
                      actual.pixels[i], expected.pixels[i]);
        return text;
    }
    return {};
}

/// Whether an operation leaves picture, history and `modified` alone.
template <class Operation>
void expectRefused(const Operation& operation) {
    const reference::Picture source = noisyPicture(5, 4);
    ImageDocument document;
    loadPicture(document, source.pixels, source.width, source.height);
    operation(document);
    EXPECT_FALSE(document.undoEnabled());
    EXPECT_FALSE(document.modified);
    EXPECT_EQ(pictureOf(document), source.pixels);
}

}  // namespace orvane::test
