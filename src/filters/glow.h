#pragma once

namespace orvane {

class ImageDocument;

/// Lets bright pixels shine over their surroundings.
///
/// level: a pixel shines when R, G and B all reach it; from 1, and from 256 on nothing shines.
/// radius: how far light goes, in pixels, from 1. intensity: from 1; the weight at distance d is
/// w[d] = 1 / (d (intensity - 1) / radius + 1), so that more light also falls off faster.
/// With any of them below 1 nothing happens. Each pixel receives from every shining pixel but itself within
/// the radius (R + G + B) intensity w[d] / (765 (w[0] + .. + w[radius])), added up in double precision column
/// by column from the left, each from the top; the whole part of the sum is added to R, G and B, which end at
/// 255. Alpha becomes 255.
///
/// One history step; an empty document, or one that finds no memory for the step, stays as it is. Beyond it
/// the filter needs little, but for a radius as large as the picture up to three more pictures. Its cost
/// grows with the area of the light's circle, except where few pixels shine or where all is soon white.
void glow(ImageDocument& document, int level, int radius, int intensity) noexcept;

}  // namespace orvane
