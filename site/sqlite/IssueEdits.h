// What is changed of an issue and its rectification, pictures apart.
#pragma once

#include "site/IIssues.h"

#include <optional>

namespace site {

class Database;
struct Component;
struct IssueChange;
struct IssueKey;

/// See IIssues.h.
class IssueEdits final {
public:
    explicit IssueEdits(Database& owner) : m_database(owner) {}

    int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status,
                  const Signature& by, std::vector<NamedIssue>* changed);
    [[nodiscard]] Saved Update(qint32 ppid, const KX_DATA::IssueUpdate& update, const Signature& by,
                               std::optional<Revision> seen);
    [[nodiscard]] bool SaveRectification(const Projects& projects,
                                         const KX_DATA::RectifySave& record, const Signature& by);

private:
    /// What an update finds.
    struct Present {
        Revision revision{};
        QString theme;
        QString description;
        qint32 markId = 0;
        qint32 status = 0;
        QString floor;
        QString componentHandle;
        QString componentName;
        QString componentSubName;
        QString qrCode;
    };
    [[nodiscard]] std::optional<Present> PresentOf(qint64 issueId);
    [[nodiscard]] QString MarkName(qint32 markId);
    /// The component of an update; nothing where the issue keeps the one that it has.
    [[nodiscard]] std::optional<Component> NewComponent(qint32 ppid, const Present& old,
                                                        const KX_DATA::IssueUpdate& update);
    void MoveToComponent(qint64 issueId, const Component& component);
    void NoteUpdate(qint64 issueId, const Present& old, const Signature& by);

    Database& m_database;
};

/// Inside of a transaction: who changed a rectification is its rectifier.
void SignRectification(Database& database, qint64 issueId, const Signature& by);

} // namespace site
