#pragma once

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace orvane::cli {

/// Where a word stands, so that every message can name it.
struct Place {
    std::shared_ptr<const std::string> file;  ///< null: on the command line
    int line = 0;
    int word = 0;  ///< counted from 1, in its line or as the argument of the command line

    /// "argument 3", or "steps.txt:4:2" for the second word of the fourth line.
    [[nodiscard]] std::string describe() const;
};

struct Word {
    std::string text;
    Place place;
};

/// The arguments from `first` on.
[[nodiscard]] std::vector<Word> commandLineWords(std::span<char* const> arguments, std::size_t first);

/// The words of a step file, a list for each line that has any. Words are separated by spaces and quoted as
/// in a shell: '...' is literal, "..." keeps spaces and knows \" and \\, a backslash takes the next character
/// literally and joins lines at a line's end, # starts a comment where a word would start. Nothing is
/// expanded. Throws Refusal for a quote that does not end and for zero bytes.
[[nodiscard]] std::vector<std::vector<Word>> splitStepFile(std::string_view text, const std::string& name);

/// Text from outside as a message shows it: in quotes, shortened, and with nothing that a terminal obeys.
[[nodiscard]] std::string inQuotes(std::string_view text);

}  // namespace orvane::cli
