#include "host/setup/SetupRoles.h"

#include "services/IKXAuthMng.h"
#include "site/SetupState.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;

const std::vector<std::pair<qint32, QString>>& RightNames() {
    static const std::vector<std::pair<qint32, QString>> names = {
        {KX_DATA::kRightEdit, u"编辑"_s},
        {KX_DATA::kRightDelete, u"删除"_s},
        {KX_DATA::kRightShowHide, u"显示与隐藏"_s},
        {KX_DATA::kRightAddLabels, u"新增标签"_s},
        {site::kRightSetup, u"设置"_s}};
    return names;
}

const std::vector<SetupRole>& Roles() {
    using namespace KX_DATA;
    static const std::vector<SetupRole> roles = {
        {u"管理员"_s,
         {kRightAddLabels, kRightEdit, kRightDelete, kRightShowHide, site::kRightSetup}},
        {u"工程师"_s, {kRightAddLabels, kRightEdit, kRightDelete, kRightShowHide}},
        {u"现场人员"_s, {kRightAddLabels, kRightEdit}},
        {u"查看者"_s, {}}};
    return roles;
}

QString RoleOf(const std::vector<qint32>& rights) {
    const auto found = std::find_if(Roles().begin(), Roles().end(),
                                    [&](const SetupRole& role) { return role.rights == rights; });
    return found == Roles().end() ? u"自定义"_s : found->name;
}

const QStringList& TradeNames() {
    static const QStringList names = {u"土建"_s, u"钢筋"_s, u"安装"_s, u"Revit"_s};
    return names;
}

} // namespace host
