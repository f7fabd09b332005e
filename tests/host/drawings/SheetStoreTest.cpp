#include "host/drawings/SheetStore.h"

#include "tests/host/drawings/TestDrawings.h"
#include "tests/support/WaitFor.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;
using support::WaitFor;

constexpr QSizeF kSheet(1000, 800);

class StoreTest : public testing::Test {
protected:
    [[nodiscard]] QString FileOf(const QByteArray& bytes, const QString& name = u"甲.pdf"_s) {
        QFile file(QDir(m_folder.path()).filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    [[nodiscard]] bool Opens(SheetStore& store, const QByteArray& bytes) {
        store.Open(FileOf(bytes));
        EXPECT_EQ(store.Present(), SheetStore::State::Opening);
        return WaitFor([&] { return store.Present() != SheetStore::State::Opening; }) &&
               store.Present() == SheetStore::State::Open;
    }
    [[nodiscard]] static SheetWish Whole(int level, int page = 0) {
        const QRect tiles = TilesUnder(QRectF(QPointF(), kSheet), kSheet, level);
        return {page, level, tiles, QRectF(tiles).center()};
    }
    [[nodiscard]] static QRgb PixelOf(const SheetStore& store, const TileKey& key,
                                      const QPoint& at) {
        const QImage* tile = store.Tiles().Find(key);
        return tile == nullptr ? 0 : tile->pixel(at);
    }

private:
    QTemporaryDir m_folder;
};

TEST_F(StoreTest, WhatIsLookedAtIsRenderedInSquares) {
    SheetStore store;
    EXPECT_EQ(store.Present(), SheetStore::State::Empty);
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(2, kSheet)));
    EXPECT_EQ(store.Pages().size(), 2U);
    store.Want(Whole(0, 1));
    EXPECT_FALSE(store.IsComplete());
    ASSERT_TRUE(WaitFor([&] { return store.IsComplete(); }));
    EXPECT_EQ(store.Tiles().KeysOf(1).size(), 4U);
    EXPECT_TRUE(store.Tiles().KeysOf(0).empty());
    // Black is the lower left quarter, from (0, 400) to (500, 800).
    EXPECT_EQ(PixelOf(store, {1, 0, 0, 0}, {10, 398}), qRgb(255, 255, 255));
    EXPECT_EQ(PixelOf(store, {1, 0, 0, 0}, {10, 402}), qRgb(0, 0, 0));
    EXPECT_EQ(PixelOf(store, {1, 0, 0, 1}, {498, 280}), qRgb(0, 0, 0));
    EXPECT_EQ(PixelOf(store, {1, 0, 0, 1}, {502, 280}), qRgb(255, 255, 255));
    EXPECT_EQ(store.Tiles().Find({1, 0, 1, 1})->size(), QSize(488, 288));
}

TEST_F(StoreTest, TheNewestWishCountsAndFinerSquaresComeBesideCoarserOnes) {
    SheetStore store;
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(1, kSheet)));
    store.Want(Whole(6));
    store.Want(Whole(-2));
    ASSERT_TRUE(WaitFor([&] { return store.IsComplete(); }));
    EXPECT_NE(store.Tiles().Find({0, -2, 0, 0}), nullptr);
    store.Want(Whole(2));
    ASSERT_TRUE(WaitFor([&] { return store.IsComplete(); }));
    EXPECT_NE(store.Tiles().Find({0, -2, 0, 0}), nullptr);
    EXPECT_NE(store.Tiles().Find({0, 2, 3, 3}), nullptr);
}

TEST_F(StoreTest, AWishForWhatIsNotThereIsPassedOver) {
    SheetStore store;
    store.Want(Whole(0));
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(1, kSheet)));
    store.Want(Whole(0, 1));
    store.Want(Whole(0, -1));
    EXPECT_TRUE(store.Tiles().KeysOf(1).empty());
}

TEST_F(StoreTest, WhatCannotBeShownIsBrokenWithItsReasonUntilTheNext) {
    SheetStore store;
    EXPECT_FALSE(Opens(store, drawingtest::EncryptedPdf()));
    EXPECT_EQ(store.Present(), SheetStore::State::Broken);
    EXPECT_EQ(store.Fault(), DrawingFault::Encrypted);
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(1, kSheet)));
    EXPECT_EQ(store.Fault(), DrawingFault::None);
    store.Break(DrawingFault::Missing);
    EXPECT_EQ(store.Present(), SheetStore::State::Broken);
    EXPECT_TRUE(store.Pages().empty());
}

TEST_F(StoreTest, AStateThatIsThereAlreadyIsNotToldAgain) {
    SheetStore store;
    int told = 0;
    QObject::connect(&store, &SheetStore::StateChanged, [&told] { ++told; });
    store.Close();
    EXPECT_EQ(told, 0) << "it was empty";
    store.Break(DrawingFault::Missing);
    const int first = told;
    EXPECT_GT(first, 0);
    store.Break(DrawingFault::Encrypted);
    EXPECT_GT(told, first) << "another reason";
}

TEST_F(StoreTest, ADocumentThatStallsWhileItIsLookedAtIsBroken) {
    SheetStore store({{}, 500});
    ASSERT_TRUE(Opens(store, drawingtest::EndlessPdf()));
    store.Want({0, 0, QRect(0, 0, 1, 1), {}});
    ASSERT_TRUE(WaitFor([&] { return store.Present() == SheetStore::State::Broken; }));
    EXPECT_EQ(store.Fault(), DrawingFault::Stalled);
}

TEST_F(StoreTest, WhatNobodyWantsAnyMoreIsGivenUpAlsoInTheMiddle) {
    SheetStore store;
    ASSERT_TRUE(Opens(store, drawingtest::EndlessPdf()));
    const QRect one(0, 0, 1, 1);
    store.Want({0, 0, one, {}});
    store.Want({1, 0, one, {}});
    ASSERT_TRUE(WaitFor([&] { return store.IsComplete(); }, std::chrono::seconds(10)))
        << "the first page would take years";
    EXPECT_EQ(store.Present(), SheetStore::State::Open);
    EXPECT_EQ(PixelOf(store, {1, 0, 0, 0}, {5, 5}), qRgb(255, 255, 255));
}

TEST_F(StoreTest, AReaderThatCrashesWhileItIsLookedAtIsBrokenAndTheNextDrawingOpens) {
    const QString odd = FileOf({}, u"crash"_s);
    QFile::remove(odd);
    ASSERT_TRUE(QFile::link(
        QDir(QCoreApplication::applicationDirPath()).filePath(u"drawing_odd_reader"_s), odd));
    SheetStore store({odd, 20'000});
    for (int time = 0; time < 2; ++time) {
        ASSERT_TRUE(Opens(store, "any"));
        store.Want({0, 0, QRect(0, 0, 1, 1), {}});
        ASSERT_TRUE(WaitFor([&] { return store.Present() == SheetStore::State::Broken; }));
        EXPECT_EQ(store.Fault(), DrawingFault::Crashed);
        EXPECT_FALSE(store.IsComplete());
        store.Want({0, 0, QRect(0, 0, 1, 1), {}});
        EXPECT_EQ(store.Present(), SheetStore::State::Broken);
    }
}

TEST_F(StoreTest, NothingOfTheDrawingBeforeIsSeenInTheNext) {
    SheetStore store;
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(1, kSheet)));
    store.Want(Whole(0));
    ASSERT_TRUE(WaitFor([&] { return store.IsComplete(); }));
    store.Want(Whole(2));
    ASSERT_TRUE(Opens(store, drawingtest::PlainPdf(1, kSheet)));
    EXPECT_TRUE(store.Tiles().KeysOf(0).empty());
    store.Close();
    EXPECT_EQ(store.Present(), SheetStore::State::Empty);
}

} // namespace
} // namespace host
