// orvane_generate ROOT          writes the files made from the member table below the project's root
// orvane_generate --check ROOT  answers whether they are current, and names those that are not
#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "writers.h"

namespace {

std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

}  // namespace

int main(int argc, char** argv) {
    const bool check = argc == 3 && std::string_view(argv[1]) == "--check";
    if (argc != 2 && !check) {
        std::fprintf(stderr, "usage: orvane_generate [--check] ROOT\n");
        return 2;
    }
    const std::string root = argv[argc - 1];
    const struct {
        const char* path;
        std::string text;
    } files[] = {{"/include/orvane/vistrel.h", orvane::vistrelHeader()},
                 {"/docs/members.md", orvane::membersPage()}};
    bool current = true;
    for (const auto& file : files) {
        const std::string path = root + file.path;
        if (contentsOf(path) == file.text) continue;
        if (check) {
            std::printf("%s is not what the member table gives: run orvane_generate %s\n", path.c_str(),
                        root.c_str());
            current = false;
        } else if (!(std::ofstream(path, std::ios::binary) << file.text)) {
            std::fprintf(stderr, "cannot write %s\n", path.c_str());
            return 4;
        } else {
            std::printf("wrote %s\n", path.c_str());
        }
    }
    return current ? 0 : 1;
}
