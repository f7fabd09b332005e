#include "host/services/SmallServices.h"

#include "host/services/ServiceGuard.h"
#include "site/ICatalogue.h"
#include "site/RectifyStates.h"

#include <QDateTime>

namespace host {

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(serviceLog, "host.services")

void ReportFault(const QString& what, const std::exception& fault) {
    qCWarning(serviceLog, "%s: %s", qUtf8Printable(what), fault.what());
    const auto* known = dynamic_cast<const site::DataError*>(&fault);
    const QString reason =
        known != nullptr ? known->Text() : site::FaultText(site::Fault::Other, {});
    if (HostSession* session = HostSession::Current()) {
        session->ReportHostMessage(MessageLevel::Error, FaultHead(what) + reason);
    }
}

site::Signature SignatureOf(const HostSession& session) {
    return {session.UserName(), QDateTime::currentSecsSinceEpoch()};
}

void RequireSome(HostSession& session, const QString& what, int done, size_t asked) {
    RequireFound(done > 0 || asked == 0,
                 asked == 1 ? u"所选的一项"_s : u"所选的 %1 项"_s.arg(asked));
    if (static_cast<size_t>(done) < asked) {
        session.ReportHostMessage(
            MessageLevel::Warning,
            u"%1：%2 项已完成，另外 %3 项已不存在，可能已被他人删除，请刷新（F5）。"_s.arg(what)
                .arg(done)
                .arg(asked - static_cast<size_t>(done)));
    }
}

void SysMng::WriteActionLog(const QString& action) {
    Guarded(u"记录操作日志"_s, false, [&](HostSession& session) {
        session.LogAction(action);
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
