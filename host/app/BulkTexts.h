// How the filing of many at once reads.
#pragma once

#include "site/ListFilter.h"

#include <QString>

namespace host {

/// What became of them.
struct BulkCounts {
    size_t changed = 0;
    size_t unchanged = 0;
    size_t skipped = 0;
};

/// "照片" or "TN问题".
[[nodiscard]] QString BulkThing(site::ListKind kind);
/// "已归档 12 张照片，2 张本来如此，3 张跳过。"
[[nodiscard]] QString BulkDoneText(site::ListKind kind, const BulkCounts& counts);
/// "已撤销 12 张照片的归档，3 张没有撤销。"
[[nodiscard]] QString BulkUndoneText(site::ListKind kind, size_t back, size_t left);
/// What the offer beside the message does.
[[nodiscard]] QString BulkUndoTip(site::ListKind kind, size_t count);
/// As the record of actions has it: "批量归档 12 张照片".
[[nodiscard]] QString BulkActionText(site::ListKind kind, size_t count);

} // namespace host
