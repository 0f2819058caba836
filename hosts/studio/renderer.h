#pragma once

namespace orvane::studio {

/// Has the toolkit draw without OpenGL where no graphics processor would do its work: an emulated one takes
/// many times as long for a frame. Called before the toolkit begins; what the user has chosen in GSK_RENDERER
/// stays.
void chooseRenderer();

}  // namespace orvane::studio
