// What people write to each other about a checkpoint.
#pragma once

#include "site/Records.h"

#include <QString>

#include <optional>
#include <vector>

namespace site {

/// Of a comment, in UTF-16 units; an editor allows fewer.
inline constexpr qsizetype kMostCommentText = 4000;

struct Comment {
    qint64 id = 0; ///< never given again
    QString person;
    QString text;
    qint64 at = 0; ///< seconds since 1970
};

/// Whose comments a removal may take.
enum class CommentsOf { Author, Anyone };

/// What became of a removal.
enum class Removed {
    Yes,
    Gone,      ///< not there, perhaps any more, or not of the checkpoint
    NotTheirs, ///< by somebody else, nothing was changed
};

/// Go with their checkpoint when that is removed. Texts are plain, and come back as they were
/// written, line breaks, emoji and markup included. The feed tells of them by the id of the
/// checkpoint. Operations throw DataError; changes are one transaction each. Thread: the site's.
class IComments {
public:
    virtual ~IComments() = default;

    /// In the order of writing. Whoever reads page after page gets each comment once, though some
    /// are removed meanwhile.
    /// @param page  from 0 on; past the end it is empty. @param size  > 0.
    /// @return      nothing for a checkpoint of none of the projects.
    [[nodiscard]] virtual std::optional<std::vector<Comment>>
    PageOf(const Projects& projects, qint32 checkpointId, int page, int size) = 0;

    /// Refused for a text of blanks alone or of more than kMostCommentText.
    /// @return  what was written; nothing for a checkpoint of none of the projects.
    [[nodiscard]] virtual std::optional<Comment> Add(const Projects& projects, qint32 checkpointId,
                                                     const QString& text, const Signature& by) = 0;
    [[nodiscard]] virtual Removed Remove(const Projects& projects, qint32 checkpointId,
                                         qint64 commentId, const Signature& by,
                                         CommentsOf whose) = 0;
};

} // namespace site
