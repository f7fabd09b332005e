#include "base/Status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

using namespace Qt::StringLiterals;

namespace {

using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;
using ZelvorNRQ_KXVeskPicture::GetStatusMessage;

QString MessageOf(int status) {
    return GetStatusMessage(e_VeskPicMngStatus(status));
}

TEST(StatusCatalogue, EveryStatusHasItsOwnMessage) {
    const std::map<int, QString> messages = {
        {2, u"获取照片标识失败！"_s},
        {3, u"获取Vesk照片信息失败！"_s},
        {4, u"删除Vesk照片失败！"_s},
        {5, u"修改照片状态出错！"_s},
        {6, u"照片已被删除！"_s},
        {7, u"获取工程的所有楼层失败！"_s},
        {8, u"获取楼层所有轴网失败！"_s},
        {9, u"请输入照片名称！"_s},
        {10, u"请选择照片状态！"_s},
        {11, u"请设置正确的楼层信息后重试！"_s},
        {12, u"请设置正确的X轴信息后重试！"_s},
        {13, u"请设置正确的Y轴信息后重试！"_s},
        {14, u"修改照片属性失败！"_s},
        {15, u"添加标签出错！"_s},
        {16, u"标签不能为空！"_s},
        {17, u"此标签已存在！"_s},
        {18, u"获取标签出错！"_s},
        {19, u"获取照片下载地址失败！"_s},
        {20, u"没有Vesk照片信息！"_s},
        {21, u"无照片可删！"_s},
        {22, u"评论内容不能为空！"_s},
        {23, u"评论失败！"_s},
        {24, u"删除评论失败！"_s},
        {25, u"获取检查点信息失败！"_s},
        {26, u"获取检查点评论失败！"_s},
        {27, u"获取图纸信息失败！"_s},
        {28, u"修改检查点信息失败！"_s},
        {29, u"当前照片状态为隐藏，不支持直接定位！"_s},
        {30, u"请先开启vesk图形显示再定位！"_s},
        {31, u"图片UUID为空!"_s},
        {32, u"下载照片失败!"_s},
        {33, u"获取照片标签失败！"_s},
    };
    ASSERT_EQ(messages.size(), 32U);
    for (const auto& [status, message] : messages) {
        EXPECT_EQ(MessageOf(status), message) << status;
    }
}

TEST(StatusCatalogue, AnyOtherValueIsAnUnknownFault) {
    for (const int status : {-1, 0, 1, 34, 1000, INT_MIN, INT_MAX}) {
        EXPECT_EQ(MessageOf(status), u"出现未知错误！"_s) << status;
    }
}

TEST(StatusCatalogue, NamesStandForTheirNumbers) {
    EXPECT_EQ(int(e_VeskPicMngStatus::MarksFailed), 2);
    EXPECT_EQ(int(e_VeskPicMngStatus::DeleteFailed), 4);
    EXPECT_EQ(int(e_VeskPicMngStatus::ChangeStatusFailed), 5);
    EXPECT_EQ(int(e_VeskPicMngStatus::CheckpointFailed), 25);
    EXPECT_EQ(int(e_VeskPicMngStatus::PicHidden), 29);
    EXPECT_EQ(int(e_VeskPicMngStatus::DisplayOff), 30);
    EXPECT_EQ(int(e_VeskPicMngStatus::PicLabelsFailed), 33);
    EXPECT_EQ(sizeof(e_VeskPicMngStatus), 4U);
}

} // namespace
