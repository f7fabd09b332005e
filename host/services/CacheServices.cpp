#include "host/services/CacheServices.h"

#include "toolkit/GbkText.h"

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// In code page 936. The second level has no name, as in the tree.
KX_DATA::ShownPicMarks ShownMarksOf(const TickedPhotos& ticked) {
    KX_DATA::ShownPicMarks shown;
    for (const auto& [group, marks] : ticked) {
        auto& levels = shown[toolkit::ToGbk(group)];
        for (const auto& [markId, places] : marks) {
            std::vector<KX_DATA::ShownPicItem>& items = levels[QString()][markId];
            for (const TickedPlace& place : places) {
                const std::string name = toolkit::ToGbk(place.name);
                for (const qint32 picId : place.picIds) {
                    items.push_back({name, picId});
                }
            }
        }
    }
    return shown;
}

} // namespace

const KX_DATA::ProjectRecord* ProjCacheHandle::GetProjectRecord() {
    // One for each thread that asks: the answer of one never changes under another's eyes.
    thread_local KX_DATA::ProjectRecord record;
    const auto desk = Around().Desk();
    const auto project = desk != nullptr ? desk->Project() : std::nullopt;
    record = project.value_or(KX_DATA::ProjectRecord{});
    return project ? &record : nullptr;
}

void ProjCacheHandle::GetCurrentDrawing(KX_DATA::CurrentDrawing& drawing) {
    const HostSession* session = Around().Session();
    drawing = session != nullptr ? session->Drawing() : KX_DATA::CurrentDrawing{};
}

qint32 ProjCacheHandle::GetProjectMajor() {
    const HostSession* session = Around().Session();
    return session != nullptr ? session->CurrentProject().major : 0;
}

const KX_DATA::ShownPicMarks& ProjModelHandle::GetShownPicMarks() {
    const HostSession* session = Around().Session();
    const auto ticked = session != nullptr ? session->ShownPhotos() : nullptr;
    if (ticked != m_ticked) {
        m_picMarks = ticked != nullptr ? ShownMarksOf(*ticked) : KX_DATA::ShownPicMarks{};
        m_ticked = ticked;
    }
    return m_picMarks;
}

const KX_DATA::ShownIssueMarks& ProjModelHandle::GetShownIssueMarks() {
    const HostSession* session = Around().Session();
    return session != nullptr ? session->ShownIssues() : m_noIssueMarks;
}

bool LocalCacheData::GetMarkTable(std::map<qint32, KX_DATA::MarkRecord>& table) {
    return Guarded(u"读取标识表"_s, false, [&](HostSession& session) {
        table = session.Tables().Marks();
        return true;
    });
}

bool LocalCacheData::GetMarkInfo(qint32 markId, KX_DATA::MarkRecord& record) {
    return Guarded(u"读取标识表"_s, false, [&](HostSession& session) {
        const auto& marks = session.Tables().Marks();
        const auto mark = marks.find(markId);
        if (mark == marks.end()) {
            return false;
        }
        record = mark->second;
        return true;
    });
}

KX_DATA::IKXView* HoopsModuleMng::GetView() {
    return Around().Session() != nullptr ? Around().view : nullptr;
}

} // namespace host
