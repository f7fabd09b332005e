#include "site/DataError.h"

namespace site {

using namespace Qt::StringLiterals;

DataError::DataError(Fault faultKind, QString sentence, const QString& detail)
    : std::runtime_error(
          (detail.isEmpty() ? sentence : sentence + u" ["_s + detail + u"]"_s).toStdString()),
      m_fault(faultKind), m_text(std::move(sentence)) {}

QString FaultText(Fault fault, const QString& what) {
    const QString head = what.isEmpty() ? QString() : what + u"："_s;
    switch (fault) {
    case Fault::NotWritable:
        return head + u"没有写入权限，请检查文件夹的权限或换一个数据文件夹。"_s;
    case Fault::Locked:
        return head + u"数据库正被另一个程序占用，请关闭占用它的程序后重试。"_s;
    case Fault::Newer:
        return head + u"数据库由更新版本的客户端建立，请升级客户端后再打开。"_s;
    case Fault::Damaged:
        return head + u"数据库已损坏，请从备份恢复数据文件夹，或换一个数据文件夹。"_s;
    case Fault::NotASite:
        return head + u"不是站点的数据文件夹，请选择空文件夹或已有的数据文件夹。"_s;
    case Fault::DiskFull:
        return head + u"磁盘空间不足，请清理磁盘后重试。"_s;
    case Fault::BadName:
        return head + u"文件名或文件编号含有不允许的字符，已拒绝。"_s;
    case Fault::Missing:
        return head + u"找不到所需的文件或记录，可能已被删除，请刷新后重试。"_s;
    case Fault::Refused:
        return head + u"数据之间的关系不允许这样修改，请刷新后重试。"_s;
    case Fault::TooSlow:
        return head + u"等待的时间过长，没有完成，请稍后重试。"_s;
    case Fault::Cancelled:
        return head + u"已取消，没有改变任何内容。"_s;
    case Fault::Other:
        break;
    }
    return head + u"读写数据时出错，请重试；若反复出现，请查看日志。"_s;
}

} // namespace site
