#pragma once

namespace orvane {

class ImageDocument;

/// A power curve on each channel: c becomes trunc(255 (c / 255)^level), 0 stays 0; alpha becomes 255. The
/// power is formed as exp2(level log2(c (1 / 255))) by the C library.
///
/// level: from 0.02 on, above 1 darkens and below 1 lightens; a smaller level or not-a-number is refused:
/// nothing happens. Otherwise one history step, even when nothing changes; an empty document, or one that
/// finds no memory for the step, stays as it is.
void gamma(ImageDocument& document, double level) noexcept;

}  // namespace orvane
