#include "tests/support/services/ScriptedVeskPicMng.h"

#include "tests/support/ArgText.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace support {

using KX_DATA::kServiceOk;
using KX_DATA::kStatusHidden;
using KX_DATA::kStatusShown;

namespace {

constexpr qint32 kPicServiceFailed = 0;

bool Contains(const std::vector<qint32>& ids, qint32 id) {
    return std::find(ids.begin(), ids.end(), id) != ids.end();
}

template <class Row>
void SetShown(std::vector<Row>& rows, const std::vector<qint32>& ids, bool hidden) {
    for (Row& row : rows) {
        if (Contains(ids, row.picId))
            row.status = hidden ? kStatusHidden : kStatusShown;
    }
}

template <class Row> void Remove(std::vector<Row>& rows, const std::vector<qint32>& ids) {
    std::erase_if(rows, [&](const Row& row) { return Contains(ids, row.picId); });
}

template <class Row> const Row* Find(const std::vector<Row>& rows, qint32 picId) {
    const auto found =
        std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.picId == picId; });
    return found == rows.end() ? nullptr : &*found;
}

template <class Row> Row* Find(std::vector<Row>& rows, qint32 picId) {
    return const_cast<Row*>(Find(std::as_const(rows), picId));
}

/// Fills a list if the call succeeds.
template <class Values> qint32 Answer(bool succeeds, const Values& values, Values& target) {
    if (!succeeds)
        return kPicServiceFailed;
    target = values;
    return kServiceOk;
}

} // namespace

QString ScriptedVeskPicMng::LabelIdOf(const QString& name) const {
    for (const KX_DATA::LabelEntry& label : bimLabels)
        if (label.labelName == name)
            return label.labelId;
    return u"id-of-"_s + name;
}

QString ScriptedVeskPicMng::LabelNameOf(const QString& id) const {
    for (const KX_DATA::LabelEntry& label : bimLabels)
        if (label.labelId == id)
            return label.labelName;
    return id.startsWith(u"id-of-"_s) ? id.mid(6) : id;
}

qint32 ScriptedVeskPicMng::QueryBimPics(const KX_DATA::PicQueryFilter& filter,
                                        const KX_DATA::PageRequest& request,
                                        KX_DATA::PageResult& result,
                                        std::vector<KX_DATA::BimPicRow>& rows) {
    lastBimFilter = filter;
    bimQuery.lastRequest = request;
    if (!m_script.Call("QueryBimPics", {RequestText(request)}))
        return kPicServiceFailed;
    TakePage(bimPics, request, bimQuery, result, rows);
    return bimQuery.status.value_or(kServiceOk);
}

qint32 ScriptedVeskPicMng::QueryPdfPics(const KX_DATA::PdfQueryFilter& filter,
                                        const KX_DATA::PageRequest& request,
                                        KX_DATA::PageResult& result,
                                        std::vector<KX_DATA::PdfPicRecord>& rows) {
    lastPdfFilter = filter;
    pdfQuery.lastRequest = request;
    if (!m_script.Call("QueryPdfPics", {RequestText(request)}))
        return kPicServiceFailed;
    TakePage(pdfPics, request, pdfQuery, result, rows);
    // Any value but 0 is success here: not the one of the other queries, so that a caller who
    // compares with that one is found out.
    return pdfQuery.status.value_or(1);
}

void ScriptedVeskPicMng::GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<KX_DATA::PicFilterEntry>& entries) {
    lastFilterArg = &filterArg;
    if (m_script.Call("GetBimPicFilterGroups",
                      {Arg("from", from), Arg("to", to), Arg("flag", qint32(flag))}))
        entries = filterEntries;
}

qint32 ScriptedVeskPicMng::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<qint32>& picIds) {
    lastFilterArg = &filterArg;
    if (!m_script.Call("GetBimPicMarkerList", {Arg("from", from), Arg("to", to),
                                               Arg("flag", qint32(flag)), Arg("mark", markId)}))
        return 0;
    picIds = markerIds;
    return qint32(picIds.size());
}

bool ScriptedVeskPicMng::DeleteBimPics(const std::vector<qint32>& picIds) {
    if (!m_script.Call("DeleteBimPics", {Arg("ids", picIds)}))
        return false;
    Remove(bimPics, picIds);
    return true;
}

bool ScriptedVeskPicMng::DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) {
    if (!m_script.Call("DeletePdfPics", {Arg("ppid", ppid), Arg("ids", picIds)}))
        return false;
    Remove(pdfPics, picIds);
    return true;
}

bool ScriptedVeskPicMng::SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds,
                                         bool hidden) {
    if (!m_script.Call("SetBimPicsShown",
                       {Arg("ppid", ppid), Arg("ids", picIds), Arg("hidden", hidden)}))
        return false;
    SetShown(bimPics, picIds, hidden);
    return true;
}

bool ScriptedVeskPicMng::SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds,
                                         bool hidden) {
    if (!m_script.Call("SetPdfPicsShown",
                       {Arg("ppid", ppid), Arg("ids", picIds), Arg("hidden", hidden)}))
        return false;
    SetShown(pdfPics, picIds, hidden);
    return true;
}

qint32 ScriptedVeskPicMng::GetBimPicDetail(qint32 ppid, qint32 picId,
                                           KX_DATA::BimPicDetail& detail) {
    const bool succeeds = m_script.Call("GetBimPicDetail", {Arg("ppid", ppid), Arg("id", picId)});
    const KX_DATA::BimPicRow* row = Find(bimPics, picId);
    if (!succeeds || row == nullptr || row->status != kStatusShown)
        return kPicServiceFailed;
    detail.picId = detailHasIds ? row->picId : 0;
    detail.ppid = detailHasIds ? row->ppid : 0;
    detail.positionKey = row->positionKey;
    detail.axisX = row->axisX;
    detail.axisY = row->axisY;
    detail.description = row->description;
    detail.floor = row->floor;
    detail.markId = row->markId;
    detail.fileName = row->fileName;
    detail.uploaderName = row->uploaderName;
    detail.uploadTime = row->uploadStamp;
    detail.updaterName = row->updaterName;
    detail.updateTime = row->updateStamp;
    detail.status = row->status;
    detail.markName = detailMarkName;
    detail.markColor = detailMarkColor;
    for (const QString& name : row->labelNames)
        detail.labels.push_back({LabelIdOf(name), name});
    return kServiceOk;
}

qint32 ScriptedVeskPicMng::GetPdfPicDetail(qint32 ppid, qint32 picId,
                                           KX_DATA::PdfPicDetail& detail) {
    const bool succeeds = m_script.Call("GetPdfPicDetail", {Arg("ppid", ppid), Arg("id", picId)});
    const KX_DATA::PdfPicRecord* row = Find(pdfPics, picId);
    if (!succeeds || row == nullptr)
        return kPicServiceFailed;
    // The row's own names are crossed: the drawing stands in the field of the checkpoint.
    detail.drawingId = row->checkpointId;
    detail.entries = row->labels;
    return kServiceOk;
}

qint32 ScriptedVeskPicMng::GetProjectFloors(qint32 ppid, std::vector<QString>& names) {
    return Answer(m_script.Call("GetProjectFloors", {Arg("ppid", ppid)}), floors, names);
}

qint32 ScriptedVeskPicMng::GetFloorAxesX(qint32 ppid, const QString& floor,
                                         std::vector<QString>& axes) {
    return Answer(m_script.Call("GetFloorAxesX", {Arg("ppid", ppid), Arg("floor", floor)}), axesX,
                  axes);
}

qint32 ScriptedVeskPicMng::GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                                         std::vector<KX_DATA::AxisYEntry>& axes) {
    return Answer(
        m_script.Call("GetFloorAxesY", {Arg("ppid", ppid), Arg("floor", floor), Arg("x", axisX)}),
        axesY, axes);
}

bool ScriptedVeskPicMng::UpdateBimPic(qint32 ppid, const KX_DATA::BimPicUpdate& update) {
    lastBimUpdate = update;
    if (!m_script.Call("UpdateBimPic", {Arg("ppid", ppid), Arg("id", update.picId)}))
        return false;
    KX_DATA::BimPicRow* row = Find(bimPics, update.picId);
    if (row == nullptr)
        return true;
    row->description = update.description;
    row->positionKey = update.positionKey;
    row->markId = update.markId;
    row->fileName = update.fileName;
    row->status = update.status;
    row->labelNames.clear();
    for (const QString& id : update.labelIds)
        row->labelNames.push_back(LabelNameOf(id));
    return true;
}

bool ScriptedVeskPicMng::UpdatePdfPic(qint32 ppid, const KX_DATA::PdfPicUpdate& update) {
    lastPdfUpdate = update;
    if (!m_script.Call("UpdatePdfPic", {Arg("ppid", ppid), Arg("id", update.picId)}))
        return false;
    KX_DATA::PdfPicRecord* row = Find(pdfPics, update.picId);
    if (row == nullptr)
        return true;
    row->description = update.description;
    row->fileName = update.fileName;
    row->status = update.status;
    return true;
}

qint32 ScriptedVeskPicMng::GetPicFiles(const std::vector<qint32>& picIds,
                                       std::vector<KX_DATA::PicFileEntry>& entries) {
    if (!m_script.Call("GetPicFiles", {Arg("ids", picIds)}))
        return kPicServiceFailed;
    std::copy_if(files.begin(), files.end(), std::back_inserter(entries),
                 [&](const KX_DATA::PicFileEntry& entry) { return Contains(picIds, entry.picId); });
    return kServiceOk;
}

qint32 ScriptedVeskPicMng::GetCheckpointPics(qint32 ppid, qint32 picId,
                                             KX_DATA::CheckpointPicDetail& detail) {
    const bool succeeds = m_script.Call("GetCheckpointPics", {Arg("ppid", ppid), Arg("id", picId)});
    const auto found = checkpointPics.find(picId);
    if (found == checkpointPics.end())
        return kPicServiceFailed;
    return Answer(succeeds, found->second, detail);
}

void ScriptedVeskPicMng::GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<KX_DATA::PicMarkGroup>& groups) {
    lastFilterArg = &filterArg;
    if (m_script.Call("GetBimPicFilterValues",
                      {Arg("from", from), Arg("to", to), Arg("flag", qint32(flag))}))
        groups = markGroups;
}

qint32 ScriptedVeskPicMng::DeleteCheckpointPic(qint32 drawingId, qint32 picId) {
    if (!m_script.Call("DeleteCheckpointPic", {Arg("drawing", drawingId), Arg("id", picId)}))
        return 0;
    Remove(pdfPics, {picId});
    return 1;
}

qint32 ScriptedVeskPicMng::GetPicFilesByPosition(qint32 ppid, const QString& positionKey,
                                                 qint32 markId,
                                                 std::vector<KX_DATA::PicFileEntry>& entries) {
    return Answer(
        m_script.Call("GetPicFilesByPosition",
                      {Arg("ppid", ppid), Arg("position", positionKey), Arg("mark", markId)}),
        files, entries);
}

bool ScriptedVeskPicMng::GetBimLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    return Answer(m_script.Call("GetBimLabels"), bimLabels, labels) == kServiceOk;
}

bool ScriptedVeskPicMng::GetPdfLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    return Answer(m_script.Call("GetPdfLabels"), pdfLabels, labels) == kServiceOk;
}

bool ScriptedVeskPicMng::GetUsedBimMarks(std::vector<qint32>& markIds) {
    return Answer(m_script.Call("GetUsedBimMarks"), usedBimMarks, markIds) == kServiceOk;
}

bool ScriptedVeskPicMng::GetUsedPdfMarks(std::vector<qint32>& markIds) {
    return Answer(m_script.Call("GetUsedPdfMarks"), usedPdfMarks, markIds) == kServiceOk;
}

void ScriptedVeskPicMng::GetStateNames(std::vector<QString>& names) {
    if (m_script.Call("GetStateNames"))
        names = stateNames;
}

} // namespace support
