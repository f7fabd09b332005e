// Who changed a row last, and when: its author as long as nobody did.
#pragma once

#include <QString>

namespace site {

/// What the columns `modifier` and `modified` hold; every write of a row of the three lists fills
/// them by this.
struct LastChange {
    LastChange(const QString& author, qint64 created, const QString& updater, qint64 updated)
        : person(updater.isEmpty() ? author : updater), time(updated > 0 ? updated : created) {}

    QString person;
    qint64 time;
};

} // namespace site
