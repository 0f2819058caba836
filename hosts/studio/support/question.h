#pragma once

#include <initializer_list>
#include <string>

#include <gtk/gtk.h>

namespace orvane::studio {

/// One answer to a question. People are led to the suggested one, which Return gives; the destructive one
/// loses something.
struct Choice {
    enum class Kind { Plain, Suggested, Destructive };
    const char* label;
    int response;
    Kind kind = Kind::Plain;
};

/// A modal question, with the choices from left to right, not shown yet.
[[nodiscard]] GtkDialog* newQuestion(GtkWindow* parent, const char* title, const std::string& question,
                                     const char* consequence, std::initializer_list<Choice> choices);

}  // namespace orvane::studio
