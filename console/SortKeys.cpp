#include "console/SortKeys.h"

#include <array>
#include <span>

using namespace Qt::StringLiterals;

namespace {

// Columns that no click can reach have their fields all the same.
constexpr std::array kBimFields = {
    u"last_modifytime",
    u"last_modifytime",
    u"marker_id",
    u"pic_name",
    u"ppid",
    u"last_modifyuser",
    u"last_modifytime",
    u"floor,axis_symbol",
    u"floor,axis_symbol",
    u"rectifyStatus",
    u"pic_describe",
    u"pic_status",
};

constexpr std::array kPdfFields = {
    u"last_modifytime",  u"last_modifytime", u"marker_id",       u"pic_name",    u"ppid",
    u"pdfdrawings_name", u"last_modifyuser", u"last_modifytime", u"checkpt_num", u"rectifyStatus",
    u"pic_describe",     u"pic_describe",    u"pic_status",
};

constexpr std::array kIssueFields = {
    u"modifytime", u"modifytime",    u"markerId",   u"theme",
    u"ppid",       u"modifyuser",    u"modifytime", u"floor,posinfo,compname",
    u"modifytime", u"rectifyStatus", u"describe",   u"status",
};

std::span<const char16_t* const> Fields(ConsoleMode mode) {
    switch (mode) {
    case kModePdf:
        return kPdfFields;
    case kModeIssue:
        return kIssueFields;
    default:
        return kBimFields;
    }
}

} // namespace

QString SortField(ConsoleMode mode, int column) {
    const auto fields = Fields(mode);
    if (column < 0 || size_t(column) >= fields.size()) {
        return DefaultSortField(mode);
    }
    return QString::fromUtf16(fields[size_t(column)]);
}

QString DefaultSortField(ConsoleMode mode) {
    return QString::fromUtf16(Fields(mode).front());
}

QString SortOrderAfter(int columnState) {
    return columnState == 1 ? u"desc"_s : u"asc"_s;
}

int ColumnStateOf(const QString& order) {
    return order == u"asc"_s ? 1 : -1;
}
