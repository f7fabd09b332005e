#include "host/session/HostSession.h"

#include "site/IIntake.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace host {
namespace {

using namespace Qt::StringLiterals;

/// Two projects and a workset of both.
struct Projects : testing::Test {
    Projects() {
        EXPECT_FALSE(session.Open(dir.filePath(u"site"_s)).has_value());
        const auto intake = session.Site().NewIntake();
        first = intake->AddProject(u"一期"_s);
        second = intake->AddProject(u"二期"_s);
        workset = intake->AddWorkset(u"总包"_s, {second, first});
    }
    QTemporaryDir dir;
    HostSession session;
    qint32 first = 0;
    qint32 second = 0;
    qint32 workset = 0;
};

TEST_F(Projects, OtherThreadsFindOneOpenAtEachMomentOfAChange) {
    ASSERT_TRUE(session.OpenProject(first));
    std::atomic<bool> isOver = false;
    std::atomic<qint64> looks = 0;
    std::atomic<qint64> lacks = 0;
    std::thread other([&] {
        while (!isOver) {
            lacks += session.Desk()->Project() ? 0 : 1;
            ++looks;
            // Who waits for the lock is let in too late to see what lies between two steps.
            const qint64 pause = looks % 61;
            for (std::atomic<qint64> at = 0; at < pause; ++at) {
            }
        }
    });
    for (int at = 0; at < 500 || looks < 100'000; ++at) {
        ASSERT_TRUE(session.OpenProject(second));
        ASSERT_TRUE(session.OpenWorkset(workset));
        ASSERT_TRUE(session.OpenProject(first));
    }
    isOver = true;
    other.join();
    EXPECT_EQ(lacks, 0) << "of " << looks;
}

TEST_F(Projects, AChangeForgetsWorksetDrawingAndWhatIsShown) {
    ASSERT_TRUE(session.OpenWorkset(workset));
    EXPECT_EQ(session.CurrentProject().ppid, second) << "its first";
    EXPECT_EQ(session.OpenPpids(), (site::Projects{second, first}));
    KX_DATA::CurrentDrawing drawing;
    drawing.drawingId = 7;
    session.SetDrawing(drawing);
    session.ShowPhotos({{u"3"_s, {}}});
    ASSERT_TRUE(session.OpenProject(first));
    EXPECT_FALSE(session.IsWorkset());
    EXPECT_LT(session.Drawing().drawingId, 1);
    EXPECT_TRUE(session.ShownPhotos()->empty());
    EXPECT_EQ(session.OpenPpids(), site::Projects{first});
}

TEST_F(Projects, AnUnknownOneLeavesTheOpenOneAlone) {
    ASSERT_TRUE(session.OpenWorkset(workset));
    EXPECT_FALSE(session.OpenProject(999));
    EXPECT_FALSE(session.OpenWorkset(999));
    EXPECT_TRUE(session.IsWorkset());
    EXPECT_EQ(session.CurrentProject().ppid, second);
    session.CloseProject();
    EXPECT_EQ(session.Desk()->Project(), std::nullopt);
}

} // namespace
} // namespace host
