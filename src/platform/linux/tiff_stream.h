#pragma once

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include <tiffio.h>

/// TIFF handles over memory instead of files. Messages of the library go nowhere, without touching the
/// handlers that the rest of the process may have installed.
namespace orvane {

struct TiffCloser {
    void operator()(TIFF* tiff) const { TIFFClose(tiff); }
};
using TiffHandle = std::unique_ptr<TIFF, TiffCloser>;

struct TiffInput {
    std::span<const std::uint8_t> bytes;
    std::uint64_t position = 0;
};

/// Null when the bytes are no TIFF. Input and bytes must outlive the handle.
[[nodiscard]] TiffHandle openTiffForReading(TiffInput& input);

/// Collects what is written. The library does not report every refused byte, so a refusal is remembered.
struct TiffOutput {
    std::vector<std::uint8_t> bytes;
    std::uint64_t position = 0;
    bool failed = false;
};

/// Null when memory ran out. The output is complete when the handle has been closed.
[[nodiscard]] TiffHandle openTiffForWriting(TiffOutput& output);

}  // namespace orvane
