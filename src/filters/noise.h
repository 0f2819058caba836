#pragma once

namespace orvane {

class ImageDocument;

/// Adds random noise to the colour channels, held within 0..255; alpha becomes 255. A noise value is
/// trunc(r x level / 32767) with r uniform in 0..32767, its sign as likely positive as negative.
///
/// type: 0 adds one value to all channels of a pixel (grey noise), any other an own value to each (colour
/// noise). level: the largest value; any number is accepted, 0 changes no channel. The random numbers come
/// from the stream that all controls of the process share, which goes on from call to call. One history step,
/// even when nothing changes; an empty document, or one that finds no memory for the step, stays as it is,
/// and so does the stream.
void noise(ImageDocument& document, int type, int level) noexcept;

}  // namespace orvane
