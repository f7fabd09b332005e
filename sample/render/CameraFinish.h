// What a phone's camera does to a picture: soft edges, glow, vignette, colour cast, noise.
#pragma once

#include <QImage>

namespace sample {

/// Settings of one shot. Everything is deterministic; no member means seconds or random state.
struct FinishSettings {
    float vignette = 0.25F; ///< loss in the corners, 0 to 1
    float red = 1;          ///< gains of the colour cast
    float green = 1;
    float blue = 1;
    float noise = 3;    ///< amplitude in 8-bit steps
    float glow = 0.25F; ///< light that bleeds out of bright places
    int shake = 0;      ///< pixels of horizontal motion blur, 0 to 8
    quint32 seed = 0;   ///< shifts the noise and places the dust
};

/// Rounds off the stairs of hard edges; smooth places stay as they are. Format_RGB32, in place.
void SoftenEdges(QImage& image);

/// Applies the settings to a Format_RGB32 picture in place.
void FinishPicture(QImage& image, const FinishSettings& settings);

} // namespace sample
