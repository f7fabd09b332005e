// Issues and their rectifications.
#pragma once

#include "services/IssueRecords.h"
#include "site/IssueHistory.h"
#include "site/ListFilter.h"
#include "site/Records.h"

#include <optional>

namespace site {

struct BinEntry;

/// Where an issue is found.
struct IssueRef {
    qint32 ppid = 0;
    QString questionId;
};

/// Operations throw DataError; changes are one transaction each, with their lines of the history.
/// What its signature says of a change becomes the issue's last change, but where said. An issue in
/// the bin is as unknown as one that never was. Thread: the site's.
class IIssues {
public:
    virtual ~IIssues() = default;

    /// Issues that were never changed have an empty updater and their time of creation twice.
    [[nodiscard]] virtual Page<KX_DATA::IssueRow> PageOf(const ListFilter& filter,
                                                         const PageAsked& asked) = 0;
    /// The state that was read; nothing for an unknown issue of the project. Leaves the record's
    /// questionId and ppid alone.
    [[nodiscard]] virtual std::optional<Revision> Detail(qint32 ppid, const QString& questionId,
                                                         KX_DATA::QuestionDetail& detail) = 0;
    /// False for an unknown issue of the project, here and below.
    [[nodiscard]] virtual bool Pics(qint32 ppid, const QString& questionId,
                                    std::vector<KX_DATA::QuestionPicRecord>& pics) = 0;
    /// An issue that nobody has worked on has an empty text and rectifier.
    [[nodiscard]] virtual bool Rectification(const Projects& projects, const QString& questionId,
                                             KX_DATA::RectifyRecord& record) = 0;
    /// Latest first, the raising last; empty for an issue of another project.
    [[nodiscard]] virtual std::vector<IssueChange> History(qint32 ppid,
                                                           const QString& questionId) = 0;
    /// The issue whose code this text is, else the one whose own id stands in it (`IssueCode`);
    /// nothing for an empty one.
    [[nodiscard]] virtual std::optional<IssueRef> FindByQrCode(const Projects& projects,
                                                               const QString& text) = 0;

    /// Counts as a change by nobody: people and times stay; the history names who did it. Returns
    /// how many there were. `changed` gets those that had another status before, with their
    /// themes; null: nobody asks.
    virtual int SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status,
                          const Signature& by = {}, std::vector<NamedIssue>* changed = nullptr) = 0;
    /// What an update can't know stays as it is: the component for an empty handle, the mark for a
    /// number of 0 or less, the status for a number that is none, the code for an empty text. A
    /// component gives the issue its floor, its place and its names; throws Missing, with a
    /// sentence that asks for another, if it isn't there and isn't the one that the issue has.
    /// @param seen  the state that the person saw, hidden or shown and its pictures with it; none:
    ///              whatever was before is overwritten.
    [[nodiscard]] virtual Saved Update(qint32 ppid, const KX_DATA::IssueUpdate& update,
                                       const Signature& by, std::optional<Revision> seen = {}) = 0;
    /// Into the bin; `made` as there. False, with nothing changed, if one of them is no picture of
    /// an issue there, and for pictures of rectifications, which have an operation of their own.
    [[nodiscard]] virtual bool DeletePics(const Projects& projects,
                                          const std::vector<QString>& picIds, const Signature& by,
                                          std::vector<BinEntry>* made = nullptr) = 0;

    /// Who signs a change of the rectification is its rectifier from then on, here and below. A
    /// number that is no state leaves the state as it is.
    [[nodiscard]] virtual bool SaveRectification(const Projects& projects,
                                                 const KX_DATA::RectifySave& record,
                                                 const Signature& by) = 0;
    /// All or nothing. Each picture has an id of its own, and two files (or one for both) that were
    /// uploaded with the MD5 that it says and belong to no record yet; throws Refused or Missing,
    /// with a sentence, for one that hasn't. Sizes are the files'; a picture without uploader or
    /// time has those of the signature. False for an issue of none of the projects.
    [[nodiscard]] virtual bool AddRectifyPics(const Projects& projects, const QString& questionId,
                                              const std::vector<KX_DATA::QuestionPicRecord>& pics,
                                              const Signature& by) = 0;
    /// Into the bin; `made` as there. False, with nothing changed, if one of them isn't a picture
    /// of this rectification.
    [[nodiscard]] virtual bool DeleteRectifyPics(const Projects& projects,
                                                 const QString& questionId,
                                                 const std::vector<QString>& picIds,
                                                 const Signature& by,
                                                 std::vector<BinEntry>* made = nullptr) = 0;
    /// Of the whole site: marks in use on any issue that the mark table knows.
    [[nodiscard]] virtual std::vector<qint32> UsedMarks() = 0;
};

} // namespace site
