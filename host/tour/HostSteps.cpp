#include "host/tour/ConsoleEyes.h"
#include "host/tour/TourDriver.h"
#include "host/tour/TourEyes.h"
#include "host/tour/TourNames.h"
#include "host/tour/TourScript.h"

#include <QAbstractItemModel>
#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>

#include <algorithm>

namespace host::tour {

using namespace Qt::StringLiterals;

namespace {

int BinRows() {
    const auto* table = Find<QAbstractItemView>(kBin, u"binTable"_s);
    return table == nullptr ? -1 : table->model()->rowCount();
}

bool ChooseProject(const QString& entry) {
    return ChooseInCombo(Find<QComboBox>(kMain, u"projectChoice"_s), entry);
}

QString ProjectAt(int index) {
    const auto* combo = Find<QComboBox>(kMain, u"projectChoice"_s);
    return combo == nullptr ? QString() : combo->itemText(index);
}

void WriteBin(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+B：回收站列出删除的照片和问题"_s,
        [] { return PressKey(FindWindow(kMain), Qt::Key_B, Qt::ControlModifier); },
        [] { return BinRows() >= 2; });
    script.Picture(kBin, u"19-bin.png"_s);
    script.Do(
        u"选中第一行，单击“恢复所选”"_s,
        [] {
            Remembered() = BinRows();
            return ClickCell(Find<QAbstractItemView>(kBin, u"binTable"_s), 0, 1) &&
                   Click(FindIn(FindWindow(kBin), u"binRestore"_s));
        },
        [] { return BinRows() == Remembered() - 1; });
    script.Do(
        u"全选（Ctrl+A）并恢复其余各项：回收站空了"_s,
        [] {
            QWidget* table = FindIn(FindWindow(kBin), u"binTable"_s);
            return Click(table) && PressKey(table, Qt::Key_A, Qt::ControlModifier) &&
                   Click(FindIn(FindWindow(kBin), u"binRestore"_s));
        },
        [] { return BinRows() == 0; });
    script.Picture(kBin, u"20-bin-empty.png"_s);
    script.Do(
        u"关闭回收站（Esc）"_s, [] { return PressKey(FindWindow(kBin), Qt::Key_Escape); },
        [] { return FindWindow(kBin) == nullptr; });
}

void WriteHelp(TourScript& script) {
    script.Do(
        u"主窗口 F1：快捷键一览"_s, [] { return PressKey(FindWindow(kMain), Qt::Key_F1); },
        [] { return FindWindow(kKeys) != nullptr; });
    script.Picture(kKeys, u"21-keys.png"_s);
    script.Do(
        u"关闭快捷键一览"_s, [] { return PressKey(FindWindow(kKeys), Qt::Key_Escape); },
        [] { return FindWindow(kKeys) == nullptr; });
}

void WriteProjects(TourScript& script) {
    script.Do(
        u"切换到第二个工程"_s, [] { return ChooseProject(ProjectAt(1)); },
        [] { return FindWindow(kMain)->windowTitle().startsWith(ProjectAt(1)); });
    script.Picture(kMain, u"22-other-project.png"_s);
    script.Do(
        u"打开工作集"_s, [] { return ChooseProject(u"工作集"_s); },
        [] { return FindWindow(kMain)->windowTitle().startsWith(u"工作集"_s); });
    script.Do(
        u"工作集中的控制台：有“所属工程”列，没有删除按钮"_s,
        [] { return PressKey(FindWindow(kMain), Qt::Key_1, Qt::ControlModifier); },
        [] {
            return ConsoleTotal() > 0 && ConsoleColumn(u"所属工程"_s) >= 0 &&
                   ConsoleControl(u"deleteButton"_s) == nullptr;
        });
    script.Picture(kConsole, u"23-console-workset.png"_s);
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
    WriteProjects(script);
}

void WriteEnd(TourScript& script) {
    script.Do(
        u"关闭客户端"_s, [] { return CloseWindow(FindWindow(kMain)); },
        [] {
            const QList<QWidget*> windows = QApplication::topLevelWidgets();
            return std::none_of(windows.begin(), windows.end(),
                                [](const QWidget* window) { return window->isVisible(); });
        });
}

} // namespace host::tour
