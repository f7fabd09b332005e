#include "tests/contracts/ScriptedSite.h"

#include "toolkit/GbkText.h"

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

QString Md5Of(const QByteArray& contents) {
    return QString::fromLatin1(QCryptographicHash::hash(contents, QCryptographicHash::Md5).toHex());
}

} // namespace

ScriptedSite::ScriptedSite() {
    first = 1;
    second = 2;
    m_host.project.project = KX_DATA::ProjectRecord{u"一号楼"_s, first};
    m_host.project.major = 2;
    m_host.global.projects = {{first, u"一号楼"_s}};
    m_host.global.otherProjects = {{second, u"二号楼"_s}};
    m_host.marks.marks = {{1, {u"质量"_s, 0x0000ff}}, {2, {u"安全"_s, 0x00ff00}}};
    m_host.pics.markTable = m_host.marks.marks;
    m_host.pics.model.emplace();
    m_host.pics.stateNames = site::StateNames();
    m_host.states.states.clear();
    for (qint32 state = 0; state < site::kStateCount; ++state) {
        m_host.states.states[state] = site::StateName(state);
    }
    m_host.drawings.pics = &m_host.pics;
    m_host.drawings.rights = &m_host.auth.rights;
    m_host.pics.judges = m_host.pics.searches = true;
    m_host.questions.judges = m_host.questions.searches = true;
    m_host.questions.photos = &m_host.pics;
    m_host.questions.stored = &m_host.files.stored;
    m_host.qrCodes.code = u"kxissue:1:1:5"_s;
    m_host.richAuth.enabled = true;
    m_host.drafts.person = &m_host.auth.userName;
    m_host.richTexts.pics = &m_host.pics;
    m_host.richTexts.drawings = &m_host.drawings;
    m_host.richTexts.stored = &m_host.files.stored;
    SignIn(u"li"_s);
    on = {
        &m_host.pics,   &m_host.questions, &m_host.drawings,   &m_host.qrCodes,  &m_host.richTexts,
        &m_host.drafts, &m_host.auth,      &m_host.auth,       &m_host.global,   &m_host.paths,
        &m_host.paths,  &m_host.paths,     &m_host.project,    &m_host.project,  &m_host.project,
        &m_host.marks,  &m_host.sys,       &m_host.view,       &m_host.files,    &m_host.files,
        &m_host.files,  &m_host.docs,      &m_host.reportData, &m_host.richAuth, &m_host.recent,
        &m_host.states, &m_host.progress,  &m_host.reports,    &m_host.strip,    &m_host.soapError};
    SetView(false);
}

QString ScriptedSite::Store(const QByteArray& contents) {
    if (contents.isEmpty()) {
        return {};
    }
    const QString uuid = QUuid::createUuid().toString(QUuid::WithoutBraces);
    m_host.files.stored[uuid] = contents;
    return uuid;
}

std::vector<KX_DATA::LabelEntry> ScriptedSite::Labels(const std::vector<qint32>& ids) const {
    std::vector<KX_DATA::LabelEntry> labels;
    for (const KX_DATA::LabelEntry& label : m_host.docs.labels) {
        if (std::find(ids.begin(), ids.end(), label.labelId.toInt()) != ids.end()) {
            labels.push_back(label);
        }
    }
    return labels;
}

void ScriptedSite::AddComponent(const site::Component& component) {
    KX_DATA::PickedComponent picked;
    picked.floor = component.floor;
    picked.componentHandle = component.handle;
    picked.componentName = component.name;
    picked.componentSubName = component.subName;
    m_host.questions.components.push_back(picked);
    // The double of the report data answers every question with what it has.
    m_host.reportData.components = {{component.handle, component.subName}};
}

QString ScriptedSite::AddLabel(const QString& name) {
    const QString id = QString::number(m_host.docs.labels.size() + 1);
    m_host.docs.labels.push_back({id, name});
    m_host.pics.allLabels = m_host.docs.labels;
    return id;
}

void ScriptedSite::AddFloor(qint32 ppid, const QString& floor) {
    std::vector<QString>& floors = m_host.pics.model->floors[ppid];
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
        added.positionKey = u"key-%1"_s.arg(m_positions.size() + 1);
    }
    m_positions[added.positionKey] = added;
    if (added.valid) {
        m_host.pics.model->positions.push_back(
            {added.ppid, added.floor, added.axisX, added.axisY, added.positionKey});
    }
    // Axes come as the service has them: by their length, then by their text.
    std::stable_sort(m_host.pics.model->positions.begin(), m_host.pics.model->positions.end(),
                     [](const auto& one, const auto& other) {
                         return std::tuple(one.axisX.size(), one.axisX, one.axisY.size(),
                                           one.axisY) < std::tuple(other.axisX.size(), other.axisX,
                                                                   other.axisY.size(), other.axisY);
                     });
    return added.positionKey;
}

qint32 ScriptedSite::AddDrawing(qint32 ppid, const QString& name) {
    m_drawings[++m_lastId] = {ppid, name};
    return m_lastId;
}

qint32 ScriptedSite::AddCheckpoint(const site::NewCheckpoint& checkpoint, const QByteArray& voice) {
    m_points[++m_lastId] = {checkpoint, Store(voice)};
    KX_DATA::DrawingRecord& record = m_host.drawings.drawings[m_lastId];
    m_host.drawings.projects[m_lastId] = m_drawings[checkpoint.drawingId].ppid;
    record.remark = checkpoint.remark;
    record.checkpointNo = checkpoint.number;
    record.description = checkpoint.description;
    const auto mark = m_host.marks.marks.find(checkpoint.markId);
    record.markColor = mark != m_host.marks.marks.end() ? mark->second.color : 0xFAFAFA;
    record.markName = mark != m_host.marks.marks.end() ? mark->second.name : QString();
    record.position = {checkpoint.x, checkpoint.y};
    record.updateTime = site::TimeText(checkpoint.updateTime);
    record.audioUuid = m_points[m_lastId].voice;
    for (const KX_DATA::LabelEntry& label : Labels(checkpoint.labelIds)) {
        record.labels.emplace_back(label.labelId, label.labelName);
    }
    return m_lastId;
}

qint32 ScriptedSite::AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                              const QByteArray& voice) {
    const site::NewPosition place = m_positions[photo.positionKey];
    KX_DATA::BimPicRow row;
    row.picId = ++m_lastId;
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
    row.rectifyText = m_host.richTexts.StateOfNew(row, site::StateName(photo.state));
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
    m_host.pics.bimPics.push_back(row);
    KX_DATA::PicFileEntry file;
    file.picId = row.picId;
    file.picUuid = row.text8;
    file.audioUuid = row.text9;
    m_host.pics.files.insert(m_host.pics.files.begin(), file); // newest first
    return row.picId;
}

qint32 ScriptedSite::AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) {
    const Point& point = m_points[photo.checkpointId];
    const Drawing& drawing = m_drawings[point.record.drawingId];
    KX_DATA::PdfPicRecord row;
    row.picId = kFirstPdfPhoto + qint32(m_host.pics.pdfPics.size());
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
    row.rectifyText = m_host.richTexts.StateOfNew(row, site::StateName(photo.state));
    row.text1 = Store(picture);
    row.text2 = point.voice;
    row.uploaderName = photo.uploader;
    row.uploadTime = site::TimeText(photo.uploadTime);
    row.updaterName = photo.updater;
    row.updateTime = site::TimeText(photo.updateTime);
    m_host.pics.pdfPics.push_back(row);
    KX_DATA::PicFileEntry file;
    file.picId = row.picId;
    file.picUuid = row.text1;
    file.audioUuid = row.text2;
    m_host.pics.files.push_back(file);
    return row.picId;
}

QString ScriptedSite::AddIssue(const site::NewIssue& issue, const QByteArray& voice) {
    KX_DATA::IssueRow row;
    row.questionId = issue.questionId.isEmpty() ? u"issue-%1"_s.arg(++m_lastId) : issue.questionId;
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
    m_host.questions.issues.push_back(row);
    KX_DATA::QuestionDetail& detail = m_host.questions.details[row.questionId];
    detail.componentHandle = issue.componentHandle;
    detail.componentSubName = issue.componentSubName;
    detail.voiceUuid = Store(voice);
    detail.voiceMd5 = voice.isEmpty() ? QString() : Md5Of(voice);
    detail.voiceState = voice.isEmpty() ? 0 : 1;
    KX_DATA::RectifyRecord& rectification = m_host.questions.rectifications[row.questionId];
    rectification.questionId = row.questionId;
    rectification.rectifyText = issue.rectifyText;
    rectification.rectifierName = issue.rectifier;
    rectification.state = issue.state;
    return row.questionId;
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
    (pic.rectification ? m_host.questions.rectifications[pic.questionId].pics
                       : m_host.questions.pics[pic.questionId])
        .push_back(record);
}

void ScriptedSite::SignIn(const QString& name) {
    m_host.auth.userName = name.toStdString();
    m_host.pics.changer = name;
    m_host.auth.rights = name == u"li"_s ? std::set<qint32>{5, 21, 22, 38} : std::set<qint32>{};
    m_host.richAuth.readOnly = !m_host.auth.rights.contains(KX_DATA::kRightEdit);
}

void ScriptedSite::OpenWorkset() {
    m_host.OpenWorkset({{first, u"一号楼"_s}, {second, u"二号楼"_s}});
}

void ScriptedSite::CloseProject() {
    m_host.project.project.reset();
    m_host.project.drawing = {};
    m_host.project.major = 0;
    m_host.project.shownPicMarks.clear();
    m_host.project.shownIssueMarks.clear();
    m_host.global.worksetMode = false;
    m_host.global.otherProjects = {{first, u"一号楼"_s}, {second, u"二号楼"_s}};
    m_host.global.projects.clear();
}

void ScriptedSite::SetDrawing(const KX_DATA::CurrentDrawing& drawing) {
    m_host.project.drawing = drawing;
}

void ScriptedSite::Tick(const Ticks& ticks) {
    m_host.project.shownPicMarks = {
        {toolkit::ToGbk(ticks.group),
         {{QString(), {{ticks.markId, {{toolkit::ToGbk(ticks.place), ticks.picId}}}}}}}};
    m_host.project.shownIssueMarks = {{ticks.questionId, ticks.markId}};
}

void ScriptedSite::SetView(bool open) {
    if (open) {
        m_host.script.Succeed("GetView");
    } else {
        m_host.script.FailAlways("GetView");
    }
}

std::vector<QString> ScriptedSite::Actions() {
    std::vector<QString> actions;
    for (const std::string& line : m_host.script.log.LinesOf({"WriteActionLog"})) {
        const QString text = QString::fromStdString(line);
        const qsizetype begin = text.indexOf(u'(') + 1;
        actions.push_back(text.mid(begin, text.size() - begin - 1));
    }
    return actions;
}

std::vector<KX_DATA::RichTextDraft> ScriptedSite::Drafts() {
    return m_host.drafts.Of(m_host.auth.userName);
}

void ScriptedSite::FailTransfers() {
    m_host.files.stored.clear();
}

void ScriptedSite::Enter(Trouble trouble, const std::vector<std::string>& operations) {
    EXPECT_EQ(int(trouble), int(Trouble::Scripted)) << "a double is told to fail";
    for (const std::string& operation : operations) {
        m_host.script.FailAlways(operation);
    }
}

} // namespace contracts
