#include "host/app/ReportReader.h"

#include "host/app/IssueReader.h"
#include "host/app/ModelComponents.h"
#include "host/qr/QrImage.h"
#include "host/session/HostSession.h"
#include "host/ui/LocateText.h"
#include "services/DrawingRecords.h"
#include "services/Factories.h"
#include "services/IKXPathMng.h"
#include "site/IBimPhotos.h"
#include "site/IClientFolders.h"
#include "site/IComments.h"
#include "site/IComponents.h"
#include "site/IDrawings.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/RectifyStates.h"
#include "toolkit/KXTools.h"

#include <QStringList>

#include <utility>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCommentsOfPage = 200;
constexpr int kCodeModule = 8; ///< pixels
const QString kComing = u"图片正在下载..."_s;

using Cache = site::IClientFolders::Cache;

QString SignedLine(const QString& person, const QString& when) {
    return person.isEmpty() ? when : person + u"  "_s + when;
}

QString SignedLine(const QString& person, qint64 at) {
    return SignedLine(person, at == 0 ? QString() : KXTools::MinuteText(at));
}

void AddFact(ReportFacts& facts, const QString& caption, const QString& value) {
    if (!value.trimmed().isEmpty()) {
        facts.emplace_back(caption, value);
    }
}

QString MarkName(const HostSession& session, qint32 markId) {
    const auto& marks = session.Tables().Marks();
    const auto known = marks.find(markId);
    return known == marks.end() ? QString() : known->second.name;
}

/// Puts a report together, section by section.
class Reading final {
public:
    Reading(HostSession& hostSession, qint32 ppid, Cache cache)
        : m_session(hostSession), m_folder(hostSession.Desk()
                                               ->Folder([&](site::IClientFolders& folders) {
                                                   return folders.CacheOf(ppid, cache);
                                               })
                                               .value_or(QString())) {
        made.content.ppid = ppid;
        made.place.ppid = ppid;
        made.content.project = hostSession.Tables().ProjectName(ppid);
        made.content.made =
            SignedLine(hostSession.UserName(), KXTools::MinuteText(hostSession.Site().Now()));
    }

    ReportSection& AddSection(const QString& title) {
        made.content.sections.push_back({title, {}, {}, {}, {}, {}});
        return made.content.sections.back();
    }
    /// Of the last section.
    void AddPhoto(ReportPhoto photo, const QString& uuid) {
        ReportSection& section = made.content.sections.back();
        if (uuid.isEmpty()) {
            photo.lack = u"没有图片文件"_s;
        } else {
            photo.lack = kComing;
            Wish(ReportWish::What::Photo, uuid, u".jpg"_s, section.photos.size());
        }
        section.photos.push_back(std::move(photo));
    }
    /// Of the last section.
    void AddVoice(const QString& where, const QString& uuid) {
        if (!uuid.isEmpty()) {
            ReportSection& section = made.content.sections.back();
            Wish(ReportWish::What::Voice, uuid, u".amr"_s, section.voices.size());
            section.voices.push_back({where, 0});
        }
    }
    template <class Request> void AddRecord(const Request& request) {
        if (!request.richTextEnabled) {
            return;
        }
        ReportRecord record;
        record.html = request.htmlText;
        GetVeskPathTool()->GetRichFolder(record.folder);
        AddFact(record.facts, u"整改情况"_s, request.versionText);
        AddFact(record.facts, u"整改人"_s, request.recordText);
        made.content.record = record;
    }

    ReportReading made;

private:
    void Wish(ReportWish::What what, const QString& uuid, const QString& ending, size_t index) {
        made.wishes.push_back(
            {what, uuid, m_folder + u'/' + uuid + ending, made.content.sections.size() - 1, index});
    }

    HostSession& m_session;
    const QString m_folder;
};

ReportReading Lacking(const QString& sentence) {
    ReportReading reading;
    reading.lack = sentence;
    return reading;
}

/// A key is one of one project; the request doesn't say of which, so that the open ones are asked.
std::pair<qint32, std::vector<KX_DATA::PicFileEntry>>
FindPhotos(const HostSession& session, const PIC_REPORT::BimReportRequest& request) {
    site::Projects ppids{session.CurrentProject().ppid};
    const site::Projects open = session.OpenPpids();
    ppids.insert(ppids.end(), open.begin(), open.end());
    for (const qint32 ppid : ppids) {
        auto files =
            session.Site().BimPhotos().FilesByPosition(ppid, request.positionKey, request.markId);
        if (!files.empty()) {
            return {ppid, std::move(files)};
        }
    }
    return {session.CurrentProject().ppid, {}};
}

void AddBimPhoto(Reading& reading, const KX_DATA::BimPicDetail& detail,
                 const KX_DATA::PicFileEntry& file) {
    ReportPhoto photo;
    photo.title = detail.fileName;
    AddFact(photo.facts, u"上传"_s, SignedLine(detail.uploaderName, detail.uploadTime));
    // Nobody has changed one without an updater.
    if (!detail.updaterName.isEmpty()) {
        AddFact(photo.facts, u"更新"_s, SignedLine(detail.updaterName, detail.updateTime));
    }
    QStringList labels;
    for (const KX_DATA::LabelEntry& label : detail.labels) {
        labels << label.labelName;
    }
    AddFact(photo.facts, u"标签"_s, labels.join(u'、'));
    AddFact(photo.facts, u"描述"_s, detail.description);
    reading.AddVoice(detail.fileName, file.audioUuid);
    reading.AddPhoto(std::move(photo), file.picUuid);
}

void AddComments(const HostSession& session, ReportSection& section, qint32 pointId) {
    section.commentsTitle = u"评论"_s;
    for (int page = 0;; ++page) {
        const auto comments =
            session.Site().Comments().PageOf(session.OpenPpids(), pointId, page, kCommentsOfPage);
        if (!comments || comments->empty()) {
            return;
        }
        for (const site::Comment& comment : *comments) {
            // Some clients write the name into the text too.
            const QString name = comment.person + u'：';
            const bool isNamed = comment.text.startsWith(name);
            section.comments.push_back({comment.person, KXTools::MinuteText(comment.at),
                                        isNamed ? comment.text.mid(name.size()) : comment.text});
        }
    }
}

void AddCheckpoint(HostSession& session, Reading& reading, const site::CheckpointFlag& flag) {
    KX_DATA::DrawingRecord record;
    if (!session.Site().PdfPhotos().Checkpoint(session.OpenPpids(), flag.id, record)) {
        return;
    }
    ReportSection& section = reading.AddSection(u"检查点 %1"_s.arg(flag.number));
    AddFact(section.facts, u"标识"_s, record.markName);
    QStringList labels;
    for (const auto& [id, name] : record.labels) {
        labels << name;
    }
    AddFact(section.facts, u"标签"_s, labels.join(u'、'));
    AddFact(section.facts, u"描述"_s, record.description);
    AddFact(section.facts, u"备注"_s, record.remark);
    AddComments(session, section, flag.id);
    reading.AddVoice(section.title, record.audioUuid);
    for (const KX_DATA::DrawingPicRef& pic : record.pics) {
        KX_DATA::CheckpointPicDetail detail;
        if (!session.Site().PdfPhotos().PicDetail(reading.made.content.ppid, pic.picId, detail)) {
            continue;
        }
        ReportPhoto photo;
        photo.title = detail.name;
        AddFact(photo.facts, u"上传"_s, SignedLine(detail.uploader, detail.uploadTime));
        const QString update = SignedLine(detail.updater, detail.updateTime);
        if (update != SignedLine(detail.uploader, detail.uploadTime)) {
            AddFact(photo.facts, u"更新"_s, update);
        }
        AddFact(photo.facts, u"描述"_s, detail.description);
        reading.AddPhoto(std::move(photo), pic.uuid);
    }
    const ReportSection& done = reading.made.content.sections.back();
    if (done.photos.empty() && done.comments.empty() && done.voices.empty() &&
        record.description.isEmpty() && record.remark.isEmpty()) {
        reading.made.content.sections.pop_back();
    }
}

void AddIssuePics(Reading& reading, const std::vector<KX_DATA::QuestionPicRecord>& pics) {
    for (const KX_DATA::QuestionPicRecord& pic : pics) {
        ReportPhoto photo;
        photo.title = pic.fileName;
        AddFact(photo.facts, u"上传"_s, SignedLine(pic.uploaderName, pic.uploadTime));
        reading.AddPhoto(std::move(photo), pic.fileUuid);
    }
}

QString PositionOf(const HostSession& session, const site::IssueRef& issue,
                   const KX_DATA::QuestionDetail& detail) {
    if (detail.componentHandle.isEmpty()) {
        return {};
    }
    for (const PlanComponent& component : ReadPlanComponents(session, issue.ppid, detail.floor)) {
        if (component.handle == detail.componentHandle) {
            return component.positionKey;
        }
    }
    return {};
}

} // namespace

ReportReading ReadBimReport(HostSession& session, const PIC_REPORT::BimReportRequest& request) {
    const auto [ppid, files] = FindPhotos(session, request);
    Reading reading(session, ppid, Cache::Pictures);
    ReportContent& content = reading.made.content;
    content.kind = u"照片报告"_s;
    const PlaceAxes axes = AxesOfKey(session, ppid, request.floor, request.positionKey);
    const QString mark = MarkName(session, request.markId);
    const QString floor = FloorCaption(request.floor);
    QStringList words{floor};
    for (const QString& word : {axes.Short(), mark}) {
        if (!word.isEmpty()) {
            words << word;
        }
    }
    content.place = words.join(u' ');
    AddFact(content.facts, u"工程"_s, content.project);
    AddFact(content.facts, u"楼层"_s, floor);
    AddFact(content.facts, u"轴线交点"_s, axes.Short());
    AddFact(content.facts, u"标识"_s, mark);
    reading.AddSection(u"照片"_s);
    for (const KX_DATA::PicFileEntry& file : files) {
        KX_DATA::BimPicDetail detail;
        if (session.Site().BimPhotos().Detail(ppid, file.picId, detail)) {
            AddBimPhoto(reading, detail, file);
        }
    }
    AddFact(content.facts, u"照片数"_s, QString::number(content.sections.back().photos.size()));
    reading.AddRecord(request);
    reading.made.place = {ppid, request.floor, request.positionKey, 0, 0};
    return std::move(reading.made);
}

ReportReading ReadPdfReport(HostSession& session, const PIC_REPORT::PdfReportRequest& request) {
    // The viewers call the checkpoint a drawing.
    const qint32 pointId = request.drawingId;
    const auto drawing = session.Site().Drawings().DrawingOf(session.OpenPpids(), pointId);
    if (!drawing) {
        return Lacking(u"该检查点已被删除，请刷新后再试。"_s);
    }
    Reading reading(session, drawing->ppid, Cache::Thumbnails);
    ReportContent& content = reading.made.content;
    content.kind = u"图纸照片报告"_s;
    content.place = drawing->name;
    const auto flags = session.Site().Drawings().Flags(session.OpenPpids(), drawing->id);
    if (flags) {
        for (const site::CheckpointFlag& flag : *flags) {
            AddCheckpoint(session, reading, flag);
            content.planNote = flag.id == pointId
                                   ? u"图纸“%1”第 %2 页，打开的是检查点 %3"_s.arg(
                                         drawing->name, QString::number(flag.place.page + 1),
                                         QString::number(flag.number))
                                   : content.planNote;
        }
    }
    size_t photos = 0;
    for (const ReportSection& section : content.sections) {
        photos += section.photos.size();
    }
    AddFact(content.facts, u"工程"_s, content.project);
    AddFact(content.facts, u"图纸"_s, drawing->name);
    AddFact(content.facts, u"检查点数"_s, QString::number(content.sections.size()));
    AddFact(content.facts, u"照片数"_s, QString::number(photos));
    reading.AddRecord(request);
    reading.made.place = {drawing->ppid, {}, {}, drawing->id, pointId};
    return std::move(reading.made);
}

ReportReading ReadIssueReport(HostSession& session, const PIC_REPORT::IssueReportRequest& request) {
    site::IIssues& issues = session.Site().Issues();
    site::IssueRef issue{0, request.questionId};
    KX_DATA::QuestionDetail detail;
    for (const qint32 ppid : session.OpenPpids()) {
        if (issues.Detail(ppid, request.questionId, detail)) {
            issue.ppid = ppid;
            break;
        }
    }
    KX_DATA::RectifyRecord rectification;
    const auto facts = issue.ppid == 0 ? std::nullopt : ReadIssueFacts(session, issue);
    if (!facts || !issues.Rectification({issue.ppid}, issue.questionId, rectification)) {
        return Lacking(u"该问题已被删除，请刷新后再试。"_s);
    }
    if (detail.status == KX_DATA::kStatusHidden) {
        return Lacking(u"该问题已被隐藏，请先在控制台中显示它。"_s);
    }
    Reading reading(session, issue.ppid, Cache::Attachments);
    ReportContent& content = reading.made.content;
    content.kind = u"问题报告"_s;
    content.place = facts->subject;
    content.facts = facts->rows;
    content.facts.insert(content.facts.begin(), {u"名称"_s, facts->subject});
    content.code = QrImageOf(facts->code, kCodeModule);
    content.codeNote = facts->codeNote.isEmpty() ? u"扫描二维码可打开该问题"_s : facts->codeNote;
    std::vector<KX_DATA::QuestionPicRecord> pics;
    (void)issues.Pics(issue.ppid, issue.questionId, pics);
    reading.AddSection(u"问题图片"_s);
    reading.AddVoice(u"问题"_s, detail.voiceUuid);
    AddIssuePics(reading, pics);
    ReportSection& section = reading.AddSection(u"整改情况"_s);
    AddFact(section.facts, u"整改状态"_s, site::StateName(rectification.state));
    AddFact(section.facts, u"整改人"_s, rectification.rectifierName);
    AddFact(section.facts, u"整改说明"_s, rectification.rectifyText);
    section.commentsTitle = u"变更记录"_s;
    for (const IssueDeedLine& line : facts->history) {
        section.comments.push_back({line.who, line.when, line.what});
    }
    reading.AddVoice(u"整改"_s, rectification.voiceUuid);
    AddIssuePics(reading, rectification.pics);
    reading.AddRecord(request);
    reading.made.place = {issue.ppid, detail.floor, PositionOf(session, issue, detail), 0, 0};
    return std::move(reading.made);
}

} // namespace host
