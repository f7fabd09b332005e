// What a site lists, held in memory, and a search in it by looking at every record.
#pragma once

#include "services/PageQuery.h"

#include <QString>

#include <variant>
#include <vector>

namespace support {

/// A photo or an issue; what its kind doesn't have stays empty.
struct SearchRecord {
    qint64 id = 0; ///< in the order of filing
    QString name;  ///< by which the list's row is known
    qint32 ppid = 0;
    std::vector<QString> texts; ///< in which a keyword is looked for
    qint32 markId = 0;
    qint32 state = 0; ///< its place in the order of the states
    QString stateName;
    qint32 status = 0;
    std::vector<QString> labelIds;
    qint64 modified = 0;
    QString modifier;
    QString title; ///< name or theme
    QString description;
    QString floorSort;
    QString place;
    QString component;
    QString presetKey;   ///< position key or floor
    QString presetExtra; ///< handle of a component
    QString drawingName;
    qint32 drawingId = 0;
    qint32 checkpointId = 0;
    qint32 checkpointNo = 0;
};

/// A search in one of the three kinds.
struct SearchQuestion {
    QString keyword;
    std::vector<qint32> projectIds;
    qint32 markId = 0;
    QString labelId;
    QString status;
    bool noDateLimit = true;
    qint64 startTime = 0;
    qint64 endTime = 0;
    QString presetKey;
    QString presetExtra;
    qint32 drawingId = -1;
    qint32 checkpointId = -1;
    KX_DATA::PageRequest page;
};

/// By which columns a field of the page sorts, in the order of their weight.
using SortColumn =
    std::variant<QString SearchRecord::*, qint32 SearchRecord::*, qint64 SearchRecord::*>;
[[nodiscard]] std::vector<SortColumn> ColumnsOf(const QString& sortField);

/// All that match, in the order asked for.
[[nodiscard]] std::vector<SearchRecord> SearchAll(std::vector<SearchRecord> records,
                                                  const SearchQuestion& question);

} // namespace support
