#include "cli/raw_files.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "cli/words.h"

namespace orvane::cli {
namespace {

constexpr std::size_t kMaxBytes = 0x7fffffffu;
constexpr std::size_t kFirstRead = 1u << 16;

std::optional<std::vector<std::uint8_t>> readDescriptor(int descriptor, std::string& reason) {
    struct stat status {};
    const bool isRegular = ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
    const std::size_t expected =
        isRegular && std::size_t(status.st_size) <= kMaxBytes ? std::size_t(status.st_size) + 1 : kFirstRead;
    std::vector<std::uint8_t> bytes(expected);
    std::size_t filled = 0;
    for (;;) {
        const ssize_t count = ::read(descriptor, bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) {
            reason = std::string("cannot be read: ") + std::strerror(errno);
            return std::nullopt;
        }
        if (count == 0) break;
        filled += std::size_t(count);
        if (filled > kMaxBytes) {
            reason = "holds more bytes than an array may have (2147483647)";
            return std::nullopt;
        }
        if (filled == bytes.size()) bytes.resize(bytes.size() * 2);
    }
    bytes.resize(filled);
    return bytes;
}

std::string folderOf(const std::string& path) {
    const std::string folder = std::filesystem::path(path).parent_path().string();
    return folder.empty() ? "." : folder;
}

}  // namespace

std::optional<std::vector<std::uint8_t>> readBytes(const std::string& path, std::string& reason) {
    if (path == "-") return readDescriptor(STDIN_FILENO, reason);
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY);
    if (descriptor < 0) {
        reason = std::string("cannot be opened: ") + std::strerror(errno);
        return std::nullopt;
    }
    auto bytes = readDescriptor(descriptor, reason);
    ::close(descriptor);
    return bytes;
}

std::string whyUnreadable(const std::string& path, bool isPicture) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        if (errno == ENOENT) return "does not exist; check the path";
        return std::string("cannot be read: ") + std::strerror(errno);
    }
    if (S_ISDIR(status.st_mode)) return "is a folder; name a file in it";
    if (isPicture && !S_ISREG(status.st_mode)) {
        return "is no regular file; pictures are not read from pipes or devices";
    }
    if (::faccessat(AT_FDCWD, path.c_str(), R_OK, AT_EACCESS) != 0) {
        return std::string("cannot be read: ") + std::strerror(errno);
    }
    return {};
}

std::string whyUnwritable(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) == 0) {
        if (S_ISDIR(status.st_mode)) return "is a folder; name a file in it";
        if (!S_ISREG(status.st_mode)) return "is no regular file; it is not replaced";
        if (::faccessat(AT_FDCWD, path.c_str(), W_OK, AT_EACCESS) == 0) return {};
        return std::string("cannot be written: ") + std::strerror(errno);
    }
    if (path.empty() || path.back() == '/') return "is not the name of a file";
    const std::string folder = folderOf(path);
    if (::stat(folder.c_str(), &status) != 0 || !S_ISDIR(status.st_mode)) {
        return "cannot be written: there is no folder " + inQuotes(folder) + "; create it first";
    }
    if (::faccessat(AT_FDCWD, folder.c_str(), W_OK | X_OK, AT_EACCESS) != 0) {
        return "cannot be written: no right to create files in " + inQuotes(folder);
    }
    return {};
}

std::string canonicalPath(const std::string& path) {
    std::error_code error;
    const auto canonical = std::filesystem::weakly_canonical(std::filesystem::absolute(path, error), error);
    return error ? path : canonical.string();
}

}  // namespace orvane::cli
