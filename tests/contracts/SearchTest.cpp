// Pages of the three lists against brute force: random searches, the same on every run.
#include "tests/contracts/SearchedSite.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <map>
#include <utility>
#include <vector>

namespace contracts {

using namespace Qt::StringLiterals;
using support::SearchQuestion;

namespace {

constexpr int kSearches = 1000;
constexpr int kQuestionsAskedAgain = 25;

const std::vector<QString>& SortFields(Kind kind) {
    static const std::map<Kind, std::vector<QString>> fields{
        {Kind::Bim,
         {u"last_modifytime"_s, u"marker_id"_s, u"pic_name"_s, u"ppid"_s, u"last_modifyuser"_s,
          u"floor,axis_symbol"_s, u"rectifyStatus"_s, u"pic_describe"_s, u"pic_status"_s,
          u"unknown"_s}},
        {Kind::Pdf,
         {u"last_modifytime"_s, u"marker_id"_s, u"pic_name"_s, u"ppid"_s, u"pdfdrawings_name"_s,
          u"last_modifyuser"_s, u"checkpt_num"_s, u"rectifyStatus"_s, u"pic_describe"_s,
          u"pic_status"_s}},
        {Kind::Issues,
         {u"modifytime"_s, u"markerId"_s, u"theme"_s, u"ppid"_s, u"modifyuser"_s,
          u"floor,posinfo,compname"_s, u"rectifyStatus"_s, u"describe"_s, u"status"_s}}};
    return fields.at(kind);
}

SearchQuestion RandomQuestion(Searched& on, Kind kind) {
    SearchQuestion question;
    if (on.OneIn(2)) {
        question.keyword = on.AnyOf<QString>({u"墙"_s, u"BEAM"_s, u"m-"_s, u"脚外"_s, u"%"_s,
                                              u"\" OR"_s, u"王"_s, u"wang"_s, u"É"_s, u"没有"_s});
    }
    question.projectIds = on.AnyOf<std::vector<qint32>>({{on.site.first},
                                                         {on.site.second},
                                                         {on.site.first, on.site.second},
                                                         {on.site.second, on.site.first, 99},
                                                         {on.site.first, on.site.first}});
    if (on.OneIn(40)) {
        question.projectIds.clear();
    }
    question.markId = on.OneIn(3) ? 1 + on.Below(4) : 0;
    if (on.OneIn(4) && kind != Kind::Issues) {
        question.labelId = on.OneIn(8) ? u"x"_s : QString::number(on.AnyOf(on.labels));
    }
    if (on.OneIn(3)) {
        question.status = on.AnyOf<QString>({u"全部"_s, u"未整改"_s, u"整改中"_s, u"无此状态"_s});
    }
    if (on.OneIn(3)) {
        question.noDateLimit = false;
        question.startTime = TimeAt(on.Below(kMinutes));
        question.endTime =
            on.OneIn(10) ? question.startTime - 1 : TimeAt(kMinutes - on.Below(kMinutes / 2));
    }
    if (on.OneIn(5) && kind == Kind::Bim) {
        question.presetKey = on.AnyOf(on.keys);
    }
    if (on.OneIn(5) && kind == Kind::Issues) {
        question.presetKey = on.AnyOf<QString>({u"2"_s, u"10"_s, u"没有"_s});
    }
    question.presetExtra = on.OneIn(6) && kind == Kind::Issues ? u"h1"_s : QString();
    if (kind == Kind::Pdf) {
        question.drawingId = on.OneIn(5) ? on.AnyOf(on.drawings) : -1;
        question.checkpointId = on.OneIn(6) ? on.AnyOf(on.pointIds) : -1;
    }
    question.page = {1 + on.Below(on.OneIn(3) ? 9 : 2), 1 + on.Below(40),
                     on.AnyOf(SortFields(kind)), on.AnyOf<QString>({u"asc"_s, u"desc"_s})};
    return question;
}

template <class Filter> Filter FilterOf(const SearchQuestion& question) {
    Filter filter;
    filter.keyword = question.keyword;
    filter.projectIds = question.projectIds;
    filter.markId = question.markId;
    filter.labelId = question.labelId;
    filter.status = question.status;
    filter.noDateLimit = question.noDateLimit;
    filter.startTime = question.startTime;
    filter.endTime = question.endTime;
    if constexpr (requires { filter.presetKey; }) {
        filter.presetKey = question.presetKey;
        filter.presetExtra = question.presetExtra;
    } else {
        filter.drawingId = question.drawingId;
        filter.checkpointId = question.checkpointId;
    }
    return filter;
}

/// The names of the rows that the service gives.
QStringList Answer(Searched& on, Kind kind, const SearchQuestion& question,
                   KX_DATA::PageResult& result) {
    QStringList names;
    const auto filter = FilterOf<KX_DATA::PicQueryFilter>(question);
    if (kind == Kind::Bim) {
        std::vector<KX_DATA::BimPicRow> rows;
        EXPECT_EQ(on.site.on.pics->QueryBimPics(filter, question.page, result, rows),
                  KX_DATA::kServiceOk);
        for (const KX_DATA::BimPicRow& row : rows) {
            names << QString::number(row.picId);
        }
    } else if (kind == Kind::Pdf) {
        std::vector<KX_DATA::PdfPicRecord> rows;
        EXPECT_NE(on.site.on.pics->QueryPdfPics(FilterOf<KX_DATA::PdfQueryFilter>(question),
                                                question.page, result, rows),
                  0);
        for (const KX_DATA::PdfPicRecord& row : rows) {
            names << QString::number(row.picId);
        }
    } else {
        std::vector<KX_DATA::IssueRow> rows;
        EXPECT_EQ(on.site.on.issues->QueryIssues(filter, question.page, result, rows),
                  KX_DATA::kServiceOk);
        for (const KX_DATA::IssueRow& row : rows) {
            names << row.questionId;
        }
    }
    return names;
}

/// What went wrong, to be searched again by hand.
std::string Told(int number, const SearchQuestion& question) {
    QStringList projects;
    for (const qint32 ppid : question.projectIds) {
        projects << QString::number(ppid);
    }
    return u"search %1: '%2' projects %3 mark %4 label %5 state %6 dates %7 preset %8/%9"_s
               .arg(number)
               .arg(question.keyword, projects.join(u','))
               .arg(question.markId)
               .arg(question.labelId, question.status)
               .arg(!question.noDateLimit)
               .arg(question.presetKey, question.presetExtra)
               .toStdString() +
           u" drawing %1 point %2 page %3 of %4 by %5 %6"_s.arg(question.drawingId)
               .arg(question.checkpointId)
               .arg(question.page.page)
               .arg(question.page.pageSize)
               .arg(question.page.sortField, question.page.sortOrder)
               .toStdString();
}

Kind AnyKind(Searched& on) {
    return on.AnyOf<Kind>({Kind::Bim, Kind::Pdf, Kind::Issues});
}

/// One search gives what looking at every record gives. `found` counts the rows.
void SearchOnce(Searched& on, Kind kind, const SearchQuestion& question, int number, int& found) {
    const std::vector<SearchRecord> all = SearchAll(on.records[kind], question);
    const auto total = qint64(all.size());
    const qint64 size = question.page.pageSize;
    QStringList expected;
    for (qint64 row = (question.page.page - 1) * size;
         row < std::min<qint64>(total, question.page.page * size); ++row) {
        expected << all[std::size_t(row)].name;
    }
    found += int(expected.size());
    KX_DATA::PageResult result;
    const QStringList names = Answer(on, kind, question, result);
    ASSERT_EQ(names.join(u' ').toStdString(), expected.join(u' ').toStdString())
        << Told(number, question);
    ASSERT_EQ(result.totalCount, total) << Told(number, question);
    ASSERT_EQ(result.pageCount, (total + size - 1) / size) << Told(number, question);
}

void HideOrShowOne(Searched& on) {
    SearchRecord& record = on.AnyRecord(Kind::Bim);
    record.status = 1 - record.status;
    EXPECT_TRUE(
        on.site.on.pics->SetBimPicsShown(record.ppid, {record.name.toInt()}, record.status == 1));
}

void DeleteOne(Searched& on, Kind kind) {
    const SearchRecord gone = on.AnyRecord(kind);
    std::erase_if(on.records[kind],
                  [&](const SearchRecord& each) { return each.name == gone.name; });
    if (kind == Kind::Bim) {
        EXPECT_TRUE(on.site.on.pics->DeleteBimPics({gone.name.toInt()}));
    } else if (kind == Kind::Pdf) {
        EXPECT_TRUE(on.site.on.pics->DeletePdfPics(gone.ppid, {gone.name.toInt()}));
    } else {
        EXPECT_TRUE(on.site.on.issues->DeleteIssues({gone.name}));
    }
}

/// Its photos change with it.
void EditACheckpoint(Searched& on) {
    KX_DATA::CheckpointEdit edit;
    edit.checkpointId = on.AnyOf(on.pointIds);
    edit.markId = 1 + on.Below(3);
    for (const qint32 label : on.SomeLabels()) {
        edit.labelNames.push_back(QString::number(label));
    }
    qint32 value = 0;
    EXPECT_EQ(on.site.on.drawings->UpdateCheckpoint(edit, value), KX_DATA::kServiceOk);
    for (SearchRecord& record : on.records[Kind::Pdf]) {
        if (record.checkpointId == edit.checkpointId) {
            record.markId = edit.markId;
            record.labelIds = edit.labelNames;
        }
    }
}

void ChangeSomething(Searched& on) {
    switch (on.Below(5)) {
    case 0:
        DeleteOne(on, AnyKind(on));
        break;
    case 1:
    case 2:
        EditACheckpoint(on);
        break;
    default:
        HideOrShowOne(on);
    }
}

} // namespace

class Searches : public testing::TestWithParam<SiteRow> {
protected:
    Searched on{GetParam()};
};
ON_EVERY_SITE(Searches);

TEST_P(Searches, AThousandRandomOnesGiveWhatLookingAtEveryRecordGives) {
    int found = 0;
    for (int i = 0; i < kSearches && !testing::Test::HasFailure(); ++i) {
        const Kind kind = AnyKind(on);
        SearchOnce(on, kind, RandomQuestion(on, kind), i, found);
    }
    EXPECT_GT(found, kSearches) << "searches that find nothing test nothing";
}

TEST_P(Searches, AskedAgainBetweenChangesTheyGiveWhatTheRecordsAreThen) {
    on.site.OpenWorkset();
    std::vector<std::pair<Kind, SearchQuestion>> questions;
    for (int i = 0; i < kQuestionsAskedAgain; ++i) {
        const Kind kind = AnyKind(on);
        questions.emplace_back(kind, RandomQuestion(on, kind));
        questions.back().second.page.page = 1;
    }
    int found = 0;
    for (int i = 0; i < kSearches && !testing::Test::HasFailure(); ++i) {
        if (i % kQuestionsAskedAgain == 0) {
            ChangeSomething(on);
        }
        const auto& [kind, question] = questions[std::size_t(i % kQuestionsAskedAgain)];
        SearchOnce(on, kind, question, i, found);
    }
    EXPECT_GT(found, kSearches) << "searches that find nothing test nothing";
}

} // namespace contracts
