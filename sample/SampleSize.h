// How big a sample site a new data folder gets.
#pragma once

namespace sample {

enum class SampleSize {
    None,
    Small, ///< 40 photos of the model at 800 x 600, made in a second or two
    Full   ///< 300 photos of the model, most of 2 megapixels, made in under a minute
};

} // namespace sample
