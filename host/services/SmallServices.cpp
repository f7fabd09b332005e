#include "host/services/SmallServices.h"

#include "host/services/SiteService.h"
#include "site/ICatalogue.h"
#include "site/RectifyStates.h"

namespace host {

using namespace Qt::StringLiterals;

void SysMng::WriteActionLog(const QString& action) {
    Guarded(u"记录操作日志"_s, false, [&](HostSession& session) {
        session.Actions().Write(action);
        return true;
    });
}

qint32 DocMng::GetLabels(qint32 kind, std::vector<KX_DATA::LabelEntry>& labels) {
    if (kind != KX_DATA::kPhotoDocKind) {
        return 0;
    }
    return Guarded(u"读取标签"_s, 0, [&](HostSession& session) {
        labels = session.Site().Catalogue().Labels();
        return KX_DATA::kLabelsOk;
    });
}

qint32 DocMng::AddLabel(qint32 kind, const QString& label, qint32 /*value*/,
                        const QString& /*parent*/, QString& labelId) {
    if (kind != KX_DATA::kPhotoDocKind) {
        return 0;
    }
    return Guarded(u"增加标签"_s, 0, [&](HostSession& session) {
        const qint32 id = session.Site().Catalogue().AddLabel(label);
        if (id == 0) {
            return 0;
        }
        labelId = QString::number(id);
        return KX_DATA::kLabelAdded;
    });
}

void RecentSearchMng::SaveRecent(const std::vector<QString>& keywords) {
    Guarded(u"保存搜索记录"_s, false, [&](HostSession& session) {
        session.Site().Catalogue().SaveRecentSearches(session.UserName(), keywords);
        return true;
    });
}

void RecentSearchMng::GetRecent(std::vector<QString>& keywords) {
    keywords.clear();
    Guarded(u"读取搜索记录"_s, false, [&](HostSession& session) {
        keywords = session.Site().Catalogue().RecentSearches(session.UserName());
        return true;
    });
}

void ConvertProjStateTool::StateToText(QString& text, qint32 state) {
    text = site::StateName(state);
}

qint32 ConvertProjStateTool::TextToState(const QString& text) {
    return site::StateFromName(text);
}

} // namespace host
