#include "cli/batch_plan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <thread>

#include <sys/stat.h>

#include "cli/file_checks.h"
#include "cli/picture_formats.h"
#include "cli/raw_files.h"
#include "cli/refusal.h"
#include "cli/script_parser.h"
#include "cli/values.h"

namespace orvane::cli {
namespace {

constexpr int kMostJobs = 1024;
constexpr const char* kUsage =
    "\n  usage: orvane batch [--jobs N] [--format F] [--force] OUTDIR FILE... -- STEP...";

/// The words before `--`.
struct BatchWords {
    std::vector<Word> paths;  ///< the folder and the files
    std::optional<ImageFormat> format;
    std::string extension;  ///< of that format, with its dot
    std::optional<int> jobs;
    bool force = false;
};

const Word& optionValue(std::span<const Word> words, std::size_t& i, const char* meaning) {
    if (i + 1 >= words.size()) refuse(words[i], std::string("takes ") + meaning + kUsage);
    return words[++i];
}

BatchWords readBatchWords(std::span<const Word> words) {
    BatchWords read;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& text = words[i].text;
        if (text == "--force") {
            read.force = true;
        } else if (text == "--jobs") {
            const Word& value = optionValue(words, i, "the number of files at a time");
            const auto jobs = parseInteger(value.text, 1, kMostJobs);
            if (!jobs) refuse(value, "is not a number of files at a time, 1 to 1024");
            read.jobs = int(*jobs);
        } else if (text == "--format") {
            const Word& value = optionValue(words, i, "bmp, jpg, gif, tif or png");
            read.format = formatOfExtension(value.text);
            if (!read.format) refuse(value, "is not a format; bmp, jpg, gif, tif and png can be written");
            read.extension = "." + value.text;
        } else if (text.substr(0, 1) == "-") {
            refuse(words[i], "is not an option of batch; for a file of this name write ./" + text + kUsage);
        } else if (text.empty()) {
            refuse(words[i], std::string("is no path") + kUsage);
        } else {
            read.paths.push_back(words[i]);
        }
    }
    return read;
}

/// A step that writes would write the same file for every picture.
void checkSteps(const Script& script) {
    for (const Step& step : script.steps) {
        const bool isSave = step.member != nullptr && std::string_view(step.member->name) == "SaveImage";
        if (isSave || step.fileUse == FileUse::WritesPicture || step.fileUse == FileUse::WritesBytes) {
            refuse(step.word,
                   "would write one file for all pictures; batch itself saves each of them in OUTDIR");
        }
        if (step.usesStandardStream()) {
            refuse(step.file, "would be read by every picture, but standard input only once; name a file");
        }
    }
    checkFiles(script);
}

BatchItem itemFor(const Word& input, const BatchWords& words) {
    const std::string& path = input.text;
    const std::string name = path.substr(path.rfind('/') + 1);
    const std::string extension(extensionOf(path));
    const auto own = formatOfPath(path);
    const ImageFormat format = words.format ? *words.format : own.value_or(ImageFormat::Png);
    const std::string newExtension = words.format ? words.extension : own ? extension : ".png";
    const std::string stem = name.substr(0, name.size() - extension.size());
    if (stem.empty()) refuse(input, "is a folder; name a file in it", ExitStatus::Usage);
    return {input, words.paths[0].text + "/" + stem + newExtension, int(format)};
}

/// Where each file stands among the inputs, under whatever name.
class InputFiles {
 public:
    explicit InputFiles(const std::vector<BatchItem>& items) {
        for (const BatchItem& item : items) {
            struct stat status {};
            if (::stat(item.input.text.c_str(), &status) == 0) {
                inputs_.emplace(std::pair(status.st_dev, status.st_ino), &item);
            }
        }
    }
    [[nodiscard]] const BatchItem* find(const std::string& path) const {
        struct stat status {};
        if (::stat(path.c_str(), &status) != 0) return nullptr;
        const auto found = inputs_.find(std::pair(status.st_dev, status.st_ino));
        return found != inputs_.end() ? found->second : nullptr;
    }

 private:
    std::map<std::pair<dev_t, ino_t>, const BatchItem*> inputs_;
};

void checkNames(const std::vector<BatchItem>& items) {
    std::map<std::string, const BatchItem*> outputs;
    for (const BatchItem& item : items) {
        const auto [other, isNew] = outputs.emplace(item.output, &item);
        if (isNew) continue;
        const Word& first = other->second->input;
        refuse(item.input, "and " + inQuotes(first.text) + " (" + first.place.describe() +
                               ") would both be written to " + inQuotes(item.output) +
                               "; run them in two batches");
    }
}

void checkInputsStay(const std::vector<BatchItem>& items, bool force) {
    const InputFiles inputs(items);
    for (const BatchItem& item : items) {
        const BatchItem* overwritten = inputs.find(item.output);
        if (overwritten == nullptr) continue;
        if (overwritten != &item) {  // even with --force: the files are worked on in no fixed order
            const Word& other = overwritten->input;
            refuse(item.input, "would be written over another input, " + inQuotes(other.text) + " (" +
                                   other.place.describe() + "); choose another OUTDIR");
        }
        if (!force) refuse(item.input, "would be overwritten; choose another OUTDIR or add --force");
    }
}

}  // namespace

BatchPlan planBatch(std::span<const Word> words) {
    const auto separator =
        std::find_if(words.begin(), words.end(), [](const Word& word) { return word.text == "--"; });
    if (separator == words.end()) {
        throw Refusal(std::string("batch: there is no -- between the files and the steps") + kUsage,
                      ExitStatus::Usage);
    }
    const std::size_t position = std::size_t(separator - words.begin());
    const BatchWords read = readBatchWords(words.first(position));
    if (read.paths.size() < 2) {
        refuse(*separator, std::string("comes too soon: a folder for the results and at least one file stand "
                                       "before it") +
                               kUsage);
    }
    BatchPlan plan;
    plan.folder = read.paths[0].text;
    plan.script = parseScript(words.subspan(position + 1));
    checkSteps(plan.script);
    for (std::size_t i = 1; i < read.paths.size(); ++i) plan.items.push_back(itemFor(read.paths[i], read));
    checkNames(plan.items);
    checkInputsStay(plan.items, read.force || plan.script.force);
    const int processors = int(std::max(1u, std::thread::hardware_concurrency()));
    plan.jobs = std::min(read.jobs.value_or(processors), int(plan.items.size()));
    return plan;
}

}  // namespace orvane::cli
