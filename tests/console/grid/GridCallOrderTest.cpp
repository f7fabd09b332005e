// In which order an action asks services, the person and the host.
#include "base/Status.h"
#include "tests/console/grid/GridFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using ZelvorNRQ_KXVeskPicture::e_VeskPicMngStatus;

class GridCallOrderTest : public GridFixture {
protected:
    GridCallOrderTest() { host.project.drawing = {500, u"一层平面"_s}; }
};

TEST_F(GridCallOrderTest, DeletingADrawingPhotoComparesItsDrawingBeforeItAsks) {
    Show(kModePdf, 3);
    prompts.ExpectOkCancel(u"确认删除照片 图片2.jpg ？"_s, true);
    ClickCell(1, 17);
    EXPECT_THAT(Log().LinesOf({"GetCurrentDrawing", "AskOkCancel", "DeletePdfPics",
                               "WriteActionLog", "QueryPdfPics", "RefreshPdfMarks"}),
                ElementsAre("GetCurrentDrawing()", "AskOkCancel(确认删除照片 图片2.jpg ？)",
                            "DeletePdfPics(ppid=1,ids=[2])", "WriteActionLog(删除vesk照片)",
                            "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
}

TEST_F(GridCallOrderTest, DeletingCheckedDrawingPhotosJudgesTheViewBetweenDeletingAndFetching) {
    Show(kModePdf, 3);
    Check({0, 2});
    Log().Clear();
    grid->Actions().DeleteChecked();
    EXPECT_THAT(Log().LinesOf({"GetCurrentDrawing", "DeletePdfPics", "WriteActionLog",
                               "QueryPdfPics", "RefreshPdfMarks"}),
                ElementsAre("DeletePdfPics(ppid=1,ids=[3 1])", "WriteActionLog(删除vesk照片)",
                            "GetCurrentDrawing()",
                            "QueryPdfPics(page=1,size=30,sort=last_modifytime desc)",
                            "RefreshPdfMarks()"));
}

TEST_F(GridCallOrderTest, HidingDrawingPhotosJudgesTheViewBehindTheService) {
    Show(kModePdf, 3);
    Check({1});
    Log().Clear();
    grid->Actions().SetCheckedShown(false);
    EXPECT_THAT(Log().Lines(),
                ElementsAre("SetPdfPicsShown(ppid=1,ids=[2],hidden=true)", "GetCurrentProject()",
                            "GetCurrentDrawing()", "RefreshPdfMarks()"));
}

TEST_F(GridCallOrderTest, AMessageOfARaisedStatusComesBeforeTheEndIsTold) {
    Show(kModeBim, 3);
    host.script.During("QueryBimPics", [] { throw e_VeskPicMngStatus::PicInfoFailed; });
    prompts.ExpectMessage(u"获取Vesk照片信息失败！"_s);
    paging->DoFirstPage();
    EXPECT_THAT(Log().LinesOf({"Dialog", "ShowMessage"}),
                ElementsAre("Dialog(1026)", "ShowMessage(获取Vesk照片信息失败！)", "Dialog(1025)"));
    EXPECT_EQ(grid->totalCount, 0);
}

} // namespace
