#include "tests/contracts/ScriptedSite.h"

#include "site/FloorOrder.h"
#include "site/RectifyStates.h"
#include "site/TimeText.h"

#include <QCryptographicHash>
#include <QUuid>

#include <algorithm>

namespace contracts {

using namespace Qt::StringLiterals;

namespace {

/// Photos of both kinds have ids of their own.
constexpr qint32 kFirstPdfPhoto = 1000000001;
constexpr qint32 kPicGroupId = 1;

QString Md5Of(const QByteArray& contents) {
    return QString::fromLatin1(QCryptographicHash::hash(contents, QCryptographicHash::Md5).toHex());
}

template <class Value> void AddOnce(std::vector<Value>& values, const Value& value) {
    const auto place = std::lower_bound(values.begin(), values.end(), value);
    if (place == values.end() || *place != value) {
        values.insert(place, value);
    }
}

bool HasSmallerId(const KX_DATA::LabelEntry& one, const KX_DATA::LabelEntry& other) {
    return one.labelId.toInt() < other.labelId.toInt();
}

void AddInUse(std::vector<KX_DATA::LabelEntry>& used,
              const std::vector<KX_DATA::LabelEntry>& labels) {
    for (const KX_DATA::LabelEntry& label : labels) {
        const auto place = std::lower_bound(used.begin(), used.end(), label, HasSmallerId);
        if (place == used.end() || place->labelId != label.labelId) {
            used.insert(place, label);
        }
    }
}

} // namespace

ScriptedSite::ScriptedSite() {
    first = 1;
    second = 2;
    host.project.project = KX_DATA::ProjectRecord{u"一号楼"_s, first};
    host.project.major = 2;
    host.global.projects = {{first, u"一号楼"_s}};
    host.global.otherProjects = {{second, u"二号楼"_s}};
    host.marks.marks = {{1, {u"质量"_s, 0x0000ff}}, {2, {u"安全"_s, 0x00ff00}}};
    host.pics.markTable = host.marks.marks;
    host.pics.model.emplace();
    host.pics.stateNames = site::StateNames();
    host.states.states.clear();
    for (qint32 state = 0; state < site::kStateCount; ++state) {
        host.states.states[state] = site::StateName(state);
    }
    host.drawings.pics = &host.pics;
    host.pics.judges = true;
    host.questions.judges = true;
    host.richAuth.readOnly = true; // nothing can be written where there is no rich text
    SignIn(u"li"_s);
    on = {&host.pics,     &host.questions,  &host.drawings, &host.qrCodes, &host.richTexts,
          &host.auth,     &host.auth,       &host.global,   &host.paths,   &host.paths,
          &host.paths,    &host.project,    &host.project,  &host.project, &host.marks,
          &host.sys,      &host.view,       &host.files,    &host.files,   &host.files,
          &host.docs,     &host.reportData, &host.richAuth, &host.recent,  &host.states,
          &host.progress, &host.reports};
    SetView(false);
}

QString ScriptedSite::Store(const QByteArray& contents) {
    if (contents.isEmpty()) {
        return {};
    }
    const QString uuid = QUuid::createUuid().toString(QUuid::WithoutBraces);
    host.files.stored[uuid] = contents;
    return uuid;
}

std::vector<KX_DATA::LabelEntry> ScriptedSite::Labels(const std::vector<qint32>& ids) const {
    std::vector<KX_DATA::LabelEntry> labels;
    for (const KX_DATA::LabelEntry& label : host.docs.labels) {
        if (std::find(ids.begin(), ids.end(), label.labelId.toInt()) != ids.end()) {
            labels.push_back(label);
        }
    }
    return labels;
}

QString ScriptedSite::AddLabel(const QString& name) {
    const QString id = QString::number(host.docs.labels.size() + 1);
    host.docs.labels.push_back({id, name});
    host.pics.allLabels = host.docs.labels;
    return id;
}

void ScriptedSite::AddFloor(qint32 ppid, const QString& floor) {
    std::vector<QString>& floors = host.pics.model->floors[ppid];
    const auto place = std::find_if(floors.begin(), floors.end(), [&](const QString& each) {
        return site::FloorSortKey(floor) <= site::FloorSortKey(each);
    });
    if (place == floors.end() || *place != floor) {
        floors.insert(place, floor);
    }
}

QString ScriptedSite::AddPosition(const site::NewPosition& position) {
    AddFloor(position.ppid, position.floor);
    site::NewPosition added = position;
    if (added.positionKey.isEmpty()) {
        added.positionKey = u"key-%1"_s.arg(positions.size() + 1);
    }
    positions[added.positionKey] = added;
    if (added.valid) {
        host.pics.model->positions.push_back(
            {added.ppid, added.floor, added.axisX, added.axisY, added.positionKey});
    }
    // Axes come as the service has them: by their length, then by their text.
    std::stable_sort(host.pics.model->positions.begin(), host.pics.model->positions.end(),
                     [](const auto& one, const auto& other) {
                         return std::tuple(one.axisX.size(), one.axisX, one.axisY.size(),
                                           one.axisY) < std::tuple(other.axisX.size(), other.axisX,
                                                                   other.axisY.size(), other.axisY);
                     });
    return added.positionKey;
}

qint32 ScriptedSite::AddDrawing(qint32 ppid, const QString& name) {
    drawings[++lastId] = {ppid, name};
    return lastId;
}

qint32 ScriptedSite::AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) {
    points[++lastId] = {checkpoint, Store(voice)};
    KX_DATA::DrawingRecord& record = host.drawings.drawings[lastId];
    record.remark = checkpoint.remark;
    record.checkpointNo = checkpoint.number;
    record.description = checkpoint.description;
    const auto mark = host.marks.marks.find(checkpoint.markId);
    record.markColor = mark != host.marks.marks.end() ? mark->second.color : 0xFAFAFA;
    record.markName = mark != host.marks.marks.end() ? mark->second.name : QString();
    record.position = {checkpoint.x, checkpoint.y};
    record.updateTime = site::TimeText(checkpoint.updateTime);
    record.audioUuid = points[lastId].voice;
    for (const KX_DATA::LabelEntry& label : Labels(checkpoint.labelIds)) {
        record.labels.emplace_back(label.labelId, label.labelName);
    }
    return lastId;
}

qint32 ScriptedSite::AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                              const QByteArray& voice) {
    const site::NewPosition place = positions[photo.positionKey];
    KX_DATA::BimPicRow row;
    row.picId = ++lastId;
    row.ppid = photo.ppid;
    row.fileName = photo.fileName;
    row.description = photo.description;
    row.positionKey = photo.positionKey;
    row.floor = place.floor;
    row.axisX = place.axisX;
    row.axisY = place.axisY;
    row.posText = site::PositionText(place.axisX, place.axisY);
    row.posValid = place.valid ? 1 : 0;
    row.markId = photo.markId;
    row.status = photo.status;
    row.rectifyText = site::StateName(photo.state);
    row.text8 = Store(picture);
    row.text9 = Store(voice);
    row.uploaderName = photo.uploader;
    row.uploadStamp = photo.uploadTime;
    row.uploadTime = site::TimeText(photo.uploadTime);
    row.updaterName = photo.updater;
    row.updateStamp = photo.updateTime;
    row.updateTime = site::TimeText(photo.updateTime);
    for (const KX_DATA::LabelEntry& label : Labels(photo.labelIds)) {
        row.labelNames.push_back(label.labelName);
    }
    host.pics.bimPics.push_back(row);
    KX_DATA::PicFileEntry file;
    file.picId = row.picId;
    file.picUuid = row.text8;
    file.audioUuid = row.text9;
    host.pics.files.insert(host.pics.files.begin(), file); // newest first
    AddInUse(host.pics.bimLabels, Labels(photo.labelIds));
    if (host.marks.marks.contains(photo.markId)) {
        AddOnce(host.pics.usedBimMarks, photo.markId);
    }
    AddPicToPanel(row);
    return row.picId;
}

void ScriptedSite::AddPicToPanel(const KX_DATA::BimPicRow& row) {
    if (row.status != KX_DATA::kStatusShown || row.ppid != first) {
        return;
    }
    KX_DATA::PicFilterEntry entry;
    entry.name = row.floor;
    entry.id = kPicGroupId;
    auto& entries = host.pics.filterEntries;
    auto found = std::find_if(entries.begin(), entries.end(),
                              [&](const auto& each) { return each.name == row.floor; });
    if (found == entries.end()) {
        found = entries.insert(entries.end(), entry);
        host.pics.markGroups.push_back({row.floor.toStdString(), kPicGroupId, {}});
    }
    ++found->count;
    found->values = {{row.markId, found->count}};
    KX_DATA::PicMarkGroup& group = host.pics.markGroups[std::size_t(found - entries.begin())];
    if (group.items.empty()) {
        KX_DATA::PicMarkItem item;
        item.positionKey = row.positionKey.toStdString();
        item.itemName = row.posText.toStdString();
        item.groupId = kPicGroupId;
        item.leaves.push_back(
            {std::to_string(row.ppid), {}, row.markId, 0, host.marks.marks[row.markId].name});
        group.items.push_back(item);
    }
    ++group.items.front().total;
    ++group.items.front().leaves.front().count;
    host.pics.markerIds.push_back(row.picId);
}

qint32 ScriptedSite::AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) {
    const Point& point = points[photo.checkpointId];
    const Drawing& drawing = drawings[point.record.drawingId];
    KX_DATA::PdfPicRecord row;
    row.picId = kFirstPdfPhoto + qint32(host.pics.pdfPics.size());
    row.ppid = drawing.ppid;
    // The record's names are crossed: its drawing is the point, its checkpoint the drawing.
    row.drawingId = photo.checkpointId;
    row.checkpointId = point.record.drawingId;
    row.checkpointNo = point.record.number;
    row.drawingName = drawing.name;
    row.markId = point.record.markId;
    row.labels = Labels(point.record.labelIds);
    row.fileName = photo.fileName;
    row.description = photo.description;
    row.status = photo.status;
    row.rectifyText = site::StateName(photo.state);
    row.text1 = Store(picture);
    row.text2 = point.voice;
    row.uploaderName = photo.uploader;
    row.uploadTime = site::TimeText(photo.uploadTime);
    row.updaterName = photo.updater;
    row.updateTime = site::TimeText(photo.updateTime);
    host.pics.pdfPics.push_back(row);
    const bool unchanged = photo.updateTime == 0;
    host.pics.checkpointPics[row.picId] = {row.fileName,
                                           row.description,
                                           {},
                                           {},
                                           0,
                                           {},
                                           photo.uploader,
                                           row.uploadTime,
                                           unchanged ? photo.uploader : photo.updater,
                                           unchanged ? row.uploadTime : row.updateTime};
    KX_DATA::PicFileEntry file;
    file.picId = row.picId;
    file.picUuid = row.text1;
    file.audioUuid = row.text2;
    host.pics.files.push_back(file);
    if (row.status == KX_DATA::kStatusShown) {
        host.drawings.drawings[photo.checkpointId].pics.push_back({row.picId, 0, 0, row.text1});
    }
    AddInUse(host.pics.pdfLabels, row.labels);
    if (host.marks.marks.contains(row.markId)) {
        AddOnce(host.pics.usedPdfMarks, row.markId);
    }
    return row.picId;
}

QString ScriptedSite::AddIssue(const site::NewIssue& issue, const QByteArray& voice) {
    KX_DATA::IssueRow row;
    row.questionId = issue.questionId.isEmpty() ? u"issue-%1"_s.arg(++lastId) : issue.questionId;
    row.theme = issue.theme;
    row.description = issue.description;
    row.floor = issue.floor;
    row.posInfo = issue.posInfo;
    row.compName = issue.componentName;
    row.markId = issue.markId;
    row.rectifyText = site::StateName(issue.state);
    row.status = issue.status;
    row.creatorName = issue.creator;
    row.createTime = issue.createTime;
    row.updaterName = issue.updater;
    row.updateTime = issue.updateTime != 0 ? issue.updateTime : issue.createTime;
    row.ppid = issue.ppid;
    host.questions.issues.push_back(row);
    KX_DATA::QuestionDetail& detail = host.questions.details[row.questionId];
    detail.componentHandle = issue.componentHandle;
    detail.componentSubName = issue.componentSubName;
    detail.voiceUuid = Store(voice);
    detail.voiceMd5 = voice.isEmpty() ? QString() : Md5Of(voice);
    detail.voiceState = voice.isEmpty() ? 0 : 1;
    KX_DATA::RectifyRecord& rectification = host.questions.rectifications[row.questionId];
    rectification.questionId = row.questionId;
    rectification.rectifyText = issue.rectifyText;
    rectification.rectifierName = issue.rectifier;
    rectification.state = issue.state;
    if (host.marks.marks.contains(issue.markId)) {
        AddOnce(host.questions.usedMarks, issue.markId);
    }
    AddIssueToPanel(row);
    return row.questionId;
}

void ScriptedSite::AddIssueToPanel(const KX_DATA::IssueRow& row) {
    if (row.status != KX_DATA::kStatusShown || row.ppid != first) {
        return;
    }
    auto& groups = host.questions.markGroups;
    auto& entries = host.questions.filterEntries;
    if (groups.empty() || groups.back().name != row.floor) {
        groups.push_back({row.floor, row.ppid, 0, {}});
        entries.push_back({qint32(entries.size()) + 1, 0, row.floor, {}});
    }
    ++groups.back().count;
    groups.back().entries.push_back(
        {row.theme, row.questionId, row.posInfo, row.compName, row.markId});
    ++entries.back().count;
    entries.back().pairs = {{entries.back().count, row.markId}};
}

void ScriptedSite::AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) {
    KX_DATA::QuestionPicRecord record;
    record.picId = QUuid::createUuid().toString(QUuid::WithoutBraces);
    record.fileName = pic.fileName;
    record.uploaderName = pic.uploader;
    record.uploadTime = pic.uploadTime;
    record.fileUuid = Store(picture);
    record.fileMd5 = Md5Of(picture);
    record.fileSize = picture.size();
    // Without a small picture of its own the picture stands for it.
    record.thumbUuid = record.fileUuid;
    record.thumbMd5 = record.fileMd5;
    record.thumbSize = record.fileSize;
    (pic.rectification ? host.questions.rectifications[pic.questionId].pics
                       : host.questions.pics[pic.questionId])
        .push_back(record);
}

void ScriptedSite::SignIn(const QString& name) {
    host.auth.userName = name.toStdString();
    host.pics.changer = name;
    host.auth.rights = name == u"li"_s ? std::set<qint32>{5, 21, 22, 38} : std::set<qint32>{};
}

void ScriptedSite::OpenWorkset() {
    host.OpenWorkset({{first, u"一号楼"_s}, {second, u"二号楼"_s}});
}

void ScriptedSite::CloseProject() {
    host.project.project.reset();
    host.project.drawing = {};
    host.project.major = 0;
    host.project.shownPicMarks.clear();
    host.project.shownIssueMarks.clear();
    host.global.worksetMode = false;
    host.global.otherProjects = {{first, u"一号楼"_s}, {second, u"二号楼"_s}};
    host.global.projects.clear();
}

void ScriptedSite::SetDrawing(const KX_DATA::CurrentDrawing& drawing) {
    host.project.drawing = drawing;
}

void ScriptedSite::Tick(const KX_DATA::ShownPicMarks& pics,
                        const KX_DATA::ShownIssueMarks& issues) {
    host.project.shownPicMarks = pics;
    host.project.shownIssueMarks = issues;
}

void ScriptedSite::SetView(bool open) {
    if (open) {
        host.script.Succeed("GetView");
    } else {
        host.script.FailAlways("GetView");
    }
}

std::vector<QString> ScriptedSite::Actions() {
    std::vector<QString> actions;
    for (const std::string& line : host.script.log.LinesOf({"WriteActionLog"})) {
        const QString text = QString::fromStdString(line);
        const qsizetype begin = text.indexOf(u'(') + 1;
        actions.push_back(text.mid(begin, text.size() - begin - 1));
    }
    return actions;
}

void ScriptedSite::FailTransfers() {
    host.files.stored.clear();
}

void ScriptedSite::Enter(Trouble trouble, const std::vector<std::string>& operations) {
    EXPECT_EQ(int(trouble), int(Trouble::Scripted)) << "a double is told to fail";
    for (const std::string& operation : operations) {
        host.script.FailAlways(operation);
    }
}

} // namespace contracts
