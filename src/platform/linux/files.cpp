#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <unistd.h>

namespace orvane {
namespace {

constexpr std::size_t kMaxFileBytes = 0x7fffffffu;
constexpr int kMaxLinkDepth = 40;  // as the kernel has it

class FileDescriptor {
 public:
    explicit FileDescriptor(int descriptor) : descriptor_(descriptor) {}
    FileDescriptor(const FileDescriptor&) = delete;
    FileDescriptor& operator=(const FileDescriptor&) = delete;
    ~FileDescriptor() { close(); }

    explicit operator bool() const { return descriptor_ >= 0; }
    [[nodiscard]] int get() const { return descriptor_; }
    /// Some file systems report a failed write only here. An interrupted close has closed all the same.
    bool close() {
        if (descriptor_ < 0) return true;
        const int result = ::close(descriptor_);
        descriptor_ = -1;
        return result == 0 || errno == EINTR;
    }

 private:
    int descriptor_;
};

int openRetrying(const std::string& path, int flags, mode_t mode = 0) {
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), flags | O_CLOEXEC, mode);
    } while (descriptor < 0 && errno == EINTR);
    return descriptor;
}

/// A path with a zero byte inside would be cut short there and name another file.
bool isUsablePath(std::string_view path) {
    return !path.empty() && path.find('\0') == std::string_view::npos;
}

/// A file opened for reading. Opening must not wait for the other end of a pipe, hence the non-blocking mode,
/// which regular files ignore.
struct OpenedFile {
    explicit OpenedFile(const std::string& path)
        : file(openRetrying(path, O_RDONLY | O_NONBLOCK | O_NOCTTY)) {
        isRegular = file && ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode);
    }

    FileDescriptor file;
    struct stat status {};
    bool isRegular = false;
};

std::string folderOf(const std::string& path) {
    const std::size_t slash = path.rfind('/');
    return slash == std::string::npos ? std::string() : path.substr(0, slash + 1);
}

/// The path at the end of a chain of symbolic links; that file need not exist. Empty for a circle.
std::string followLinks(std::string path) {
    for (int depth = 0; depth < kMaxLinkDepth; ++depth) {
        char link[PATH_MAX];
        const ssize_t length = ::readlink(path.c_str(), link, sizeof link);
        if (length < 0) return path;  // no link (EINVAL) or nothing there yet; any other trouble shows later
        if (length == 0 || std::size_t(length) == sizeof link) return {};
        const std::string target(link, std::size_t(length));
        path = target.front() == '/' ? target : folderOf(path) + target;
    }
    return {};
}

bool writeAll(int descriptor, std::span<const std::uint8_t> bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0) {
            if (errno == EINTR) continue;
            return false;
        }
        if (written == 0) return false;
        bytes = bytes.subspan(std::size_t(written));
    }
    return true;
}

/// Some file systems know no synchronising; that is no failed write.
bool synchronise(int descriptor) {
    while (::fsync(descriptor) != 0) {
        if (errno == EINTR) continue;
        return errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
    }
    return true;
}

/// A new file that vanishes with this object unless it has been renamed to its final place.
class TemporaryFile {
 public:
    /// A short name of its own: one derived from the target's could be too long for the folder.
    TemporaryFile(const std::string& folder, mode_t mode) {
        for (int attempt = 0; attempt < 64 && descriptor_ < 0; ++attempt) {
            unsigned long long number = 0;
            if (::getrandom(&number, sizeof number, GRND_NONBLOCK) != ssize_t(sizeof number)) {
                number = (static_cast<unsigned long long>(::getpid()) << 16) + unsigned(attempt);
            }
            char name[40];
            std::snprintf(name, sizeof name, ".orvane-%016llx.tmp", number);
            path_ = folder + name;
            descriptor_ = openRetrying(path_, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW, mode);
            if (descriptor_ < 0 && errno != EEXIST) break;
        }
        present_ = descriptor_ >= 0;
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() {
        if (present_) ::unlink(path_.c_str());
    }

    [[nodiscard]] int descriptor() const { return descriptor_; }
    bool renameTo(const std::string& target) {
        if (::rename(path_.c_str(), target.c_str()) != 0) return false;
        present_ = false;
        return true;
    }

 private:
    std::string path_;
    int descriptor_ = -1;
    bool present_ = false;
};

/// The new file belongs to whom the old one belonged as far as this process may arrange it. Where the group
/// could not be kept, its rights are not handed to a different group.
bool takeOverPermissions(int descriptor, const struct stat& old) {
    mode_t mode = old.st_mode & 0777;
    struct stat fresh {};
    if (::fstat(descriptor, &fresh) != 0) return false;
    if (fresh.st_uid != old.st_uid || fresh.st_gid != old.st_gid) {
        const bool kept = ::fchown(descriptor, old.st_uid, old.st_gid) == 0 ||
                          ::fchown(descriptor, uid_t(-1), old.st_gid) == 0 || fresh.st_gid == old.st_gid;
        if (!kept) mode &= ~mode_t(070) | ((mode & 07) << 3);
    }
    return ::fchmod(descriptor, mode) == 0;
}

bool replaceFileAt(const std::string& path, std::span<const std::uint8_t> bytes) {
    const std::string target = followLinks(path);
    if (target.empty()) return false;

    struct stat old {};
    const bool exists = ::stat(target.c_str(), &old) == 0;
    if (!exists && errno != ENOENT) return false;
    // Renaming needs rights on the folder only; a file that may not be written stays protected all the same.
    if (exists && (!S_ISREG(old.st_mode) || ::faccessat(AT_FDCWD, target.c_str(), W_OK, AT_EACCESS) != 0)) {
        return false;
    }

    // A new file's mode comes from the process's mask, which can be read only by changing it; so the system
    // applies it. The stand-in for an existing file is private until it takes over that file's mode.
    const std::string folder = folderOf(target);
    TemporaryFile temporary(folder, exists ? 0600 : 0666);
    FileDescriptor file(temporary.descriptor());
    if (!file || !writeAll(file.get(), bytes)) return false;
    if (exists && !takeOverPermissions(file.get(), old)) return false;
    if (!synchronise(file.get()) || !file.close() || !temporary.renameTo(target)) return false;

    // The file is whole whatever happens here; this makes its new name survive a power cut as well.
    const FileDescriptor directory(openRetrying(folder.empty() ? "." : folder, O_RDONLY | O_DIRECTORY));
    if (directory) synchronise(directory.get());
    return true;
}

}  // namespace

bool isReadableFile(std::string_view path) noexcept try {
    return isUsablePath(path) && OpenedFile(std::string(path)).isRegular;
} catch (...) {
    return false;
}

std::optional<std::vector<std::uint8_t>> readWholeFile(std::string_view path) noexcept try {
    if (!isUsablePath(path)) return {};
    const OpenedFile opened{std::string(path)};
    const off_t expected = opened.status.st_size;
    if (!opened.isRegular || expected < 0 || std::uint64_t(expected) > kMaxFileBytes) return {};

    // The size is only a hint: the file may shrink or grow meanwhile, and some system files report 0. One
    // byte more than expected finds the end without a second buffer.
    std::vector<std::uint8_t> bytes(std::size_t(expected) + 1);
    std::size_t filled = 0;
    for (;;) {
        if (filled == bytes.size()) bytes.resize(std::min(bytes.size() * 2 + 4096, kMaxFileBytes + 1));
        const ssize_t count = ::read(opened.file.get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return {};
        if (count == 0) break;
        filled += std::size_t(count);
        if (filled > kMaxFileBytes) return {};
    }
    bytes.resize(filled);
    return bytes;
} catch (...) {
    return {};
}

bool replaceFile(std::string_view path, std::span<const std::uint8_t> bytes) noexcept try {
    return isUsablePath(path) && replaceFileAt(std::string(path), bytes);
} catch (...) {
    return false;
}

}  // namespace orvane
