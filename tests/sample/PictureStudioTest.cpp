#include "sample/site/PictureStudio.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

using namespace Qt::StringLiterals;
using std::chrono::milliseconds;

std::vector<sample::PictureOrder> Orders(int count) {
    std::vector<sample::PictureOrder> orders;
    for (int index = 0; index < count; ++index) {
        sample::PictureOrder order;
        order.seed = static_cast<quint64>(index);
        order.kind =
            sample::kAllSceneKinds[static_cast<size_t>(index) % sample::kAllSceneKinds.size()];
        order.size = {96, 72};
        order.lines = QStringList{u"时间：2024-03-12"_s};
        orders.push_back(order);
    }
    return orders;
}

/// Waits until everything is drawn or nothing more will be.
int DrawAll(sample::PictureStudio& studio, int count) {
    int drawn = 0;
    while (drawn < count && !studio.HasFailed()) {
        drawn = studio.WaitForNews(milliseconds(50));
    }
    return drawn;
}

TEST(PictureStudio, DrawsEveryOrderIntoItsOwnFile) {
    const QTemporaryDir dir;
    const auto orders = Orders(12);
    sample::PictureStudio studio(orders, dir.path());
    EXPECT_EQ(DrawAll(studio, 12), 12);
    sample::PictureArtist artist;
    for (size_t index = 0; index < orders.size(); ++index) {
        QFile file(studio.FilePath(index));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), artist.PaintJpeg(orders[index])) << index;
    }
}

TEST(PictureStudio, StopsAtAFolderThatTakesNoFile) {
    const QTemporaryDir dir;
    const auto orders = Orders(30);
    sample::PictureStudio studio(orders, dir.path() + u"/gone"_s);
    const int drawn = DrawAll(studio, 30);
    EXPECT_TRUE(studio.HasFailed());
    EXPECT_LT(drawn, 30);
}

TEST(PictureStudio, ItsEndStopsTheDrawing) {
    const QTemporaryDir dir;
    const auto orders = Orders(400);
    {
        sample::PictureStudio studio(orders, dir.path());
        (void)studio.WaitForNews(milliseconds(1));
    }
    EXPECT_LT(QDir(dir.path()).entryList(QDir::Files).size(), 400);
}

TEST(PictureStudio, NothingToDrawIsDrawnAtOnce) {
    const QTemporaryDir dir;
    const std::vector<sample::PictureOrder> none;
    sample::PictureStudio studio(none, dir.path());
    EXPECT_EQ(studio.WaitForNews(milliseconds(10'000)), 0);
    EXPECT_FALSE(studio.HasFailed());
}

} // namespace
