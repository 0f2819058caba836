#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace orvane {

/// What a run of the program left behind.
struct ProgramResult {
    int status = -1;  ///< the exit status, or minus the signal that ended it
    std::string out, err;
};

/// Runs the command line program, as a user would, in an empty folder of its own.
class ProgramTest : public testing::Test {
 protected:
    ProgramTest();
    ~ProgramTest() override;

    using Arguments = std::vector<std::string>;
    ProgramResult run(const Arguments& arguments, std::string_view input = {});
    /// The same without waiting; output and complaints are lost.
    [[nodiscard]] pid_t start(const Arguments& arguments);
    /// The line as a shell takes it, for redirections; the program is `$orvane`.
    ProgramResult runInShell(const std::string& line);

    void write(const std::string& name, std::string_view contents);
    [[nodiscard]] std::string read(const std::string& name) const;
    [[nodiscard]] bool exists(const std::string& name) const;
    /// The names in the folder, sorted, with a space between.
    [[nodiscard]] std::string files(const std::string& folder = ".") const;
    [[nodiscard]] std::string path(const std::string& name) const { return folder_ + "/" + name; }

    /// Makes a picture of 8 x 6 pixels under this name.
    void makePicture(const std::string& name);

 private:
    pid_t startIn(const std::string& program, const Arguments& arguments, const char* streams[3]);
    ProgramResult runProgram(const std::string& program, const Arguments& arguments, std::string_view input);

    std::string folder_, streams_;
};

}  // namespace orvane
