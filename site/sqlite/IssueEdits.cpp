#include "site/sqlite/IssueEdits.h"

#include "site/DataError.h"
#include "site/FloorOrder.h"
#include "site/RectifyStates.h"
#include "site/sqlite/Components.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/IssueLog.h"
#include "site/sqlite/SetupTables.h"

namespace site {

using namespace Qt::StringLiterals;

namespace {

bool IsShownOrHidden(qint32 status) {
    return status == 0 || status == 1;
}

QString ShownText(qint32 status) {
    return status == 0 ? u"显示"_s : u"隐藏"_s;
}

QString ComponentText(const QString& floor, const QString& subName, const QString& name) {
    QStringList parts;
    for (const QString& part : {floor.isEmpty() ? QString() : floor + u"层"_s, subName, name}) {
        if (!part.isEmpty()) {
            parts.append(part);
        }
    }
    return parts.join(u' ');
}

} // namespace

int IssueEdits::SetStatus(qint32 ppid, const std::vector<QString>& questionIds, qint32 status,
                          const Signature& by, std::vector<NamedIssue>* changed) {
    int count = 0;
    std::vector<NamedIssue> others;
    Transaction transaction(m_database);
    for (const QString& questionId : questionIds) {
        const std::optional<IssueKey> key = KeyOf(m_database, {ppid}, questionId);
        if (!key) {
            continue;
        }
        qint32 old = status;
        m_database.ForEach(u"SELECT status, theme FROM issue WHERE id = ?"_s, {key->id},
                           [&](const Statement& read) {
                               old = read.Int(0);
                               if (old != status) {
                                   others.push_back({questionId, read.Text(1)});
                               }
                           });
        count += m_database.Exec(u"UPDATE issue SET status = ? WHERE id = ?"_s, {status, key->id});
        NoteDeed(m_database, key->id, by,
                 {0, {}, IssueDeed::Status, ShownText(old), ShownText(status), 0});
        m_database.Log().Note(ChangeKind::Issue, ppid, key->id, by.person);
    }
    transaction.Commit();
    if (changed != nullptr) {
        changed->insert(changed->end(), others.begin(), others.end());
    }
    return count;
}

std::optional<IssueEdits::Present> IssueEdits::PresentOf(qint64 issueId) {
    std::optional<Present> present;
    m_database.ForEach(u"SELECT revision, theme, description, mark_id, status, floor,"
                       " component_handle, component_name, component_sub_name, qr_code FROM issue"
                       " WHERE id = ?"_s,
                       {issueId}, [&](const Statement& read) {
                           present = Present{Revision{read.Int64(0)},
                                             read.Text(1),
                                             read.Text(2),
                                             read.Int(3),
                                             read.Int(4),
                                             read.Text(5),
                                             read.Text(6),
                                             read.Text(7),
                                             read.Text(8),
                                             read.Text(9)};
                       });
    return present;
}

QString IssueEdits::MarkName(qint32 markId) {
    const QString name =
        m_database.Value(u"SELECT name FROM mark WHERE id = ?"_s, {markId}).toString();
    return name.isEmpty() ? QString::number(markId) : name;
}

std::optional<Component> IssueEdits::NewComponent(qint32 ppid, const Present& old,
                                                  const KX_DATA::IssueUpdate& update) {
    // An editor in which no component was picked sends back what it read.
    const bool isSame = update.componentHandle == old.componentHandle && update.floor == old.floor;
    if (update.componentHandle.isEmpty() || isSame) {
        return std::nullopt;
    }
    auto found = Components(m_database).Find(ppid, update.floor, update.componentHandle);
    if (!found) {
        throw DataError(Fault::Missing, u"所选的构件已不在模型中，请重新选择构件。"_s);
    }
    return found;
}

void IssueEdits::MoveToComponent(qint64 issueId, const Component& component) {
    QString place;
    m_database.ForEach(
        u"SELECT axis_x, axis_y FROM position WHERE position_key = ?"_s, {component.positionKey},
        [&](const Statement& read) { place = PositionText(read.Text(0), read.Text(1)); });
    m_database.Exec(u"UPDATE issue SET component_handle = ?, floor = ?, floor_sort = ?,"
                    " pos_info = ?, component_name = ?, component_sub_name = ? WHERE id = ?"_s,
                    {component.handle, component.floor,
                     SortKeyOfFloor(m_database, component.ppid, component.floor), place,
                     component.name, component.subName, issueId});
}

void IssueEdits::NoteUpdate(qint64 issueId, const Present& old, const Signature& by) {
    const Present now = *PresentOf(issueId);
    const auto note = [&](IssueDeed deed, const QString& before, const QString& after) {
        NoteDeed(m_database, issueId, by, {0, {}, deed, before, after, 0});
    };
    note(IssueDeed::Subject, old.theme, now.theme);
    note(IssueDeed::Description, old.description, now.description);
    if (old.markId != now.markId) {
        note(IssueDeed::Mark, MarkName(old.markId), MarkName(now.markId));
    }
    note(IssueDeed::Status, ShownText(old.status), ShownText(now.status));
    if (old.componentHandle != now.componentHandle || old.floor != now.floor) {
        const QString before = ComponentText(old.floor, old.componentSubName, old.componentName);
        const QString after = ComponentText(now.floor, now.componentSubName, now.componentName);
        // Two components of one name are told apart by their handles.
        const bool isTold = before != after;
        note(IssueDeed::Component, isTold ? before : u"%1 [%2]"_s.arg(before, old.componentHandle),
             isTold ? after : u"%1 [%2]"_s.arg(after, now.componentHandle));
    }
    note(IssueDeed::QrCode, old.qrCode, now.qrCode);
}

Saved IssueEdits::Update(qint32 ppid, const KX_DATA::IssueUpdate& update, const Signature& by,
                         std::optional<Revision> seen) {
    Transaction transaction(m_database);
    const std::optional<IssueKey> key = KeyOf(m_database, {ppid}, update.questionId);
    if (!key) {
        return Saved::Gone;
    }
    const Present old = *PresentOf(key->id);
    if (seen && *seen != old.revision) {
        return Saved::ChangedMeanwhile;
    }
    const std::optional<Component> component = NewComponent(ppid, old, update);
    BeginIssueEdit(m_database, *key);
    m_database.Exec(
        u"UPDATE issue SET theme = ?, description = ?, mark_id = ?, status = ?, qr_code = ?"
        " WHERE id = ?"_s,
        {update.questionName, update.description, update.markId > 0 ? update.markId : old.markId,
         IsShownOrHidden(update.status) ? update.status : old.status,
         update.qrCode.isEmpty() ? old.qrCode : update.qrCode, key->id});
    if (component) {
        MoveToComponent(key->id, *component);
    }
    NoteUpdate(key->id, old, by);
    EndIssueEdit(m_database, *key, by);
    transaction.Commit();
    return Saved::Yes;
}

bool IssueEdits::SaveRectification(const Projects& projects, const KX_DATA::RectifySave& record,
                                   const Signature& by) {
    Transaction transaction(m_database);
    const std::optional<IssueKey> key = KeyOf(m_database, projects, record.questionId);
    if (!key) {
        return false;
    }
    const qint32 oldState =
        m_database.Value(u"SELECT state FROM issue WHERE id = ?"_s, {key->id}).toInt();
    const QString oldText =
        m_database.Value(u"SELECT text FROM rectification WHERE issue_id = ?"_s, {key->id})
            .toString();
    const qint32 state = StateName(record.state).isEmpty() ? oldState : record.state;
    BeginIssueEdit(m_database, *key);
    SignRectification(m_database, key->id, by);
    m_database.Exec(u"UPDATE rectification SET text = ? WHERE issue_id = ?"_s,
                    {record.rectifyText, key->id});
    m_database.Exec(u"UPDATE issue SET state = ? WHERE id = ?"_s, {state, key->id});
    NoteDeed(m_database, key->id, by,
             {0, {}, IssueDeed::RectifyText, oldText, record.rectifyText, 0});
    NoteDeed(m_database, key->id, by,
             {0, {}, IssueDeed::RectifyState, StateName(oldState), StateName(state), 0});
    EndIssueEdit(m_database, *key, by);
    transaction.Commit();
    return true;
}

void SignRectification(Database& database, qint64 issueId, const Signature& by) {
    database.Exec(u"INSERT INTO rectification (issue_id, text, rectifier, voice_uuid)"
                  " VALUES (?, '', ?, '') ON CONFLICT (issue_id) DO UPDATE SET"
                  " rectifier = excluded.rectifier"_s,
                  {issueId, by.person});
}

} // namespace site
