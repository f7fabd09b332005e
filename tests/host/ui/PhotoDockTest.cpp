#include "host/ui/photo/PhotoDock.h"

#include "hands/Hands.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableWidget>
#include <QtTest/QTest>

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

class FactsDock : public testing::Test {
protected:
    FactsDock() {
        dock.resize(268, 420);
        dock.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&dock));
    }
    template <typename Widget> [[nodiscard]] Widget* Part(const QString& name) const {
        return dock.findChild<Widget*>(name);
    }
    [[nodiscard]] QTableWidget* Table() const { return Part<QTableWidget>(u"photoTable"_s); }

    PhotoDock dock{nullptr};
    PhotoInfo info{u"墙.jpg"_s, {{u"相机"_s, u"Model 7"_s}, {u"像素"_s, u"4 × 3"_s}}, u"墙.HEIC"_s};
};

TEST_F(FactsDock, SaysWhatToDoBeforeThereIsAPhoto) {
    EXPECT_TRUE(Part<QLabel>(u"photoTitle"_s)->text().startsWith(u"还没有照片"_s));
    EXPECT_FALSE(Table()->isVisible());
    EXPECT_FALSE(Part<QPushButton>(u"openOriginal"_s)->isVisible());
}

TEST_F(FactsDock, ShowsAPhotoAndItsOriginal) {
    dock.ShowInfo(info);
    EXPECT_EQ(Part<QLabel>(u"photoTitle"_s)->text(), u"墙.jpg"_s);
    ASSERT_EQ(Table()->rowCount(), 2);
    EXPECT_EQ(Table()->item(0, 1)->text(), u"Model 7"_s);
    QSignalSpy opened(&dock, &PhotoDock::OpenOriginalWanted);
    QSignalSpy saved(&dock, &PhotoDock::SaveOriginalWanted);
    QTest::mouseClick(Part<QPushButton>(u"openOriginal"_s), Qt::LeftButton);
    QTest::mouseClick(Part<QPushButton>(u"saveOriginal"_s), Qt::LeftButton);
    EXPECT_EQ(opened.count(), 1);
    EXPECT_EQ(saved.count(), 1);
    dock.SetBusy(true);
    QTest::mouseClick(Part<QPushButton>(u"openOriginal"_s), Qt::LeftButton);
    EXPECT_EQ(opened.count(), 1);
}

TEST_F(FactsDock, WithoutAnOriginalThereIsNothingToOpen) {
    info.originalName.clear();
    dock.ShowInfo(info);
    EXPECT_FALSE(Part<QPushButton>(u"openOriginal"_s)->isVisible());
    EXPECT_FALSE(Part<QPushButton>(u"saveOriginal"_s)->isVisible());
}

TEST_F(FactsDock, ValuesAreCopiedWithTheirCaptions) {
    dock.ShowInfo(info);
    Table()->selectRow(1);
    Table()->setFocus();
    QTest::keyClick(Table(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"像素\t4 × 3"_s);
    Table()->actions().back()->trigger();
    EXPECT_EQ(QApplication::clipboard()->text(), u"墙.jpg\n相机\tModel 7\n像素\t4 × 3"_s);
}

TEST_F(FactsDock, ASentenceTakesThePlaceOfThePhoto) {
    dock.ShowInfo(info);
    dock.ShowSentence(u"这张照片已不存在"_s);
    EXPECT_EQ(Part<QLabel>(u"photoTitle"_s)->text(), u"这张照片已不存在"_s);
    EXPECT_FALSE(Table()->isVisible());
    EXPECT_FALSE(Part<QPushButton>(u"saveOriginal"_s)->isVisible());
}

} // namespace
} // namespace host
