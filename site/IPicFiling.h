// What workers file of the files that they have uploaded.
#pragma once

#include "services/IssueRecords.h"
#include "site/Limits.h"
#include "site/Records.h"

namespace site {

/// Throws DataError, past the limits too, with nothing changed. Thread: any.
class IPicFiling {
public:
    virtual ~IPicFiling() = default;

    /// As IIssues::AddRectifyPics.
    [[nodiscard]] virtual bool AddRectifyPics(const Projects& projects, const QString& questionId,
                                              const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                              const Signature& by, const Limits& limits) = 0;
};

} // namespace site
