#include "host/drawings/DrawingFault.h"

namespace host {

using namespace Qt::StringLiterals;

QString DrawingFaultText(DrawingFault fault) {
    switch (fault) {
    case DrawingFault::None:
        return {};
    case DrawingFault::Missing:
        return u"文件不存在或无法读取。"_s;
    case DrawingFault::NotPdf:
        return u"文件不是 PDF 图纸，请另存为 PDF 后再试。"_s;
    case DrawingFault::Damaged:
        return u"PDF 文件已损坏，请重新导出或取得完整的文件。"_s;
    case DrawingFault::Encrypted:
        return u"PDF 文件有密码保护，请先去除密码。"_s;
    case DrawingFault::NoPages:
        return u"PDF 文件没有任何页面。"_s;
    case DrawingFault::TooManyPages:
        return u"PDF 文件超过 %1 页，请拆分后再导入。"_s.arg(kMostSheets);
    case DrawingFault::PageTooLarge:
        return u"PDF 页面过大（边长超过 %1 点，约 3.5 米）。"_s.arg(kLongestSide);
    case DrawingFault::FileTooLarge:
        return u"PDF 文件超过 %1 MB。"_s.arg(kLargestDrawing / 1024 / 1024);
    case DrawingFault::Crashed:
        return u"读取 PDF 时程序出错或内存不足，无法显示此图纸。"_s;
    case DrawingFault::Stalled:
        return u"读取 PDF 用时过长，已停止，请简化图纸后重新导出。"_s;
    case DrawingFault::NoReader:
        return u"图纸阅读程序无法启动，请检查安装。"_s;
    }
    return {};
}

} // namespace host
