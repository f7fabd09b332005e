#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/ui/drawing/DrawingPane.h"
#include "services/Factories.h"
#include "services/IPDFDrawingMng.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QPlainTextEdit>
#include <QWidget>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

host::DrawingPane* Drawing() {
    return Find<host::DrawingPane>(kMain, u"drawingPane"_s);
}

/// Everything in sight is there, flags included.
bool ShowsDrawing() {
    const host::DrawingPane* pane = Drawing();
    return pane != nullptr && pane->Store().IsComplete() && !pane->Canvas().Flags().empty();
}

bool PressOnMain(Qt::Key key) {
    return hands::PressKey(FindWindow(kMain), key, Qt::ControlModifier);
}

int CommentsOn(qint32 point) {
    std::vector<KX_DATA::CheckpointComment> comments;
    GetPDFDrawingMng()->GetComments(point, 0, KX_DATA::kCommentPageSize, comments);
    return int(comments.size());
}

/// A checkpoint in sight with photos, the one with most comments; 0: none.
qint32 TalkedOfPoint() {
    const host::DrawingCanvas& canvas = Drawing()->Canvas();
    qint32 best = 0;
    int most = -1;
    for (const host::SheetFlag& flag : canvas.Flags()) {
        const bool isSeen = QRectF(canvas.rect()).contains(canvas.RectOf(flag.pointId));
        const int comments = isSeen && flag.photos > 0 ? CommentsOn(flag.pointId) : -1;
        if (comments > most) {
            most = comments;
            best = flag.pointId;
        }
    }
    return best;
}

/// On what no other flag covers.
bool ClickFlag(qint32 point) {
    host::DrawingCanvas& canvas = Drawing()->Canvas();
    const QPointF place = canvas.RectOf(point).center();
    return canvas.PointUnder(place) == point && hands::ClickAt(&canvas, place.toPoint());
}

/// Any checkpoint that a click reaches; not the first one, which a photo may have already.
bool ClickOtherFlag() {
    const std::vector<host::SheetFlag> flags = Drawing()->Canvas().Flags();
    for (auto flag = flags.rbegin(); flag != flags.rend(); ++flag) {
        if (ClickFlag(flag->pointId)) {
            return true;
        }
    }
    return false;
}

bool DoubleClickBesideFlag() {
    host::DrawingCanvas& canvas = Drawing()->Canvas();
    const QPointF place = canvas.RectOf(TalkedOfPoint()).center() - QPointF(60, 30);
    return canvas.PointUnder(place) == 0 && hands::DoubleClickAt(&canvas, place.toPoint());
}

QWidget* InCheckpoint(const QString& name) {
    return FindIn(FindWindow(kCheckpointViewer), name);
}

int CommentRows() {
    const auto* list = qobject_cast<QAbstractItemView*>(InCheckpoint(u"commentList"_s));
    return list == nullptr ? -1 : list->model()->rowCount();
}

/// The picture has arrived: its middle is no longer the colour of the empty pane.
bool ShowsCheckpoint() {
    QWidget* viewer = FindWindow(kCheckpointViewer);
    if (viewer == nullptr || CommentRows() < 0) {
        return false;
    }
    return ShowsPhoto(viewer, 0.4, 0.4);
}

void WriteSheet(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+D：图纸和它的检查点"_s, [] { return PressOnMain(Qt::Key_D); }, ShowsDrawing);
    script.Picture(kMain, u"drawing"_s);
    script.Do(u"在一个检查点旁双击：放大一倍"_s, DoubleClickBesideFlag, ShowsDrawing);
    script.Do(
        u"单击“放大”"_s, [] { return hands::Click(FindIn(FindWindow(kMain), u"zoomIn"_s)); },
        ShowsDrawing);
    script.Picture(kMain, u"drawing-near"_s);
    script.Do(
        u"单击“显示整张图纸”"_s,
        [] { return hands::Click(FindIn(FindWindow(kMain), u"fitSheet"_s)); }, ShowsDrawing);
}

void WriteCheckpoint(TourScript& script) {
    script.Do(
        u"单击一个检查点：它的查看窗口打开"_s, [] { return ClickFlag(TalkedOfPoint()); },
        ShowsCheckpoint);
    script.Picture(kCheckpointViewer, u"checkpoint"_s);
    script.Do(
        u"写一条评论"_s,
        [] {
            Remembered() = CommentRows();
            return hands::TypeOver(InCheckpoint(u"commentEdit"_s),
                                   u"已通知分包单位，明天上午复查。"_s);
        },
        [] {
            const auto* box = qobject_cast<QPlainTextEdit*>(InCheckpoint(u"commentEdit"_s));
            return box != nullptr && !box->toPlainText().isEmpty();
        });
    script.Picture(kCheckpointViewer, u"checkpoint-writing"_s);
    script.Do(
        u"单击“发表”：评论在列表最后"_s, [] { return hands::Click(InCheckpoint(u"sendButton"_s)); },
        [] { return CommentRows() == Remembered() + 1; });
    script.Picture(kCheckpointViewer, u"checkpoint-commented"_s);
    WriteReport(script, kCheckpointViewer, u"report-drawing"_s);
    WriteReportEnd(script);
}

void WriteCheckpointEditor(TourScript& script) {
    script.Do(
        u"单击“编辑”：检查点的编辑窗口"_s,
        [] { return hands::Click(InCheckpoint(u"editButton"_s)); },
        [] { return FindWindow(kCheckpointEditor) != nullptr; });
    script.Picture(kCheckpointEditor, u"checkpoint-editor"_s);
    script.Do(
        u"放弃修改"_s,
        [] { return hands::Click(FindIn(FindWindow(kCheckpointEditor), u"cancelButton"_s)); },
        [] { return FindWindow(kCheckpointEditor) == nullptr; });
    script.Do(
        u"关闭查看窗口"_s, [] { return hands::CloseWindow(FindWindow(kCheckpointViewer)); },
        [] { return FindWindow(kCheckpointViewer) == nullptr; });
}

void WritePick(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+2：图纸照片"_s, [] { return PressOnMain(Qt::Key_2); },
        [] { return ConsoleTotal() > 0 && ConsoleColumn(u"图纸"_s) >= 0; });
    script.Do(
        u"单击第一行的“编辑”：控制台让位给编辑窗口"_s,
        [] { return hands::ClickCell(ConsoleGrid(), 0, ConsoleColumn(u"编辑"_s)); },
        [] { return FindWindow(kDrawingEditor) != nullptr && Console() == nullptr; });
    script.Picture(kDrawingEditor, u"drawing-editor"_s);
    script.Do(
        u"单击“更改插入点”：图纸在前，说明要做什么"_s,
        [] { return hands::Click(FindIn(FindWindow(kDrawingEditor), u"pickButton"_s)); },
        [] { return ShowsDrawing() && !Drawing()->Hint().isEmpty(); });
    script.Picture(kMain, u"drawing-pick"_s);
    script.Do(u"单击另一个检查点：编辑窗口回来"_s, ClickOtherFlag,
              [] { return FindWindow(kDrawingEditor) != nullptr; });
    script.Picture(kDrawingEditor, u"drawing-editor-picked"_s);
    script.Do(
        u"单击“确定”：控制台回来"_s,
        [] { return hands::Click(FindIn(FindWindow(kDrawingEditor), u"okButton"_s)); },
        [] { return FindWindow(kDrawingEditor) == nullptr && ConsoleTotal() > 0; });
    script.Do(
        u"关闭控制台"_s, [] { return hands::CloseWindow(Console()); },
        [] { return Console() == nullptr; });
    script.Do(
        u"主窗口 Ctrl+P：回到平面图"_s, [] { return PressOnMain(Qt::Key_P); },
        [] { return FindIn(FindWindow(kMain), u"floorPlanCanvas"_s) != nullptr; });
}

} // namespace

void WriteDrawingView(TourScript& script) {
    WriteSheet(script);
    WriteCheckpoint(script);
    WriteCheckpointEditor(script);
    WritePick(script);
}

} // namespace tour
