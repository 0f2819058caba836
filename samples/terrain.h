#pragma once

#include <vector>

#include "vector.h"

namespace sample {

/// Mountains around a lake. Metres; x to the right, y up, z away from the viewer, who stands near the origin
/// by the water, whose level is 0.
class Terrain {
 public:
    static constexpr float kDepth = 18000.0f;  // the land reaches from z = 0 to here
    static constexpr float kNear = 60.0f;      // and nothing rises above the water nearer than this

    explicit Terrain(Vec3 towardsSun);

    /// The ground with its rocks and trees; `footprint` is the size of one pixel there, and detail finer than
    /// that is left out.
    [[nodiscard]] float height(float x, float z, float footprint) const;

    /// A height that the ground there, trees and all, certainly stays below; cheap. Not above 0 on the lake.
    [[nodiscard]] float ceiling(float x, float z) const;

    /// The light that the ground at (x, z) sends to the viewer, before the haze of the air.
    [[nodiscard]] Vec3 light(float x, float z, float height, float footprint) const;

 private:
    static constexpr int kCells = 2048;
    static constexpr float kCellSize = kDepth / float(kCells);

    [[nodiscard]] static float ground(float x, float z);
    [[nodiscard]] float fromMap(const std::vector<float>& map, float x, float z) const;
    void castShadows();

    Vec3 towardsSun_;
    std::vector<float> ground_;  // the height of the bare ground at each cell
    std::vector<float> shade_;   // below this height the cell lies in the shadow of a mountain
};

}  // namespace sample
