#include "host/app/FlagPhotos.h"

#include "host/app/Faults.h"
#include "host/app/PhotoFlow.h"
#include "host/session/PanelNames.h"
#include "services/Factories.h"
#include "services/IVeskPicMng.h"
#include "site/IBimPhotos.h"

#include <set>

namespace host {

using namespace Qt::StringLiterals;

namespace {

/// Ticked photos of the flag's mark; empty: all of them are.
std::set<qint32> TickedOf(const HostSession& session, const MarkFlag& flag) {
    std::set<qint32> ids;
    const TickedPhotos& shown = *session.ShownPhotos();
    const auto group = shown.find(PanelGroupName(flag.floor));
    if (group == shown.end()) {
        return ids;
    }
    const auto places = group->second.find(flag.markId);
    if (places == group->second.end()) {
        return ids;
    }
    for (const TickedPlace& place : places->second) {
        ids.insert(place.picIds.begin(), place.picIds.end());
    }
    return ids;
}

FlagPhoto PhotoOf(const KX_DATA::BimPicRow& row) {
    const QString time = row.updateTime.isEmpty() ? row.uploadTime : row.updateTime;
    const QString person = row.updaterName.isEmpty() ? row.uploaderName : row.updaterName;
    const QString said = row.description.isEmpty() ? person : person + u"："_s + row.description;
    return {row.picId, row.fileName + u"  "_s + time, row.fileName + u'\n' + said};
}

} // namespace

FlagPhotos ReadFlagPhotos(HostSession& session, qint32 ppid, const MarkFlag& flag, int most) {
    FlagPhotos photos;
    std::vector<KX_DATA::PicFileEntry> files;
    if (GetVeskPicMng()->GetPicFilesByPosition(ppid, flag.positionKey, flag.markId, files) !=
        KX_DATA::kServiceOk) {
        return photos;
    }
    const std::set<qint32> ticked = TickedOf(session, flag);
    std::vector<qint64> ids;
    for (const KX_DATA::PicFileEntry& file : files) {
        if (!ticked.empty() && !ticked.contains(file.picId)) {
            continue;
        }
        if (int(ids.size()) < most) {
            ids.push_back(file.picId);
        } else {
            ++photos.others;
        }
    }
    WithoutFault(session, [&] {
        for (const KX_DATA::BimPicRow& row :
             session.Site().BimPhotos().Rows(session.OpenPpids(), ids)) {
            photos.named.push_back(PhotoOf(row));
        }
    });
    const auto tips = ReadPhotoTips(session, {ids.begin(), ids.end()});
    for (FlagPhoto& photo : photos.named) {
        if (const auto tip = tips.find(photo.picId); tip != tips.end()) {
            photo.tip += u'\n' + tip->second;
        }
    }
    return photos;
}

} // namespace host
