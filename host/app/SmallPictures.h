// Small pictures for the cells of a spreadsheet.
#pragma once

#include "sheets/SheetFile.h"
#include "site/IClientFolders.h"

#include <memory>
#include <stop_token>

namespace host {

class SessionDesk;

/// JPEGs of at most 136 by 96 pixels, out of this cache of the module, or fetched into it. Waits
/// for each no longer than any transfer may stand still; empty for all once `end` is asked to stop.
/// Thread: any.
[[nodiscard]] sheets::PictureSource SmallPictures(std::shared_ptr<SessionDesk> desk,
                                                  site::IClientFolders::Cache cache,
                                                  std::stop_token end);

} // namespace host
