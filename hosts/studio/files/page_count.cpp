#include "studio/files/page_count.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string_view>

namespace orvane::studio {
namespace {

/// A file that is read in pieces. Behind its end there is nothing, and nothing fails.
class Reader {
 public:
    explicit Reader(const std::string& path) {
        std::error_code error;
        if (!std::filesystem::is_regular_file(path, error)) return;  // a pipe would wait for its writer
        const auto size = std::filesystem::file_size(path, error);
        if (error) return;
        file_.open(path, std::ios::binary);
        size_ = size;
    }

    [[nodiscard]] std::uint64_t size() const { return size_; }
    void seek(std::uint64_t position) {
        file_.clear();  // an end that was met before
        file_.seekg(std::streamoff(std::min(position, size_)));
    }
    void skip(std::uint64_t count) { file_.ignore(std::streamsize(count)); }

    /// A number of so many bytes; nothing at the end of the file.
    std::optional<std::uint64_t> number(int bytes, bool bigEndian) {
        std::uint64_t value = 0;
        for (int i = 0; i < bytes; ++i) {
            const int byte = file_.get();
            if (byte < 0) return std::nullopt;
            value |= std::uint64_t(byte) << 8 * (bigEndian ? bytes - 1 - i : i);
        }
        return value;
    }
    /// One byte; 0 at the end of the file.
    int byte() { return int(number(1, false).value_or(0)); }
    bool reads(std::string_view text) {
        for (const char expected : text) {
            if (file_.get() != static_cast<unsigned char>(expected)) return false;
        }
        return true;
    }

 private:
    std::ifstream file_;
    std::uint64_t size_ = 0;
};

// --- TIFF: a chain of directories, each of which names the next one's place behind its entries ---

/// How wide the numbers are.
struct TiffForm {
    bool bigEndian;
    int offset, count, entry;
};

std::optional<TiffForm> tiffForm(Reader& file) {
    constexpr std::uint64_t kClassic = 42, kBig = 43, kBigOffsetBytes = 8;
    file.seek(0);
    const int first = file.byte(), second = file.byte();
    if (first != second || (first != 'I' && first != 'M')) return std::nullopt;
    const bool bigEndian = first == 'M';
    const auto version = file.number(2, bigEndian);
    if (version == kClassic) return TiffForm{bigEndian, 4, 2, 12};
    if (version != kBig || file.number(2, bigEndian) != kBigOffsetBytes || file.number(2, bigEndian) != 0)
        return std::nullopt;
    return TiffForm{bigEndian, 8, 8, 20};
}

/// Where the directory there has the place of the next one; nothing where there is no whole directory.
std::optional<std::uint64_t> linkOf(Reader& file, const TiffForm& form, std::uint64_t directory) {
    if (directory == 0 || directory >= file.size()) return std::nullopt;
    file.seek(directory);
    const auto count = file.number(form.count, form.bigEndian);
    const std::uint64_t begin = directory + std::uint64_t(form.count);
    if (!count || *count == 0 || begin > file.size()) return std::nullopt;
    if (*count > (file.size() - begin) / std::uint64_t(form.entry)) return std::nullopt;
    return begin + *count * std::uint64_t(form.entry);
}

bool hasSecondDirectory(Reader& file) {
    const auto form = tiffForm(file);
    if (!form) return false;
    const auto first = file.number(form->offset, form->bigEndian);
    const auto link = first ? linkOf(file, *form, *first) : std::nullopt;
    if (!link) return false;
    file.seek(*link);
    const auto second = file.number(form->offset, form->bigEndian);
    return second && *second != *first && linkOf(file, *form, *second).has_value();
}

// --- GIF: blocks one after the other, whose contents are cut into pieces of up to 255 bytes ---

/// Passes the colours that the flags announce.
void skipColours(Reader& file, int flags) {
    if ((flags & 0x80) != 0) file.skip(3U << ((flags & 7) + 1));
}

void skipPieces(Reader& file) {
    while (const int size = file.byte()) file.skip(std::uint64_t(size));
}

bool hasSecondFrame(Reader& file) {
    constexpr int kExtension = 0x21, kImage = 0x2c;
    file.seek(0);
    if (!file.reads("GIF8")) return false;
    file.skip(2 + 4);  // the version's rest, the size
    const int flags = file.byte();
    file.skip(2);
    skipColours(file, flags);
    for (int frames = 0;;) {
        const int block = file.byte();
        if (block != kExtension && block != kImage) return false;  // the end, or what is no GIF
        if (block == kImage) {
            file.skip(8);  // place and size
            const auto imageFlags = file.number(1, false);
            if (imageFlags && ++frames == 2) return true;
            skipColours(file, int(imageFlags.value_or(0)));
        }
        file.skip(1);  // the kind of the extension, the code size of the image
        skipPieces(file);
    }
}

}  // namespace

FileParts partsOfFile(const std::string& path) {
    Reader file(path);
    if (hasSecondDirectory(file)) return FileParts::Pages;
    return hasSecondFrame(file) ? FileParts::Frames : FileParts::OnePicture;
}

}  // namespace orvane::studio
