#include "host/sheet/ListReader.h"

#include "host/sheet/RowOverlap.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/ISite.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kMostLooks = 3;

QUuid KeyOf(const KX_DATA::IssueRow& issue) {
    const QUuid id = QUuid::fromString(issue.questionId);
    return id.isNull() ? QUuid::createUuidV5(id, issue.questionId) : id;
}

template <typename Photo> QUuid KeyOf(const Photo& photo) {
    return QUuid(uint(photo.picId), 0, 0, 0, 0, 0, 0, 0, 0, 0, 0);
}

} // namespace

ListReader::ListReader(site::ISite& openSite, ListQuestion asked, bool withPictures, qint64 portion)
    : m_site(openSite), m_question(std::move(asked)), m_withPictures(withPictures),
      m_portion(std::max<qint64>(2, portion)) {}

void ListReader::ReadNames() {
    for (const auto& [id, mark] : m_site.Catalogue().Marks()) {
        m_names.marks[id] = mark.name;
    }
    for (const site::ProjectEntry& project : m_site.Catalogue().Projects()) {
        m_names.projects[project.ppid] = project.name;
    }
}

template <typename Record, typename Cells>
ListReader::Read ListReader::Taken(const site::Page<Record>& page, Cells cellsOf) {
    m_total = page.total;
    Read read;
    for (const Record& record : page.rows) {
        read.ids.push_back(KeyOf(record));
        // What is known already is only looked at for its place.
        read.rows.push_back(m_known.contains(read.ids.back()) ? sheets::SheetRow()
                                                              : cellsOf(record));
    }
    return read;
}

ListReader::Read ListReader::ReadPage(qint64 page, qint64 size) {
    const site::PageAsked asked{m_question.order, page, size};
    const auto photoCells = [this](const auto& photo) {
        return RowOf(photo, 0, m_names, m_withPictures);
    };
    switch (m_question.kind) {
    case site::ListKind::PdfPhotos:
        return Taken(m_site.PdfPhotos().PageOf(m_question.filter, asked), photoCells);
    case site::ListKind::Issues:
        return Taken(m_site.Issues().PageOf(m_question.filter, asked),
                     [this](const KX_DATA::IssueRow& issue) {
                         const sheets::SheetPicture picture = PictureOf(issue);
                         return RowOf(issue, 0, m_names, m_withPictures ? &picture : nullptr);
                     });
    default:
        return Taken(m_site.BimPhotos().PageOf(m_question.filter, asked), photoCells);
    }
}

sheets::SheetPicture ListReader::PictureOf(const KX_DATA::IssueRow& issue) const {
    std::vector<KX_DATA::QuestionPicRecord> pics;
    if (!m_withPictures || !m_site.Issues().Pics(issue.ppid, issue.questionId, pics) ||
        pics.empty()) {
        return {};
    }
    const KX_DATA::QuestionPicRecord& first = pics.front();
    return {issue.ppid, first.thumbUuid.isEmpty() ? first.fileUuid : first.thumbUuid};
}

std::vector<sheets::SheetRow> ListReader::Unknown(Read read) {
    const auto isKnown = [this](const QUuid& id) { return m_known.contains(id); };
    // What is new among known rows has come meanwhile or was moved: it waits for the look at the
    // end.
    const auto lastKnown = std::find_if(read.ids.rbegin(), read.ids.rend(), isKnown);
    const auto begin = m_looks > 0 ? read.ids.begin() : lastKnown.base();
    m_moved = m_moved || !std::all_of(read.ids.begin(), begin, isKnown);
    std::vector<sheets::SheetRow> rows;
    for (size_t i = size_t(begin - read.ids.begin()); i < read.ids.size(); ++i) {
        if (!isKnown(read.ids[i])) {
            m_known.insert(read.ids[i]);
            read.rows[i].front() = ++m_written;
            rows.push_back(std::move(read.rows[i]));
        }
    }
    return rows;
}

std::vector<sheets::SheetRow> ListReader::Next() {
    if (m_names.projects.empty()) {
        ReadNames();
    }
    for (qint64 back = 1;; back = std::max(m_portion, 2 * back)) {
        const RowPage place = PageFrom(m_position - back, m_portion);
        Read read = ReadPage(place.page, place.size);
        const qint64 begin = place.Begin();
        const qint64 count = qint64(read.ids.size());
        const qint64 last = m_position - 1 - begin;
        m_moved =
            m_moved || (m_position > 0 && (last >= count || read.ids[size_t(last)] != m_last));
        if (begin > 0 && (count == 0 || !m_known.contains(read.ids.front()))) {
            continue;
        }
        m_position = begin + count;
        m_last = count > 0 ? read.ids.back() : QUuid();
        std::vector<sheets::SheetRow> rows = Unknown(std::move(read));
        if (count < place.size) {
            NoteEnd();
        }
        return rows;
    }
}

void ListReader::NoteEnd() {
    m_atEnd = !m_moved || ++m_looks > kMostLooks;
    m_moved = false;
    m_position = 0;
    m_last = {};
}

} // namespace host
