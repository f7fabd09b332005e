// What differs between the three managers: one table, each of its rows a test for each manager.
#include "console/BimPicMng.h"
#include "console/PDFPicMng.h"
#include "console/TNPicMng.h"
#include "editors/PdfPicEditDlg.h"
#include "issues/TNPicEditDlg.h"
#include "issues/TNPicViewWrap.h"
#include "tests/console/managers/ManagerFixture.h"
#include "tests/support/ModalVisit.h"
#include "tests/support/WaitFor.h"

#include <gmock/gmock.h>

#include <optional>

using namespace Qt::StringLiterals;

namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

struct Strategy {
    std::string name;
    ConsoleMode mode;
    QString hint;
    std::string captions;     ///< of the columns 2, 3, 5, 6, 7 and 8
    std::string rightsAsked;  ///< by InitColumns, in order
    std::string notification; ///< operation of the sink
    std::string query;        ///< operation of the service
    std::vector<qint32> goodResults;
    std::vector<qint32> badResults;
    std::string setShown; ///< call that hides the rows 1 and 3 in project 9
    int statusColumn;
    std::string deleteRows; ///< call that deletes the rows 1 and 3 in project 9
    std::string deletionLog;
    QString question; ///< before row 2 is deleted
    std::string deleteRow;
    bool affectsOtherView; ///< also if no checked row lies on the open drawing
    std::string usedMarks;
    QSize leastSize;
    QString editorWindow;            ///< modal; empty: it isn't
    std::vector<std::string> locate; ///< calls of a lookup of row 1
    bool locatesHidden;
    std::vector<std::string> deleteIds; ///< calls of DeleteIds for the ids 5 and 6 in project 9
};

std::ostream& operator<<(std::ostream& out, const Strategy& strategy) {
    return out << strategy.name;
}

const std::vector<Strategy>& Strategies() {
    static const std::vector<Strategy> table = {
        {
            .name = "CBimPicMng",
            .mode = kModeBim,
            .hint = u"输入照片名称、相关人账号、描述等关键字"_s,
            .captions = "照片标识|照片名称|上传人/更新人|上传/更新时间|位置|标签",
            .rightsAsked = "21 22 38",
            .notification = "RefreshBimMarks()",
            .query = "QueryBimPics",
            .goodResults = {101},
            .badResults = {0, 1, 100, 102, -1},
            .setShown = "SetBimPicsShown(ppid=9,ids=[3 1],hidden=true)",
            .statusColumn = 11,
            .deleteRows = "DeleteBimPics(ids=[3 1])",
            .deletionLog = "WriteActionLog(删除Vesk照片)",
            .question = u"确认删除照片 照片2.jpg ？"_s,
            .deleteRow = "DeleteBimPics(ids=[2])",
            .affectsOtherView = true,
            .usedMarks = "GetUsedBimMarks()",
            .leastSize = QSize(1085, 845),
            .editorWindow = u"BimPicEditDlg"_s,
            .locate = {"GetView()", "MainWindow(event=7529,first=0,text=1-1-1)",
                       "LocatePicture(position=K1,mark=1)"},
            .locatesHidden = false,
            .deleteIds = {"DeleteBimPics(ids=[5 6])", "WriteActionLog(删除Vesk照片)"},
        },
        {
            .name = "CPDFPicMng",
            .mode = kModePdf,
            .hint = u"输入照片名称、图纸、相关人账号、描述等关键字"_s,
            .captions = "标识|照片名称|图纸|上传人/更新人|上传/更新时间|位置",
            .rightsAsked = "21 22 38",
            .notification = "RefreshPdfMarks()",
            .query = "QueryPdfPics",
            .goodResults = {1, 101, -1},
            .badResults = {0},
            .setShown = "SetPdfPicsShown(ppid=9,ids=[3 1],hidden=true)",
            .statusColumn = 12,
            .deleteRows = "DeletePdfPics(ppid=9,ids=[3 1])",
            .deletionLog = "WriteActionLog(删除vesk照片)",
            .question = u"确认删除照片 图片2.jpg ？"_s,
            .deleteRow = "DeletePdfPics(ppid=9,ids=[2])",
            .affectsOtherView = false,
            .usedMarks = "GetUsedPdfMarks()",
            .leastSize = QSize(1085, 845),
            .editorWindow = {},
            .locate = {"SelectCheckpoint(drawing=500)",
                       "MainWindow(event=7529,first=3,second=101)"},
            .locatesHidden = true,
            .deleteIds = {"DeletePdfPics(ppid=9,ids=[5 6])", "WriteActionLog(删除vesk照片)"},
        },
        {
            .name = "CTNPicMng",
            .mode = kModeIssue,
            .hint = u"输入问题主题、相关人账号、描述等关键字"_s,
            .captions = "问题标识|问题主题|创建人/更新人|上传/更新时间|问题构件|标签",
            .rightsAsked = "",
            .notification = "RefreshTNMarks()",
            .query = "QueryIssues",
            .goodResults = {101},
            .badResults = {0, 1, 100, 102, -1},
            .setShown = "SetIssuesShown(ppid=9,ids=[q3 q1],hidden=true)",
            .statusColumn = 11,
            .deleteRows = "DeleteIssues(ids=[q3 q1])",
            .deletionLog = "WriteActionLog(删除TN问题)",
            .question = u"确认删除该问题和所附照片吗 ？"_s,
            .deleteRow = "DeleteIssues(ids=[q2])",
            .affectsOtherView = true,
            .usedMarks = "GetUsedMarks(kind=9)",
            .leastSize = QSize(1025, 820),
            .editorWindow = {},
            .locate = {"GetView()", "LocateIssue(id=q1)"},
            .locatesHidden = false,
            // A stump that nothing reaches: an empty list, and no log.
            .deleteIds = {"DeleteIssues(ids=[])"},
        },
    };
    return table;
}

class StrategyTable : public ManagerFixture, public testing::WithParamInterface<Strategy> {
protected:
    StrategyTable() { host.project.drawing = {500, u"别的图纸"_s}; }

    void OpenKind(int rows = 3) {
        Open(GetParam().mode, rows);
        Fetch();
        Log().Clear();
    }
    /// Calls of a lookup, up to the viewer that it opens.
    [[nodiscard]] std::vector<std::string> LookupCalls() {
        return Log().LinesOf(
            {"GetView", "MainWindow", "LocatePicture", "LocateIssue", "SelectCheckpoint"});
    }
    /// What the service of this kind answers to queries.
    std::optional<qint32>& QueryStatus() {
        if (GetParam().mode == kModeIssue) {
            return host.questions.query.status;
        }
        return GetParam().mode == kModeBim ? host.pics.bimQuery.status : host.pics.pdfQuery.status;
    }
    [[nodiscard]] qint32 RecordStatus(int row) {
        void* record = Row(row).GetData();
        switch (GetParam().mode) {
        case kModeBim:
            return static_cast<KX_DATA::BimPicRow*>(record)->status;
        case kModePdf:
            return static_cast<KX_DATA::PdfPicRecord*>(record)->status;
        default:
            return static_cast<KX_DATA::IssueRow*>(record)->status;
        }
    }
    [[nodiscard]] bool CallDeleteIds() {
        const std::vector<qint32> ids = {5, 6};
        if (auto* bim = dynamic_cast<CBimPicMng*>(&Manager())) {
            return bim->DeleteIds(9, ids);
        }
        if (auto* pdf = dynamic_cast<CPDFPicMng*>(&Manager())) {
            return pdf->DeleteIds(9, ids);
        }
        return dynamic_cast<CTNPicMng&>(Manager()).DeleteIds(9, ids);
    }
    [[nodiscard]] bool HasPreviewList() {
        return dynamic_cast<CBimPicMng*>(&Manager()) != nullptr ||
               dynamic_cast<CPDFPicMng*>(&Manager()) != nullptr;
    }
};

INSTANTIATE_TEST_SUITE_P(Managers, StrategyTable, testing::ValuesIn(Strategies()),
                         [](const auto& entry) { return entry.param.name; });

TEST_P(StrategyTable, GetSearchHint) {
    OpenKind(0);
    EXPECT_EQ(Manager().GetSearchHint(), GetParam().hint);
}

TEST_P(StrategyTable, InitColumnsInsertsTheKindsColumnsAndAsksForItsRights) {
    FillService(host, GetParam().mode, 0);
    Log().Clear();
    grid = boost::make_shared<CVeskPicMngGrid>();
    grid->SetMode(GetParam().mode);
    EXPECT_EQ(grid->GetColumnCount(), GetParam().mode == kModePdf ? 18 : 17);
    QStringList captions;
    for (const int column : {2, 3, 5, 6, 7, 8}) {
        captions.append(grid->GetColumnCaption(column));
    }
    EXPECT_EQ(captions.join(u'|').toStdString(), GetParam().captions);
    std::string rights;
    for (const std::string& call : Log().LinesOf({"HasRight"})) {
        rights += (rights.empty() ? "" : " ") + call.substr(15, 2);
    }
    EXPECT_EQ(rights, GetParam().rightsAsked);
}

TEST_P(StrategyTable, NotifyChanged) {
    OpenKind(0);
    Manager().NotifyChanged();
    EXPECT_THAT(Log().Lines(), ElementsAre(GetParam().notification));
}

TEST_P(StrategyTable, QueryPageAsksTheKindsServiceAndBuildsRowsOnSuccess) {
    Open(GetParam().mode, 3);
    for (const qint32 result : GetParam().goodResults) {
        QueryStatus() = result;
        Log().Clear();
        Fetch();
        EXPECT_EQ(Log().CountOf(GetParam().query), 1);
        EXPECT_EQ(grid->GetRowCount(), 3) << result;
        EXPECT_EQ(grid->totalCount, 3) << result;
    }
}

TEST_P(StrategyTable, QueryPageBuildsNoRowOnAnyOtherResult) {
    Open(GetParam().mode, 3);
    for (const qint32 result : GetParam().badResults) {
        QueryStatus() = result;
        KX_DATA::PageResult counts;
        EXPECT_FALSE(Manager().QueryPage(toolkit::ImageList(), KX_DATA::PageRequest(), counts));
        EXPECT_EQ(grid->GetRowCount(), 0) << result;
    }
}

TEST_P(StrategyTable, SetRowStatusStoresTheValueInTheRecord) {
    OpenKind();
    Manager().SetRowStatus(Row(1), 42);
    EXPECT_EQ(RecordStatus(0), 0);
    EXPECT_EQ(RecordStatus(1), 42);
    EXPECT_THAT(Log().Lines(), IsEmpty());
}

TEST_P(StrategyTable, SetCheckedStatusGivesTheServiceTheCheckedRowsFromLastToFirst) {
    OpenKind();
    Check({0, 2});
    EXPECT_EQ(Manager().SetCheckedStatus(9, true), CheckedResult::Done);
    EXPECT_THAT(Log().Lines(), ElementsAre(GetParam().setShown));
}

TEST_P(StrategyTable, SetCheckedStatusTellsARefusalAndAnEmptySelection) {
    OpenKind();
    EXPECT_EQ(Manager().SetCheckedStatus(9, false), CheckedResult::NothingChecked);
    EXPECT_THAT(Log().Lines(), IsEmpty());
    Check({0});
    host.script.FailNext(GetParam().setShown.substr(0, GetParam().setShown.find('(')));
    EXPECT_EQ(Manager().SetCheckedStatus(9, false), CheckedResult::Refused);
}

TEST_P(StrategyTable, GetCheckColumn) {
    OpenKind(0);
    EXPECT_EQ(Manager().GetCheckColumn(), 0);
}

TEST_P(StrategyTable, GetRowKeyNamesTheItemByWhatItsServiceKnowsItBy) {
    OpenKind();
    const bool issues = GetParam().mode == kModeIssue;
    EXPECT_EQ(Manager().GetRowKey(Row(1)), issues ? u"q2"_s : u"2"_s);
    EXPECT_EQ(Manager().GetRowPicId(Row(1)), issues ? KX_DATA::kNoPic : 2);
}

TEST_P(StrategyTable, GetStatusColumn) {
    OpenKind(0);
    EXPECT_EQ(Manager().GetStatusColumn(), GetParam().statusColumn);
}

TEST_P(StrategyTable, GetIndexColumn) {
    OpenKind(0);
    EXPECT_EQ(Manager().GetIndexColumn(), 1);
}

TEST_P(StrategyTable, DeleteCheckedDeletesTheCheckedRowsAndWritesTheActionLog) {
    OpenKind();
    Check({0, 2});
    EXPECT_TRUE(Manager().DeleteChecked(9));
    EXPECT_THAT(Log().Lines(), ElementsAre(GetParam().deleteRows, GetParam().deletionLog));
}

TEST_P(StrategyTable, DeleteCheckedPassesAnEmptyListOn) {
    OpenKind();
    EXPECT_TRUE(Manager().DeleteChecked(9));
    const std::string call = Log().Lines().front();
    EXPECT_NE(call.find("ids=[]"), std::string::npos) << call;
}

TEST_P(StrategyTable, DeleteCheckedRefusedWritesNoActionLog) {
    OpenKind();
    Check({0, 2});
    host.script.FailNext(GetParam().deleteRows.substr(0, GetParam().deleteRows.find('(')));
    EXPECT_FALSE(Manager().DeleteChecked(9));
    EXPECT_THAT(Log().Lines(), ElementsAre(GetParam().deleteRows));
}

TEST_P(StrategyTable, DeleteRowAsksAndDeletes) {
    OpenKind();
    prompts.ExpectOkCancel(GetParam().question, true);
    EXPECT_EQ(Manager().DeleteRow(9, Row(1)), DeleteResult::Deleted);
    EXPECT_THAT(Log().Lines(), ElementsAre("AskOkCancel(" + GetParam().question.toStdString() + ")",
                                           GetParam().deleteRow, GetParam().deletionLog));
}

TEST_P(StrategyTable, DeleteRowCancelledCallsNoService) {
    OpenKind();
    prompts.ExpectOkCancel(GetParam().question, false);
    EXPECT_EQ(Manager().DeleteRow(9, Row(1)), DeleteResult::Cancelled);
    EXPECT_EQ(Log().Lines().size(), 1U);
}

TEST_P(StrategyTable, DeleteRowTellsARefusal) {
    OpenKind();
    prompts.ExpectOkCancel(GetParam().question, true);
    host.script.FailNext(GetParam().deleteRow.substr(0, GetParam().deleteRow.find('(')));
    EXPECT_EQ(Manager().DeleteRow(9, Row(1)), DeleteResult::Refused);
    EXPECT_THAT(Log().LinesOf({"WriteActionLog"}), IsEmpty());
}

TEST_P(StrategyTable, DeleteRowOfAPhotoNamesWhatItsCellShows) {
    if (GetParam().mode == kModeIssue) {
        return; // its question names nothing
    }
    OpenKind();
    Row(1).SetText(3, u"另一个名字.jpg"_s);
    prompts.ExpectOkCancel(u"确认删除照片 另一个名字.jpg ？"_s, false);
    EXPECT_EQ(Manager().DeleteRow(9, Row(1)), DeleteResult::Cancelled);
}

TEST_P(StrategyTable, IsViewAffected) {
    OpenKind();
    Check({0});
    EXPECT_EQ(Manager().IsViewAffected(), GetParam().affectsOtherView);
    host.project.drawing = {500, u"一层平面"_s};
    EXPECT_TRUE(Manager().IsViewAffected());
}

TEST_P(StrategyTable, GetUsedMarks) {
    OpenKind(0);
    host.pics.usedBimMarks = {3, 1};
    host.pics.usedPdfMarks = {3, 1};
    host.questions.usedMarks = {3, 1};
    std::vector<qint32> marks;
    EXPECT_TRUE(Manager().GetUsedMarks(marks));
    EXPECT_THAT(marks, ElementsAre(3, 1));
    EXPECT_THAT(Log().Lines(), ElementsAre(GetParam().usedMarks));
    host.script.FailNext(GetParam().usedMarks.substr(0, GetParam().usedMarks.find('(')));
    EXPECT_FALSE(Manager().GetUsedMarks(marks));
}

TEST_P(StrategyTable, GetMinTrackSize) {
    OpenKind(0);
    EXPECT_EQ(Manager().GetMinTrackSize(), GetParam().leastSize);
}

TEST_P(StrategyTable, EditRowGoesUpToItsEditor) {
    OpenKind();
    std::optional<support::ModalVisit> visit;
    if (!GetParam().editorWindow.isEmpty()) {
        visit.emplace(GetParam().editorWindow, [](QWidget& window) { window.close(); });
    }
    EXPECT_FALSE(Manager().EditRow(Row(0)));
    if (visit) {
        EXPECT_TRUE(visit->HasCome());
        EXPECT_EQ(ModuleLog(), QString());
        return;
    }
    if (GetParam().mode == kModePdf) {
        EXPECT_TRUE(CPdfPicEditDlg::Instance().HasWindow());
        return;
    }
    ASSERT_EQ(GetParam().mode, kModeIssue);
    EXPECT_TRUE(CTNPicEditDlg::Instance().Widget()->isVisible());
}

TEST_P(StrategyTable, LocateRowAsksTheViewOfItsKind) {
    OpenKind();
    Manager().LocateRow(Row(0));
    support::RunPendingEvents();
    EXPECT_THAT(LookupCalls(), ElementsAreArray(GetParam().locate));
}

TEST_P(StrategyTable, LocateRowOfAHiddenRow) {
    OpenKind();
    Manager().SetRowStatus(Row(0), 1);
    if (!GetParam().locatesHidden) {
        prompts.ExpectMessage(GetParam().mode == kModeBim
                                  ? u"当前照片状态为隐藏，不支持直接定位！"_s
                                  : u"当前问题状态为隐藏，不支持直接定位！"_s);
    }
    Manager().LocateRow(Row(0));
    support::RunPendingEvents();
    if (GetParam().locatesHidden) {
        EXPECT_THAT(LookupCalls(), ElementsAreArray(GetParam().locate));
    } else {
        // The message, and nothing asked of the view.
        EXPECT_EQ(Log().Lines().size(), 1U);
    }
}

TEST_P(StrategyTable, PreviewRowGoesUpToItsViewer) {
    OpenKind();
    if (GetParam().mode == kModeIssue) {
        Manager().PreviewRow(Row(0));
        EXPECT_TRUE(CTNPicViewWrap::Instance().Widget()->isVisible());
        return;
    }
    const int last = grid->GetRowCount() - 1;
    const support::ModalVisit visit(u"VeskPicViewWrap"_s, [&](QWidget& window) {
        const QString wanted = u"    %1/(1-%1)"_s.arg(last + 1);
        EXPECT_TRUE(window.windowTitle().endsWith(wanted)) << window.windowTitle().toStdString();
        window.close();
    });
    Manager().PreviewRow(Row(last));
    EXPECT_TRUE(visit.HasCome());
    EXPECT_THAT(Log().LinesOf({"LocatePicture", "ShowPdfPicView", "GetBimPicDetail"}), IsEmpty());
}

TEST_P(StrategyTable, PreviewRowNamesThePageOfTheGridAndTheFolderOfItsKind) {
    if (GetParam().mode == kModeIssue) {
        return; // the issue viewer has no pages
    }
    OpenKind();
    Manager().currentPage = 3;
    const support::ModalVisit visit(u"VeskPicViewWrap"_s, [](QWidget& window) {
        EXPECT_TRUE(window.windowTitle().endsWith(u"    62/(61-63)"_s))
            << window.windowTitle().toStdString();
        window.close();
    });
    Manager().PreviewRow(Row(1));
    EXPECT_TRUE(visit.HasCome());
    const bool isBim = GetParam().mode == kModeBim;
    EXPECT_EQ(Log().CountOf("GetPicFolder"), isBim ? 3 : 0);
    EXPECT_EQ(Log().CountOf("GetThumbFolder"), isBim ? 0 : 3);
}

TEST_P(StrategyTable, DeleteIds) {
    OpenKind();
    EXPECT_TRUE(CallDeleteIds());
    EXPECT_THAT(Log().Lines(), ElementsAreArray(GetParam().deleteIds));
}

TEST_P(StrategyTable, TheSecondAddedOperation) {
    OpenKind();
    EXPECT_EQ(HasPreviewList(), GetParam().mode != kModeIssue);
    if (auto* issues = dynamic_cast<CTNPicMng*>(&Manager())) {
        const auto row = grid->CreateRow(17);
        issues->FillRowCells(*row, Issue(7));
        EXPECT_EQ(row->GetItem(3)->GetText(), u"问题7"_s);
    }
}

TEST_P(StrategyTable, CollectCheckedIds) {
    OpenKind();
    Check({0, 2});
    std::vector<qint32> ids;
    switch (GetParam().mode) {
    case kModeBim:
        EXPECT_TRUE(dynamic_cast<CBimPicMng&>(Manager()).CollectCheckedIds(ids));
        EXPECT_THAT(ids, ElementsAre(3, 1));
        break;
    case kModePdf:
        EXPECT_TRUE(dynamic_cast<CPDFPicMng&>(Manager()).CollectCheckedIds(ids));
        EXPECT_THAT(ids, ElementsAre(3, 1));
        break;
    default:
        // Issues are collected by UUID, see SetCheckedStatus.
        EXPECT_FALSE(HasPreviewList());
        break;
    }
}

} // namespace
