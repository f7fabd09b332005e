// A list of the console from its first row to its last, in portions.
#pragma once

#include "host/sheet/ListRows.h"
#include "sheets/RowSource.h"

#include <QSet>
#include <QUuid>

namespace site {
class ISite;
} // namespace site

namespace host {

/// What the console asked for.
struct ListQuestion {
    site::ListKind kind = site::ListKind::BimPhotos;
    site::ListFilter filter;
    site::ListOrder order;
};

/// Others may change the list meanwhile. No row comes twice. One that is in the list from the first
/// portion to the last and keeps its place among the others comes, in that place: each portion
/// begins with a row that is known already, and if it doesn't, rows before it went, and the reader
/// steps back until it does. A list that moved is looked through again at its end, up to three
/// times if it moves then, too: what came meanwhile, or was moved past the reader, comes last. What
/// is deleted meanwhile may have come. Keeps an id of each row. Thread: user interface; the site
/// must outlive it.
class ListReader final : public sheets::IRowSource {
public:
    static constexpr qint64 kPortion = 1000;

    /// @param portion  rows that are asked for at once, at least 2.
    ListReader(site::ISite& openSite, ListQuestion asked, bool withPictures,
               qint64 portion = kPortion);

    [[nodiscard]] std::vector<sheets::SheetRow> Next() override;
    [[nodiscard]] bool AtEnd() const override { return m_atEnd; }
    [[nodiscard]] qint64 Total() const override { return m_total; }

private:
    struct Read {
        std::vector<QUuid> ids;
        std::vector<sheets::SheetRow> rows; ///< numbers are set when they are handed on
    };
    void ReadNames();
    [[nodiscard]] Read ReadPage(qint64 page, qint64 size);
    template <typename Record, typename Cells>
    [[nodiscard]] Read Taken(const site::Page<Record>& page, Cells cellsOf);
    [[nodiscard]] sheets::SheetPicture PictureOf(const KX_DATA::IssueRow& issue) const;
    [[nodiscard]] std::vector<sheets::SheetRow> Unknown(Read read);
    void NoteEnd();

    site::ISite& m_site;
    const ListQuestion m_question;
    const bool m_withPictures;
    const qint64 m_portion;
    RowNames m_names;
    QSet<QUuid> m_known; ///< small, and the same for numbers and texts
    qint64 m_total = 0;
    qint64 m_written = 0;
    qint64 m_position = 0; ///< rows of the list that were passed
    QUuid m_last;          ///< the last of those
    bool m_moved = false;  ///< the list did, since it was begun
    int m_looks = 0;
    bool m_atEnd = false;
};

} // namespace host
