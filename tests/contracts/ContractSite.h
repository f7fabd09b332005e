// A site as the contracts see it: what it is filled with, who works on it, how it gets into
// trouble.
#pragma once

#include "site/IComponents.h"
#include "site/ISite.h"
#include "site/NewRecords.h"
#include "tests/contracts/Services.h"

#include <functional>
#include <string>
#include <vector>

namespace contracts {

/// What keeps a site from answering.
enum class Trouble {
    Scripted, ///< a double that was told to fail
    Closed,   ///< no data folder is open
    Broken,   ///< the tables are gone
    Locked,   ///< somebody else writes and doesn't end: changes fail, reading goes on
    ReadOnly, ///< changes fail, reading goes on
};

/// One ticked photo of a mark on a floor, and one ticked issue of that mark.
struct Ticks {
    QString group;
    qint32 markId = 0;
    QString place;
    qint32 picId = 0;
    QString questionId;
};

/// Starts with the projects `first` (open, "一号楼", trade 2) and `second` ("二号楼"), a workset of
/// both, the marks 1 "质量" 0x0000ff and 2 "安全" 0x00ff00, and the people "li" (signed in, all
/// four rights) and "guest" (none).
class ContractSite {
public:
    virtual ~ContractSite() = default;

    Services on;
    qint32 first = 0;
    qint32 second = 0;

    virtual void AddComponent(const site::Component& component) = 0;
    /// The label's id.
    virtual QString AddLabel(const QString& name) = 0;
    virtual void AddFloor(qint32 ppid, const QString& floor) = 0;
    /// The key of the position, which the record may name.
    virtual QString AddPosition(const site::NewPosition& position) = 0;
    virtual qint32 AddDrawing(qint32 ppid, const QString& name) = 0;
    virtual qint32 AddCheckpoint(const site::NewCheckpoint& checkpoint,
                                 const QByteArray& voice) = 0;
    virtual qint32 AddPhoto(const site::NewBimPhoto& photo, const QByteArray& picture,
                            const QByteArray& voice) = 0;
    virtual qint32 AddPdfPhoto(const site::NewPdfPhoto& photo, const QByteArray& picture) = 0;
    /// The question id.
    virtual QString AddIssue(const site::NewIssue& issue, const QByteArray& voice) = 0;
    virtual void AddIssuePic(const site::NewIssuePic& pic, const QByteArray& picture) = 0;

    /// The site itself, for what its services don't reach: setting it up, filing many at once,
    /// bringing back. Null: a double, which is a table of records and no site.
    [[nodiscard]] virtual site::ISite* Engine() { return nullptr; }

    /// Runs it, which files very much: at once, where the site can.
    virtual void Fill(const std::function<void()>& filing) { filing(); }

    virtual void SignIn(const QString& name) = 0;
    virtual void OpenWorkset() = 0;
    virtual void CloseProject() = 0;
    virtual void SetDrawing(const KX_DATA::CurrentDrawing& drawing) = 0;
    virtual void Tick(const Ticks& ticks) = 0;
    virtual void SetView(bool open) = 0;
    /// What users did, newest last.
    [[nodiscard]] virtual std::vector<QString> Actions() = 0;
    /// Texts that were not saved by the person who is signed in, the latest first.
    [[nodiscard]] virtual std::vector<KX_DATA::RichTextDraft> Drafts() = 0;
    /// From now on files can't be fetched.
    virtual void FailTransfers() = 0;
    /// From now on these operations can't be done; the others may be affected too.
    virtual void Enter(Trouble trouble, const std::vector<std::string>& operations) = 0;
};

} // namespace contracts
