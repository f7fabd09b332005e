// How many statements an operation costs: none for each row, few for a save.
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IKXLocalCacheData.h"
#include "site/sqlite/Database.h"
#include "tests/host/services/ServiceSite.h"
#include "tests/support/EngineFolder.h"

namespace host {

using namespace Qt::StringLiterals;
using hosttest::ServiceSite;

namespace {

class CountedSite : public ServiceSite {
public:
    CountedSite() {
        writer->AddMark(1, u"安全"_s, 255);
        for (int i = 0; i < 90; ++i) {
            last = AddPhoto([](site::NewBimPhoto& photo) { photo.markId = 1; });
        }
    }
    template <typename Work> [[nodiscard]] qint64 StatementsOf(Work work) {
        const site::Database& database = support::FolderOf(session).Db();
        const qint64 before = database.StatementsRun();
        work();
        return database.StatementsRun() - before;
    }
    /// What the console does for a page: the list, and for each row its mark and project.
    void ShowPage(qint32 rowCount) {
        std::vector<KX_DATA::BimPicRow> rows;
        KX_DATA::PageResult result;
        ASSERT_EQ(GetVeskPicMng()->QueryBimPics(
                      Filter(), {1, rowCount, u"last_modifytime"_s, u"desc"_s}, result, rows),
                  KX_DATA::kServiceOk);
        ASSERT_EQ(rows.size(), static_cast<std::size_t>(rowCount));
        for (const KX_DATA::BimPicRow& row : rows) {
            KX_DATA::MarkRecord mark;
            QString name;
            GetKXLocalCacheData()->GetMarkInfo(row.markId, mark);
            GetKXGlobalData()->GetProjectName(name, row.ppid);
        }
    }
    qint32 last = 0;
};

} // namespace

TEST(Statements, APageOfManyRowsCostsAsManyAsOneOfFew) {
    CountedSite site;
    site.ShowPage(3); // tables and totals are known from now on
    const qint64 few = site.StatementsOf([&] { site.ShowPage(3); });
    EXPECT_EQ(site.StatementsOf([&] { site.ShowPage(30); }), few);
    EXPECT_LE(few, 8);
}

TEST(Statements, ASaveAndThePageBehindItAreFew) {
    CountedSite site;
    site.ShowPage(30);
    KX_DATA::BimPicUpdate update;
    update.picId = site.last;
    update.fileName = u"neu.jpg"_s;
    update.markId = 1;
    const qint64 save =
        site.StatementsOf([&] { EXPECT_TRUE(GetVeskPicMng()->UpdateBimPic(site.first, update)); });
    EXPECT_LT(save, 30);
    EXPECT_LE(site.StatementsOf([&] { site.ShowPage(30); }), 10) << "totals are counted anew";
}

TEST(Statements, AChangeElsewhereCostsAPageOnlyTheLookAtIt) {
    CountedSite site;
    site.ShowPage(30);
    const qint64 quiet = site.StatementsOf([&] { site.ShowPage(30); });
    const qint32 other = site.second;
    site.AddPhoto([other](site::NewBimPhoto& photo) { photo.ppid = other; });
    EXPECT_LE(site.StatementsOf([&] { site.ShowPage(30); }), quiet);
}

} // namespace host
