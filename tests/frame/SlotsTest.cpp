// The order of the operations that a host finds in the tables of the interfaces: a host that was
// built apart from the module calls them by their places.
#include "include/IKXVeskPicData.h"
#include "include/IKXVeskPicture.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstring>
#include <vector>

namespace {

using KXFRAME::IBaseObs;
using KXFRAME::IKXObserverHub;
using KXFRAME::IProjChangeObs;
using KXFRAME::IViewBimPicObs;
using ZelvorNRQ_KXVeskPicture::IKXIssueEditSink;
using ZelvorNRQ_KXVeskPicture::IKXVeskPicData;
using ZelvorNRQ_KXVeskPicture::IKXVeskPicture;
using ZelvorNRQ_KXVeskPicture::IKXVeskPictureSink;

/// Place of a virtual operation in its class's table. A pointer to one holds the offset in bytes,
/// whose lowest bit says that it is virtual (https://itanium-cxx-abi.github.io, 2.3).
template <class Operation> size_t SlotOf(Operation operation) {
    std::array<ptrdiff_t, 2> raw{};
    static_assert(sizeof(operation) == sizeof(raw));
    std::memcpy(raw.data(), &operation, sizeof(raw));
    return size_t(raw[0] & ~ptrdiff_t(1)) / sizeof(void*);
}

/// A destructor that a class lists takes two places in front.
constexpr size_t kBehindDestructor = 2;

TEST(Slots, TheTwentyTwoOperationsOfTheFacadeBeginTheTable) {
    const std::vector<size_t> places{
        SlotOf(&IKXVeskPicture::ShowPicMng),      SlotOf(&IKXVeskPicture::ShowBimPicMngFor),
        SlotOf(&IKXVeskPicture::ShowIssueMngFor), SlotOf(&IKXVeskPicture::ShowPdfPicMngFor),
        SlotOf(&IKXVeskPicture::AttachObservers), SlotOf(&IKXVeskPicture::ShowPdfPicView),
        SlotOf(&IKXVeskPicture::RefreshPicMarks), SlotOf(&IKXVeskPicture::RefreshIssueMarks),
        SlotOf(&IKXVeskPicture::OnPicMessage),    SlotOf(&IKXVeskPicture::ShowPicPopups),
        SlotOf(&IKXVeskPicture::SetPicSink),      SlotOf(&IKXVeskPicture::SetIssueEditSink),
        SlotOf(&IKXVeskPicture::ViewBimPic),      SlotOf(&IKXVeskPicture::EditBimPic),
        SlotOf(&IKXVeskPicture::EditIssue),       SlotOf(&IKXVeskPicture::SaveBimPicAs),
        SlotOf(&IKXVeskPicture::DeleteBimPic),    SlotOf(&IKXVeskPicture::DeleteIssue),
        SlotOf(&IKXVeskPicture::OnIssueMessage),  SlotOf(&IKXVeskPicture::ShowIssuePopups),
        SlotOf(&IKXVeskPicture::LocateIssue),     SlotOf(&IKXVeskPicture::ShowIssueView)};
    ASSERT_EQ(places.size(), 22U);
    for (size_t place = 0; place < places.size(); ++place) {
        EXPECT_EQ(places[place], place);
    }
}

TEST(Slots, TheDataProviderAndWhatTheHostHandsInHaveNoDestructorInFront) {
    EXPECT_EQ(SlotOf(&IKXVeskPicData::GetPicFilterData), 0U);
    EXPECT_EQ(SlotOf(&IKXVeskPicData::GetIssueFilterData), 1U);
    EXPECT_EQ(SlotOf(&IKXVeskPicData::GetBimPicMarkerList), 2U);
    EXPECT_EQ(SlotOf(&IKXVeskPictureSink::RefreshBimMarks), 0U);
    EXPECT_EQ(SlotOf(&IKXVeskPictureSink::RefreshTNMarks), 1U);
    EXPECT_EQ(SlotOf(&IKXVeskPictureSink::RefreshPdfMarks), 2U);
    EXPECT_EQ(SlotOf(&IKXVeskPictureSink::SelectCheckpoint), 5U);
    EXPECT_EQ(SlotOf(&IKXVeskPictureSink::SelectPictureMark), 6U);
    EXPECT_EQ(SlotOf(&IKXIssueEditSink::OnIssueEditVisible), 2U);
    EXPECT_EQ(SlotOf(&IKXObserverHub::AddObserver), 2U);
}

TEST(Slots, ObserversHaveTheirDestructorFirst) {
    EXPECT_EQ(SlotOf(&IBaseObs::GetObsName), kBehindDestructor);
    EXPECT_EQ(SlotOf(&IBaseObs::GetObsClassName), kBehindDestructor + 1);
    EXPECT_EQ(SlotOf(&IProjChangeObs::OnProjChange), kBehindDestructor);
    EXPECT_EQ(SlotOf(&IViewBimPicObs::ViewBimPic), kBehindDestructor);
    EXPECT_EQ(SlotOf(&IViewBimPicObs::OpenIssueEdit), kBehindDestructor + 1);
    EXPECT_EQ(SlotOf(&IViewBimPicObs::LocateIssue), kBehindDestructor + 2);
}

} // namespace
