#include "host/sheet/ListReader.h"

#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/OpenSite.h"
#include "site/sqlite/SiteWriter.h"
#include "tests/support/EngineFolder.h"
#include "tests/support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kReadTime = 1'700'000'000;
const QString kReadPerson = u"张伟"_s;

/// A site with photos "1.jpg" to "N.jpg", the latest first in the list.
class ReaderSite {
public:
    explicit ReaderSite(int photos) : m_opened(site::OpenSite(folder.Path(u"site"_s))) {
        EXPECT_FALSE(m_opened.fault);
        site::SiteWriter writer(support::FolderOf(Site()));
        writer.BeginBatch();
        ppid = writer.AddProject(u"一期工程"_s);
        writer.AddUser(kReadPerson, {5, 21, 22, 38});
        writer.AddMark(1, u"质量"_s, 0xFF);
        writer.CommitBatch();
        File(photos);
    }

    [[nodiscard]] site::ISite& Site() const { return *m_opened.site; }
    void File(int photos) {
        site::SiteWriter writer(support::FolderOf(Site()));
        writer.BeginBatch();
        for (int i = 0; i < photos; ++i) {
            site::NewBimPhoto photo;
            photo.ppid = ppid;
            photo.fileName = u"%1.jpg"_s.arg(ids.size() + 1);
            photo.markId = 1;
            photo.uploader = kReadPerson;
            photo.uploadTime = kReadTime + qint64(ids.size());
            ids.push_back(writer.FilePhoto(photo, {{}, photo.fileName.toUtf8()}));
        }
        writer.CommitBatch();
    }
    void Delete(int first, int last) {
        const std::vector<qint32> gone(ids.begin() + first - 1, ids.begin() + last);
        EXPECT_EQ(Site().Bin().DeleteBimPhotos({ppid}, gone, {kReadPerson, kReadTime}),
                  last - first + 1);
    }
    /// It becomes the first of the list.
    void Edit(int number) {
        KX_DATA::BimPicUpdate update;
        update.picId = ids[size_t(number) - 1];
        update.fileName = u"%1.jpg"_s.arg(number);
        update.markId = 1;
        EXPECT_EQ(Site().BimPhotos().Update(ppid, update, {kReadPerson, kReadTime + 1'000'000}),
                  site::Saved::Yes);
    }
    [[nodiscard]] host::ListQuestion Question(site::ListKind kind = {}) const {
        host::ListQuestion question;
        question.kind = kind == site::ListKind{} ? site::ListKind::BimPhotos : kind;
        question.filter.ppids = {ppid};
        question.order = {kind == site::ListKind::Issues ? u"modifytime"_s : u"last_modifytime"_s,
                          true};
        return question;
    }

    support::TempFolder folder;
    qint32 ppid = 0;
    std::vector<qint32> ids;

private:
    site::OpenedSite m_opened;
};

struct ReadList {
    std::vector<int> photos; ///< by their names
    std::vector<qint64> numbers;
    int portions = 0;
};

/// Reads all; before portion N (from 1) something may happen.
ReadList ReadAll(host::ListReader& reader, const std::function<void(int)>& before = {}) {
    ReadList all;
    while (!reader.AtEnd() && all.portions < 1'000) {
        ++all.portions;
        if (before) {
            before(all.portions);
        }
        for (const sheets::SheetRow& row : reader.Next()) {
            all.numbers.push_back(std::get<qint64>(row[0]));
            all.photos.push_back(std::get<QString>(row[2]).chopped(4).toInt());
        }
    }
    EXPECT_TRUE(reader.AtEnd());
    for (size_t i = 0; i < all.numbers.size(); ++i) {
        EXPECT_EQ(all.numbers[i], qint64(i) + 1);
    }
    return all;
}

std::vector<int> Down(int from, int to) {
    std::vector<int> numbers;
    for (int number = from; number >= to; --number) {
        numbers.push_back(number);
    }
    return numbers;
}

TEST(ListReader, ThreePagesInTheirOrder) {
    const ReaderSite site(30);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    EXPECT_EQ(ReadAll(reader).photos, Down(30, 1));
    EXPECT_EQ(reader.Total(), 30);
}

TEST(ListReader, AnEmptyListHasNoRows) {
    const ReaderSite site(0);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    EXPECT_EQ(ReadAll(reader).photos, std::vector<int>());
}

TEST(ListReader, PortionsOfEverySizeGiveTheSame) {
    const ReaderSite site(23);
    for (const qint64 portion : {2, 3, 4, 7, 22, 23, 24, 100}) {
        host::ListReader reader(site.Site(), site.Question(), false, portion);
        EXPECT_EQ(ReadAll(reader).photos, Down(23, 1)) << portion;
    }
}

TEST(ListReader, RowsThatComeAtTheTopDoubleNone) {
    ReaderSite site(30);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    const ReadList all = ReadAll(reader, [&site](int portion) {
        if (portion == 2) {
            site.File(3);
        }
    });
    std::vector<int> expected = Down(30, 1);
    expected.insert(expected.end(), {33, 32, 31});
    EXPECT_EQ(all.photos, expected);
}

TEST(ListReader, RowsThatWentAboveLeaveNoGap) {
    for (const int gone : {1, 5, 12, 20}) {
        ReaderSite site(50);
        host::ListReader reader(site.Site(), site.Question(), false, 10);
        const ReadList all = ReadAll(reader, [&site, gone](int portion) {
            if (portion == 3) {
                site.Delete(51 - gone, 50);
            }
        });
        const std::set<int> once(all.photos.begin(), all.photos.end());
        EXPECT_EQ(once.size(), all.photos.size());
        for (int number = 1; number <= 50 - gone; ++number) {
            EXPECT_TRUE(once.contains(number)) << gone << ' ' << number;
        }
        EXPECT_TRUE(std::is_sorted(all.photos.rbegin(), all.photos.rend()));
    }
}

TEST(ListReader, RowsThatComeAndGoBetweenAllPortionsNeitherDoubleNorHideOthers) {
    ReaderSite site(60);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    const ReadList all = ReadAll(reader, [&site](int portion) {
        if (portion > 1 && portion < 6) {
            site.File(2);
            site.Delete(60 - portion * 2, 61 - portion * 2);
        }
    });
    std::set<int> once(all.photos.begin(), all.photos.end());
    EXPECT_EQ(once.size(), all.photos.size());
    for (int number = 1; number <= 46; ++number) {
        EXPECT_TRUE(once.contains(number)) << number;
    }
}

TEST(ListReader, ARowThatMovesPastTheReaderComesLast) {
    ReaderSite site(30);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    const ReadList all = ReadAll(reader, [&site](int portion) {
        if (portion == 2) {
            site.Edit(3);
        }
    });
    std::vector<int> expected = Down(30, 4);
    expected.insert(expected.end(), {2, 1, 3});
    EXPECT_EQ(all.photos, expected);
}

TEST(ListReader, AListThatEmptiesMeanwhileEnds) {
    ReaderSite site(50);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    const ReadList all = ReadAll(reader, [&site](int portion) {
        if (portion == 3) {
            site.Delete(1, 50);
        }
    });
    EXPECT_EQ(all.photos.front(), 50);
    EXPECT_LT(all.photos.size(), 50);
}

TEST(ListReader, AListThatNeverRestsEndsToo) {
    ReaderSite site(30);
    host::ListReader reader(site.Site(), site.Question(), false, 10);
    const ReadList all = ReadAll(reader, [&site](int portion) {
        if (portion < 100) {
            site.File(1);
        }
    });
    EXPECT_LT(all.portions, 100);
    EXPECT_GE(all.photos.size(), 30);
}

TEST(ListReader, IssuesWithTheirFirstPicture) {
    const ReaderSite site(0);
    QString first;
    {
        site::SiteWriter writer(support::FolderOf(site.Site()));
        for (int i = 0; i < 25; ++i) {
            site::NewIssue issue;
            issue.ppid = site.ppid;
            issue.theme = u"%1.jpg"_s.arg(i + 1);
            issue.markId = 1;
            issue.creator = kReadPerson;
            issue.createTime = kReadTime + i;
            first = writer.FileIssue(issue);
        }
        writer.FileIssuePic(site.ppid, {first, false, u"a.jpg"_s, kReadPerson, kReadTime},
                            {{}, "picture"}, {{}, "thumb"});
    }
    host::ListReader plain(site.Site(), site.Question(site::ListKind::Issues), false, 10);
    EXPECT_EQ(ReadAll(plain).photos, Down(25, 1));
    host::ListReader reader(site.Site(), site.Question(site::ListKind::Issues), true, 10);
    const std::vector<sheets::SheetRow> rows = reader.Next();
    EXPECT_FALSE(std::get<sheets::SheetPicture>(rows[0][1]).uuid.isEmpty());
    EXPECT_TRUE(std::get<sheets::SheetPicture>(rows[1][1]).uuid.isEmpty());
}

TEST(ListReader, DrawingPhotosToo) {
    const ReaderSite site(0);
    {
        site::SiteWriter writer(support::FolderOf(site.Site()));
        site::NewCheckpoint point;
        point.drawingId = writer.AddDrawing(site.ppid, u"一层平面图"_s);
        point.number = 1;
        site::NewPdfPhoto photo;
        photo.checkpointId = writer.AddCheckpoint(site.ppid, point);
        photo.uploader = kReadPerson;
        for (int i = 0; i < 12; ++i) {
            photo.fileName = u"%1.jpg"_s.arg(i + 1);
            photo.uploadTime = kReadTime + i;
            writer.FilePdfPhoto(site.ppid, photo, {{}, photo.fileName.toUtf8()});
        }
    }
    host::ListReader reader(site.Site(), site.Question(site::ListKind::PdfPhotos), false, 5);
    EXPECT_EQ(ReadAll(reader).photos, Down(12, 1));
}

} // namespace
