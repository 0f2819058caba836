#pragma once

#include <span>

namespace orvane::studio {

enum class FilterGroup { Colour, Light, Blur, Detail, Rank, Artistic };

enum class ParameterKind {
    Whole,           ///< a whole number
    Real,            ///< a number with two decimals
    Choice,          ///< one of some names, which stand for 0, 1, 2 and so on
    Colour,          ///< a colour, as one argument
    ColourChannels,  ///< a colour, as three arguments: red, green, blue
    CentreX,         ///< a column of the picture, at first the middle one
    CentreY,         ///< a row of the picture, at first the middle one
    Length,          ///< pixels; `initial` is a share of the picture's shorter side
    Kernel,          ///< the weights of a convolution, 3 x 3 or 5 x 5
};

/// One thing that a filter's dialog asks for.
struct FilterParameter {
    const char* label;  ///< with the mnemonic's underscore
    ParameterKind kind;
    double lowest, highest, initial;  ///< of numbers; a colour has 0xRRGGBB in `initial`
    const char* choices;              ///< names divided by "|"; null for what is not a choice
};

/// One filter: its member, its place in the menu, its dialog. The order of the parameters is the member's.
struct Filter {
    const char* member;  ///< "gaussian-blur"
    const char* label;   ///< with the mnemonic's underscore; "…" is added when there is something to ask
    FilterGroup group;
    std::span<const FilterParameter> parameters;
};

[[nodiscard]] std::span<const Filter> filters();
/// Null when there is no such filter.
[[nodiscard]] const Filter* filterOfMember(const char* member);
[[nodiscard]] const char* groupLabel(FilterGroup group);

}  // namespace orvane::studio
