#include "host/app/LocateNames.h"

#include "host/app/Faults.h"
#include "host/ui/marks/MarkFlag.h"
#include "site/IBimPhotos.h"
#include "site/ICatalogue.h"

namespace host {

using namespace Qt::StringLiterals;

QString PhotoLocatedText(HostSession& session, const LocateTarget& target) {
    QString photo = u"（已不存在）"_s;
    QString mark = UnknownMarkName();
    WithoutFault(session, [&] {
        for (const KX_DATA::BimPicRow& row :
             session.Site().BimPhotos().Rows(session.OpenPpids(), {target.picId})) {
            photo = row.fileName;
        }
        const auto marks = session.Tables().Marks();
        if (const auto known = marks.find(target.markId); known != marks.end()) {
            mark = known->second.name;
        }
    });
    return u"定位照片 %1：%2，标识 %3"_s.arg(photo, FloorCaption(target.floor), mark);
}

QString CheckpointLocatedText(HostSession& session, qint32 checkpointId) {
    site::CheckpointPlace place;
    WithoutFault(session, [&] {
        place = session.Site().Catalogue().PlaceOfCheckpoint(session.OpenPpids(), checkpointId);
    });
    return place.drawing.isEmpty()
               ? u"定位图纸上的检查点：已不存在"_s
               : u"定位图纸 %1 的检查点 %2"_s.arg(place.drawing, QString::number(place.number));
}

} // namespace host
