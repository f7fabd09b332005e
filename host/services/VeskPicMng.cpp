#include "host/services/VeskPicMng.h"

#include "host/services/ListFilters.h"
#include "host/services/PicPanelTree.h"
#include "host/services/SiteService.h"
#include "site/IBimPhotos.h"
#include "site/IBin.h"
#include "site/ICatalogue.h"
#include "site/IPanelCounts.h"
#include "site/IPdfPhotos.h"
#include "site/RectifyStates.h"

#include <algorithm>

namespace host {

using namespace Qt::StringLiterals;
using KX_DATA::kServiceOk;

namespace {

constexpr qint32 kServiceFailed = 0;

qint32 StatusOf(bool hidden) {
    return hidden ? KX_DATA::kStatusHidden : KX_DATA::kStatusShown;
}

} // namespace

template <typename Work> qint32 VeskPicMng::Status(const QString& what, Work work) const {
    return Guarded(what, kServiceFailed, [&](HostSession& session) {
        return work(session) ? kServiceOk : kServiceFailed;
    });
}

template <typename Work> qint32 VeskPicMng::Page(const QString& what, Work work) const {
    return GuardedQuestion(what, kServiceFailed, [&](HostSession& session) {
        work(session);
        return kServiceOk;
    });
}

template <typename Work> bool VeskPicMng::Done(const QString& what, Work work) const {
    return Guarded(what, false, work);
}

qint32 VeskPicMng::QueryBimPics(const KX_DATA::PicQueryFilter& filter,
                                const KX_DATA::PageRequest& request, KX_DATA::PageResult& result,
                                std::vector<KX_DATA::BimPicRow>& rows) {
    return Page(u"查询BIM模型照片"_s, [&](HostSession& session) {
        const site::ListFilter asked = BimFilterOf(filter);
        auto page = session.Site().BimPhotos().PageOf(
            asked, Noted(site::ListKind::BimPhotos, asked, PageAskedOf(request)));
        result = ResultOf(page.total, request);
        rows = std::move(page.rows);
    });
}

qint32 VeskPicMng::QueryPdfPics(const KX_DATA::PdfQueryFilter& filter,
                                const KX_DATA::PageRequest& request, KX_DATA::PageResult& result,
                                std::vector<KX_DATA::PdfPicRecord>& rows) {
    return Page(u"查询平面图纸照片"_s, [&](HostSession& session) {
        const site::ListFilter asked = PdfFilterOf(filter);
        auto page = session.Site().PdfPhotos().PageOf(
            asked, Noted(site::ListKind::PdfPhotos, asked, PageAskedOf(request)));
        result = ResultOf(page.total, request);
        rows = std::move(page.rows);
    });
}

void VeskPicMng::GetBimPicFilterGroups(qint64 from, qint64 to, quint8 flag,
                                       KX_DATA::MarkFilterArg& filterArg,
                                       std::vector<KX_DATA::PicFilterEntry>& entries) {
    entries.clear();
    Done(u"读取照片标识"_s, [&](HostSession& session) {
        entries = PicFilterEntries(session, PanelFilterOf(session, from, to, flag, filterArg));
        return true;
    });
}

qint32 VeskPicMng::GetBimPicMarkerList(qint64 from, qint64 to, quint8 flag, qint32 markId,
                                       KX_DATA::MarkFilterArg& filterArg,
                                       std::vector<qint32>& picIds) {
    picIds.clear();
    Done(u"读取照片标识"_s, [&](HostSession& session) {
        picIds = session.Site().PanelCounts().PhotosOfMark(
            PanelFilterOf(session, from, to, flag, filterArg), markId);
        return true;
    });
    return static_cast<qint32>(picIds.size());
}

void VeskPicMng::GetBimPicFilterValues(qint64 from, qint64 to, quint8 flag,
                                       KX_DATA::MarkFilterArg& filterArg,
                                       std::vector<KX_DATA::PicMarkGroup>& groups) {
    groups.clear();
    Done(u"读取照片标识"_s, [&](HostSession& session) {
        groups = PicMarkGroups(session, PanelFilterOf(session, from, to, flag, filterArg));
        return true;
    });
}

bool VeskPicMng::DeleteBimPics(const std::vector<qint32>& picIds) {
    return Done(u"删除BIM模型照片"_s, [&](HostSession& session) {
        std::vector<site::BinEntry> made;
        const int gone = session.Site().Bin().DeleteBimPhotos(session.OpenPpids(), picIds,
                                                              SignatureOf(session), &made);
        RequireSome(session, u"删除BIM模型照片"_s, gone, picIds.size());
        TellDeleted(made);
        return true;
    });
}

bool VeskPicMng::DeletePdfPics(qint32 ppid, const std::vector<qint32>& picIds) {
    return Done(u"删除平面图纸照片"_s, [&](HostSession& session) {
        std::vector<site::BinEntry> made;
        const int gone =
            session.Site().Bin().DeletePdfPhotos(ppid, picIds, SignatureOf(session), &made);
        RequireSome(session, u"删除平面图纸照片"_s, gone, picIds.size());
        TellDeleted(made);
        return true;
    });
}

qint32 VeskPicMng::DeleteCheckpointPic(qint32 drawingId, qint32 picId) {
    return Guarded(u"删除检查点照片"_s, 0, [&](HostSession& session) {
        // The viewers call the checkpoint a drawing.
        const qint32 ppid =
            session.Site().PdfPhotos().ProjectOf(session.OpenPpids(), drawingId, picId);
        std::vector<site::BinEntry> made;
        RequireFound(ppid != 0 && session.Site().Bin().DeletePdfPhotos(
                                      ppid, {picId}, SignatureOf(session), &made) == 1,
                     u"检查点照片"_s);
        TellDeleted(made);
        return 1;
    });
}

bool VeskPicMng::SetBimPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) {
    return Done(u"修改照片状态"_s, [&](HostSession& session) {
        std::vector<site::NamedPhoto> changed;
        const int found =
            session.Site().BimPhotos().SetStatus(ppid, picIds, StatusOf(hidden), &changed);
        RequireSome(session, u"修改照片状态"_s, found, picIds.size());
        TellStatus(site::BinKind::BimPhoto, hidden, ppid, changed);
        return true;
    });
}

bool VeskPicMng::SetPdfPicsShown(qint32 ppid, const std::vector<qint32>& picIds, bool hidden) {
    return Done(u"修改照片状态"_s, [&](HostSession& session) {
        std::vector<site::NamedPhoto> changed;
        const int found =
            session.Site().PdfPhotos().SetStatus(ppid, picIds, StatusOf(hidden), &changed);
        RequireSome(session, u"修改照片状态"_s, found, picIds.size());
        TellStatus(site::BinKind::PdfPhoto, hidden, ppid, changed);
        return true;
    });
}

qint32 VeskPicMng::GetBimPicDetail(qint32 ppid, qint32 picId, KX_DATA::BimPicDetail& detail) {
    return Status(u"读取照片"_s, [&](HostSession& session) {
        KX_DATA::BimPicDetail found;
        RequireFound(session.Site().BimPhotos().Detail(ppid, picId, found).has_value(), u"照片"_s);
        if (found.status != KX_DATA::kStatusShown) {
            return false; // the module says so itself
        }
        detail = found;
        return true;
    });
}

qint32 VeskPicMng::GetPdfPicDetail(qint32 ppid, qint32 picId, KX_DATA::PdfPicDetail& detail) {
    return Status(u"读取照片"_s, [&](HostSession& session) {
        RequireFound(session.Site().PdfPhotos().Detail(ppid, picId, detail).has_value(), u"照片"_s);
        return true;
    });
}

qint32 VeskPicMng::GetProjectFloors(qint32 ppid, std::vector<QString>& floors) {
    return Status(u"读取楼层"_s, [&](HostSession& session) {
        floors = session.Site().Catalogue().Floors(ppid);
        return true;
    });
}

qint32 VeskPicMng::GetFloorAxesX(qint32 ppid, const QString& floor, std::vector<QString>& axes) {
    return Status(u"读取轴线"_s, [&](HostSession& session) {
        axes = session.Site().Catalogue().AxesX(ppid, floor);
        return true;
    });
}

qint32 VeskPicMng::GetFloorAxesY(qint32 ppid, const QString& floor, const QString& axisX,
                                 std::vector<KX_DATA::AxisYEntry>& axes) {
    return Status(u"读取轴线"_s, [&](HostSession& session) {
        axes = session.Site().Catalogue().AxesY(ppid, floor, axisX);
        return true;
    });
}

bool VeskPicMng::UpdateBimPic(qint32 ppid, const KX_DATA::BimPicUpdate& update) {
    return Done(u"修改照片"_s, [&](HostSession& session) {
        RequireFound(IsSaved(session.Site().BimPhotos().Update(ppid, update, SignatureOf(session))),
                     update.fileName);
        return true;
    });
}

bool VeskPicMng::UpdatePdfPic(qint32 ppid, const KX_DATA::PdfPicUpdate& update) {
    return Done(u"修改照片"_s, [&](HostSession& session) {
        RequireFound(IsSaved(session.Site().PdfPhotos().Update(ppid, update, SignatureOf(session))),
                     update.fileName);
        return true;
    });
}

qint32 VeskPicMng::GetPicFiles(const std::vector<qint32>& picIds,
                               std::vector<KX_DATA::PicFileEntry>& files) {
    return Status(u"读取照片文件"_s, [&](HostSession& session) {
        files = session.Site().BimPhotos().Files(session.OpenPpids(), picIds);
        return true;
    });
}

qint32 VeskPicMng::GetCheckpointPics(qint32 ppid, qint32 picId,
                                     KX_DATA::CheckpointPicDetail& detail) {
    return Status(u"读取照片"_s, [&](HostSession& session) {
        // Callers pass the current project, which in a workset stands for all of its projects.
        const site::Projects open = session.OpenPpids();
        const bool all = session.IsWorkset() && site::Has(open, ppid);
        const site::Projects asked = all ? open : site::Projects{ppid};
        RequireFound(
            std::any_of(
                asked.begin(), asked.end(),
                [&](qint32 each) {
                    return session.Site().PdfPhotos().PicDetail(each, picId, detail).has_value();
                }),
            u"照片"_s);
        return true;
    });
}

qint32 VeskPicMng::GetPicFilesByPosition(qint32 ppid, const QString& positionKey, qint32 markId,
                                         std::vector<KX_DATA::PicFileEntry>& files) {
    return Status(u"读取照片文件"_s, [&](HostSession& session) {
        files = session.Site().BimPhotos().FilesByPosition(ppid, positionKey, markId);
        return true;
    });
}

bool VeskPicMng::GetBimLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    return Done(u"读取标签"_s, [&](HostSession& session) {
        labels = session.Site().BimPhotos().UsedLabels();
        return true;
    });
}

bool VeskPicMng::GetPdfLabels(std::vector<KX_DATA::LabelEntry>& labels) {
    return Done(u"读取标签"_s, [&](HostSession& session) {
        labels = session.Site().PdfPhotos().UsedLabels();
        return true;
    });
}

bool VeskPicMng::GetUsedBimMarks(std::vector<qint32>& markIds) {
    return Done(u"读取照片标识"_s, [&](HostSession& session) {
        markIds = session.Site().BimPhotos().UsedMarks();
        return true;
    });
}

bool VeskPicMng::GetUsedPdfMarks(std::vector<qint32>& markIds) {
    return Done(u"读取照片标识"_s, [&](HostSession& session) {
        markIds = session.Site().PdfPhotos().UsedMarks();
        return true;
    });
}

void VeskPicMng::GetStateNames(std::vector<QString>& names) {
    names = site::StateNames();
}

} // namespace host
