// What a service did that a person may want back.
#pragma once

#include "site/IBin.h"

#include <QString>

#include <vector>

namespace host {

enum class DeedKind { Deleted, Hidden, Shown };

struct DeedItem {
    qint32 ppid = 0;
    qint64 id = 0;        ///< deleted: of its entry in the bin; else of the photo
    QString questionId{}; ///< of an issue that was hidden or shown
    QString name{};
};

/// One operation on things of one kind; the items are those that it really changed.
struct DoneDeed {
    DeedKind kind = DeedKind::Deleted;
    site::BinKind what = site::BinKind::BimPhoto;
    std::vector<DeedItem> items{};
};

/// What went into the bin; of one kind.
[[nodiscard]] inline DoneDeed DeedOf(const std::vector<site::BinEntry>& made) {
    DoneDeed deed;
    for (const site::BinEntry& entry : made) {
        deed.what = entry.kind;
        deed.items.push_back({entry.ppid, entry.id, {}, entry.title});
    }
    return deed;
}

} // namespace host
