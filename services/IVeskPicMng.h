// The photo service: reading and changing BIM and drawing photos.
#pragma once

#include "services/DrawingRecords.h"
#include "services/MarkGroups.h"
#include "services/PageQuery.h"
#include "services/PicRecords.h"

namespace KX_DATA {

/// Success of an operation that answers with a status; anything else is failure.
inline constexpr qint32 kServiceOk = 101;

/// Photos of all projects. Out lists come in empty, except where said.
///
/// Two conventions of result stand side by side and are kept per operation: a status (101 is
/// success) and a boolean. Thread: user interface.
class IVeskPicMng {
public:
    virtual ~IVeskPicMng() = default;

    virtual void Reserved1() = 0;
    virtual void Reserved2() = 0;
    /// One page of BIM photos. Status.
    virtual qint32 QueryBimPics(const PicQueryFilter& filter, const PageRequest& request,
                                PageResult& result, std::vector<BimPicRow>& rows) = 0;
    /// One page of drawing photos. Unlike QueryBimPics any value but 0 is success.
    virtual qint32 QueryPdfPics(const PdfQueryFilter& filter, const PageRequest& request,
                                PageResult& result, std::vector<PdfPicRecord>& rows) = 0;
    /// Filter list of the mark panel; `entries` holds the last fetch and is replaced.
    virtual void GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                                       MarkFilterArg& filterArg,
                                       std::vector<PicFilterEntry>& entries) = 0;
    /// Ids of the shown photos of one mark; the result is theirs in number.
    virtual qint32 GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                       MarkFilterArg& filterArg, std::vector<qint32>& picIds) = 0;
    /// Takes no project, unlike its counterpart for drawing photos.
    virtual bool DeleteBimPics(const std::vector<qint32>& picIds) = 0;
    virtual bool DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) = 0;
    /// `hidden`: 1 hides, 0 shows.
    virtual bool SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) = 0;
    virtual bool SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) = 0;
    /// Status; fails for a hidden photo as well as for an unknown one.
    virtual qint32 GetBimPicDetail(qint32 ppid, qint32 picId, BimPicDetail& detail) = 0;
    virtual qint32 GetPdfPicDetail(qint32 ppid, qint32 picId, PdfPicDetail& detail) = 0;
    /// Status. Floors sort as numbers where they are numbers.
    virtual qint32 GetProjectFloors(qint32 ppid, std::vector<QString>& floors) = 0;
    virtual qint32 GetFloorAxesX(qint32 ppid, const QString& floor, std::vector<QString>& axes) = 0;
    virtual qint32 GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                                 std::vector<AxisYEntry>& axes) = 0;
    /// Who saves last wins, here and below: nothing says which state was seen.
    virtual bool UpdateBimPic(qint32 ppid, const BimPicUpdate& update) = 0;
    virtual bool UpdatePdfPic(qint32 ppid, const PdfPicUpdate& update) = 0;
    /// Status; callers treat an empty list as failure too.
    virtual qint32 GetPicFiles(const std::vector<qint32>& picIds,
                               std::vector<PicFileEntry>& files) = 0;
    /// Status. Takes the current project, also for photos of the workset's others.
    virtual qint32 GetCheckpointPics(qint32 ppid, qint32 picId, CheckpointPicDetail& detail) = 0;
    /// Tree of the mark panel; `groups` holds the last fetch and is replaced.
    virtual void GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                                       MarkFilterArg& filterArg,
                                       std::vector<PicMarkGroup>& groups) = 0;
    /// Non-zero on success; 0 for a photo that doesn't hang there, perhaps any more. The viewers
    /// call the checkpoint a drawing.
    virtual qint32 DeleteCheckpointPic(qint32 drawingId, qint32 picId) = 0;
    /// Status. Shown photos of one mark at one intersection.
    virtual qint32 GetPicFilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId,
                                         std::vector<PicFileEntry>& files) = 0;
    virtual void Reserved3() = 0;
    virtual void Reserved4() = 0;
    virtual void Reserved5() = 0;
    virtual bool GetBimLabels(std::vector<LabelEntry>& labels) = 0;
    virtual bool GetPdfLabels(std::vector<LabelEntry>& labels) = 0;
    virtual bool GetUsedBimMarks(std::vector<qint32>& markIds) = 0;
    virtual bool GetUsedPdfMarks(std::vector<qint32>& markIds) = 0;
    /// Names of the rectification states; one of them is "全部".
    virtual void GetStateNames(std::vector<QString>& names) = 0;
};

} // namespace KX_DATA
