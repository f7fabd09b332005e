#include "host/app/SessionDrafts.h"

#include "host/app/Faults.h"
#include "host/app/RichRights.h"
#include "host/services/RichTextMsgMng.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"

#include <QFile>
#include <QTextDocumentFragment>

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr int kSummaryLetters = 60;
const QString kNotHere = u"无法读取该位置的记录，请先打开它所属的工程。"_s;
constexpr qint32 kOfThePage = 1;             ///< kind of a file
constexpr qint64 kMostOfSummary = 64 * 1024; ///< of a page; its first words stand there

QString PagePath(const site::Draft& draft) {
    const auto page = std::ranges::find_if(draft.text.files, [](const auto& file) {
        return file.kind == kOfThePage && file.name.endsWith(u".html"_s);
    });
    return page == draft.text.files.end() ? QString() : page->path;
}

/// Nothing for a key that somebody else wrote into the folder.
std::optional<site::RichPlace> PlaceOfDraft(const site::Draft& draft) {
    try {
        return RichPlaceOf(draft.text.key);
    } catch (const site::DataError&) {
        return std::nullopt;
    }
}

/// What the record has already: of a page's files, which are called by their content, and of what
/// is attached and wasn't fetched.
std::optional<KX_DATA::RichAttachment> SameIn(const std::vector<KX_DATA::RichAttachment>& files,
                                              const KX_DATA::UploadItem& item) {
    const auto same = std::ranges::find_if(files, [&](const KX_DATA::RichAttachment& file) {
        return (item.kind == kOfThePage || item.path.isEmpty()) && file.kind == item.kind &&
               file.name == item.name;
    });
    return same == files.end() ? std::nullopt : std::optional(*same);
}

QString SummaryOf(const site::Draft& draft) {
    QFile page(PagePath(draft));
    if (!page.open(QIODevice::ReadOnly)) {
        return {};
    }
    const QString html = QString::fromUtf8(page.read(kMostOfSummary));
    const QString text = QTextDocumentFragment::fromHtml(html).toPlainText();
    return QString(text)
        .remove(QChar::ObjectReplacementCharacter)
        .simplified()
        .left(kSummaryLetters);
}

} // namespace

QString SessionDrafts::WordsOf(const KX_DATA::RichTextKey& key,
                               const std::optional<site::RichPlace>& place) const {
    const site::Projects ppids = m_session.OpenPpids();
    site::IRichTexts& texts = m_session.Site().RichTexts();
    const auto here = place ? texts.Where(ppids, *place) : std::nullopt;
    if (here && ppids.size() == 1) {
        return *here;
    }
    const QString project = m_session.Tables().ProjectName(key.projectId);
    if (here) {
        return u"%1 / %2"_s.arg(project, *here);
    }
    const auto elsewhere = place ? texts.Where({key.projectId}, *place) : std::nullopt;
    return elsewhere ? u"%1 / %2（工程未打开）"_s.arg(project, *elsewhere)
                     : u"%1 / 已删除的位置"_s.arg(project);
}

DraftRow SessionDrafts::RowOf(const site::Draft& draft) const {
    DraftRow row;
    row.id = draft.id;
    row.state = draft.text.stateText;
    row.summary = SummaryOf(draft);
    row.at = draft.at;
    row.keptUntil = draft.at + site::kDraftSeconds;
    const auto place = PlaceOfDraft(draft);
    row.place = WordsOf(draft.text.key, place);
    if (place) {
        const auto newest = m_session.Site().RichTexts().Newest(m_session.OpenPpids(), *place);
        row.isOlder = newest && newest->text != draft.text.versionText;
    }
    return row;
}

DraftList SessionDrafts::ReadDrafts() {
    DraftList list;
    const bool isRead = WithoutFault(m_session, [&] {
        for (const site::Draft& draft : m_session.Site().Drafts().Of(m_session.UserName())) {
            list.rows.push_back(RowOf(draft));
        }
    });
    list.fault = isRead ? QString() : u"数据文件夹无法读取"_s;
    return list;
}

std::optional<site::Draft> SessionDrafts::Find(const QString& id) {
    std::optional<site::Draft> found;
    WithoutFault(m_session,
                 [&] { found = m_session.Site().Drafts().One(id, m_session.UserName()); });
    return found;
}

PageText SessionDrafts::ReadText(const QString& draftId) {
    PageText page;
    const auto draft = Find(draftId);
    QFile file(draft ? PagePath(*draft) : QString());
    if (!draft || !file.open(QIODevice::ReadOnly)) {
        page.fault = u"草稿已不存在"_s;
        return page;
    }
    page.isThere = true;
    page.html = QString::fromUtf8(file.readAll());
    page.folder = draft->folder;
    return page;
}

QString SessionDrafts::SaveDraft(const site::Draft& draft) {
    const auto place = PlaceOfDraft(draft);
    if (!place || !m_session.Site().RichTexts().Newest(m_session.OpenPpids(), *place)) {
        return kNotHere;
    }
    KX_DATA::RichTextMsg newest;
    std::vector<KX_DATA::RichAttachment> files;
    if (!GetRichTextMsgMng()->GetRichText(draft.text.key, newest, files)) {
        return kNotHere;
    }
    std::vector<KX_DATA::RichAttachment> added;
    std::vector<QString> removed;
    for (const KX_DATA::RichAttachment& file : files) {
        removed.push_back(file.uuid);
    }
    for (const KX_DATA::UploadItem& item : draft.text.files) {
        if (const auto same = SameIn(files, item)) {
            std::erase(removed, same->uuid);
            continue;
        }
        if (item.path.isEmpty()) {
            continue; // another version has taken it out since
        }
        KX_DATA::UploadResult result;
        QString error;
        if (!GetKXFilesUploadMng()->UploadFile({item}, 1, result, error)) {
            return u"上传文件失败：%1"_s.arg(error);
        }
        KX_DATA::RichAttachment file;
        file.name = item.name;
        file.md5 = result.md5;
        file.uuid = result.uuid;
        file.size = static_cast<qint32>(result.size);
        file.kind = item.kind;
        added.push_back(file);
    }
    newest.docName = draft.text.docName;
    const QString state = draft.text.stateText.isEmpty() ? newest.stateText : draft.text.stateText;
    const bool isSaved =
        GetRichTextMsgMng()->SaveRichText(state, newest, draft.text.key, removed, added);
    return isSaved ? QString() : u"没有保存，请查看消息后重试。"_s;
}

QString SessionDrafts::BringBack(const QString& draftId) {
    const auto draft = Find(draftId);
    QString lack = draft ? LackOfRichRight() : u"草稿已不存在。"_s;
    if (draft && lack.isEmpty()) {
        const QString fault = FaultOfWork([&] { lack = SaveDraft(*draft); });
        lack = fault.isEmpty() ? lack : fault;
    }
    if (lack.isEmpty()) {
        // It is saved; a draft that can't be removed now goes by itself one day.
        WithoutFault(m_session, [&] { m_session.Site().Drafts().Remove(draftId); });
    }
    return lack;
}

QString SessionDrafts::Remove(const QString& draftId) {
    return FaultOfWork([&] { m_session.Site().Drafts().Remove(draftId); });
}

} // namespace host
