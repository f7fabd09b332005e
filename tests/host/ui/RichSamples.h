// Versions and drafts that a test scripts.
#pragma once

#include "host/ui/rich/DraftSource.h"
#include "host/ui/rich/VersionSource.h"

#include <QStringList>

#include <algorithm>
#include <functional>
#include <map>
#include <utility>
#include <vector>

namespace support {

/// 2026-03-05 12:00:00 in the tests' zone.
inline constexpr qint64 kNoon = 1772683200;

/// What both sources have: a log of the calls, a fault for the next one, and something that happens
/// while one is asked.
class ScriptedRich {
public:
    QStringList calls;
    QString nextFault;             ///< of the next call that isn't the log's only
    std::function<void()> happens; ///< once, within the next call

protected:
    QString Enter(const QString& call) {
        calls << call;
        if (const auto deed = std::exchange(happens, {})) {
            deed();
        }
        return std::exchange(nextFault, {});
    }
};

class ScriptedVersions final : public host::IVersionSource, public ScriptedRich {
public:
    std::vector<host::RecordRow> records;
    std::map<QString, std::vector<host::VersionRow>> versions; ///< newest first
    std::map<qint64, QString> texts;                           ///< of any record
    QString folder;

    /// A record with versions of these texts, oldest first, all "未整改" but the last.
    void Add(const QString& id, const QStringList& htmls) {
        const qint64 first = kNoon + 86400 * qint64(records.size());
        for (qsizetype i = 0; i < htmls.size(); ++i) {
            const qint64 number = qint64(records.size()) * 100 + i + 1;
            const bool isLast = i + 1 == htmls.size();
            texts[number] = htmls[i];
            versions[id].insert(versions[id].begin(),
                                {number, isLast ? QStringLiteral("李娜") : QStringLiteral("张伟"),
                                 isLast ? QStringLiteral("已整改") : QStringLiteral("未整改"),
                                 first + 3600 * i});
        }
        const host::VersionRow& newest = versions[id][0];
        records.push_back({id, 1, QStringLiteral("1号楼 ") + id, newest.state, newest.person,
                           newest.at, int(htmls.size())});
    }

    host::RecordList ReadRecords() override {
        const QString fault = Enter(QStringLiteral("ReadRecords"));
        return fault.isEmpty() ? host::RecordList{records, {}} : host::RecordList{{}, fault};
    }
    host::VersionList ReadVersions(const QString& record) override {
        const QString fault = Enter(QStringLiteral("ReadVersions ") + record);
        return fault.isEmpty() ? host::VersionList{versions[record], {}}
                               : host::VersionList{{}, fault};
    }
    host::PageText ReadText(const QString& record, qint64 version) override {
        const QString fault = Enter(QStringLiteral("ReadText %1 %2").arg(record).arg(version));
        return {fault.isEmpty(), fault, texts[version], folder};
    }
    QString Restore(const QString& record, qint64 version) override {
        const QString fault = Enter(QStringLiteral("Restore %1 %2").arg(record).arg(version));
        if (!fault.isEmpty()) {
            return fault;
        }
        std::vector<host::VersionRow>& rows = versions[record];
        const qint64 number = rows[0].number + 1;
        texts[number] = texts[version];
        rows.insert(rows.begin(), {number, rows[0].person, rows[0].state, rows[0].at + 60});
        return {};
    }
};

class ScriptedDrafts final : public host::IDraftSource, public ScriptedRich {
public:
    std::vector<host::DraftRow> drafts;
    std::map<QString, QString> texts;
    QString folder;

    void Add(const QString& id, const QString& html, bool isOlder = false) {
        drafts.push_back({id, QStringLiteral("1号楼 ") + id, QStringLiteral("未整改"),
                          QStringLiteral("摘要 ") + id, kNoon, kNoon + 30 * 86400, isOlder});
        texts[id] = html;
    }
    void Drop(const QString& id) {
        drafts.erase(std::find_if(drafts.begin(), drafts.end(),
                                  [&id](const host::DraftRow& row) { return row.id == id; }));
    }

    host::DraftList ReadDrafts() override {
        const QString fault = Enter(QStringLiteral("ReadDrafts"));
        return fault.isEmpty() ? host::DraftList{drafts, {}} : host::DraftList{{}, fault};
    }
    host::PageText ReadText(const QString& draft) override {
        const QString fault = Enter(QStringLiteral("ReadText ") + draft);
        return {fault.isEmpty(), fault, texts[draft], folder};
    }
    QString BringBack(const QString& draft) override {
        return Take(QStringLiteral("BringBack "), draft);
    }
    QString Remove(const QString& draft) override { return Take(QStringLiteral("Remove "), draft); }

private:
    QString Take(const QString& call, const QString& draft) {
        const QString fault = Enter(call + draft);
        if (fault.isEmpty()) {
            Drop(draft);
        }
        return fault;
    }
};

} // namespace support
