#include "host/app/IssueReader.h"

#include "host/session/HostSession.h"
#include "host/ui/LocateText.h"
#include "services/IssueRecords.h"
#include "site/ICatalogue.h"
#include "site/IssueCode.h"
#include "site/RectifyStates.h"
#include "toolkit/KXTools.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

QString Quoted(const QString& text) {
    return text.isEmpty() ? u"（空）"_s : u"“%1”"_s.arg(text);
}

QString ChangedText(const QString& caption, const site::IssueChange& change) {
    return u"%1：%2 → %3"_s.arg(caption, Quoted(change.oldText), Quoted(change.newText));
}

QString PicturesText(const QString& deed, int count, const QString& names) {
    const QString text = u"%1 %2 张"_s.arg(deed).arg(count);
    return names.isEmpty() ? text : text + u'：' + names;
}

QString SignedText(const QString& person, qint64 at) {
    const QString who = person.isEmpty() ? u"（未知）"_s : person;
    return at == 0 ? who : who + u"  "_s + KXTools::MinuteText(at);
}

QString ComponentLine(const KX_DATA::QuestionDetail& detail) {
    if (detail.componentHandle.isEmpty() && detail.componentName.isEmpty()) {
        return u"没有指定构件"_s;
    }
    QStringList words;
    for (const QString& word : {detail.floor.isEmpty() ? u"无楼层"_s : FloorCaption(detail.floor),
                                detail.componentSubName, detail.componentName}) {
        if (!word.isEmpty()) {
            words << word;
        }
    }
    return words.join(u' ');
}

QString StateLine(const KX_DATA::RectifyRecord& rectification, qint32 status) {
    constexpr qint32 kHidden = 1;
    const QString state = site::StateName(rectification.state);
    return (state.isEmpty() ? u"未知"_s : state) + (status == kHidden ? u"（隐藏）"_s : QString());
}

QString MarkLine(const HostSession& session, qint32 markId) {
    const auto marks = session.Tables().Marks();
    const auto known = marks.find(markId);
    return known == marks.end() ? u"未指定"_s : known->second.name;
}

std::vector<IssueDeedLine> HistoryOf(const HostSession& session, const site::IssueRef& issue) {
    std::vector<IssueDeedLine> lines;
    for (const site::IssueChange& change :
         session.Site().Issues().History(issue.ppid, issue.questionId)) {
        lines.push_back({KXTools::MinuteText(change.at),
                         change.person.isEmpty() ? u"（未知）"_s : change.person,
                         DeedText(change)});
    }
    return lines;
}

} // namespace

QString DeedText(const site::IssueChange& change) {
    switch (change.deed) {
    case site::IssueDeed::Raised:
        return u"提出问题"_s;
    case site::IssueDeed::Subject:
        return ChangedText(u"名称"_s, change);
    case site::IssueDeed::Description:
        return ChangedText(u"描述"_s, change);
    case site::IssueDeed::Mark:
        return ChangedText(u"标识"_s, change);
    case site::IssueDeed::Status:
        return ChangedText(u"显示"_s, change);
    case site::IssueDeed::Component:
        return ChangedText(u"构件"_s, change);
    case site::IssueDeed::QrCode:
        return change.oldText.isEmpty() ? u"生成二维码"_s : u"更换二维码"_s;
    case site::IssueDeed::PicsAdded:
        return PicturesText(u"添加问题图片"_s, change.count, change.newText);
    case site::IssueDeed::PicsRemoved:
        return PicturesText(u"删除问题图片"_s, change.count, change.oldText);
    case site::IssueDeed::RectifyText:
        return ChangedText(u"整改说明"_s, change);
    case site::IssueDeed::RectifyState:
        return ChangedText(u"整改状态"_s, change);
    case site::IssueDeed::RectifyPicsAdded:
        return PicturesText(u"添加整改图片"_s, change.count, change.newText);
    case site::IssueDeed::RectifyPicsRemoved:
        return PicturesText(u"删除整改图片"_s, change.count, change.oldText);
    }
    return u"其他更改（由新版本的客户端记录）"_s;
}

std::optional<IssueFacts> ReadIssueFacts(const HostSession& session, const site::IssueRef& issue) {
    site::IIssues& issues = session.Site().Issues();
    KX_DATA::QuestionDetail detail;
    KX_DATA::RectifyRecord rectification;
    if (!issues.Detail(issue.ppid, issue.questionId, detail) ||
        !issues.Rectification({issue.ppid}, issue.questionId, rectification)) {
        return std::nullopt;
    }
    IssueFacts facts;
    facts.subject = detail.questionName;
    facts.rows = {{u"工程"_s, session.Site().Catalogue().Project(issue.ppid).name},
                  {u"状态"_s, StateLine(rectification, detail.status)},
                  {u"标识"_s, MarkLine(session, detail.markId)},
                  {u"构件"_s, ComponentLine(detail)},
                  {u"提出"_s, SignedText(detail.creatorName, detail.createTime)}};
    if (!detail.updaterName.isEmpty()) {
        facts.rows.emplace_back(u"更新"_s, SignedText(detail.updaterName, detail.updateTime));
    }
    if (!detail.description.isEmpty()) {
        facts.rows.emplace_back(u"描述"_s, detail.description);
    }
    facts.history = HistoryOf(session, issue);
    facts.code =
        detail.qrCode.isEmpty() ? site::IssueCode(issue.ppid, issue.questionId) : detail.qrCode;
    if (detail.qrCode.isEmpty()) {
        facts.codeNote = u"该问题还没有构件的二维码，这里是问题自身的二维码。"_s;
    }
    return facts;
}

CodeLookup LookUpCode(const HostSession& session, const QString& text) {
    site::IIssues& issues = session.Site().Issues();
    if (auto found = issues.FindByQrCode(session.OpenPpids(), text)) {
        return {std::move(found), {}};
    }
    site::Projects all;
    for (const site::ProjectEntry& project : session.Site().Catalogue().Projects()) {
        all.push_back(project.ppid);
    }
    if (const auto elsewhere = issues.FindByQrCode(all, text)) {
        return {{},
                u"该问题属于工程“%1”，请先打开这个工程再试。"_s.arg(
                    session.Site().Catalogue().Project(elsewhere->ppid).name)};
    }
    return {{},
            text.startsWith(site::IssueCodeStart())
                ? u"没有找到这个二维码的问题，它可能已被删除，或二维码已更换。"_s
                : u"这不是问题的二维码，内容是：%1"_s.arg(text.simplified().left(100))};
}

} // namespace host
