#include "platform/files.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <string>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvane {
namespace {

namespace fs = std::filesystem;
using Bytes = std::vector<std::uint8_t>;

constexpr uid_t kNobody = 65534;

Bytes bytesOf(const std::string& text) { return {text.begin(), text.end()}; }

/// Runs the work in a process of its own, with its own limits and rights.
bool succeedsInChild(const std::function<bool()>& work) {
    const pid_t child = ::fork();
    if (child == 0) ::_exit(work() ? 0 : 1);
    int status = 0;
    return ::waitpid(child, &status, 0) == child && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

class Files : public testing::Test {
 protected:
    void SetUp() override {
        std::string pattern = (fs::temp_directory_path() / "orvane-files-XXXXXX").string();
        ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
        folder_ = pattern;
    }
    void TearDown() override {
        fs::permissions(folder_, fs::perms::owner_all);
        fs::remove_all(folder_);
    }
    [[nodiscard]] std::string path(const std::string& name) const { return (folder_ / name).string(); }
    void write(const std::string& name, const std::string& text) const {
        std::ofstream(path(name), std::ios::binary) << text;
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        const auto bytes = readWholeFile(path(name));
        return bytes ? std::string(bytes->begin(), bytes->end()) : "none";
    }
    /// The names in the folder, sorted, so that a forgotten temporary file shows.
    [[nodiscard]] std::string listing() const {
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder_)) names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        std::string all;
        for (const std::string& name : names) all += name + " ";
        return all;
    }
    [[nodiscard]] mode_t modeOf(const std::string& name) const {
        struct stat status {};
        return ::stat(path(name).c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
    /// Saves as a user for whom permissions count.
    [[nodiscard]] bool savesUnprivileged(const std::string& name) const {
        return succeedsInChild([&] {
            if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return true;
            return replaceFile(path(name), bytesOf("new"));
        });
    }
    fs::path folder_;
};

TEST_F(Files, OnlyRegularFilesAreRead) {
    write("picture", "abc");
    write("empty", "");
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    fs::create_symlink("picture", path("link"));
    fs::create_symlink("loop", path("loop"));
    fs::create_directory(path("folder"));

    EXPECT_EQ(read("picture"), "abc");
    EXPECT_EQ(read("link"), "abc");
    EXPECT_EQ(read("empty"), "");
    for (const char* name : {"pipe", "loop", "folder", "missing", "picture/below"}) {
        EXPECT_EQ(read(name), "none") << name;
        EXPECT_FALSE(isReadableFile(path(name))) << name;
    }
    EXPECT_TRUE(isReadableFile(path("link")));
    EXPECT_FALSE(readWholeFile("/dev/zero"));
    EXPECT_FALSE(readWholeFile(""));
    EXPECT_FALSE(readWholeFile(path("picture") + std::string("\0.png", 5))) << "a zero byte ends no path";
    EXPECT_TRUE(readWholeFile("/proc/self/stat")) << "its size is reported as 0";
}

TEST_F(Files, TooLargeFilesAreRefused) {
    write("large", "");
    ASSERT_EQ(::truncate(path("large").c_str(), 0x80000000), 0);
    EXPECT_EQ(read("large"), "none");
}

TEST_F(Files, ReplacesAndCreates) {
    EXPECT_TRUE(replaceFile(path("new"), bytesOf("first")));
    EXPECT_TRUE(replaceFile(path("new"), bytesOf("second")));
    EXPECT_EQ(read("new"), "second");
    EXPECT_TRUE(replaceFile(path("new"), {}));
    EXPECT_EQ(read("new"), "");
    const std::string longest(255, 'x');
    EXPECT_TRUE(replaceFile(path(longest), bytesOf("long")));
    EXPECT_EQ(listing(), "new " + longest + " ");
}

TEST_F(Files, PermissionsAreKeptAndNewFilesObeyTheMask) {
    write("private", "old");
    fs::permissions(path("private"), fs::perms(0640));
    EXPECT_TRUE(replaceFile(path("private"), bytesOf("new")));
    EXPECT_EQ(modeOf("private"), 0640u);

    const mode_t before = ::umask(027);
    EXPECT_TRUE(replaceFile(path("fresh"), bytesOf("new")));
    ::umask(before);
    EXPECT_EQ(modeOf("fresh"), 0640u);

    if (::geteuid() == 0) {
        ASSERT_EQ(::chown(path("private").c_str(), kNobody, kNobody), 0);
        EXPECT_TRUE(replaceFile(path("private"), bytesOf("newer")));
        struct stat status {};
        ASSERT_EQ(::stat(path("private").c_str(), &status), 0);
        EXPECT_EQ(status.st_uid, kNobody);
        EXPECT_EQ(status.st_mode & 0777u, 0640u);
    }
}

TEST_F(Files, LinksStayLinks) {
    fs::create_directory(path("sub"));
    write("sub/target", "old");
    fs::create_symlink("sub/target", path("link"));
    fs::create_symlink("link", path("sub/outer"));
    fs::create_symlink(path("link"), path("absolute"));
    fs::create_symlink("sub/unborn", path("dangling"));
    fs::create_symlink("loop", path("loop"));

    EXPECT_TRUE(replaceFile(path("link"), bytesOf("one")));
    EXPECT_EQ(read("sub/target"), "one");
    EXPECT_TRUE(replaceFile(path("absolute"), bytesOf("two")));
    EXPECT_EQ(read("sub/target"), "two");
    EXPECT_TRUE(replaceFile(path("dangling"), bytesOf("three")));
    EXPECT_EQ(read("sub/unborn"), "three");
    EXPECT_FALSE(replaceFile(path("loop"), bytesOf("four")));
    for (const char* name : {"link", "absolute", "dangling"}) EXPECT_TRUE(fs::is_symlink(path(name))) << name;

    // Seen from its own folder, the outer link names a file that is missing there.
    EXPECT_TRUE(replaceFile(path("sub/outer"), bytesOf("five")));
    EXPECT_EQ(read("sub/link"), "five");
    EXPECT_EQ(listing(), "absolute dangling link loop sub ");
}

TEST_F(Files, RefusedTargetsStayAsTheyAre) {
    ASSERT_EQ(::mkfifo(path("pipe").c_str(), 0600), 0);
    fs::create_directory(path("folder"));
    write("file", "old");
    for (const char* name :
         {"pipe", "folder", "folder/", "missing/file", "missing/", "file/below", "file/"}) {
        EXPECT_FALSE(replaceFile(path(name), bytesOf("new"))) << name;
    }
    EXPECT_FALSE(replaceFile("", bytesOf("new")));
    EXPECT_FALSE(replaceFile("/dev/null", bytesOf("new")));
    EXPECT_EQ(read("file"), "old");
    EXPECT_EQ(listing(), "file folder pipe ");
}

TEST_F(Files, ReadOnlyFilesAndFoldersAreRespected) {
    write("file", "old");
    fs::permissions(path("file"), fs::perms(0444));
    fs::permissions(folder_, fs::perms(0777));
    EXPECT_FALSE(savesUnprivileged("file")) << "a read-only file in a folder that may be written";
    fs::permissions(path("file"), fs::perms(0666));
    EXPECT_TRUE(savesUnprivileged("file"));
    EXPECT_EQ(read("file"), "new");

    write("file", "old");
    fs::permissions(folder_, fs::perms(0555));
    EXPECT_FALSE(savesUnprivileged("file"));
    EXPECT_FALSE(savesUnprivileged("another"));
    EXPECT_EQ(read("file"), "old");
    EXPECT_EQ(listing(), "file ");
}

TEST_F(Files, FullDiskLeavesTheOldFile) {
    write("file", "old");
    const Bytes large(100000, 7);
    EXPECT_FALSE(succeedsInChild([&] {
        const rlimit limit{50000, 50000};
        std::signal(SIGXFSZ, SIG_IGN);
        return ::setrlimit(RLIMIT_FSIZE, &limit) != 0 || replaceFile(path("file"), large);
    }));
    EXPECT_EQ(read("file"), "old");
    EXPECT_EQ(listing(), "file ");
}

TEST_F(Files, KilledInTheMiddleTheTargetIsWhole) {
    const auto contents = [](int round) {
        return Bytes(std::size_t(200000 + round % 7 * 1000), std::uint8_t(round));
    };
    ASSERT_TRUE(replaceFile(path("file"), contents(0)));
    for (int kill = 0; kill < 25; ++kill) {
        const pid_t child = ::fork();
        if (child == 0) {
            for (int round = 1;; ++round) {
                if (!replaceFile(path("file"), contents(round))) ::_exit(1);
            }
        }
        ::usleep(useconds_t(500 + kill * 777));
        ASSERT_EQ(::kill(child, SIGKILL), 0);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        ASSERT_TRUE(WIFSIGNALED(status)) << "the child could not save";

        const auto bytes = readWholeFile(path("file"));
        ASSERT_TRUE(bytes && bytes->size() >= 200000 && bytes->size() % 1000 == 0);
        EXPECT_EQ(std::count(bytes->begin(), bytes->end(), bytes->front()), std::ptrdiff_t(bytes->size()));
    }
}

}  // namespace
}  // namespace orvane
