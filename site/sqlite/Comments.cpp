#include "site/sqlite/Comments.h"

#include "site/sqlite/Database.h"
#include "site/sqlite/Sqlite.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

void RequireText(const QString& text) {
    if (text.trimmed().isEmpty()) {
        throw DataError(Fault::Refused, u"评论没有内容，没有保存。"_s);
    }
    if (text.size() > kMostCommentText) {
        throw DataError(
            Fault::Refused,
            u"评论有 %1 个字符，最多 %2 个，没有保存；请缩短后再发表。"_s.arg(text.size())
                .arg(kMostCommentText));
    }
}

} // namespace

qint32 Comments::ProjectOf(const Projects& projects, qint32 checkpointId) {
    const qint32 ppid = m_database
                            .Value(u"SELECT d.ppid FROM checkpoint c JOIN drawing d"
                                   " ON d.id = c.drawing_id WHERE c.id = ?"_s,
                                   {checkpointId})
                            .toInt();
    return Has(projects, ppid) ? ppid : 0;
}

std::optional<std::vector<Comment>> Comments::PageOf(const Projects& projects, qint32 checkpointId,
                                                     int page, int size) {
    const ReadScope snapshot(m_database);
    if (ProjectOf(projects, checkpointId) == 0) {
        return std::nullopt;
    }
    std::vector<Comment> comments;
    if (page < 0 || size <= 0) {
        return comments;
    }
    const bool goesOn =
        m_end.checkpointId == checkpointId && m_end.nextPage == page && m_end.size == size;
    // A thread of comments is read a page at a time, and may have a hundred of them.
    m_database.Scan(
        u"SELECT id, person, text, at FROM comment WHERE checkpoint_id = ? AND id > ?"
        " ORDER BY id LIMIT ? OFFSET ?"_s,
        {checkpointId, goesOn ? m_end.lastId : 0, size, goesOn ? 0 : qint64(page) * size},
        [&](const sqlite::RawRow& row) {
            comments.push_back({row.Int64(0), row.Text(1), row.Text(2), row.Int64(3)});
        });
    const bool isFull = comments.size() == size_t(size);
    m_end = isFull ? PageEnd{checkpointId, page + 1, size, comments.back().id} : PageEnd{};
    return comments;
}

std::optional<Comment> Comments::Add(const Projects& projects, qint32 checkpointId,
                                     const QString& text, const Signature& by) {
    RequireText(text);
    Transaction transaction(m_database);
    const qint32 ppid = ProjectOf(projects, checkpointId);
    if (ppid == 0) {
        return std::nullopt;
    }
    const qint64 id = m_database.Insert(
        u"INSERT INTO comment (checkpoint_id, person, text, at) VALUES (?, ?, ?, ?)"_s,
        {checkpointId, by.person, text, by.at});
    m_database.Log().Note(ChangeKind::Comment, ppid, checkpointId, by.person);
    transaction.Commit();
    return Comment{id, by.person, text, by.at};
}

Removed Comments::Remove(const Projects& projects, qint32 checkpointId, qint64 commentId,
                         const Signature& by, CommentsOf whose) {
    Transaction transaction(m_database);
    const qint32 ppid = ProjectOf(projects, checkpointId);
    const QVariant author =
        m_database.Value(u"SELECT person FROM comment WHERE id = ? AND checkpoint_id = ?"_s,
                         {commentId, checkpointId});
    if (ppid == 0 || !author.isValid()) {
        return Removed::Gone;
    }
    if (whose == CommentsOf::Author && author.toString() != by.person) {
        return Removed::NotTheirs;
    }
    m_database.Exec(u"DELETE FROM comment WHERE id = ?"_s, {commentId});
    m_database.Log().Note(ChangeKind::Comment, ppid, checkpointId, by.person);
    transaction.Commit();
    return Removed::Yes;
}

} // namespace site
