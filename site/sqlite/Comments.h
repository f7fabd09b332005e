// Comments on checkpoints in the database.
#pragma once

#include "site/IComments.h"

namespace site {

class Database;

class Comments final : public IComments {
public:
    explicit Comments(Database& owner) : m_database(owner) {}

    [[nodiscard]] std::optional<std::vector<Comment>>
    PageOf(const Projects& projects, qint32 checkpointId, int page, int size) override;
    [[nodiscard]] std::optional<Comment> Add(const Projects& projects, qint32 checkpointId,
                                             const QString& text, const Signature& by) override;
    [[nodiscard]] Removed Remove(const Projects& projects, qint32 checkpointId, qint64 commentId,
                                 const Signature& by, CommentsOf whose) override;

private:
    /// Project of a checkpoint, if it is one of these; else 0.
    [[nodiscard]] qint32 ProjectOf(const Projects& projects, qint32 checkpointId);

    Database& m_database;
    /// Where the page that was read last ended, so that the next one isn't counted out anew.
    struct PageEnd {
        qint32 checkpointId = 0; ///< 0: at no page's end
        int nextPage = 0;
        int size = 0;
        qint64 lastId = 0;
    };
    PageEnd m_end;
};

} // namespace site
