#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QMenu>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

/// What one step leaves for the next.
struct BimNotes {
    int total = 0;
    QString keyword;
    QString state;
    QString page;
};

BimNotes& Notes() {
    static BimNotes notes;
    return notes;
}

bool ClickSearch() {
    return hands::Click(ConsoleControl(u"searchButton"_s));
}

/// Two characters that stand in the first description of the page.
QString KeywordOfPage() {
    for (int row = 0; row < ConsoleRows(); ++row) {
        const QString text = ConsoleText(row, u"描述"_s);
        if (text.size() >= 2) {
            return text.left(2);
        }
    }
    return {};
}

void WriteSearch(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+1：控制台列出全部BIM照片"_s,
        [] {
            Notes().total = ConsoleTotal();
            return hands::PressKey(FindWindow(kMain), Qt::Key_1, Qt::ControlModifier);
        },
        [] { return ConsoleTotal() > Notes().total && ConsoleRows() > 20; });
    script.Picture(kConsole, u"console-bim"_s);
    script.Do(
        u"输入关键字并单击“搜索”"_s,
        [] {
            Notes().total = ConsoleTotal();
            Notes().keyword = KeywordOfPage();
            return !Notes().keyword.isEmpty() &&
                   hands::TypeOver(ConsoleControl(u"keywordCombo"_s), Notes().keyword) &&
                   ClickSearch();
        },
        [] { return ConsoleTotal() > 0 && ConsoleTotal() < Notes().total; });
    script.Picture(kConsole, u"console-keyword"_s);
    script.Do(
        u"清空关键字再搜索"_s,
        [] {
            return hands::TypeOver(ConsoleControl(u"keywordCombo"_s), QString()) && ClickSearch();
        },
        [] { return ConsoleTotal() == Notes().total; });
}

void WriteFilters(TourScript& script) {
    script.Do(
        u"按整改情况筛选"_s,
        [] {
            const auto* combo = qobject_cast<QComboBox*>(ConsoleControl(u"statusCombo"_s));
            Notes().state = combo == nullptr ? QString() : combo->itemText(1);
            return !Notes().state.isEmpty() && ChooseInConsole(u"statusCombo"_s, Notes().state);
        },
        [] {
            return ConsoleTotal() < Notes().total && ConsoleRows() > 0 &&
                   ConsoleRowsWith(u"整改情况"_s, Notes().state) == ConsoleRows();
        });
    script.Picture(kConsole, u"console-state"_s);
    script.Do(
        u"整改情况改回“全部状态”"_s,
        [] { return ChooseInConsole(u"statusCombo"_s, u"全部状态"_s); },
        [] { return ConsoleTotal() == Notes().total; });
    script.Do(
        u"打开标识下拉列表"_s, [] { return hands::Click(ConsoleControl(u"markCombo"_s)); },
        [] {
            const auto* combo = qobject_cast<QComboBox*>(ConsoleControl(u"markCombo"_s));
            return combo->view()->isVisible() && combo->count() > 1;
        });
    script.Picture(kConsole, u"console-marks"_s);
    script.Do(
        u"选择一个标识"_s,
        [] {
            const auto* combo = qobject_cast<QComboBox*>(ConsoleControl(u"markCombo"_s));
            return hands::ClickCell(combo->view(), 1, combo->modelColumn());
        },
        [] { return ConsoleTotal() > 0 && ConsoleTotal() < Notes().total; });
    script.Do(
        u"标识改回“全部标识”"_s, [] { return ChooseInConsole(u"markCombo"_s, u"全部标识"_s); },
        [] { return ConsoleTotal() == Notes().total; });
}

void WriteOrderAndPages(TourScript& script) {
    const QString name = u"照片名称"_s;
    script.Do(
        u"单击表头“照片名称”：升序"_s, [name] { return ClickConsoleHeader(name); },
        [name] { return ConsoleColumnSorted(name, true); });
    script.Do(
        u"再次单击表头：降序"_s, [name] { return ClickConsoleHeader(name); },
        [name] { return ConsoleColumnSorted(name, false); });
    script.Do(
        u"下一页"_s,
        [name] {
            Notes().total = ConsoleTotal();
            Notes().page = ConsoleText(0, name);
            return hands::Click(ConsoleControl(u"pagingNext"_s));
        },
        [name] { return ConsolePage() == 2 && ConsoleText(0, name) != Notes().page; });
    script.Picture(kConsole, u"console-page-2"_s);
    script.Do(
        u"F5 重新读取，仍在第 2 页"_s, [] { return hands::PressKey(Console(), Qt::Key_F5); },
        [name] { return ConsolePage() == 2 && ConsoleRows() == std::min(30, Notes().total - 30); });
    script.Do(
        u"回到首页"_s, [] { return hands::Click(ConsoleControl(u"pagingFirst"_s)); },
        [name] { return ConsolePage() == 1 && ConsoleText(0, name) == Notes().page; });
}

void WriteShowAndHide(TourScript& script) {
    script.Do(
        u"没有勾选就单击“隐藏”，出现提示"_s,
        [] { return hands::Click(ConsoleControl(u"hideButton"_s)); },
        [] { return FindWindow(u"balloonTip"_s) != nullptr; });
    script.Picture(kConsole, u"console-balloon"_s);
    script.Do(
        u"勾选前两行"_s, [] { return ClickConsoleCheck(0) && ClickConsoleCheck(1); },
        [] { return ConsoleCheckedRows() == 2; });
    script.Do(
        u"隐藏勾选的照片"_s, [] { return hands::Click(ConsoleControl(u"hideButton"_s)); },
        [] {
            return ConsoleText(0, u"状态"_s) == u"隐藏"_s && ConsoleText(1, u"状态"_s) == u"隐藏"_s;
        });
    script.Picture(kConsole, u"console-hidden"_s);
    script.Do(
        u"再次显示"_s, [] { return hands::Click(ConsoleControl(u"showButton"_s)); },
        [] {
            return ConsoleText(0, u"状态"_s) == u"显示"_s && ConsoleText(1, u"状态"_s) == u"显示"_s;
        });
}

void WriteDelete(TourScript& script) {
    script.Do(
        u"F5 刷新后勾选第一行，单击“删除”，出现询问"_s,
        [] {
            return hands::PressKey(Console(), Qt::Key_F5) && ConsoleCheckedRows() == 0 &&
                   ClickConsoleCheck(0) && hands::Click(ConsoleControl(u"deleteButton"_s));
        },
        [] { return MessageBoxText() == u"确认删除所选的照片？"_s; });
    script.Picture(OpenMessageBox, u"console-question"_s);
    script.Do(
        u"回答“取消”：什么也没有删除"_s, [] { return AnswerMessageBox(u"取消"_s); },
        [] { return OpenMessageBox() == nullptr && ConsoleTotal() == Notes().total; });
    script.Do(
        u"再次单击“删除”"_s, [] { return hands::Click(ConsoleControl(u"deleteButton"_s)); },
        [] { return OpenMessageBox() != nullptr; });
    script.Do(
        u"回答“确定”：少了一张照片，操作记录多了一行"_s, [] { return AnswerMessageBox(u"确定"_s); },
        [] {
            const auto* log = Find<QAbstractItemView>(kMain, u"actionLogTable"_s);
            return ConsoleTotal() == Notes().total - 1 && log != nullptr &&
                   log->model()->index(0, 2).data().toString() == u"删除Vesk照片"_s;
        });
}

void WriteRowMenu(TourScript& script) {
    script.Do(
        u"在有位置的一行上单击右键，出现菜单"_s, [] { return OpenRowMenu(ConsoleRowWithPlace()); },
        [] { return Console()->findChild<QMenu*>() != nullptr; });
    script.Picture(kConsole, u"console-row-menu"_s);
    script.Do(
        u"菜单中选择“反查”：主窗口定位到照片"_s,
        [] { return hands::ClickInMenu(Console()->findChild<QMenu*>(), u"反查"_s); },
        [] {
            return ReadText(FindIn(FindWindow(kMain), u"mainStatus"_s)).startsWith(u"定位照片"_s);
        });
    script.Picture(kMain, u"main-located"_s);
    script.Do(
        u"关闭照片查看窗口"_s, [] { return hands::CloseWindow(FindWindow(kPhotoViewer)); },
        [] { return FindWindow(kPhotoViewer) == nullptr; });
    script.Do(
        u"关闭控制台"_s, [] { return hands::CloseWindow(Console()); },
        [] { return Console() == nullptr; });
}

} // namespace

void WriteBimSearch(TourScript& script) {
    WriteSearch(script);
    WriteFilters(script);
}

void WriteBimActions(TourScript& script) {
    WriteOrderAndPages(script);
    WriteShowAndHide(script);
    WriteDelete(script);
    WriteRowMenu(script);
}

} // namespace tour
