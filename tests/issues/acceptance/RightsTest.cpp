// Who may change what on the pages of the issue viewer, in every combination.
#include "frame/KXVeskPictureImpl.h"
#include "tests/issues/IssueFixture.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace {

class RightsTest : public IssueFixture,
                   public testing::WithParamInterface<std::tuple<bool, qint32, bool>> {
protected:
    [[nodiscard]] static bool IsWorkset() { return std::get<0>(GetParam()); }
    [[nodiscard]] static qint32 ReadOnly() { return std::get<1>(GetParam()); }
    [[nodiscard]] static bool HasPictures() { return std::get<2>(GetParam()); }
    [[nodiscard]] static bool MayChange() { return !IsWorkset() && ReadOnly() == 0; }
};

INSTANTIATE_TEST_SUITE_P(All, RightsTest,
                         testing::Combine(testing::Bool(), testing::Values(0, 1), testing::Bool()));

} // namespace

TEST_P(RightsTest, FollowWorksetReadOnlyAndPictures) {
    // Whatever the issue of before left behind.
    host.global.worksetMode = !IsWorkset();
    ASSERT_TRUE(Open(u"q1"_s, 1 - ReadOnly()));
    host.global.worksetMode = IsWorkset();
    ASSERT_TRUE(Open(HasPictures() ? u"q1"_s : u"q2"_s, ReadOnly()));
    EXPECT_EQ(Page().EditButton()->isEnabled(), MayChange());
    EXPECT_EQ(Page().DeleteButton()->isEnabled(), MayChange() && HasPictures());
    EXPECT_EQ(Rectify().EditButton()->isEnabled(), MayChange());
    EXPECT_EQ(Rectify().UploadButton()->isEnabled(), MayChange());
    EXPECT_EQ(Rectify().DeleteButton()->isEnabled(), MayChange() && HasPictures());
    EXPECT_EQ(Wrap().ReportButton()->isEnabled(), MayChange());
    EXPECT_TRUE(Wrap().PropertiesButton()->isEnabled());
    EXPECT_FALSE(Page().Widget()->findChild<QPlainTextEdit*>(u"descriptionBox"_s)->isEnabled());
    EXPECT_FALSE(Rectify().Widget()->findChild<QPlainTextEdit*>(u"rectifyBox"_s)->isEnabled());
}
