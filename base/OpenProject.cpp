#include "base/OpenProject.h"

#include "services/Factories.h"
#include "services/IProjCacheMng.h"

namespace ZelvorNRQ_KXVeskPicture {

std::optional<KX_DATA::ProjectRecord> CurrentProject() {
    KX_DATA::IProjCacheHandle* handle = GetProjCacheMng()->GetCurrentProject();
    const KX_DATA::ProjectRecord* record = handle != nullptr ? handle->GetProjectRecord() : nullptr;
    return record != nullptr ? std::optional(*record) : std::nullopt;
}

KX_DATA::CurrentDrawing CurrentDrawing() {
    KX_DATA::CurrentDrawing drawing;
    if (KX_DATA::IProjCacheHandle* handle = GetProjCacheMng()->GetCurrentProject()) {
        handle->GetCurrentDrawing(drawing);
    }
    return drawing;
}

} // namespace ZelvorNRQ_KXVeskPicture
