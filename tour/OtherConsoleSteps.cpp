#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QWidget>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

bool PressInMain(Qt::Key key) {
    return hands::PressKey(FindWindow(kMain), key, Qt::ControlModifier);
}

void WriteDrawings(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+2：控制台列出图纸照片"_s, [] { return PressInMain(Qt::Key_2); },
        [] { return ConsoleTotal() > 0 && ConsoleColumn(u"图纸"_s) >= 0; });
    script.Picture(kConsole, u"console-drawings"_s);
    script.Do(
        u"单击一行的“预览”：逐张查看本页照片"_s,
        [] { return hands::ClickCell(ConsoleGrid(), 1, ConsoleColumn(u"预览"_s)); },
        [] {
            return FindWindow(kPreview) != nullptr &&
                   FindWindow(kPreview)->windowTitle().contains(u"    2/(1-"_s);
        });
    script.Do(
        u"按右方向键：下一张"_s,
        [] { return hands::PressKey(FindWindow(kPreview), Qt::Key_Right); },
        [] {
            return FindWindow(kPreview)->windowTitle().contains(u"    3/(1-"_s) &&
                   ShowsPhoto(FindWindow(kPreview), 0.35, 0.2);
        });
    script.Picture(kPreview, u"preview"_s);
    script.Do(
        u"关闭预览"_s, [] { return hands::CloseWindow(FindWindow(kPreview)); },
        [] { return FindWindow(kPreview) == nullptr; });
    script.Do(
        u"主窗口 Ctrl+6：只列出当前图纸的照片"_s,
        [] {
            Remembered() = ConsoleTotal();
            return PressInMain(Qt::Key_6);
        },
        [] {
            return ConsoleTotal() > 0 && ConsoleTotal() < Remembered() &&
                   ConsoleRowsWith(u"图纸"_s, ConsoleText(0, u"图纸"_s)) == ConsoleRows();
        });
    script.Do(
        u"单击“BIM模型照片”切换，再切回图纸照片"_s,
        [] {
            return hands::Click(ConsoleControl(u"bimRadio"_s)) && ConsoleColumn(u"图纸"_s) < 0 &&
                   hands::Click(ConsoleControl(u"pdfRadio"_s));
        },
        [] { return ConsoleColumn(u"图纸"_s) >= 0 && ConsoleTotal() == Remembered(); });
}

void WriteIssues(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+3：控制台列出TN问题"_s, [] { return PressInMain(Qt::Key_3); },
        [] {
            return ConsoleTotal() > 0 && Console()->windowTitle() == u"TN问题管理"_s &&
                   ConsoleColumn(u"问题主题"_s) >= 0;
        });
    script.Picture(kConsole, u"console-issues"_s);
    script.Do(
        u"勾选第一个问题，单击“删除”"_s,
        [] {
            Remembered() = ConsoleTotal();
            return ClickConsoleCheck(0) && hands::Click(ConsoleControl(u"deleteButton"_s));
        },
        [] { return MessageBoxText() == u"确认删除该问题和所附照片吗 ？"_s; });
    script.Do(
        u"回答“确定”：少了一个问题"_s, [] { return AnswerMessageBox(u"确定"_s); },
        [] { return ConsoleTotal() == Remembered() - 1; });
    script.Do(
        u"主窗口 Ctrl+5：只列出本楼层的TN问题"_s,
        [] {
            Remembered() = ConsoleTotal();
            return PressInMain(Qt::Key_5);
        },
        [] { return ConsoleTotal() >= 0 && ConsoleTotal() < Remembered(); });
    script.Do(
        u"关闭控制台"_s, [] { return hands::CloseWindow(Console()); },
        [] { return Console() == nullptr; });
}

} // namespace

void WriteOtherConsoles(TourScript& script) {
    WriteDrawings(script);
    WriteIssues(script);
}

} // namespace tour
