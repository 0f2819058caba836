#include "control/event_table.h"

namespace orvane {
namespace {

constexpr Parameter kImageX{"X", ValueType::Long, "image pixel, which may lie outside the picture"};
constexpr Parameter kImageY{"Y", ValueType::Long, "image pixel, which may lie outside the picture"};

constexpr Event kRows[] = {
    {.id = EventId::OnDropFile,
     .help = "Files were dropped on the control, which opens none of them.",
     .parameters = {{"FileName", ValueType::String, "path of the first file"}}},
    {.id = EventId::OnTrackPointMouseDown,
     .help = "The track point was grabbed.",
     .parameters = {kImageX, kImageY}},
    {.id = EventId::OnTrackPointMouseMove,
     .help = "The track point was dragged.",
     .parameters = {kImageX, kImageY}},
    {.id = EventId::OnTrackPointMouseUp,
     .help = "The track point was let go.",
     .parameters = {kImageX, kImageY}},
    {.id = EventId::OnHitApplyRotate, .help = "The free rotation was applied by its button."},
    {.id = EventId::OnHitCancelRotate, .help = "The free rotation was given up by its button."},
    {.id = EventId::OnHitCloseScrollWindow, .help = "The overview panel's close button was pressed."},
};

}  // namespace

std::span<const Event> eventTable() noexcept { return kRows; }

}  // namespace orvane
