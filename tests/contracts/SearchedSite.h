// A site of all three kinds for searches by chance, and the same in memory.
#pragma once

#include "site/FloorOrder.h"
#include "site/RectifyStates.h"
#include "tests/contracts/Contract.h"
#include "tests/support/services/SearchRecords.h"

#include <map>
#include <random>
#include <vector>

namespace contracts {

using namespace Qt::StringLiterals;
using support::SearchRecord;

inline constexpr unsigned kSeed = 20240607;
inline constexpr int kRecordsOfAKind = 250;
/// Times are whole minutes: lists tell those of drawing photos without seconds.
inline constexpr qint64 kFirstTime = 1700000040;
inline constexpr int kMinutes = 400;
[[nodiscard]] inline qint64 TimeAt(int minute) {
    return kFirstTime + 60LL * minute;
}

enum class Kind { Bim, Pdf, Issues };

/// A site of all three kinds in two projects, and the same in memory.
class Searched {
public:
    explicit Searched(const SiteRow& row) : m_site(row.make()) {
        site.Fill([this] {
            for (const QString& name : {u"返工"_s, u"渗漏"_s, u"消防"_s}) {
                labels.push_back(site.AddLabel(name).toInt());
            }
            for (const qint32 ppid : {site.first, site.second}) {
                FilePlaces(ppid);
            }
            for (int i = 0; i < kRecordsOfAKind; ++i) {
                FileBim(i);
                FilePdf(i);
                FileIssue(i);
            }
        });
    }

    /// A value of the list.
    template <class Value> Value AnyOf(const std::vector<Value>& values) {
        return values[std::size_t(Below(int(values.size())))];
    }
    SearchRecord& AnyRecord(Kind kind) {
        std::vector<SearchRecord>& all = records[kind];
        return all[std::size_t(Below(int(all.size())))];
    }
    int Below(int count) { return std::uniform_int_distribution<int>(0, count - 1)(m_random); }
    bool OneIn(int count) { return Below(count) == 0; }
    std::vector<qint32> SomeLabels() {
        std::vector<qint32> some;
        for (const qint32 label : labels) {
            if (OneIn(3)) {
                some.push_back(label);
            }
        }
        return some;
    }

private:
    std::unique_ptr<ContractSite> m_site;

public:
    ContractSite& site = *m_site;
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
    qint64 Time() { return TimeAt(Below(kMinutes)); }

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

    static std::vector<QString> Texts(const std::vector<qint32>& ids) {
        std::vector<QString> texts;
        for (const qint32 id : ids) {
            texts.push_back(QString::number(id));
        }
        return texts;
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
        record.stateName = site::StateName(made.state);
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
        photo.labelIds = SomeLabels();
        record.labelIds = Texts(photo.labelIds);
        photo.uploader = Person();
        photo.uploadTime = Time();
        FillPeople(record, photo.fileName, photo.uploader, photo.uploadTime, photo.updater,
                   photo.updateTime);
        record.ppid = photo.ppid;
        record.id = number;
        record.name = QString::number(site.AddPhoto(photo, "j", {}));
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
        record.labelIds = Texts(points[place].labelIds);
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
        record.name = QString::number(site.AddPdfPhoto(photo, "j"));
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
        record.name = site.AddIssue(issue, {});
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

} // namespace contracts
