// What the mark panel asks of the data provider, as the services get it.
#include "reminder/marks/KXVeskPicDataImpl.h"
#include "tests/console/ModuleFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MarkDataTest : public ModuleFixture {
protected:
    void FetchPhotos() { data.GetPicFilterData(1, 2, 3, filterArg, entries); }
    void FetchIssues() { data.GetIssueFilterData(4, 5, 6, filterArg, entries); }

    ZelvorNRQ_KXVeskPicture::IKXVeskPicData& data = CKXVeskPicDataImpl::Instance();
    KX_DATA::MarkFilterArg filterArg;
    std::vector<KX_DATA::PicFilterEntry> entries;
};

TEST_F(MarkDataTest, LimitsOfPhotosGoToListAndTreeUntouched) {
    FetchPhotos();
    EXPECT_THAT(Log().Lines(), ElementsAre("GetBimPicFilterGroups(from=1,to=2,flag=3)",
                                           "GetBimPicFilterValues(from=1,to=2,flag=3)"));
}

TEST_F(MarkDataTest, LimitsOfIssuesGoToListAndTreeUntouched) {
    FetchIssues();
    EXPECT_THAT(Log().Lines(), ElementsAre("GetIssueFilterList(flag=6,from=4,to=5)",
                                           "GetIssueGroups(flag=6,from=4,to=5)"));
}

TEST_F(MarkDataTest, TheHostsOwnFilterIsHandedOnItself) {
    FetchPhotos();
    EXPECT_EQ(host.pics.lastFilterArg, &filterArg);
    FetchIssues();
    EXPECT_EQ(host.questions.lastFilterArg, &filterArg);
    std::vector<qint32> picIds;
    host.pics.lastFilterArg = nullptr;
    data.GetBimPicMarkerList(1, 2, 3, 4, filterArg, picIds);
    EXPECT_EQ(host.pics.lastFilterArg, &filterArg);
}

TEST_F(MarkDataTest, AFailingServiceLeavesTheLastPhotosAndNoIssues) {
    host.pics.filterEntries = {{u"1"_s, 1, {{1, 1}}, 1}};
    host.questions.filterEntries = {{1, 1, u"1"_s, {}}};
    FetchPhotos();
    FetchIssues();
    ASSERT_EQ(entries.size(), 1U);
    for (const char* call : {"GetBimPicFilterGroups", "GetIssueFilterList"}) {
        host.script.FailNext(call);
    }
    FetchPhotos();
    EXPECT_EQ(entries.size(), 1U);
    FetchIssues();
    EXPECT_THAT(entries, IsEmpty());
}

TEST_F(MarkDataTest, TheNumberOfPhotosOfAMarkIsTheServices) {
    host.pics.markerIds = {7, 8, 9};
    std::vector<qint32> picIds;
    EXPECT_EQ(data.GetBimPicMarkerList(1, 2, 3, 4, filterArg, picIds), 3);
    EXPECT_THAT(picIds, ElementsAre(7, 8, 9));
}

} // namespace
