#include "console/ColumnTable.h"

#include <set>

using namespace Qt::StringLiterals;

namespace {

constexpr bool kLeft = false;
constexpr bool kCentred = true;
constexpr bool kFree = false;
constexpr bool kLocked = true;
constexpr bool kFixedOrder = false;
constexpr bool kSorts = true;

// clang-format off
const std::vector<ColumnSpec>& BimColumns() {
    static const std::vector<ColumnSpec> columns = {
        {QString(),            20, kLeft,    kLocked, kFixedOrder},
        {u"序号"_s,            35, kCentred, kFree,   kFixedOrder},
        {u"照片标识"_s,        75, kLeft,    kFree,   kSorts},
        {u"照片名称"_s,       150, kLeft,    kFree,   kSorts,      3},
        {u"所属工程"_s,       150, kLeft,    kFree,   kSorts,      2},
        {u"上传人/更新人"_s,  100, kLeft,    kFree,   kSorts,      1},
        {u"上传/更新时间"_s,  130, kLeft,    kFree,   kSorts,      3},
        {u"位置"_s,            50, kLeft,    kFree,   kSorts,      2},
        {u"标签"_s,            60, kLeft,    kFree,   kFixedOrder, 2},
        {u"整改情况"_s,        60, kLeft,    kLocked, kFixedOrder},
        {u"描述"_s,            60, kLeft,    kFree,   kSorts,      8},
        {u"状态"_s,            50, kCentred, kLocked, kSorts},
        {u"编辑"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"反查"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"预览"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"下载"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"删除"_s,            40, kLeft,    kLocked, kFixedOrder},
    };
    return columns;
}

const std::vector<ColumnSpec>& PdfColumns() {
    static const std::vector<ColumnSpec> columns = {
        {QString(),            20, kLeft,    kLocked, kFixedOrder},
        {u"序号"_s,            35, kCentred, kFree,   kFixedOrder},
        {u"标识"_s,            75, kLeft,    kFree,   kSorts},
        {u"照片名称"_s,       120, kLeft,    kFree,   kSorts,      4},
        {u"所属工程"_s,       120, kCentred, kLocked, kSorts},
        {u"图纸"_s,            75, kCentred, kFree,   kSorts,      4},
        {u"上传人/更新人"_s,   90, kLeft,    kFree,   kSorts,      2},
        {u"上传/更新时间"_s,  130, kLeft,    kFree,   kSorts,      3},
        {u"位置"_s,            60, kLeft,    kFree,   kSorts,      1},
        {u"标签"_s,            60, kLeft,    kLocked, kFixedOrder},
        {u"整改情况"_s,        60, kLeft,    kFree,   kFixedOrder},
        {u"描述"_s,            50, kLeft,    kLocked, kSorts},
        {u"状态"_s,            45, kCentred, kLocked, kSorts},
        {u"编辑"_s,            35, kLeft,    kLocked, kFixedOrder},
        {u"反查"_s,            35, kLeft,    kLocked, kFixedOrder},
        {u"预览"_s,            35, kLeft,    kLocked, kFixedOrder},
        {u"下载"_s,            35, kLeft,    kLocked, kFixedOrder},
        {u"删除"_s,            35, kLeft,    kLocked, kFixedOrder},
    };
    return columns;
}

const std::vector<ColumnSpec>& IssueColumns() {
    static const std::vector<ColumnSpec> columns = {
        {QString(),            20, kLeft,    kLocked, kFixedOrder},
        {u"序号"_s,            35, kCentred, kFree,   kFixedOrder},
        {u"问题标识"_s,        75, kLeft,    kFree,   kSorts},
        {u"问题主题"_s,       150, kLeft,    kFree,   kSorts,      4},
        {u"所属工程"_s,       150, kLeft,    kFree,   kSorts,      2},
        {u"创建人/更新人"_s,  100, kLeft,    kFree,   kSorts,      1},
        {u"上传/更新时间"_s,  130, kLeft,    kFree,   kSorts,      3},
        {u"问题构件"_s,       110, kLeft,    kFree,   kSorts,      3},
        {u"标签"_s,            60, kLeft,    kFree,   kFixedOrder},
        {u"整改情况"_s,        60, kLeft,    kFree,   kSorts},
        {u"描述"_s,            60, kLeft,    kFree,   kSorts,      8},
        {u"状态"_s,            50, kCentred, kLocked, kSorts},
        {u"编辑"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"反查"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"预览"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"下载"_s,            40, kLeft,    kLocked, kFixedOrder},
        {u"删除"_s,            40, kLeft,    kLocked, kFixedOrder},
    };
    return columns;
}
// clang-format on

constexpr int kIssueLabelColumn = 8;
constexpr int kIssueDownloadColumn = 15;
constexpr int kDeleteIconOffset = 4;

} // namespace

const std::vector<ColumnSpec>& ConsoleColumns(ConsoleMode mode) {
    switch (mode) {
    case kModePdf:
        return PdfColumns();
    case kModeIssue:
        return IssueColumns();
    default:
        return BimColumns();
    }
}

int FirstIconColumn(ConsoleMode mode) {
    return mode == kModePdf ? 13 : 12;
}

int StatusColumn(ConsoleMode mode) {
    return FirstIconColumn(mode) - 1;
}

std::vector<int> HiddenColumns(ConsoleMode mode, const ColumnRights& rights) {
    const int status = StatusColumn(mode);
    const int edit = FirstIconColumn(mode);
    const int remove = edit + kDeleteIconOffset;
    std::set<int> hidden;
    if (mode == kModeIssue) {
        // Issues ask for no rights: those are a matter of the photos alone.
        hidden = {kIssueLabelColumn, kIssueDownloadColumn};
    } else {
        if (!rights.edit) {
            hidden.insert(edit);
        }
        if (!rights.remove) {
            hidden.insert(remove);
        }
        if (!rights.showHide) {
            hidden.insert(status);
        }
    }
    if (rights.worksetMode) {
        hidden.insert({status, edit, remove});
    } else {
        hidden.insert(kProjectColumn);
    }
    return {hidden.begin(), hidden.end()};
}
