// A page of the console: what is searched, which page is wanted, what the service says of it.
#pragma once

#include <QString>

#include <vector>

namespace KX_DATA {

/// "No photo" in filters that name one.
inline constexpr qint32 kNoPic = -1;

/// Search in BIM photos and issues. Empty texts and mark 0 mean no limit.
struct PicQueryFilter {
    QString keyword;   ///< anywhere in name, people, description
    QString presetKey; ///< BIM photos: a position key; issues: a floor
    QString labelId;
    qint32 markId = 0;
    qint32 picId = kNoPic; ///< only ticks its row, never restricts
    bool noDateLimit = true;
    qint64 startTime = 0; ///< both inclusive, seconds since 1970
    qint64 endTime = 0;
    QString status;                 ///< name of a rectification state; "全部" or empty: all
    QString presetExtra;            ///< issues, together with presetKey: handle of a component
    std::vector<qint32> projectIds; ///< empty: matches nothing
};

/// Search in drawing photos.
struct PdfQueryFilter {
    QString keyword; ///< anywhere in name, drawing, people, description
    qint32 markId = 0;
    QString labelId;
    qint32 drawingId = -1;    ///< -1: no limit
    qint32 checkpointId = -1; ///< -1: no limit
    bool noDateLimit = true;
    qint64 startTime = 0;
    qint64 endTime = 0;
    QString status;
    std::vector<qint32> projectIds;
};

/// Which page, in which order.
struct PageRequest {
    qint32 page = 1; ///< from 1
    qint32 pageSize = 30;
    QString sortField;
    QString sortOrder; ///< "desc" or "asc"
};

/// What the service says of the whole search.
struct PageResult {
    qint64 reserved = 0; ///< nothing reads it
    qint32 totalCount = 0;
    qint32 pageCount = 0;
};

} // namespace KX_DATA
