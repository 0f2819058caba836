#include "cli/words.h"

#include <cstdio>
#include <optional>

#include "base/unicode.h"
#include "cli/refusal.h"

namespace orvane::cli {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class StepFileReader {
 public:
    StepFileReader(std::string_view text, const std::string& name)
        : text_(text), file_(std::make_shared<const std::string>(name)) {
        if (text_.substr(0, kByteOrderMark.size()) == kByteOrderMark) at_ = kByteOrderMark.size();
    }

    std::vector<std::vector<Word>> read() {
        if (text_.find('\0') != std::string_view::npos) {
            throw Refusal(*file_ + ": holds a zero byte, so it is no text file of steps", ExitStatus::Usage);
        }
        while (at_ < text_.size()) {
            skipSpaces();
            if (at_ == text_.size()) break;
            if (text_[at_] == '\n') {
                endLine();
            } else if (text_[at_] == '#') {
                while (at_ < text_.size() && text_[at_] != '\n') ++at_;
            } else {
                readWord();
            }
        }
        endLine();
        return std::move(lines_);
    }

 private:
    static bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r'; }

    void skipSpaces() {
        while (at_ < text_.size()) {
            if (isSpace(text_[at_])) {
                ++at_;
            } else if (const std::size_t length = joinedLineEnd()) {
                at_ += length;
                ++line_;
            } else {
                return;
            }
        }
    }

    /// The length of a backslash with the line end after it, 0 when there is none here.
    [[nodiscard]] std::size_t joinedLineEnd() const {
        if (text_.substr(at_, 2) == "\\\n") return 2;
        return text_.substr(at_, 3) == "\\\r\n" ? 3 : 0;
    }

    void endLine() {
        if (!words_.empty()) lines_.push_back(std::move(words_));
        words_.clear();
        ++at_;
        ++line_;
    }

    void readWord() {
        Word word{{}, {file_, line_, int(words_.size()) + 1}};
        while (at_ < text_.size() && !isSpace(text_[at_]) && text_[at_] != '\n') {
            const char c = text_[at_];
            if (c == '\'' || c == '"') {
                readQuoted(word, c);
            } else if (const std::size_t length = joinedLineEnd()) {
                at_ += length;
                ++line_;
            } else {
                if (c == '\\' && at_ + 1 < text_.size()) ++at_;
                word.text.push_back(text_[at_++]);
            }
        }
        words_.push_back(std::move(word));
    }

    void readQuoted(Word& word, char quote) {
        ++at_;
        for (; at_ < text_.size() && text_[at_] != quote; ++at_) {
            const bool escapes = quote == '"' && text_[at_] == '\\' && at_ + 1 < text_.size() &&
                                 (text_[at_ + 1] == '"' || text_[at_ + 1] == '\\');
            if (escapes) ++at_;
            if (text_[at_] == '\n') ++line_;
            word.text.push_back(text_[at_]);
        }
        if (at_ == text_.size()) {
            refuseAt(word.place, std::string("the quote ") + quote +
                                     " is not closed; to mean the character "
                                     "itself, write \\" +
                                     quote);
        }
        ++at_;
    }

    std::string_view text_;
    std::shared_ptr<const std::string> file_;
    std::size_t at_ = 0;
    int line_ = 1;
    std::vector<Word> words_;
    std::vector<std::vector<Word>> lines_;
};

}  // namespace

std::string Place::describe() const {
    if (file == nullptr) return "argument " + std::to_string(word);
    return *file + ":" + std::to_string(line) + ":" + std::to_string(word);
}

std::vector<Word> commandLineWords(std::span<char* const> arguments, std::size_t first) {
    std::vector<Word> words;
    for (std::size_t i = first; i < arguments.size(); ++i) {
        words.push_back({arguments[i], {nullptr, 0, int(i)}});
    }
    return words;
}

std::vector<std::vector<Word>> splitStepFile(std::string_view text, const std::string& name) {
    return StepFileReader(text, name).read();
}

std::string inQuotes(std::string_view text) {
    constexpr std::size_t kLongest = 120;
    const bool readable = utf16FromUtf8(text).has_value();
    std::string shown = "\"";
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        // A character is not cut in two: only its first byte may be left out with all that follows.
        if (i >= kLongest && (!readable || (c & 0xC0) != 0x80)) return shown + "\"...";
        if (c < 0x20 || c == 0x7F || (c >= 0x80 && !readable)) {
            char escape[5];
            std::snprintf(escape, sizeof escape, "\\x%02X", c);
            shown += escape;
        } else {
            shown.push_back(text[i]);
        }
    }
    return shown + "\"";
}

}  // namespace orvane::cli
