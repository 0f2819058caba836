#pragma once

#include <span>

namespace orvane::studio {

enum class ToolGroup { View, Line, Shape, Freehand, Place };

/// What of the options bar a tool has a use for. A tool names all that it looks at.
namespace ToolOptions {
enum : unsigned {
    None = 0,
    Ink = 1U << 0,   ///< colour and opacity of the pen
    Line = 1U << 1,  ///< width and dashes of the pen
    Fill = 1U << 2,  ///< what shapes and letters are filled with
    Nib = 1U << 3,   ///< the brush
    Eraser = 1U << 4,
    Spray = 1U << 5,
    Text = 1U << 6,
    Stamp = 1U << 7,
    Selection = 1U << 8,
    Crop = 1U << 9,
    Rotation = 1U << 10,
    TrackPoint = 1U << 11,
    View = 1U << 12,
    Draw = 1U << 13,  ///< leaves something placed, to be drawn into the picture or dropped
};
}  // namespace ToolOptions

/// One tool: a paint mode of the control as the palette, the options bar, the status bar and the keys know
/// it.
struct Tool {
    int mode;  ///< the control's paint-status
    const char* label;
    const char* iconName;
    char key;          ///< chooses the tool when it is typed over the picture: a letter or digit, each once
    const char* hint;  ///< how it is used, in one line
    ToolGroup group;
    unsigned options;  ///< of ToolOptions
};

/// The tools in the palette's order, the groups one behind the other.
[[nodiscard]] std::span<const Tool> tools();
/// The tool of a paint-status; null for a value that stands for none.
[[nodiscard]] const Tool* toolOfMode(int mode);

}  // namespace orvane::studio
