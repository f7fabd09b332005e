// What the choice of project offers: projects and worksets.
#pragma once

#include <QString>

#include <vector>

namespace host {

class HostSession;

/// One of the two ids is 0.
struct ProjectChoice {
    QString text;
    qint32 ppid = 0;
    qint32 worksetId = 0;
};

/// Projects first, worksets behind them, without those that are archived. Throws DataError.
[[nodiscard]] std::vector<ProjectChoice> ReadProjectChoices(HostSession& session);
/// The one that is open; -1: none.
[[nodiscard]] int OpenChoice(const HostSession& session, const std::vector<ProjectChoice>& choices);
/// Opens it and remembers it for the next start; false if it isn't there any more. Throws
/// DataError.
bool TakeChoice(HostSession& session, const ProjectChoice& choice);
/// The one that was open at last, else the first one; -1: there is none. Throws DataError.
[[nodiscard]] int RememberedChoice(HostSession& session, const std::vector<ProjectChoice>& choices);

} // namespace host
