// A site of a test that is set up, with photos and an issue that use some of it.
#pragma once

#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IIssues.h"
#include "site/IPdfPhotos.h"
#include "site/ISetup.h"
#include "site/sqlite/Database.h"
#include "site/sqlite/SqliteSite.h"
#include "tests/site/TempSite.h"

#include <algorithm>

namespace sitetest {

using namespace Qt::StringLiterals;

inline constexpr qint64 kSetupTime = 1'700'000'000;

struct SetupSite : hosttest::TempSite {
    SetupSite() {
        site::SiteWriter writer(folder);
        ppid = writer.AddProject(u"滨江花园"_s);
        other = writer.AddProject(u"科技大厦"_s, 2);
        writer.AddWorkset(u"全部"_s, {ppid, other});
        writer.AddUser(u"li"_s, {5, 21, 22, 38, site::kRightSetup});
        writer.AddUser(u"wang"_s, {21});
        writer.AddMark(1, u"质量"_s, 0x0000FF);
        writer.AddMark(2, u"安全"_s, 0x00FF00);
        wall = writer.AddLabel(u"墙面"_s);
        crack = writer.AddLabel(u"裂缝"_s);
        for (const auto& [floor, x, y] :
             {std::tuple(u"1"_s, u"1"_s, u"A"_s), std::tuple(u"1"_s, u"2"_s, u"A"_s),
              std::tuple(u"2"_s, u"1"_s, u"A"_s)}) {
            keys[floor + x + y] = writer.AddPosition({ppid, floor, x, y, {}, true});
        }
        writer.AddFloor(ppid, u"10"_s);
        photo = File(writer, ppid, keys[u"11A"_s], 1, {wall});
        loose = File(writer, ppid, {}, 0, {});
        foreign = File(writer, other, {}, 2, {});
        site::NewIssue issue;
        issue.ppid = ppid;
        issue.theme = u"渗水"_s;
        issue.floor = u"2"_s;
        issue.markId = 2;
        issue.creator = u"li"_s;
        issue.createTime = kSetupTime;
        questionId = writer.FileIssue(issue);
    }
    qint32 File(site::SiteWriter& writer, qint32 project, const QString& key, qint32 mark,
                const std::vector<qint32>& labels) {
        site::NewBimPhoto one;
        one.ppid = project;
        one.fileName = u"照片%1.jpg"_s.arg(++filed);
        one.positionKey = key;
        one.markId = mark;
        one.labelIds = labels;
        one.uploader = u"li"_s;
        one.uploadTime = kSetupTime + filed;
        return writer.FilePhoto(one, {{}, "picture"});
    }
    [[nodiscard]] site::SetupState Read() { return engine.Setup().Read({ppid, other}); }
    [[nodiscard]] site::SetupOutcome Apply(const site::SetupState& seen,
                                           const site::SetupState& wanted) {
        return engine.Setup().Apply(seen, wanted, {u"li"_s, kSetupTime + 100});
    }
    /// Applies what `change` makes of the present state; expects that it is done.
    template <typename Change> void Do(Change change) {
        const site::SetupState seen = Read();
        site::SetupState wanted = seen;
        change(wanted);
        const site::SetupOutcome outcome = Apply(seen, wanted);
        for (const QString& refusal : outcome.refusals) {
            ADD_FAILURE() << refusal.toStdString();
        }
        EXPECT_FALSE(outcome.changedMeanwhile.has_value());
    }
    /// The refusals of the same; expects that nothing was changed.
    template <typename Change> QStringList Refused(Change change) {
        const site::SetupState seen = Read();
        site::SetupState wanted = seen;
        change(wanted);
        const site::SetupOutcome outcome = Apply(seen, wanted);
        EXPECT_FALSE(outcome.IsDone());
        EXPECT_EQ(Read(), seen);
        return {outcome.refusals.begin(), outcome.refusals.end()};
    }
    [[nodiscard]] KX_DATA::BimPicRow Row(qint32 picId) {
        const auto rows = engine.BimPhotos().Rows({ppid, other}, {picId});
        EXPECT_EQ(rows.size(), 1U);
        return rows.empty() ? KX_DATA::BimPicRow() : rows.front();
    }
    [[nodiscard]] std::vector<qint32> Listed(const site::ListFilter& filter) {
        std::vector<qint32> ids;
        for (const auto& row :
             engine.BimPhotos().PageOf(filter, {{u"ppid"_s, false}, 1, 30}).rows) {
            ids.push_back(row.picId);
        }
        std::sort(ids.begin(), ids.end());
        return ids;
    }
    [[nodiscard]] QString FloorsText() {
        QStringList names;
        for (const QString& floor : engine.Catalogue().Floors(ppid)) {
            names << floor;
        }
        return names.join(u' ');
    }

    int filed = 0;
    qint32 ppid = 0;
    qint32 other = 0;
    qint32 wall = 0;
    qint32 crack = 0;
    qint32 photo = 0;
    qint32 loose = 0;
    qint32 foreign = 0;
    QString questionId;
    std::map<QString, QString> keys; ///< by floor, X and Y without anything between
    site::SqliteSite engine{folder};
};

} // namespace sitetest
