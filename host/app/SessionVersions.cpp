#include "host/app/SessionVersions.h"

#include "host/app/Faults.h"
#include "host/app/RichRights.h"
#include "host/services/SiteService.h"
#include "services/Factories.h"
#include "services/IKXFilesMng.h"
#include "services/IKXPathMng.h"
#include "site/RectifyStates.h"
#include "toolkit/richtext/NoteHtml.h"

#include <QFile>

namespace host {

using namespace Qt::StringLiterals;

namespace {

constexpr qint32 kAttached = 2; ///< opened by itself, not shown in the page
constexpr qint32 kTransferKind = 5;
const QString kFolderUnread = u"数据文件夹无法读取"_s;
const QString kNoRecord = u"记录已不存在"_s;

/// Fetches what a page needs. An empty text: all of it is there; else why not.
QString FetchPage(const site::RichVersion& version, const QString& folder) {
    for (const site::RichFile& file : version.files) {
        const QString path = folder + file.name;
        if (file.kind == kAttached || !toolkit::IsStoreName(file.name) || QFile::exists(path)) {
            continue;
        }
        KX_DATA::TransferResult result;
        GetKXFilesDownloadMng()->DownloadFile(result, file.uuid, path, kTransferKind, false, 0);
        if (!result.success) {
            return result.message;
        }
    }
    return {};
}

QString PageOf(const site::RichVersion& version) {
    for (const site::RichFile& file : version.files) {
        if (file.name.endsWith(u".html"_s) && toolkit::IsStoreName(file.name)) {
            return file.name;
        }
    }
    return {};
}

} // namespace

RecordList SessionVersions::ReadRecords() {
    RecordList list;
    m_places.clear();
    const bool isRead = WithoutFault(m_session, [&] {
        const site::Projects ppids = m_session.OpenPpids();
        for (const site::RichEntry& entry : m_session.Site().RichTexts().List(ppids)) {
            const QString id = QString::number(entry.id);
            m_places[id] = entry.place;
            const QString project = m_session.Tables().ProjectName(entry.place.ppid);
            list.rows.push_back({id, entry.place.ppid,
                                 ppids.size() > 1 ? project + u" / "_s + entry.where : entry.where,
                                 site::StateName(entry.last.state), entry.last.person,
                                 entry.last.at, entry.last.number});
        }
    });
    list.fault = isRead ? QString() : kFolderUnread;
    return list;
}

std::optional<site::RichPlace> SessionVersions::PlaceOf(const QString& record) const {
    const auto known = m_places.find(record);
    return known == m_places.end() ? std::nullopt : std::optional(known->second);
}

VersionList SessionVersions::ReadVersions(const QString& record) {
    VersionList list;
    const auto place = PlaceOf(record);
    const bool isRead = WithoutFault(m_session, [&] {
        const auto versions =
            place ? m_session.Site().RichTexts().Versions(m_session.OpenPpids(), *place)
                  : std::nullopt;
        if (!versions) {
            list.fault = kNoRecord;
            return;
        }
        for (const site::RichVersion& version : *versions) {
            list.rows.push_back(
                {version.number, version.person, site::StateName(version.state), version.at});
        }
    });
    if (!isRead) {
        list.fault = kFolderUnread;
    }
    return list;
}

PageText SessionVersions::ReadText(const QString& record, qint64 version) {
    PageText page;
    const auto place = PlaceOf(record);
    std::optional<site::RichVersion> found;
    if (!WithoutFault(m_session, [&] {
            if (place) {
                found = m_session.Site().RichTexts().Version(m_session.OpenPpids(), *place,
                                                             static_cast<int>(version));
            }
        })) {
        page.fault = kFolderUnread;
        return page;
    }
    if (!found) {
        page.fault = kNoRecord;
        return page;
    }
    GetVeskPathTool()->GetRichFolder(page.folder);
    const QString name = PageOf(*found);
    // Who set a state and wrote nothing has no page.
    if (name.isEmpty()) {
        page.isThere = true;
        return page;
    }
    page.fault = FetchPage(*found, page.folder);
    QFile file(page.folder + name);
    if (!page.fault.isEmpty() || !file.open(QIODevice::ReadOnly)) {
        return page;
    }
    page.isThere = true;
    page.html = QString::fromUtf8(file.readAll());
    return page;
}

QString SessionVersions::Restore(const QString& record, qint64 version) {
    const QString lack = LackOfRichRight();
    if (!lack.isEmpty()) {
        return lack;
    }
    const auto place = PlaceOf(record);
    return FaultOfWork([&] {
        site::IRichTexts& texts = m_session.Site().RichTexts();
        const site::Projects ppids = m_session.OpenPpids();
        const auto wanted =
            place ? texts.Version(ppids, *place, static_cast<int>(version)) : std::nullopt;
        const auto newest = place ? texts.Newest(ppids, *place) : std::nullopt;
        RequireFound(wanted && newest, u"记录版本"_s);
        const QString where = texts.Where(ppids, *place).value_or(QString());
        site::NewRichVersion made;
        made.base = newest->text;
        made.docName = wanted->docName;
        made.state = wanted->state;
        for (const site::RichFile& file : newest->files) {
            made.removed.push_back(file.uuid);
        }
        made.added = wanted->files;
        RequireFound(texts.Save(ppids, *place, made, SignatureOf(m_session)).has_value(),
                     u"记录版本"_s);
        m_session.Actions().Write(u"恢复“%1”记录的第%2版"_s.arg(where, QString::number(version)));
    });
}

} // namespace host
