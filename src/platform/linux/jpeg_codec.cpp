#include "platform/linux/jpeg_codec.h"

#include <csetjmp>
#include <cstdio>
#include <utility>

#include <jpeglib.h>

#include <jerror.h>

namespace orvane {
namespace {

// libjpeg leaves a failed call by longjmp. Each function that calls setjmp below therefore has no object with
// a destructor in its own frame; what must be released sits in an object of the caller's frame.

constexpr int kFirstFullChromaQuality = 90;

/// Even a blank progressive picture may have this many scans; beyond them each scan wants a bit more data.
constexpr std::uint64_t kFreeScans = 24;
constexpr std::uint64_t kScansPerBitOfBlock = 8;
constexpr std::uint64_t kMaxScans = 500;

struct ErrorTrap {
    jpeg_error_mgr manager{};  // first, so that a pointer to it is a pointer to the trap
    std::jmp_buf escape{};
    bool dataMissing = false, endMissing = false;
};

ErrorTrap& trapOf(j_common_ptr codec) { return *reinterpret_cast<ErrorTrap*>(codec->err); }

[[noreturn]] void leave(j_common_ptr codec) { std::longjmp(trapOf(codec).escape, 1); }

void noteWarning(j_common_ptr codec, int level) {
    if (level >= 0) return;
    ErrorTrap& trap = trapOf(codec);
    switch (trap.manager.msg_code) {
        case JWRN_HIT_MARKER:
        case JWRN_HUFF_BAD_CODE:
        case JWRN_MUST_RESYNC:
            trap.dataMissing = true;
            break;
        case JWRN_JPEG_EOF:
            trap.endMissing = true;
            break;
        default:
            break;  // surplus bytes and oddities of headers
    }
}

jpeg_error_mgr* prepare(ErrorTrap& trap) {
    jpeg_error_mgr* const manager = jpeg_std_error(&trap.manager);
    manager->error_exit = leave;
    manager->emit_message = noteWarning;
    manager->output_message = [](j_common_ptr) {};
    return manager;
}

struct Decompressor {
    ErrorTrap trap;
    jpeg_decompress_struct info{};
    jpeg_progress_mgr progress{};
    int allowedScans = 0;

    Decompressor() {
        info.err = prepare(trap);
        info.client_data = this;
    }
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;
    ~Decompressor() { jpeg_destroy_decompress(&info); }
};

/// The 8 x 8 blocks of all components: what a decoder's work and a file's least size follow.
std::uint64_t blockCount(const jpeg_decompress_struct& info) {
    std::uint64_t blocks = 0;
    for (int c = 0; c < info.num_components; ++c)
        blocks += std::uint64_t(info.comp_info[c].width_in_blocks) * info.comp_info[c].height_in_blocks;
    return blocks;
}

void refuseTooManyScans(j_common_ptr codec) {
    const auto& self = *static_cast<const Decompressor*>(codec->client_data);
    if (self.info.input_scan_number > self.allowedScans) leave(codec);
}

bool isCmyk(const jpeg_decompress_struct& info) {
    return info.jpeg_color_space == JCS_CMYK || info.jpeg_color_space == JCS_YCCK;
}

/// Turns a row of the bytes C, M, Y, K into pixels in place. `inverted`: 255 stands for no ink.
void convertCmykRow(std::uint8_t* row, JDIMENSION width, bool inverted) {
    const unsigned flip = inverted ? 0 : 255;
    const auto light = [](unsigned paper, unsigned black) { return (paper * black + 127) / 255; };
    for (JDIMENSION x = 0; x < width; ++x, row += 4) {
        const unsigned cyan = row[0] ^ flip, magenta = row[1] ^ flip, yellow = row[2] ^ flip;
        const unsigned black = row[3] ^ flip;
        row[0] = std::uint8_t(light(yellow, black));
        row[1] = std::uint8_t(light(magenta, black));
        row[2] = std::uint8_t(light(cyan, black));
        row[3] = 255;
    }
}

/// Reads the header, prepares the output format and judges the header's claims.
bool openPicture(Decompressor& self, std::span<const std::uint8_t> bytes) {
    jpeg_decompress_struct& info = self.info;
    if (setjmp(self.trap.escape)) return false;
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, bytes.data(), static_cast<unsigned long>(bytes.size()));
    if (jpeg_read_header(&info, TRUE) != JPEG_HEADER_OK || info.arith_code) return false;
    if (!isAllowedImageSize(info.image_width, info.image_height)) return false;

    // A Huffman code is a bit at least, and no block goes without one.
    const std::uint64_t blocks = blockCount(info), bits = std::uint64_t(bytes.size()) * 8;
    if (blocks == 0 || bits < blocks) return false;
    const std::uint64_t scans = kFreeScans + kScansPerBitOfBlock * (bits / blocks);
    self.allowedScans = int(scans < kMaxScans ? scans : kMaxScans);
    self.progress.progress_monitor = refuseTooManyScans;
    info.progress = &self.progress;

    info.out_color_space = isCmyk(info) ? JCS_CMYK : JCS_EXT_BGRA;
    info.do_block_smoothing = FALSE;  // it guesses at scans that never came; such files are refused
    return true;
}

bool readPixels(Decompressor& self, MutablePixelView picture) {
    jpeg_decompress_struct& info = self.info;
    if (setjmp(self.trap.escape)) return false;
    jpeg_start_decompress(&info);
    // All scans of a picture that has several have been read by now. Where there is one, only missing data
    // show: its end mark is not looked for.
    if (self.trap.dataMissing || (self.trap.endMissing && jpeg_has_multiple_scans(&info))) return false;
    const bool fromCmyk = isCmyk(info), inverted = info.saw_Adobe_marker != 0;
    while (info.output_scanline < info.output_height && !self.trap.dataMissing) {
        auto* row = reinterpret_cast<JSAMPLE*>(picture.row(int(info.output_scanline)));
        if (jpeg_read_scanlines(&info, &row, 1) != 1) return false;
        if (fromCmyk) convertCmykRow(row, info.output_width, inverted);
    }
    return !self.trap.dataMissing;
}

/// Writes into a vector: the library's own memory destination loses track of its buffer on a failure.
struct Compressor {
    ErrorTrap trap;
    jpeg_compress_struct info{};
    jpeg_destination_mgr destination{};
    std::vector<std::uint8_t> file;

    Compressor() {
        info.err = prepare(trap);
        info.client_data = this;
        destination.init_destination = [](j_compress_ptr codec) { grow(codec); };
        destination.empty_output_buffer = grow;
        destination.term_destination = [](j_compress_ptr) {};
    }
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;
    ~Compressor() { jpeg_destroy_compress(&info); }

    /// Called with the vector full; doubles it.
    static boolean grow(j_compress_ptr codec) {
        auto& self = *static_cast<Compressor*>(codec->client_data);
        const std::size_t used = self.file.size();
        if (!self.enlarge(used == 0 ? std::size_t{1} << 16 : 2 * used))
            leave(reinterpret_cast<j_common_ptr>(codec));
        self.destination.next_output_byte = self.file.data() + used;
        self.destination.free_in_buffer = self.file.size() - used;
        return TRUE;
    }

 private:
    // The exception ends here: it must not meet the library's frames, and a longjmp must not leave a handler.
    bool enlarge(std::size_t size) noexcept {
        try {
            file.resize(size);
            return true;
        } catch (...) {
            return false;
        }
    }
};

bool writePicture(Compressor& self, PixelView picture, int quality) {
    jpeg_compress_struct& info = self.info;
    if (setjmp(self.trap.escape)) return false;
    jpeg_create_compress(&info);
    info.dest = &self.destination;
    info.image_width = JDIMENSION(picture.width);
    info.image_height = JDIMENSION(picture.height);
    info.input_components = 4;
    info.in_color_space = JCS_EXT_BGRX;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, quality, TRUE);
    const int chromaStep = quality >= kFirstFullChromaQuality ? 1 : 2;
    info.comp_info[0].h_samp_factor = info.comp_info[0].v_samp_factor = chromaStep;
    jpeg_start_compress(&info, TRUE);
    while (info.next_scanline < info.image_height) {
        // The library's interface predates const; it only reads the row.
        auto* row = reinterpret_cast<JSAMPLE*>(const_cast<Argb*>(picture.row(int(info.next_scanline))));
        jpeg_write_scanlines(&info, &row, 1);
    }
    jpeg_finish_compress(&info);
    self.file.resize(self.file.size() - self.destination.free_in_buffer);
    return true;
}

}  // namespace

bool decodeJpeg(std::span<const std::uint8_t> bytes, DecodeTarget& target) noexcept {
    try {
        Decompressor decompressor;
        if (bytes.empty() || !openPicture(decompressor, bytes)) return false;
        const MutablePixelView picture =
            target.allocate(int(decompressor.info.image_width), int(decompressor.info.image_height));
        return picture && readPixels(decompressor, picture);
    } catch (...) {
        return false;
    }
}

std::vector<std::uint8_t> encodeJpeg(PixelView picture, int quality) noexcept {
    try {
        if (!picture || !isAllowedImageSize(picture.width, picture.height)) return {};
        Compressor compressor;
        if (!writePicture(compressor, picture, quality)) return {};
        return std::move(compressor.file);
    } catch (...) {
        return {};
    }
}

}  // namespace orvane
