#include "studio/tools/hatch_names.h"

namespace orvane::studio {
namespace {

constexpr const char* kNames[] = {
    "Horizontal lines",
    "Vertical lines",
    "Falling lines",
    "Rising lines",
    "Cross",
    "Diagonal cross",
    "Dots, 5 %",
    "Dots, 10 %",
    "Dots, 20 %",
    "Dots, 25 %",
    "Dots, 30 %",
    "Dots, 40 %",
    "Dots, 50 %",
    "Dots, 60 %",
    "Dots, 70 %",
    "Dots, 75 %",
    "Dots, 80 %",
    "Dots, 90 %",
    "Light falling lines",
    "Light rising lines",
    "Dark falling lines",
    "Dark rising lines",
    "Wide falling lines",
    "Wide rising lines",
    "Light vertical lines",
    "Light horizontal lines",
    "Narrow vertical lines",
    "Narrow horizontal lines",
    "Dark vertical lines",
    "Dark horizontal lines",
    "Dashed falling lines",
    "Dashed rising lines",
    "Dashed horizontal lines",
    "Dashed vertical lines",
    "Small confetti",
    "Large confetti",
    "Zigzag",
    "Waves",
    "Diagonal bricks",
    "Bricks",
    "Weave",
    "Plaid",
    "Divots",
    "Dotted grid",
    "Dotted diamonds",
    "Shingles",
    "Trellis",
    "Spheres",
    "Small grid",
    "Small checkerboard",
    "Large checkerboard",
    "Outlined diamonds",
    "Diamonds",
};
static_assert(std::size(kNames) == 53);

}  // namespace

std::span<const char* const> hatchNames() { return kNames; }

}  // namespace orvane::studio
