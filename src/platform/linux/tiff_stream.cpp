#include "platform/linux/tiff_stream.h"

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>

#include "platform/image_codecs.h"

namespace orvane {
namespace {

constexpr std::uint64_t kMaxOutputBytes = 0xffffffffu;  // offsets have 32 bits

int dropMessage(TIFF*, void*, const char*, const char*, va_list) { return 1; }

struct OpenOptions {
    OpenOptions() : options(TIFFOpenOptionsAlloc()) {
        if (options == nullptr) return;
        TIFFOpenOptionsSetMaxSingleMemAlloc(options, tmsize_t(kMaxImageBytes));
        TIFFOpenOptionsSetErrorHandlerExtR(options, dropMessage, nullptr);
        TIFFOpenOptionsSetWarningHandlerExtR(options, dropMessage, nullptr);
    }
    OpenOptions(const OpenOptions&) = delete;
    OpenOptions& operator=(const OpenOptions&) = delete;
    ~OpenOptions() {
        if (options != nullptr) TIFFOpenOptionsFree(options);
    }
    TIFFOpenOptions* options;
};

tmsize_t readFrom(std::span<const std::uint8_t> bytes, std::uint64_t& position, void* data, tmsize_t count) {
    if (count < 0 || position > bytes.size()) return -1;
    const std::size_t available = std::min(std::size_t(count), bytes.size() - std::size_t(position));
    if (available > 0) std::memcpy(data, bytes.data() + position, available);
    position += available;
    return tmsize_t(available);
}

/// Backward steps arrive as huge unsigned numbers; the sum wraps to where they mean.
toff_t seekIn(std::uint64_t& position, std::uint64_t size, toff_t offset, int origin) {
    position = offset + (origin == SEEK_CUR ? position : origin == SEEK_END ? size : 0);
    return position;
}

int closeNothing(thandle_t) { return 0; }
void unmapNothing(thandle_t, void*, toff_t) {}

// Reading. The library reads the header; all the rest it finds in what it takes for a mapped file.

TiffInput& inputOf(thandle_t handle) { return *static_cast<TiffInput*>(handle); }

tmsize_t readInput(thandle_t handle, void* data, tmsize_t count) {
    return readFrom(inputOf(handle).bytes, inputOf(handle).position, data, count);
}
tmsize_t refuseWriting(thandle_t, void*, tmsize_t) { return -1; }
toff_t seekInput(thandle_t handle, toff_t offset, int origin) {
    return seekIn(inputOf(handle).position, inputOf(handle).bytes.size(), offset, origin);
}
toff_t inputSize(thandle_t handle) { return inputOf(handle).bytes.size(); }
int mapInput(thandle_t handle, void** base, toff_t* size) {
    *base = const_cast<std::uint8_t*>(inputOf(handle).bytes.data());
    *size = inputOf(handle).bytes.size();
    return 1;
}

// Writing.

TiffOutput& outputOf(thandle_t handle) { return *static_cast<TiffOutput*>(handle); }

tmsize_t writeOutput(thandle_t handle, void* data, tmsize_t count) {
    TiffOutput& output = outputOf(handle);
    const std::uint64_t end = output.position + std::uint64_t(count);
    if (count < 0 || end > kMaxOutputBytes) output.failed = true;
    if (output.failed) return -1;
    try {
        if (end > output.bytes.size()) output.bytes.resize(std::size_t(end));
    } catch (...) {
        output.failed = true;
        return -1;
    }
    if (count > 0) std::memcpy(output.bytes.data() + output.position, data, std::size_t(count));
    output.position = end;
    return count;
}
tmsize_t readOutput(thandle_t handle, void* data, tmsize_t count) {
    return readFrom(outputOf(handle).bytes, outputOf(handle).position, data, count);
}
toff_t seekOutput(thandle_t handle, toff_t offset, int origin) {
    return seekIn(outputOf(handle).position, outputOf(handle).bytes.size(), offset, origin);
}
toff_t outputSize(thandle_t handle) { return outputOf(handle).bytes.size(); }
int refuseMapping(thandle_t, void**, toff_t*) { return 0; }

}  // namespace

TiffHandle openTiffForReading(TiffInput& input) {
    const OpenOptions options;
    if (options.options == nullptr) return nullptr;
    return TiffHandle(TIFFClientOpenExt("", "r", &input, readInput, refuseWriting, seekInput, closeNothing,
                                        inputSize, mapInput, unmapNothing, options.options));
}

TiffHandle openTiffForWriting(TiffOutput& output) {
    const OpenOptions options;
    if (options.options == nullptr) return nullptr;
    return TiffHandle(TIFFClientOpenExt("", "wl", &output, readOutput, writeOutput, seekOutput, closeNothing,
                                        outputSize, refuseMapping, unmapNothing, options.options));
}

}  // namespace orvane
