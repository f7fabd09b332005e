// Pages of the three lists against brute force: random searches, the same on every run.
#include "site/FloorOrder.h"
#include "site/RectifyStates.h"
#include "tests/contracts/FolderSite.h"
#include "tests/contracts/SearchRecords.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <random>

namespace contracts {

using namespace Qt::StringLiterals;

namespace {

constexpr unsigned kSeed = 20240607;
constexpr int kRecordsOfAKind = 250;
constexpr int kSearches = 1000;
constexpr qint64 kFirstTime = 1700000000;
constexpr qint64 kLastTime = kFirstTime + 400;

enum class Kind { Bim, Pdf, Issues };

/// A site of all three kinds in two projects, and the same in memory.
class Searched {
public:
    Searched() {
        site::SiteWriter& writer = site.Writer();
        writer.BeginBatch();
        for (const QString& name : {u"返工"_s, u"渗漏"_s, u"消防"_s}) {
            labels.push_back(writer.AddLabel(name));
        }
        for (const qint32 ppid : {site.first, site.second}) {
            FilePlaces(ppid);
        }
        for (int i = 0; i < kRecordsOfAKind; ++i) {
            FileBim(i);
            FilePdf(i);
            FileIssue(i);
        }
        writer.CommitBatch();
    }

    /// A value of the list.
    template <class Value> Value AnyOf(const std::vector<Value>& values) {
        return values[std::size_t(Below(int(values.size())))];
    }
    int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    bool OneIn(int count) { return Below(count) == 0; }

    FolderSite site;
    std::vector<qint32> labels;
    std::vector<QString> keys;
    std::vector<qint32> drawings;
    std::vector<site::NewCheckpoint> points;
    std::vector<qint32> pointIds;
    std::map<Kind, std::vector<SearchRecord>> records;

private:
    static const std::vector<QString>& Words() {
        static const std::vector<QString> words{u"外墙"_s,     u"墙"_s,   u"Beam-3"_s,
                                                u"beam 3"_s,   u"柱脚"_s, u"a_b%"_s,
                                                u"\"x\" OR"_s, u"é柱"_s,  {}};
        return words;
    }
    static const std::vector<QString>& Floors() {
        static const std::vector<QString> floors{u"-1"_s, u"2"_s, u"10"_s, u"屋面"_s, {}};
        return floors;
    }
    QString Person() { return AnyOf<QString>({u"zhang"_s, u"Wang"_s, u"王芳"_s}); }
    QString SomeText() { return AnyOf(Words()) + AnyOf(Words()); }
    qint64 Time() { return kFirstTime + Below(400); }
    std::vector<qint32> SomeLabels() {
        std::vector<qint32> some;
        for (const qint32 label : labels) {
            if (OneIn(3)) {
                some.push_back(label);
            }
        }
        return some;
    }

    void FilePlaces(qint32 ppid) {
        for (const QString& floor : Floors()) {
            for (const QString& x : {u"A"_s, u"B"_s}) {
                if (!floor.isEmpty()) {
                    keys.push_back(site.AddPosition({ppid, floor, x, u"1"_s, {}, true}));
                    m_places[keys.back()] = {ppid, floor, x + u"/1"_s};
                }
            }
        }
        for (const QString& name : {u"一层墙"_s, u"Roof"_s}) {
            drawings.push_back(site.AddDrawing(ppid, name));
            for (int i = 0; i < 3; ++i) {
                site::NewCheckpoint point;
                point.drawingId = drawings.back();
                point.number = Below(20);
                point.markId = 1 + Below(3);
                point.labelIds = SomeLabels();
                points.push_back(point);
                pointIds.push_back(site.AddCheckpoint(point, {}));
                m_pointPlaces.push_back({ppid, name, {}});
            }
        }
    }

    template <class New> void FillCommon(New& made, SearchRecord& record) {
        made.description = SomeText();
        made.state = Below(site::kStateCount);
        made.status = Below(2);
        if (OneIn(2)) {
            made.updater = Person();
            made.updateTime = Time();
        }
        record.state = made.state;
        record.status = made.status;
        record.description = made.description;
    }
    static void FillPeople(SearchRecord& record, const QString& title, const QString& author,
                           qint64 created, const QString& updater, qint64 updated) {
        record.title = title;
        record.texts = {title, author, updater, record.description};
        record.modified = updated != 0 ? updated : created;
        record.modifier = updater.isEmpty() ? author : updater;
    }

    void FileBim(int number) {
        site::NewBimPhoto photo;
        SearchRecord record;
        FillCommon(photo, record);
        photo.ppid = AnyOf<qint32>({site.first, site.second});
        const QString key = AnyOf(keys);
        if (m_places[key].ppid == photo.ppid) {
            photo.positionKey = key;
            record.presetKey = key;
            record.place = m_places[key].text;
        }
        record.floorSort =
            site::FloorSortKey(photo.positionKey.isEmpty() ? QString() : m_places[key].floor);
        photo.fileName = SomeText() + u".jpg"_s;
        photo.markId = record.markId = 1 + Below(3);
        photo.labelIds = record.labelIds = SomeLabels();
        photo.uploader = Person();
        photo.uploadTime = Time();
        FillPeople(record, photo.fileName, photo.uploader, photo.uploadTime, photo.updater,
                   photo.updateTime);
        record.ppid = photo.ppid;
        record.id = number;
        record.name = QString::number(site.Writer().FilePhoto(photo, {{}, "j"}));
        records[Kind::Bim].push_back(record);
    }

    void FilePdf(int number) {
        site::NewPdfPhoto photo;
        SearchRecord record;
        FillCommon(photo, record);
        const auto place = std::size_t(Below(int(points.size())));
        photo.checkpointId = record.checkpointId = pointIds[place];
        record.checkpointNo = points[place].number;
        record.markId = points[place].markId;
        record.labelIds = points[place].labelIds;
        record.drawingId = points[place].drawingId;
        record.drawingName = m_pointPlaces[place].floor;
        record.ppid = m_pointPlaces[place].ppid;
        photo.fileName = SomeText() + u".jpg"_s;
        photo.uploader = Person();
        photo.uploadTime = Time();
        FillPeople(record, photo.fileName, photo.uploader, photo.uploadTime, photo.updater,
                   photo.updateTime);
        record.texts.push_back(record.drawingName);
        record.id = number;
        record.name = QString::number(site.Writer().FilePdfPhoto(photo, {{}, "j"}));
        records[Kind::Pdf].push_back(record);
    }

    void FileIssue(int number) {
        site::NewIssue issue;
        SearchRecord record;
        FillCommon(issue, record);
        issue.ppid = record.ppid = AnyOf<qint32>({site.first, site.second});
        issue.theme = SomeText();
        issue.floor = record.presetKey = AnyOf(Floors());
        record.floorSort = site::FloorSortKey(issue.floor);
        issue.posInfo = record.place = AnyOf(Words());
        issue.componentName = record.component = AnyOf(Words());
        issue.componentHandle = record.presetExtra = AnyOf<QString>({u"h1"_s, u"h2"_s});
        issue.markId = record.markId = 1 + Below(3);
        issue.creator = Person();
        issue.createTime = Time();
        FillPeople(record, issue.theme, issue.creator, issue.createTime, issue.updater,
                   issue.updateTime);
        record.id = number;
        record.name = site.Writer().FileIssue(issue);
        records[Kind::Issues].push_back(record);
    }

    struct Place {
        qint32 ppid = 0;
        QString floor;
        QString text;
    };
    std::mt19937 m_random{kSeed};
    std::map<QString, Place> m_places;
    std::vector<Place> m_pointPlaces; ///< with the drawing's name for the floor
};

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
        question.startTime = kFirstTime + on.Below(400);
        question.endTime = on.OneIn(10) ? question.startTime - 1 : kLastTime - on.Below(200);
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

} // namespace

TEST(Searches, AThousandRandomOnesGiveWhatLookingAtEveryRecordGives) {
    Searched on;
    int found = 0;
    for (int i = 0; i < kSearches; ++i) {
        const Kind kind = on.AnyOf<Kind>({Kind::Bim, Kind::Pdf, Kind::Issues});
        const SearchQuestion question = RandomQuestion(on, kind);
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
            << Told(i, question);
        ASSERT_EQ(result.totalCount, total) << Told(i, question);
        ASSERT_EQ(result.pageCount, (total + size - 1) / size) << Told(i, question);
    }
    EXPECT_GT(found, kSearches) << "searches that find nothing test nothing";
}

} // namespace contracts
