#include "host/app/UndoTexts.h"

#include "services/IKXAuthMng.h"
#include "site/SetupState.h"

#include <gtest/gtest.h>

namespace host {
namespace {

using namespace Qt::StringLiterals;

DoneDeed DeedOn(DeedKind kind, site::BinKind what, const QStringList& names) {
    DoneDeed deed{kind, what};
    for (const QString& name : names) {
        deed.items.push_back({1, qint64(deed.items.size()) + 1, {}, name});
    }
    return deed;
}

TEST(UndoTexts, SayWhatWasDoneToHowManyOfWhat) {
    EXPECT_EQ(DoneText(DeedOn(DeedKind::Deleted, site::BinKind::BimPhoto,
                              {u"a.jpg"_s, u"b.jpg"_s, u"c.jpg"_s})),
              u"已删除 3 张照片。"_s);
    EXPECT_EQ(DoneText(DeedOn(DeedKind::Hidden, site::BinKind::Issue, {u"裂缝"_s})),
              u"已隐藏 1 个TN问题。"_s);
    EXPECT_EQ(DeedName(DeedKind::Shown, site::BinKind::PdfPhoto, 2), u"显示 2 张照片"_s);
    EXPECT_EQ(DeedName(DeedKind::Deleted, site::BinKind::IssuePic, 2), u"删除 2 张问题图片"_s);
    EXPECT_EQ(DeedName(DeedKind::Deleted, site::BinKind::Checkpoint, 1), u"删除 1 个检查点"_s);
    EXPECT_EQ(DeedName(DeedKind::Deleted, site::BinKind::Drawing, 1), u"删除 1 张图纸"_s);
    EXPECT_EQ(DeedName(DeedKind::Deleted, site::BinKind(77), 1), u"删除 1 项"_s);
}

TEST(UndoTexts, NameTheFirstThreeWhateverTheyLookLike) {
    EXPECT_EQ(UndoTip(DeedOn(DeedKind::Deleted, site::BinKind::BimPhoto, {u"%2.jpg"_s})),
              u"从回收站恢复“%2.jpg”"_s);
    EXPECT_EQ(UndoTip(DeedOn(DeedKind::Hidden, site::BinKind::BimPhoto,
                             {u"%1"_s, u"%2"_s, u"%3"_s, u"%4"_s})),
              u"重新显示“%1”、“%2”、“%3” 等 4 项"_s);
    EXPECT_EQ(UndoTip(DeedOn(DeedKind::Shown, site::BinKind::BimPhoto, {u"a"_s})),
              u"重新隐藏“a”"_s);
}

TEST(UndoTexts, TellWhatIsGoneByName) {
    const DoneDeed deleted =
        DeedOn(DeedKind::Deleted, site::BinKind::BimPhoto, {u"a.jpg"_s, u"%1"_s});
    EXPECT_EQ(GoneText(deleted, {deleted.items[1]}, 1),
              u"已撤销删除 1 张照片；“%1”已不在回收站中，可能已被恢复或彻底删除。"_s);
    EXPECT_EQ(GoneText(deleted, deleted.items, 0),
              u"没有撤销：“a.jpg”、“%1”已不在回收站中，可能已被恢复或彻底删除。"_s);
    const DoneDeed hidden = DeedOn(DeedKind::Hidden, site::BinKind::BimPhoto, {u"a.jpg"_s});
    EXPECT_EQ(GoneText(hidden, hidden.items, 0),
              u"没有撤销：“a.jpg”已不存在，可能已被他人删除。"_s);
    EXPECT_EQ(NothingLeftText(hidden), u"没有撤销：“a.jpg”已经是显示状态。"_s);
    EXPECT_EQ(NothingLeftText(DeedOn(DeedKind::Shown, site::BinKind::Issue, {u"裂缝"_s})),
              u"没有撤销：“裂缝”已经是隐藏状态。"_s);
}

TEST(UndoTexts, TheRightIsThatOfTheDeed) {
    EXPECT_EQ(RightFor(DeedKind::Deleted, site::BinKind::BimPhoto), KX_DATA::kRightDelete);
    EXPECT_EQ(RightFor(DeedKind::Deleted, site::BinKind::Checkpoint), KX_DATA::kRightDelete);
    EXPECT_EQ(RightFor(DeedKind::Deleted, site::BinKind::Drawing), site::kRightSetup);
    EXPECT_EQ(NoRightText(DeedOn(DeedKind::Deleted, site::BinKind::Drawing, {})),
              u"您没有设置的权限。"_s);
    EXPECT_EQ(RightFor(DeedKind::Shown, site::BinKind::PdfPhoto), KX_DATA::kRightShowHide);
    EXPECT_EQ(RightFor(DeedKind::Deleted, site::BinKind::Issue), 0);
    EXPECT_EQ(RightFor(DeedKind::Deleted, site::BinKind::IssuePic), 0);
    const DoneDeed hidden = DeedOn(DeedKind::Hidden, site::BinKind::BimPhoto, {u"a.jpg"_s});
    EXPECT_EQ(UndoFaultHead(hidden) + NoRightText(hidden),
              u"撤销隐藏 1 张照片失败：您没有显示和隐藏的权限。"_s);
    EXPECT_EQ(NoRightText(DeedOn(DeedKind::Deleted, site::BinKind::BimPhoto, {})),
              u"您没有删除的权限。"_s);
}

} // namespace
} // namespace host
