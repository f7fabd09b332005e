#include "site/DataError.h"
#include "site/IComponents.h"
#include "tests/site/IssueSite.h"

namespace site {
namespace {

using sitetest::IssueSite;
using namespace Qt::StringLiterals;

TEST(Components, AFloorHasItsOwnWithTheirPropertiesInOrder) {
    IssueSite site;
    const auto found = site.engine.Components().OnFloor(site.ppid, u"2"_s);
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].handle, u"2A"_s);
    EXPECT_EQ(found[0].kind, u"柱"_s);
    ASSERT_EQ(found[0].properties.size(), 1U);
    EXPECT_EQ(found[0].properties[0].first, u"标高"_s);
    EXPECT_EQ(found[0].properties[0].second, u"3.6"_s);
    EXPECT_TRUE(site.engine.Components().OnFloor(site.ppid, u"1"_s).empty());
    EXPECT_TRUE(site.engine.Components().OnFloor(site.other, u"2"_s).empty());
}

TEST(Components, AHandleIsFoundOnItsFloorAlone) {
    IssueSite site;
    const auto found = site.engine.Components().Find(site.ppid, u"2"_s, u"2B"_s);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, u"KL-2"_s);
    EXPECT_FALSE(site.engine.Components().Find(site.ppid, u"1"_s, u"2B"_s));
    EXPECT_FALSE(site.engine.Components().Find(site.ppid, u"2"_s, {}));
}

TEST(Components, TheSameHandleAgainReplacesWhatWasSaidOfIt) {
    IssueSite site;
    SiteWriter writer(site.folder);
    writer.AddComponent({site.ppid, u"2A"_s, {}, {}, u"KZ-9"_s, {}, {}, {}});
    EXPECT_EQ(site.engine.Components().OnFloor(site.ppid, u"2"_s).size(), 1U);
    const auto found = site.engine.Components().Find(site.ppid, {}, u"2A"_s);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, u"KZ-9"_s);
    EXPECT_TRUE(found->properties.empty());
    EXPECT_THROW(writer.AddComponent({site.ppid, {}, {}, {}, {}, {}, {}, {}}), DataError);
}

} // namespace
} // namespace site
