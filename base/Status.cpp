#include "base/Status.h"

#include <array>

namespace ZelvorNRQ_KXVeskPicture {

namespace {

constexpr int kFirstMessage = 2;

// Half-width "!" in 31 and 32 and the small letters in 30 are required as they stand.
constexpr std::array<const char16_t*, 32> kMessages = {
    u"获取照片标识失败！",
    u"获取Vesk照片信息失败！",
    u"删除Vesk照片失败！",
    u"修改照片状态出错！",
    u"照片已被删除！",
    u"获取工程的所有楼层失败！",
    u"获取楼层所有轴网失败！",
    u"请输入照片名称！",
    u"请选择照片状态！",
    u"请设置正确的楼层信息后重试！",
    u"请设置正确的X轴信息后重试！",
    u"请设置正确的Y轴信息后重试！",
    u"修改照片属性失败！",
    u"添加标签出错！",
    u"标签不能为空！",
    u"此标签已存在！",
    u"获取标签出错！",
    u"获取照片下载地址失败！",
    u"没有Vesk照片信息！",
    u"无照片可删！",
    u"评论内容不能为空！",
    u"评论失败！",
    u"删除评论失败！",
    u"获取检查点信息失败！",
    u"获取检查点评论失败！",
    u"获取图纸信息失败！",
    u"修改检查点信息失败！",
    u"当前照片状态为隐藏，不支持直接定位！",
    u"请先开启vesk图形显示再定位！",
    u"图片UUID为空!",
    u"下载照片失败!",
    u"获取照片标签失败！",
};

} // namespace

QString GetStatusMessage(e_VeskPicMngStatus status) {
    const qint64 index = qint64(status) - kFirstMessage;
    if (index < 0 || index >= qint64(kMessages.size())) {
        return QStringLiteral("出现未知错误！");
    }
    return QString::fromUtf16(kMessages[size_t(index)]);
}

} // namespace ZelvorNRQ_KXVeskPicture
