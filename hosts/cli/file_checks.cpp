#include "cli/file_checks.h"

#include <map>
#include <set>
#include <string>

#include <sys/stat.h>

#include "base/unicode.h"
#include "cli/raw_files.h"
#include "cli/refusal.h"

namespace orvane::cli {
namespace {

class FileChecker {
 public:
    explicit FileChecker(bool force) : force_(force) {}

    void check(const Step& step) {
        if (step.usesStandardStream()) return;
        switch (step.fileUse) {
            case FileUse::None:
                noteSaveImage(step);
                break;
            case FileUse::ReadsPicture:
            case FileUse::ReadsBytes:
                checkRead(step);
                break;
            case FileUse::WritesPicture:
            case FileUse::WritesBytes:
                checkWritten(step);
                break;
        }
    }

 private:
    using FileNumber = std::pair<dev_t, ino_t>;  // the same for all names and links of a file

    static std::optional<FileNumber> numberOf(const std::string& path) {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0) return std::nullopt;
        return FileNumber(status.st_dev, status.st_ino);
    }

    void checkRead(const Step& step) {
        const std::string& path = step.file.text;
        const std::string name = canonicalPath(path);
        readNames_.emplace(name, &step);
        if (const auto number = numberOf(path)) readNumbers_.emplace(*number, &step);
        if (written_.count(name) != 0) return;
        const std::string problem = whyUnreadable(path, step.fileUse == FileUse::ReadsPicture);
        if (!problem.empty()) refuse(step.file, problem, ExitStatus::Input);
    }

    void checkWritten(const Step& step) {
        const std::string& path = step.file.text;
        if (const Step* reader = force_ ? nullptr : readerOf(path)) {
            refuse(step.file, "would overwrite the file that " + reader->word.text + " (" +
                                  reader->word.place.describe() +
                                  ") reads; choose another name or add --force");
        }
        const std::string problem = whyUnwritable(path);
        if (!problem.empty()) refuse(step.file, problem, ExitStatus::Output);
        written_.insert(canonicalPath(path));
    }

    /// The member may be given any path and answers for itself; a later step may read what it wrote.
    void noteSaveImage(const Step& step) {
        if (step.member == nullptr || std::string_view(step.member->name) != "SaveImage") return;
        if (const auto path = utf8FromUtf16(step.arguments[0].string()))
            written_.insert(canonicalPath(*path));
    }

    [[nodiscard]] const Step* readerOf(const std::string& path) const {
        if (const auto found = readNames_.find(canonicalPath(path)); found != readNames_.end()) {
            return found->second;
        }
        const auto number = numberOf(path);
        const auto found = number ? readNumbers_.find(*number) : readNumbers_.end();
        return found != readNumbers_.end() ? found->second : nullptr;
    }

    bool force_;
    std::map<std::string, const Step*> readNames_;
    std::map<FileNumber, const Step*> readNumbers_;
    std::set<std::string> written_;
};

}  // namespace

void checkFiles(const Script& script) {
    FileChecker checker(script.force);
    for (const Step& step : script.steps) checker.check(step);
}

}  // namespace orvane::cli
