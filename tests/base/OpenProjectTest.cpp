#include "base/OpenProject.h"

#include "tests/support/ScriptedHost.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using ZelvorNRQ_KXVeskPicture::CurrentDrawing;
using ZelvorNRQ_KXVeskPicture::CurrentProject;

namespace {

TEST(OpenProject, IsACopyOfTheHostsRecord) {
    support::ScriptedHost host;
    host.project.project = KX_DATA::ProjectRecord{u"示例工程"_s, 7};
    const auto project = CurrentProject();
    host.project.project.reset();
    ASSERT_TRUE(project.has_value());
    EXPECT_EQ(project->name, u"示例工程");
    EXPECT_EQ(project->ppid, 7);
}

TEST(OpenProject, IsNoneWithoutAHandleOrARecord) {
    support::ScriptedHost host;
    host.project.project.reset();
    EXPECT_FALSE(CurrentProject().has_value());
    host.project.project = KX_DATA::ProjectRecord{u"示例工程"_s, 7};
    host.script.FailNext("GetCurrentProject");
    EXPECT_FALSE(CurrentProject().has_value());
}

TEST(OpenProject, HasADrawingOrNone) {
    support::ScriptedHost host;
    host.project.drawing = {500, u"一层平面"_s};
    EXPECT_EQ(CurrentDrawing().drawingId, 500);
    EXPECT_EQ(CurrentDrawing().drawingName, u"一层平面");
    host.script.FailNext("GetCurrentProject");
    EXPECT_EQ(CurrentDrawing().drawingId, -1);
}

} // namespace
