#include "hands/Choices.h"
#include "hands/Hands.h"
#include "host/services/ServiceSet.h"
#include "host/ui/pick/PickCanvas.h"
#include "host/ui/plan/FloorPlanCanvas.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr int kUploads = 3;
constexpr int kUploadSlowMs = 300;
const QString kFilesQuestion = u"打开"_s;

bool SetUploadsSlow(bool slow) {
    const auto desk = host::TheServices().around.Desk();
    if (desk != nullptr) {
        desk->SetRules({slow ? kUploadSlowMs : 0});
    }
    return desk != nullptr;
}

QWidget* InIssue(const QString& name) {
    return FindIn(FindWindow(kIssueViewer), name);
}

bool ClickTab(int tab) {
    QWidget* tabs = InIssue(u"issueTabs"_s);
    auto* strip = tabs == nullptr ? nullptr : tabs->findChild<QTabBar*>();
    return strip != nullptr && hands::ClickAt(strip, strip->tabRect(tab).center());
}

/// Names of pictures that the walk has downloaded, in quotes.
QString PicturesIn(const QString& folder) {
    QStringList names;
    for (const QString& name : QDir(folder).entryList({u"*.jpg"_s}, QDir::Files)) {
        if (names.size() < kUploads) {
            names << u"\"%1\""_s.arg(QDir(folder).filePath(name));
        }
    }
    return names.join(u' ');
}

/// True once the dialog is gone: the first click may only shut its list of proposals.
bool AcceptFiles() {
    const auto* buttons = Find<QDialogButtonBox>(kFilesQuestion, u"buttonBox"_s);
    if (buttons == nullptr) {
        return FindWindow(kFilesQuestion) == nullptr;
    }
    hands::Click(buttons->button(QDialogButtonBox::Open));
    return false;
}

host::PickCanvas* Picking() {
    return Find<host::PickCanvas>(kMain, u"pickCanvas"_s);
}

bool ClickComponent() {
    host::PickCanvas* canvas = Picking();
    for (const host::FlagBox& box : canvas->Boxes().boxes) {
        const QPoint place = box.rect.center().toPoint();
        if (box.flag >= 0 && canvas->visibleRegion().contains(place)) {
            return hands::ClickAt(canvas, place);
        }
    }
    return false;
}

void WriteIssue(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+3：TN问题"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_3, Qt::ControlModifier); },
        [] { return ConsoleTotal() > 0 && ConsoleColumn(u"问题主题"_s) >= 0; });
    script.Do(
        u"单击第一行的“反查”：控制台让位，问题在平面图上闪烁并打开"_s,
        [] { return hands::ClickCell(ConsoleGrid(), 0, ConsoleColumn(u"反查"_s)); },
        [] { return ShowsPhoto(InIssue(u"questionPage"_s), 0.35, 0.35); });
    script.Picture(kIssueViewer, u"issue"_s);
}

void WriteUpload(TourScript& script, const QString& pictures) {
    script.Do(
        u"单击“整改情况”"_s, [] { return ClickTab(1); },
        [] { return InIssue(u"rectifyPage"_s) != nullptr; });
    script.Do(
        u"单击“上传图片”"_s,
        [] { return SetUploadsSlow(true) && hands::Click(InIssue(u"uploadButton"_s)); },
        [] { return FindIn(FindWindow(kFilesQuestion), u"fileNameEdit"_s) != nullptr; });
    script.Do(
        u"输入三张照片"_s,
        [pictures] {
            return hands::TypeOver(FindIn(FindWindow(kFilesQuestion), u"fileNameEdit"_s),
                                   PicturesIn(pictures));
        },
        nullptr);
    script.Do(u"确定：照片在后台上传，下方显示进度"_s, AcceptFiles,
              [] { return FindWindow(u"progressStrip"_s) != nullptr; });
    script.Picture(u"progressStrip"_s, u"upload-progress"_s);
    script.Do(u"上传完成"_s, nullptr, [] { return MessageBoxText() == u"上传完成!"_s; });
    script.Do(
        u"回答“确定”：整改情况里有了新照片"_s, [] { return AnswerMessageBox(u"确定"_s); },
        [] { return ShowsPhoto(InIssue(u"rectifyPage"_s), 0.35, 0.35) && SetUploadsSlow(false); });
    script.Picture(kIssueViewer, u"rectification"_s);
    script.Do(
        u"单击“编辑”：整改情况与说明"_s,
        [] { return hands::Click(FindIn(InIssue(u"rectifyPage"_s), u"editButton"_s)); },
        [] { return FindWindow(kRectifyEditor) != nullptr; });
    script.Picture(kRectifyEditor, u"rectify-editor"_s);
    script.Do(
        u"取消"_s,
        [] { return hands::Click(FindIn(FindWindow(kRectifyEditor), u"cancelButton"_s)); },
        [] { return FindWindow(kRectifyEditor) == nullptr; });
    WriteReport(script, kIssueViewer, u"report-issue"_s);
    WriteReportEnd(script);
}

void WriteEditing(TourScript& script) {
    script.Do(
        u"回到“问题描述”，单击“编辑”"_s,
        [] {
            return ClickTab(0) && hands::Click(FindIn(InIssue(u"questionPage"_s), u"editButton"_s));
        },
        [] { return FindWindow(kIssueEditor) != nullptr; });
    script.Picture(kIssueEditor, u"issue-editor"_s);
    script.Do(
        u"单击“更改”：窗口让开，在平面图上选择构件"_s,
        [] { return hands::Click(FindIn(FindWindow(kIssueEditor), u"changeButton"_s)); },
        [] { return Picking() != nullptr && !Picking()->Components().empty(); });
    script.Do(u"单击一个构件"_s, ClickComponent,
              [] { return !ReadText(FindIn(FindWindow(kMain), u"pickedText"_s)).isEmpty(); });
    script.Picture(kMain, u"component-pick"_s);
    script.Do(
        u"按回车完成：编辑窗口带着新构件回来"_s,
        [] { return hands::PressKey(Picking(), Qt::Key_Return, Qt::NoModifier); },
        [] { return FindWindow(kIssueEditor) != nullptr; });
    script.Do(
        u"单击“确定”：问题已保存"_s,
        [] { return hands::Click(FindIn(FindWindow(kIssueEditor), u"okButton"_s)); },
        [] { return FindWindow(kIssueEditor) == nullptr; });
    script.Do(
        u"关闭问题窗口：控制台回来"_s, [] { return hands::CloseWindow(FindWindow(kIssueViewer)); },
        [] { return FindWindow(kIssueViewer) == nullptr && ConsoleTotal() > 0; });
    script.Do(
        u"关闭控制台"_s, [] { return hands::CloseWindow(Console()); },
        [] { return Console() == nullptr; });
}

host::FloorPlanCanvas* IssuePlan() {
    return Find<host::FloorPlanCanvas>(kMain, u"floorPlanCanvas"_s);
}

/// A flag of one issue alone; a null point: there is none in sight.
QPoint SingleIssueFlag() {
    const host::FloorPlanCanvas* plan = IssuePlan();
    for (const host::FlagBox& box : plan->FlagsLayout().boxes) {
        const bool isAlone = box.flag >= 0;
        if (isAlone && plan->Flags()[size_t(box.flag)].flag.kind == host::MarkKind::Issues) {
            return box.rect.center().toPoint();
        }
    }
    return {};
}

QMenu* MenuOfIssue() {
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

void WriteCode(TourScript& script) {
    script.Do(
        u"在问题的标识上单击右键"_s,
        [] {
            const QPoint flag = SingleIssueFlag();
            return !flag.isNull() && hands::ClickAt(IssuePlan(), flag, Qt::RightButton);
        },
        [] { return MenuOfIssue() != nullptr; });
    script.Do(
        u"单击“问题信息…”：二维码和修改记录"_s,
        [] { return hands::ClickInMenu(MenuOfIssue(), u"问题信息…"_s); },
        [] { return FindWindow(kIssueWindow) != nullptr; });
    script.Picture(kIssueWindow, u"issue-code"_s);
    script.Do(
        u"关闭问题信息"_s, [] { return hands::CloseWindow(FindWindow(kIssueWindow)); },
        [] { return FindWindow(kIssueWindow) == nullptr; });
}

} // namespace

void WriteIssueWindows(TourScript& script, const TourPlaces& places) {
    WriteIssue(script);
    WriteUpload(script, places.downloadFolder);
    WriteEditing(script);
    WriteCode(script);
}

} // namespace tour
