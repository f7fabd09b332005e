#include "hands/Hands.h"
#include "services/Factories.h"
#include "services/IKXGlobalData.h"
#include "services/IVeskPicMng.h"
#include "tour/ConsoleEyes.h"
#include "tour/NotedPhoto.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemView>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

QWidget* Viewer() {
    return FindWindow(kPhotoViewer);
}

bool Search(const QString& keyword) {
    return hands::TypeOver(ConsoleControl(u"keywordCombo"_s), keyword) &&
           hands::Click(ConsoleControl(u"searchButton"_s));
}

void WriteLookingUp(TourScript& script) {
    script.Do(
        u"搜索一张带语音的照片"_s, [] { return Search(RowOfNotedPhoto().fileName); },
        [] { return ConsoleText(0, u"照片名称"_s) == RowOfNotedPhoto().fileName; });
    script.Do(
        u"双击这一行：平面图定位，照片查看窗口打开，控制台最小化"_s,
        [] {
            QAbstractItemView* grid = ConsoleGrid();
            const QModelIndex cell = grid->model()->index(0, ConsoleColumn(u"照片名称"_s));
            return hands::DoubleClickAt(grid->viewport(), grid->visualRect(cell).center());
        },
        [] { return ShowsPhoto(Viewer(), 0.4, 0.4) && Console()->isMinimized(); });
    script.Picture(kMain, u"main-flag"_s);
}

void WriteListening(TourScript& script) {
    script.Do(
        u"语音就绪后单击播放：显示进度"_s,
        [] {
            const QWidget* status = FindIn(Viewer(), u"noteStatus"_s);
            return ReadText(status) == u"就绪"_s && hands::Click(FindIn(Viewer(), u"noteButton"_s));
        },
        [] { return ReadText(FindIn(Viewer(), u"noteStatus"_s)).startsWith(u"00:01"_s); });
    script.Picture(kPhotoViewer, u"viewer-playing"_s);
}

void WriteGoingBack(TourScript& script) {
    script.Do(u"控制台回来"_s, nullptr,
              [] { return Console() != nullptr && !Console()->isMinimized(); });
    script.Do(
        u"清空关键字，重新搜索"_s, [] { return Search(QString()); },
        [] { return ConsoleRows() > 1; });
}

} // namespace

KX_DATA::BimPicRow RowOfNotedPhoto() {
    KX_DATA::PicQueryFilter filter;
    filter.noDateLimit = true;
    GetKXGlobalData()->GetOpenProjectIds(filter.projectIds);
    KX_DATA::PageRequest request;
    request.pageSize = 1000;
    request.sortField = u"last_modifytime"_s;
    request.sortOrder = u"desc"_s;
    KX_DATA::PageResult result;
    std::vector<KX_DATA::BimPicRow> rows;
    GetVeskPicMng()->QueryBimPics(filter, request, result, rows);
    for (const KX_DATA::BimPicRow& row : rows) {
        if (!row.text9.isEmpty() && !row.floor.isEmpty() && row.posValid != 0 &&
            row.status == KX_DATA::kStatusShown) {
            return row;
        }
    }
    return {};
}

void WriteViewer(TourScript& script, const TourPlaces& places) {
    WriteLookingUp(script);
    WriteListening(script);
    WriteRecord(script, places);
    WriteGoingBack(script);
}

} // namespace tour
