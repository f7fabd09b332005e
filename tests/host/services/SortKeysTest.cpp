#include "services/Factories.h"
#include "tests/host/services/ServiceSite.h"

#include <set>

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

constexpr int kPhotos = 70; // three pages

const std::vector<QString>& BimSortKeys() {
    static const std::vector<QString> keys{
        u"last_modifytime"_s, u"marker_id"_s,         u"pic_name"_s,      u"ppid"_s,
        u"last_modifyuser"_s, u"floor,axis_symbol"_s, u"rectifyStatus"_s, u"pic_describe"_s,
        u"pic_status"_s};
    return keys;
}

// Few different values in every column, so that the id has to decide.
class SortSite : public ServiceSite {
public:
    SortSite() {
        for (const QString& floor : {u"-1"_s, u"1"_s, u"2"_s, u"10"_s, u"屋面"_s}) {
            writer->AddPosition({first, floor, u"A"_s, u"1"_s, u"k"_s + floor, true});
            writer->AddPosition({second, floor, u"A"_s, u"1"_s, u"j"_s + floor, true});
        }
        writer->BeginBatch();
        for (int i = 0; i < kPhotos; ++i) {
            AddPhoto([&](site::NewBimPhoto& photo) { Vary(i, photo); });
        }
        writer->CommitBatch();
    }

private:
    void Vary(int i, site::NewBimPhoto& photo) const {
        static const std::vector<QString> floors{u"10"_s, u"屋面"_s, u"2"_s, u"-1"_s, u"1"_s};
        photo.ppid = i % 7 == 0 ? second : first;
        photo.fileName = u"照片%1.jpg"_s.arg(i * 7 % 5);
        photo.description = i % 4 == 0 ? QString() : u"说明%1"_s.arg(i % 3);
        photo.markId = 1 + i % 2;
        photo.state = i % 4;
        photo.status = i % 2;
        photo.uploader = u"人%1"_s.arg(i % 3);
        photo.uploadTime = 1000 + i % 10;
        if (i % 6 != 0) {
            photo.positionKey = (photo.ppid == first ? u"k"_s : u"j"_s) +
                                floors[static_cast<size_t>(i) % floors.size()];
        }
    }
};

} // namespace

TEST(SortKeys, PagesOfEveryKeyHoldEachPhotoOnceAndDescendingTurnsThemRound) {
    SortSite site;
    for (const bool both : {false, true}) {
        KX_DATA::PicQueryFilter filter = site.Filter();
        if (both) {
            filter.projectIds.push_back(site.second);
        }
        for (const QString& key : BimSortKeys()) {
            std::vector<qint32> ascending = site.PhotoIds(filter, key, u"asc"_s);
            const std::vector<qint32> descending = site.PhotoIds(filter, key, u"desc"_s);
            EXPECT_EQ(ascending.size(), both ? 70u : 60u);
            EXPECT_EQ(std::set<qint32>(ascending.begin(), ascending.end()).size(),
                      ascending.size());
            std::reverse(ascending.begin(), ascending.end());
            EXPECT_EQ(ascending, descending) << key.toStdString();
        }
    }
}

TEST(SortKeys, FloorsSortAsNumbersWithNoPlaceFirst) {
    SortSite site;
    std::vector<QString> floors;
    for (const auto& row : site.Photos(site.Filter(), u"floor,axis_symbol"_s, u"asc"_s)) {
        if (floors.empty() || floors.back() != row.floor) {
            floors.push_back(row.floor);
        }
    }
    EXPECT_EQ(floors, (std::vector<QString>{u""_s, u"-1"_s, u"1"_s, u"2"_s, u"10"_s, u"屋面"_s}));
}

TEST(SortKeys, EachKeyOrdersByItsOwnColumn) {
    SortSite site;
    const auto expectOrdered = [&](const QString& key, auto value) {
        const auto rows = site.Photos(site.Filter(), key, u"asc"_s);
        for (size_t i = 1; i < rows.size(); ++i) {
            const auto before = std::pair(value(rows[i - 1]), rows[i - 1].picId);
            const auto after = std::pair(value(rows[i]), rows[i].picId);
            EXPECT_LT(before, after) << key.toStdString() << ' ' << i;
        }
    };
    using Row = KX_DATA::BimPicRow;
    expectOrdered(u"marker_id"_s, [](const Row& row) { return row.markId; });
    expectOrdered(u"pic_name"_s, [](const Row& row) { return row.fileName; });
    expectOrdered(u"ppid"_s, [](const Row& row) { return row.ppid; });
    expectOrdered(u"last_modifyuser"_s, [](const Row& row) { return row.uploaderName; });
    expectOrdered(u"last_modifytime"_s, [](const Row& row) { return row.uploadStamp; });
    expectOrdered(u"pic_describe"_s, [](const Row& row) { return row.description; });
    expectOrdered(u"pic_status"_s, [](const Row& row) { return row.status; });
}

TEST(SortKeys, TheLastChangeDecidesOverTheUpload) {
    ServiceSite site;
    const qint32 old = site.AddPhoto([](site::NewBimPhoto& photo) { photo.uploadTime = 100; });
    const qint32 fresh = site.AddPhoto([](site::NewBimPhoto& photo) {
        photo.uploadTime = 50;
        photo.updateTime = 200;
        photo.updater = u"aaa"_s;
    });
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"last_modifytime"_s, u"desc"_s),
              (std::vector<qint32>{fresh, old}));
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"last_modifyuser"_s, u"asc"_s),
              (std::vector<qint32>{fresh, old}));
}

TEST(SortKeys, AnUnknownKeyIsTheLastChange) {
    ServiceSite site;
    const qint32 late = site.AddPhoto([](site::NewBimPhoto& photo) { photo.uploadTime = 200; });
    const qint32 early = site.AddPhoto([](site::NewBimPhoto& photo) { photo.uploadTime = 100; });
    EXPECT_EQ(site.PhotoIds(site.Filter(), u"1; DROP TABLE bim_photo"_s, u"asc"_s),
              (std::vector<qint32>{early, late}));
}

} // namespace host
