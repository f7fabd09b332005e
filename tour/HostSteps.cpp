#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QMainWindow>
#include <QMenuBar>

#include <algorithm>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

int BinRows() {
    const auto* table = Find<QAbstractItemView>(kBin, u"binTable"_s);
    return table == nullptr ? -1 : table->model()->rowCount();
}

bool ChooseProject(const QString& entry) {
    return hands::ChooseInCombo(Find<QComboBox>(kMain, u"projectChoice"_s), entry);
}

QString ProjectAt(int index) {
    const auto* combo = Find<QComboBox>(kMain, u"projectChoice"_s);
    return combo == nullptr ? QString() : combo->itemText(index);
}

void WriteBin(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+B：回收站列出删除的照片和问题"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_B, Qt::ControlModifier); },
        [] { return BinRows() >= 2; });
    script.Picture(kBin, u"bin"_s);
    script.Do(
        u"选中第一行，单击“恢复所选”"_s,
        [] {
            Remembered() = BinRows();
            return hands::ClickCell(Find<QAbstractItemView>(kBin, u"binTable"_s), 0, 1) &&
                   hands::Click(FindIn(FindWindow(kBin), u"binRestore"_s));
        },
        [] { return BinRows() == Remembered() - 1; });
    script.Do(
        u"全选（Ctrl+A）并恢复其余各项：回收站空了"_s,
        [] {
            QWidget* table = FindIn(FindWindow(kBin), u"binTable"_s);
            return hands::Click(table) && hands::PressKey(table, Qt::Key_A, Qt::ControlModifier) &&
                   hands::Click(FindIn(FindWindow(kBin), u"binRestore"_s));
        },
        [] { return BinRows() == 0; });
    script.Picture(kBin, u"bin-empty"_s);
    script.Do(
        u"关闭回收站（Esc）"_s, [] { return hands::PressKey(FindWindow(kBin), Qt::Key_Escape); },
        [] { return FindWindow(kBin) == nullptr; });
}

void WriteHelp(TourScript& script) {
    script.Do(
        u"主窗口 F1：快捷键一览"_s, [] { return hands::PressKey(FindWindow(kMain), Qt::Key_F1); },
        [] { return FindWindow(kKeys) != nullptr; });
    script.Picture(kKeys, u"keys"_s);
    script.Do(
        u"关闭快捷键一览"_s, [] { return hands::PressKey(FindWindow(kKeys), Qt::Key_Escape); },
        [] { return FindWindow(kKeys) == nullptr; });
}

void WriteAbout(TourScript& script) {
    script.Do(
        u"菜单“帮助 / 关于”"_s,
        [] {
            auto* window = qobject_cast<QMainWindow*>(FindWindow(kMain));
            return window != nullptr &&
                   hands::ClickInMenuBar(window->menuBar(), u"帮助(H)"_s, u"关于"_s);
        },
        [] { return FindWindow(kAbout) != nullptr; });
    script.Picture(kAbout, u"about"_s);
    script.Do(
        u"关闭“关于”"_s, [] { return hands::PressKey(FindWindow(kAbout), Qt::Key_Escape); },
        [] { return FindWindow(kAbout) == nullptr; });
}

void WriteNewProject(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+N：新建工程"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_N, Qt::ControlModifier); },
        [] { return FindWindow(kNewProject) != nullptr; });
    script.Do(
        u"名称与已有的工程相同：不接受"_s,
        [] {
            return hands::TypeOver(FindIn(FindWindow(kNewProject), u"projectName"_s), ProjectAt(0));
        },
        [] { return !ReadText(FindIn(FindWindow(kNewProject), u"projectNameNote"_s)).isEmpty(); });
    script.Picture(kNewProject, u"new-project"_s);
    script.Do(
        u"放弃新建"_s, [] { return hands::PressKey(FindWindow(kNewProject), Qt::Key_Escape); },
        [] { return FindWindow(kNewProject) == nullptr; });
}

void WriteProjects(TourScript& script) {
    script.Do(
        u"切换到第二个工程"_s, [] { return ChooseProject(ProjectAt(1)); },
        [] { return FindWindow(kMain)->windowTitle().startsWith(ProjectAt(1)); });
    script.Picture(kMain, u"other-project"_s);
    script.Do(
        u"打开工作集"_s, [] { return ChooseProject(u"工作集"_s); },
        [] { return FindWindow(kMain)->windowTitle().startsWith(u"工作集"_s); });
    script.Picture(kMain, u"main-workset"_s);
    script.Do(
        u"工作集中的控制台：有“所属工程”列，没有删除按钮"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_1, Qt::ControlModifier); },
        [] {
            return ConsoleTotal() > 0 && ConsoleColumn(u"所属工程"_s) >= 0 &&
                   ConsoleControl(u"deleteButton"_s) == nullptr;
        });
    script.Picture(kConsole, u"console-workset"_s);
    script.Do(
        u"换回第一个工程：控制台随之关闭"_s, [] { return ChooseProject(ProjectAt(0)); },
        [] {
            return Console() == nullptr &&
                   FindWindow(kMain)->windowTitle().startsWith(ProjectAt(0));
        });
}

} // namespace

void WriteHostWindows(TourScript& script) {
    WriteBin(script);
    WriteHelp(script);
    WriteAbout(script);
    WriteNewProject(script);
    WriteProjects(script);
}

void WriteEnd(TourScript& script) {
    script.Do(
        u"关闭客户端"_s, [] { return hands::CloseWindow(FindWindow(kMain)); },
        [] {
            const QList<QWidget*> windows = QApplication::topLevelWidgets();
            return std::none_of(windows.begin(), windows.end(),
                                [](const QWidget* window) { return window->isVisible(); });
        });
}

} // namespace tour
