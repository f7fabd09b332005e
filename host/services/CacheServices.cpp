#include "host/services/CacheServices.h"

#include "host/services/ServiceGuard.h"

namespace host {

using namespace Qt::StringLiterals;

const KX_DATA::ProjectRecord* ProjCacheHandle::GetProjectRecord() {
    const HostSession* session = HostSession::Current();
    if (session == nullptr || session->CurrentProject().ppid == 0) {
        return nullptr;
    }
    m_record = {session->CurrentProject().name, session->CurrentProject().ppid};
    return &m_record;
}

void ProjCacheHandle::GetCurrentDrawing(KX_DATA::CurrentDrawing& drawing) {
    const HostSession* session = HostSession::Current();
    drawing = session != nullptr ? session->Drawing() : KX_DATA::CurrentDrawing{};
}

qint32 ProjCacheHandle::GetProjectMajor() {
    const HostSession* session = HostSession::Current();
    return session != nullptr ? session->CurrentProject().major : 0;
}

const KX_DATA::ShownPicMarks& ProjModelHandle::GetShownPicMarks() {
    const HostSession* session = HostSession::Current();
    return session != nullptr ? session->shownPicMarks : m_noPicMarks;
}

const KX_DATA::ShownIssueMarks& ProjModelHandle::GetShownIssueMarks() {
    const HostSession* session = HostSession::Current();
    return session != nullptr ? session->shownIssueMarks : m_noIssueMarks;
}

bool LocalCacheData::GetMarkTable(std::map<qint32, KX_DATA::MarkRecord>& table) {
    return Guarded(u"读取标识表"_s, false, [&](HostSession& session) {
        table = session.Marks();
        return true;
    });
}

bool LocalCacheData::GetMarkInfo(qint32 markId, KX_DATA::MarkRecord& record) {
    return Guarded(u"读取标识表"_s, false, [&](HostSession& session) {
        const auto& marks = session.Marks();
        const auto mark = marks.find(markId);
        if (mark == marks.end()) {
            return false;
        }
        record = mark->second;
        return true;
    });
}

KX_DATA::IKXView* HoopsModuleMng::GetView() {
    const HostSession* session = HostSession::Current();
    return session != nullptr ? session->view : nullptr;
}

} // namespace host
