#include "tests/support/services/ScriptedVeskPicMng.h"

#include "tests/support/ArgText.h"
#include "tests/support/services/ScriptedEnvironment.h"

#include <QDateTime>

#include <algorithm>
#include <limits>
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

constexpr qint32 kEveryProject = std::numeric_limits<qint32>::min();

template <class Row> bool IsOfProject(const Row& row, qint32 ppid) {
    return ppid == kEveryProject || row.ppid == ppid;
}

// True if one of them was there, or none was asked for.
template <class Row>
bool SetShown(std::vector<Row>& rows, qint32 ppid, const std::vector<qint32>& ids, bool hidden) {
    bool any = ids.empty();
    for (Row& row : rows) {
        if (Contains(ids, row.picId) && IsOfProject(row, ppid)) {
            row.status = hidden ? kStatusHidden : kStatusShown;
            any = true;
        }
    }
    return any;
}

template <class Row, class Judge>
bool Remove(std::vector<Row>& rows, const std::vector<qint32>& ids, Judge judge) {
    const auto gone =
        std::erase_if(rows, [&](const Row& row) { return Contains(ids, row.picId) && judge(row); });
    return ids.empty() || gone > 0;
}

template <class Row> const Row* Find(const std::vector<Row>& rows, qint32 ppid, qint32 picId) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
        return row.picId == picId && IsOfProject(row, ppid);
    });
    return found == rows.end() ? nullptr : &*found;
}

template <class Row> Row* Find(std::vector<Row>& rows, qint32 ppid, qint32 picId) {
    return const_cast<Row*>(Find(std::as_const(rows), ppid, picId));
}

template <class Row> void NoteChange(Row& row, const QString& changer) {
    if (changer.isEmpty()) {
        return;
    }
    const QDateTime now = QDateTime::currentDateTime();
    row.updaterName = changer;
    row.updateTime = now.toString(u"yyyy-MM-dd HH:mm"_s);
    if constexpr (requires { row.updateStamp; }) {
        row.updateStamp = now.toSecsSinceEpoch();
    }
}

/// Fills a list if the call succeeds.
template <class Values> qint32 Answer(bool succeeds, const Values& values, Values& target) {
    if (!succeeds) {
        return kPicServiceFailed;
    }
    target = values;
    return kServiceOk;
}

/// Of a photo that nobody changed the upload stands for the last change.
KX_DATA::CheckpointPicDetail PicDetailOf(const KX_DATA::PdfPicRecord& row) {
    KX_DATA::CheckpointPicDetail detail;
    detail.name = row.fileName;
    detail.description = row.description;
    detail.uploader = row.uploaderName;
    detail.uploadTime = row.uploadTime;
    detail.updater = row.updaterName.isEmpty() ? row.uploaderName : row.updaterName;
    detail.updateTime = row.updateTime.isEmpty() ? row.uploadTime : row.updateTime;
    return detail;
}

} // namespace

QString ScriptedVeskPicMng::LabelIdOf(const QString& name) const {
    for (const auto* list : {&allLabels, &bimLabels}) {
        for (const KX_DATA::LabelEntry& label : *list) {
            if (label.labelName == name) {
                return label.labelId;
            }
        }
    }
    return u"id-of-"_s + name;
}

QString ScriptedVeskPicMng::LabelNameOf(const QString& id) const {
    for (const auto* list : {&allLabels, &bimLabels}) {
        for (const KX_DATA::LabelEntry& label : *list) {
            if (label.labelId == id) {
                return label.labelName;
            }
        }
    }
    return id.startsWith(u"id-of-"_s) ? id.mid(6) : id;
}

qint32 ScriptedVeskPicMng::QueryBimPics(const KX_DATA::PicQueryFilter& filter,
                                        const KX_DATA::PageRequest& request,
                                        KX_DATA::PageResult& result,
                                        std::vector<KX_DATA::BimPicRow>& rows) {
    lastBimFilter = filter;
    bimQuery.lastRequest = request;
    if (!m_script.Call("QueryBimPics", {RequestText(request)})) {
        return kPicServiceFailed;
    }
    TakePage(searches ? Search(bimPics, filter, request, Names()) : bimPics, request, bimQuery,
             result, rows);
    return bimQuery.status.value_or(kServiceOk);
}

qint32 ScriptedVeskPicMng::QueryPdfPics(const KX_DATA::PdfQueryFilter& filter,
                                        const KX_DATA::PageRequest& request,
                                        KX_DATA::PageResult& result,
                                        std::vector<KX_DATA::PdfPicRecord>& rows) {
    lastPdfFilter = filter;
    pdfQuery.lastRequest = request;
    if (!m_script.Call("QueryPdfPics", {RequestText(request)})) {
        return kPicServiceFailed;
    }
    TakePage(searches ? Search(pdfPics, filter, request, Names()) : pdfPics, request, pdfQuery,
             result, rows);
    // Any value but 0 is success here: not the one of the other queries, so that a caller who
    // compares with that one is found out.
    return pdfQuery.status.value_or(1);
}

void ScriptedVeskPicMng::GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<KX_DATA::PicFilterEntry>& entries) {
    lastFilterArg = &filterArg;
    const bool succeeds = m_script.Call(
        "GetBimPicFilterGroups", {Arg("from", from), Arg("to", to), Arg("flag", qint32(flag))});
    if (!succeeds && judges) {
        entries.clear();
    } else if (succeeds) {
        entries = Scripted(filterEntries)
                      ? filterEntries
                      : PanelEntries(bimPics, ScopeOf(filterArg, flag != 0, from, to));
    }
}

qint32 ScriptedVeskPicMng::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<qint32>& picIds) {
    lastFilterArg = &filterArg;
    const bool succeeds =
        m_script.Call("GetBimPicMarkerList", {Arg("from", from), Arg("to", to),
                                              Arg("flag", qint32(flag)), Arg("mark", markId)});
    picIds = !succeeds || Scripted(markerIds)
                 ? (succeeds ? markerIds : decltype(markerIds)())
                 : PanelPhotos(bimPics, ScopeOf(filterArg, flag != 0, from, to), markId);
    return qint32(picIds.size());
}

bool ScriptedVeskPicMng::DeleteBimPics(const std::vector<qint32>& picIds) {
    if (!m_script.Call("DeleteBimPics", {Arg("ids", picIds)})) {
        return false;
    }
    const auto isOpen = [&](const KX_DATA::BimPicRow& row) { return IsOpen(row.ppid); };
    return Remove(bimPics, picIds, isOpen) || !judges;
}

bool ScriptedVeskPicMng::DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) {
    if (!m_script.Call("DeletePdfPics", {Arg("ppid", ppid), Arg("ids", picIds)})) {
        return false;
    }
    const auto isAsked = [&](const KX_DATA::PdfPicRecord& row) {
        return IsOfProject(row, Asked(ppid));
    };
    return Remove(pdfPics, picIds, isAsked) || !judges;
}

bool ScriptedVeskPicMng::SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds,
                                         bool hidden) {
    if (!m_script.Call("SetBimPicsShown",
                       {Arg("ppid", ppid), Arg("ids", picIds), Arg("hidden", hidden)})) {
        return false;
    }
    return SetShown(bimPics, Asked(ppid), picIds, hidden) || !judges;
}

bool ScriptedVeskPicMng::SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds,
                                         bool hidden) {
    if (!m_script.Call("SetPdfPicsShown",
                       {Arg("ppid", ppid), Arg("ids", picIds), Arg("hidden", hidden)})) {
        return false;
    }
    return SetShown(pdfPics, Asked(ppid), picIds, hidden) || !judges;
}

qint32 ScriptedVeskPicMng::GetBimPicDetail(qint32 ppid, qint32 picId,
                                           KX_DATA::BimPicDetail& detail) {
    const bool succeeds = m_script.Call("GetBimPicDetail", {Arg("ppid", ppid), Arg("id", picId)});
    const KX_DATA::BimPicRow* row = Find(bimPics, Asked(ppid), picId);
    if (!succeeds || row == nullptr || row->status != kStatusShown) {
        return kPicServiceFailed;
    }
    detail = {};
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
    // Of a photo that nobody changed the upload stands for the last change.
    detail.updateTime = row->updateStamp != 0 ? row->updateStamp : row->uploadStamp;
    detail.status = row->status;
    const auto mark = markTable.find(row->markId);
    detail.markName = mark != markTable.end() ? mark->second.name : detailMarkName;
    detail.markColor = mark != markTable.end() ? mark->second.color : detailMarkColor;
    for (const QString& name : row->labelNames) {
        detail.labels.push_back({LabelIdOf(name), name});
    }
    return kServiceOk;
}

qint32 ScriptedVeskPicMng::GetPdfPicDetail(qint32 ppid, qint32 picId,
                                           KX_DATA::PdfPicDetail& detail) {
    const bool succeeds = m_script.Call("GetPdfPicDetail", {Arg("ppid", ppid), Arg("id", picId)});
    const KX_DATA::PdfPicRecord* row = Find(pdfPics, Asked(ppid), picId);
    if (!succeeds || row == nullptr) {
        return kPicServiceFailed;
    }
    // The row's own names are crossed: the drawing stands in the field of the checkpoint.
    detail.drawingId = row->checkpointId;
    detail.entries = row->labels;
    return kServiceOk;
}

qint32 ScriptedVeskPicMng::GetProjectFloors(qint32 ppid, std::vector<QString>& names) {
    const bool succeeds = m_script.Call("GetProjectFloors", {Arg("ppid", ppid)});
    if (!model) {
        return Answer(succeeds, floors, names);
    }
    const auto found = model->floors.find(ppid);
    return Answer(succeeds, found != model->floors.end() ? found->second : std::vector<QString>(),
                  names);
}

qint32 ScriptedVeskPicMng::GetFloorAxesX(qint32 ppid, const QString& floor,
                                         std::vector<QString>& axes) {
    const bool succeeds = m_script.Call("GetFloorAxesX", {Arg("ppid", ppid), Arg("floor", floor)});
    if (!model) {
        return Answer(succeeds, axesX, axes);
    }
    std::vector<QString> found;
    for (const ScriptedPosition& position : model->positions) {
        if (position.ppid == ppid && position.floor == floor &&
            std::find(found.begin(), found.end(), position.axisX) == found.end()) {
            found.push_back(position.axisX);
        }
    }
    return Answer(succeeds, found, axes);
}

qint32 ScriptedVeskPicMng::GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                                         std::vector<KX_DATA::AxisYEntry>& axes) {
    const bool succeeds =
        m_script.Call("GetFloorAxesY", {Arg("ppid", ppid), Arg("floor", floor), Arg("x", axisX)});
    if (!model) {
        return Answer(succeeds, axesY, axes);
    }
    std::vector<KX_DATA::AxisYEntry> found;
    for (const ScriptedPosition& position : model->positions) {
        if (position.ppid == ppid && position.floor == floor && position.axisX == axisX) {
            found.emplace_back(position.axisY, position.key);
        }
    }
    return Answer(succeeds, found, axes);
}

bool ScriptedVeskPicMng::FindLabels(const std::vector<QString>& ids,
                                    std::vector<KX_DATA::LabelEntry>& labels) const {
    labels.clear();
    for (const QString& id : ids) {
        const auto found =
            std::find_if(allLabels.begin(), allLabels.end(),
                         [&](const KX_DATA::LabelEntry& label) { return label.labelId == id; });
        if (found == allLabels.end() && !allLabels.empty()) {
            return false;
        }
        labels.push_back({id, found != allLabels.end() ? found->labelName : LabelNameOf(id)});
    }
    return true;
}

bool ScriptedVeskPicMng::MoveTo(KX_DATA::BimPicRow& row, const QString& key) const {
    const bool same = row.positionKey == key;
    row.positionKey = key;
    // A key that the model has no longer keeps the place that the photo had with it.
    if (!model || same) {
        return true;
    }
    const auto found = std::find_if(model->positions.begin(), model->positions.end(),
                                    [&](const ScriptedPosition& position) {
                                        return position.key == key && position.ppid == row.ppid;
                                    });
    if (found == model->positions.end() && !key.isEmpty()) {
        return false;
    }
    const ScriptedPosition now = key.isEmpty() ? ScriptedPosition() : *found;
    row.floor = now.floor;
    row.axisX = now.axisX;
    row.axisY = now.axisY;
    row.posText = key.isEmpty() ? QString() : now.axisX + u'/' + now.axisY;
    return true;
}

bool ScriptedVeskPicMng::UpdateBimPic(qint32 ppid, const KX_DATA::BimPicUpdate& update) {
    lastBimUpdate = update;
    const bool succeeds =
        m_script.Call("UpdateBimPic", {Arg("ppid", ppid), Arg("id", update.picId)});
    KX_DATA::BimPicRow* row = Find(bimPics, Asked(ppid), update.picId);
    std::vector<KX_DATA::LabelEntry> labels;
    if (!succeeds || row == nullptr) {
        return succeeds && !judges;
    }
    if (!FindLabels(update.labelIds, labels)) {
        return false;
    }
    KX_DATA::BimPicRow changed = *row;
    if (!MoveTo(changed, update.positionKey)) {
        return false;
    }
    changed.description = update.description;
    changed.markId = update.markId;
    changed.fileName = update.fileName;
    changed.status = update.status;
    changed.labelNames.clear();
    for (const KX_DATA::LabelEntry& label : labels) {
        changed.labelNames.push_back(label.labelName);
    }
    NoteChange(changed, changer);
    *row = changed;
    return true;
}

bool ScriptedVeskPicMng::MoveToPoint(KX_DATA::PdfPicRecord& row, qint32 pointId) const {
    if (pointId <= 0 || pointId == row.drawingId) {
        return true;
    }
    // Which points there are is known by their photos.
    const auto other =
        std::find_if(pdfPics.begin(), pdfPics.end(), [&](const KX_DATA::PdfPicRecord& each) {
            return each.drawingId == pointId && each.ppid == row.ppid;
        });
    if (other == pdfPics.end()) {
        return false;
    }
    row.drawingId = pointId;
    row.checkpointId = other->checkpointId;
    row.checkpointNo = other->checkpointNo;
    row.drawingName = other->drawingName;
    row.markId = other->markId;
    row.labels = other->labels;
    row.text2 = other->text2;
    return true;
}

bool ScriptedVeskPicMng::UpdatePdfPic(qint32 ppid, const KX_DATA::PdfPicUpdate& update) {
    lastPdfUpdate = update;
    const bool succeeds =
        m_script.Call("UpdatePdfPic", {Arg("ppid", ppid), Arg("id", update.picId)});
    KX_DATA::PdfPicRecord* row = Find(pdfPics, Asked(ppid), update.picId);
    if (!succeeds || row == nullptr) {
        return succeeds && !judges;
    }
    if (judges && !MoveToPoint(*row, update.pointId)) {
        return false;
    }
    row->description = update.description;
    row->fileName = update.fileName;
    if (update.status == KX_DATA::kStatusShown || update.status == KX_DATA::kStatusHidden) {
        row->status = update.status;
    }
    NoteChange(*row, changer);
    return true;
}

void ScriptedVeskPicMng::ChangeCheckpoint(qint32 pointId, qint32 markId,
                                          const std::vector<KX_DATA::LabelEntry>& labels) {
    for (KX_DATA::PdfPicRecord& row : pdfPics) {
        if (row.drawingId == pointId) {
            row.markId = markId > 0 ? markId : row.markId;
            row.labels = labels;
        }
    }
}

std::vector<KX_DATA::DrawingPicRef> ScriptedVeskPicMng::ShownPicsOf(qint32 pointId) const {
    std::vector<KX_DATA::DrawingPicRef> shown;
    for (const KX_DATA::PdfPicRecord& row : pdfPics) {
        if (row.drawingId == pointId && row.status == kStatusShown) {
            shown.push_back({row.picId, 0, 0, row.text1});
        }
    }
    return shown;
}

qint32 ScriptedVeskPicMng::GetPicFiles(const std::vector<qint32>& picIds,
                                       std::vector<KX_DATA::PicFileEntry>& entries) {
    // In the order of the ids, without those that have no file.
    std::vector<KX_DATA::PicFileEntry> found;
    for (const qint32 picId : picIds) {
        std::copy_if(files.begin(), files.end(), std::back_inserter(found),
                     [&](const KX_DATA::PicFileEntry& entry) {
                         return entry.picId == picId && HasOpenPhoto(picId);
                     });
    }
    return Answer(m_script.Call("GetPicFiles", {Arg("ids", picIds)}), found, entries);
}

qint32 ScriptedVeskPicMng::GetCheckpointPics(qint32 ppid, qint32 picId,
                                             KX_DATA::CheckpointPicDetail& detail) {
    const bool succeeds = m_script.Call("GetCheckpointPics", {Arg("ppid", ppid), Arg("id", picId)});
    const auto found = checkpointPics.find(picId);
    // In a workset the current project stands for all of its projects.
    const bool anyOpen = global != nullptr && global->worksetMode && IsOpen(ppid);
    const KX_DATA::PdfPicRecord* row = Find(pdfPics, anyOpen ? kEveryProject : Asked(ppid), picId);
    const bool isAsked = row != nullptr && (!anyOpen || IsOpen(row->ppid));
    if (judges ? !isAsked : found == checkpointPics.end()) {
        return kPicServiceFailed;
    }
    return Answer(succeeds, found != checkpointPics.end() ? found->second : PicDetailOf(*row),
                  detail);
}

void ScriptedVeskPicMng::GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                                               KX_DATA::MarkFilterArg& filterArg,
                                               std::vector<KX_DATA::PicMarkGroup>& groups) {
    lastFilterArg = &filterArg;
    const bool succeeds = m_script.Call(
        "GetBimPicFilterValues", {Arg("from", from), Arg("to", to), Arg("flag", qint32(flag))});
    if (!succeeds && judges) {
        groups.clear();
    } else if (succeeds) {
        groups = Scripted(markGroups)
                     ? markGroups
                     : PanelGroups(bimPics, ScopeOf(filterArg, flag != 0, from, to), markTable);
    }
}

qint32 ScriptedVeskPicMng::DeleteCheckpointPic(qint32 drawingId, qint32 picId) {
    if (!m_script.Call("DeleteCheckpointPic", {Arg("drawing", drawingId), Arg("id", picId)})) {
        return 0;
    }
    // The viewers call the checkpoint a drawing, as the rows do.
    const auto isAsked = [&](const KX_DATA::PdfPicRecord& row) {
        return !judges || (row.drawingId == drawingId && IsOpen(row.ppid));
    };
    return Remove(pdfPics, {picId}, isAsked) || !judges ? 1 : 0;
}

qint32 ScriptedVeskPicMng::GetPicFilesByPosition(qint32 ppid, const QString& positionKey,
                                                 qint32 markId,
                                                 std::vector<KX_DATA::PicFileEntry>& entries) {
    std::vector<KX_DATA::PicFileEntry> found;
    std::copy_if(files.begin(), files.end(), std::back_inserter(found),
                 [&](const KX_DATA::PicFileEntry& entry) {
                     return StandsAt(entry.picId, ppid, positionKey, markId);
                 });
    return Answer(
        m_script.Call("GetPicFilesByPosition",
                      {Arg("ppid", ppid), Arg("position", positionKey), Arg("mark", markId)}),
        found, entries);
}

bool ScriptedVeskPicMng::IsOpen(qint32 ppid) const {
    return !judges || global == nullptr ||
           std::any_of(global->projects.begin(), global->projects.end(),
                       [&](const auto& project) { return project.ppid == ppid; });
}

bool ScriptedVeskPicMng::HasOpenPhoto(qint32 picId) const {
    const auto isIt = [&](const auto& row) { return row.picId == picId && IsOpen(row.ppid); };
    return !judges || std::any_of(bimPics.begin(), bimPics.end(), isIt) ||
           std::any_of(pdfPics.begin(), pdfPics.end(), isIt);
}

PanelScope ScriptedVeskPicMng::ScopeOf(const KX_DATA::MarkFilterArg& filterArg, bool timed,
                                       qint64 from, qint64 to) const {
    PanelScope scope{{}, filterArg.userName, timed, from, to};
    for (const qint32 ppid : filterArg.projectIds) {
        scope.projects.push_back({ppid, global != nullptr ? global->NameOf(ppid) : QString()});
    }
    if (filterArg.projectIds.empty() && global != nullptr) {
        scope.projects = global->projects;
    }
    return scope;
}

RowNames ScriptedVeskPicMng::Names() const {
    return {stateNames, [this](const QString& name) { return LabelIdOf(name); }, {}};
}

qint32 ScriptedVeskPicMng::Asked(qint32 ppid) const {
    return judges ? ppid : kEveryProject;
}

bool ScriptedVeskPicMng::StandsAt(qint32 picId, qint32 ppid, const QString& positionKey,
                                  qint32 markId) const {
    const auto row =
        std::find_if(bimPics.begin(), bimPics.end(),
                     [&](const KX_DATA::BimPicRow& each) { return each.picId == picId; });
    if (!judges) {
        return true;
    }
    if (row == bimPics.end()) {
        return false;
    }
    // Photos without a floor hang on one place, whatever their key.
    const bool here =
        positionKey.isEmpty() ? row->floor.isEmpty() : row->positionKey == positionKey;
    return here && IsOfProject(*row, ppid) && row->markId == markId && row->status == kStatusShown;
}

bool ScriptedVeskPicMng::GetBimLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    std::vector<KX_DATA::LabelEntry> carried;
    for (const KX_DATA::BimPicRow& row : bimPics) {
        for (const QString& name : row.labelNames) {
            carried.push_back({LabelIdOf(name), name});
        }
    }
    return Answer(m_script.Call("GetBimLabels"),
                  Scripted(bimLabels) ? bimLabels : EachOnce(std::move(carried)),
                  labels) == kServiceOk;
}

bool ScriptedVeskPicMng::GetPdfLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    std::vector<KX_DATA::LabelEntry> carried;
    for (const KX_DATA::PdfPicRecord& row : pdfPics) {
        carried.insert(carried.end(), row.labels.begin(), row.labels.end());
    }
    return Answer(m_script.Call("GetPdfLabels"),
                  Scripted(pdfLabels) ? pdfLabels : EachOnce(std::move(carried)),
                  labels) == kServiceOk;
}

bool ScriptedVeskPicMng::GetUsedBimMarks(std::vector<qint32>& markIds) {
    return Answer(m_script.Call("GetUsedBimMarks"),
                  Scripted(usedBimMarks) ? usedBimMarks : MarksInUse(bimPics, markTable),
                  markIds) == kServiceOk;
}

bool ScriptedVeskPicMng::GetUsedPdfMarks(std::vector<qint32>& markIds) {
    return Answer(m_script.Call("GetUsedPdfMarks"),
                  Scripted(usedPdfMarks) ? usedPdfMarks : MarksInUse(pdfPics, markTable),
                  markIds) == kServiceOk;
}

void ScriptedVeskPicMng::GetStateNames(std::vector<QString>& names) {
    if (m_script.Call("GetStateNames")) {
        names = stateNames;
    }
}

} // namespace support
