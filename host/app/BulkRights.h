// Who may file many at once, and what of it.
#pragma once

#include "host/app/Faults.h"
#include "services/IKXAuthMng.h"
#include "site/IBulkFiling.h"
#include "site/ICatalogue.h"

#include <algorithm>

namespace host {

struct BulkRights {
    bool edit = false; ///< place, mark and labels
    bool showHide = false;
    bool addLabels = false;
};

/// What a wish takes; also what it takes to have it undone.
[[nodiscard]] inline BulkRights NeededFor(const site::BulkWish& wish) {
    return {wish.positionKey || wish.markId || wish.replaceLabels || !wish.labelIds.empty(),
            wish.status.has_value(), false};
}

/// As the site has them at this moment: a dialog or a message may have stood for hours. Issues are
/// shown and hidden by everybody, in the console too. Throws DataError.
[[nodiscard]] inline BulkRights ReadBulkRights(const HostSession& session, site::ListKind kind) {
    const std::vector<qint32> rights = session.Site().Catalogue().RightsOf(session.UserName());
    const auto has = [&](qint32 right) {
        return std::find(rights.begin(), rights.end(), right) != rights.end();
    };
    return {has(KX_DATA::kRightEdit) && kind != site::ListKind::PdfPhotos,
            has(KX_DATA::kRightShowHide) || kind == site::ListKind::Issues,
            has(KX_DATA::kRightAddLabels)};
}

/// Throws DataError where one is needed that isn't had.
inline void RequireRights(const BulkRights& had, const BulkRights& needed) {
    using namespace Qt::StringLiterals;
    const auto require = [](bool holds, bool isNeeded, const QString& text) {
        if (isNeeded && !holds) {
            throw site::DataError(site::Fault::Refused, text);
        }
    };
    require(had.edit, needed.edit, u"您没有编辑的权限。"_s);
    require(had.showHide, needed.showHide, u"您没有显示和隐藏的权限。"_s);
    require(had.addLabels, needed.addLabels, u"您没有新增标签的权限。"_s);
}

} // namespace host
