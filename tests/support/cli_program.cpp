#include "support/cli_program.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace orvane {
namespace {

std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::string& path, std::string_view contents) {
    std::ofstream(path, std::ios::binary) << contents;
}

std::string newFolder() {
    std::string folder = (std::filesystem::temp_directory_path() / "orvane-program-XXXXXX").string();
    EXPECT_NE(::mkdtemp(folder.data()), nullptr);
    return folder;
}

}  // namespace

ProgramTest::ProgramTest() : folder_(newFolder()), streams_(newFolder()) {}

ProgramTest::~ProgramTest() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
    std::filesystem::remove_all(streams_, ignored);
}

pid_t ProgramTest::startIn(const std::string& program, const Arguments& arguments, const char* streams[3]) {
    std::vector<char*> words = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) words.push_back(const_cast<char*>(argument.c_str()));
    words.push_back(nullptr);
    const pid_t id = ::fork();
    if (id != 0) return id;
    for (int i = 0; i < 3; ++i) {
        const int flags = i == 0 ? O_RDONLY : O_WRONLY | O_CREAT | O_TRUNC;
        const int descriptor = ::open(streams[i], flags, 0600);
        if (descriptor < 0 || ::dup2(descriptor, i) < 0) ::_exit(126);
    }
    ::setenv("orvane", ORVANE_PROGRAM, 1);
    if (::chdir(folder_.c_str()) != 0) ::_exit(126);
    ::execv(program.c_str(), words.data());
    ::_exit(127);
}

ProgramResult ProgramTest::runProgram(const std::string& program, const Arguments& arguments,
                                      std::string_view input) {
    const std::string in = streams_ + "/in", out = streams_ + "/out", err = streams_ + "/err";
    writeFile(in, input);
    const char* streams[] = {in.c_str(), out.c_str(), err.c_str()};
    const pid_t id = startIn(program, arguments, streams);
    int status = 0;
    EXPECT_EQ(::waitpid(id, &status, 0), id);
    const int code = WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status);
    return {code, contentsOf(out), contentsOf(err)};
}

ProgramResult ProgramTest::run(const Arguments& arguments, std::string_view input) {
    return runProgram(ORVANE_PROGRAM, arguments, input);
}

ProgramResult ProgramTest::runInShell(const std::string& line) {
    return runProgram("/bin/sh", {"-c", line}, {});
}

pid_t ProgramTest::start(const Arguments& arguments) {
    const char* streams[] = {"/dev/null", "/dev/null", "/dev/null"};
    return startIn(ORVANE_PROGRAM, arguments, streams);
}

void ProgramTest::write(const std::string& name, std::string_view contents) {
    writeFile(path(name), contents);
}

std::string ProgramTest::read(const std::string& name) const { return contentsOf(path(name)); }

bool ProgramTest::exists(const std::string& name) const { return std::filesystem::exists(path(name)); }

std::string ProgramTest::files(const std::string& folder) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(path(folder))) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    std::string list;
    for (const std::string& name : names) list += (list.empty() ? "" : " ") + name;
    return list;
}

void ProgramTest::makePicture(const std::string& name) {
    const ProgramResult made = run({"NewImage", "8", "6", "-o", name});
    ASSERT_EQ(made.status, 0) << made.err;
}

}  // namespace orvane
