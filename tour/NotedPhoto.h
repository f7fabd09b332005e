// The photo that the walk opens in the viewer.
#pragma once

#include "services/PicRecords.h"

namespace tour {

/// A shown photo with a place and a voice note; without a name if there is none.
[[nodiscard]] KX_DATA::BimPicRow RowOfNotedPhoto();

} // namespace tour
