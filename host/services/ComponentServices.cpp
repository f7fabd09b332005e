#include "host/services/ComponentServices.h"

#include "site/IComponents.h"
#include "site/IssueCode.h"

#include <QUuid>

namespace host {

using namespace Qt::StringLiterals;

qint32 ReportDataMng::GetComponentInfo(const KX_DATA::ComponentInfoQuery& query,
                                       std::vector<KX_DATA::ComponentInfo>& components) {
    return Guarded(u"读取构件信息"_s, 0, [&](HostSession& session) {
        std::vector<KX_DATA::ComponentInfo> found;
        for (const qint32 ppid : session.OpenPpids()) {
            const auto component =
                session.Site().Components().Find(ppid, query.floor, query.componentHandle);
            if (component) {
                found.push_back({component->handle, component->subName});
            }
        }
        components = std::move(found);
        return 1;
    });
}

qint32 TNQRCodeMng::CreateQRCode(const KX_DATA::QRCodeQuery& query, QString& text) {
    return Guarded(u"生成二维码"_s, 0, [&](HostSession& session) {
        RequireFound(site::Has(session.OpenPpids(), query.ppid), u"工程"_s);
        text = site::IssueCode(query.ppid, QUuid::createUuid().toString(QUuid::WithoutBraces));
        return 1;
    });
}

} // namespace host
