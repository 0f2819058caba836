// orvane_generate ROOT          writes the files made from the member table below the project's root
// orvane_generate --check ROOT  answers whether they are current, and names those that are not
// orvane_generate --gtk FOLDER  writes the sources of the GTK widget's members, which only the build needs
#include <cstdio>
#include <fstream>
#include <iterator>
#include <span>
#include <string>
#include <string_view>

#include "writers.h"

namespace {

struct File {
    std::string path, text;
};

std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool isCurrent(const File& file) { return contentsOf(file.path) == file.text; }

int check(std::span<const File> files, const std::string& root) {
    int status = 0;
    for (const File& file : files) {
        if (isCurrent(file)) continue;
        std::printf("%s is not what the member table gives: run orvane_generate %s\n", file.path.c_str(),
                    root.c_str());
        status = 1;
    }
    return status;
}

int write(std::span<const File> files) {
    for (const File& file : files) {
        if (isCurrent(file)) continue;
        if (!(std::ofstream(file.path, std::ios::binary) << file.text)) {
            std::fprintf(stderr, "cannot write %s\n", file.path.c_str());
            return 4;
        }
        std::printf("wrote %s\n", file.path.c_str());
    }
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    const std::string_view option = argc == 3 ? argv[1] : "";
    if (argc != 2 && option != "--check" && option != "--gtk") {
        std::fprintf(stderr, "usage: orvane_generate [--check] ROOT, or orvane_generate --gtk FOLDER\n");
        return 2;
    }
    const std::string root = argv[argc - 1];
    if (option == "--gtk") {
        const File files[] = {{root + "/orvane-gtk-members.h", orvane::gtkHeader()},
                              {root + "/orvane-gtk-members.cpp", orvane::gtkSource()}};
        return write(files);
    }
    const File files[] = {{root + "/include/orvane/vistrel.h", orvane::vistrelHeader()},
                          {root + "/docs/members.md", orvane::membersPage()}};
    return option == "--check" ? check(files, root) : write(files);
}
