#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

/// Pages of the settings, as they stand in their list.
enum SetupPage { Projects, Worksets, People, Marks, Labels, Grid, Drawings };

int RowsOf(const QString& list) {
    const auto* table = Find<QAbstractItemView>(kSetup, list + u"Table"_s);
    return table == nullptr ? -1 : table->model()->rowCount();
}

void ShowPage(TourScript& script, const QString& text, SetupPage page, const QString& seen) {
    script.Do(
        text,
        [page] {
            return hands::ClickCell(Find<QAbstractItemView>(kSetup, u"setupPages"_s), page, 0);
        },
        [seen] { return FindIn(FindWindow(kSetup), seen) != nullptr; });
}

/// As copied from a spreadsheet; the picture is of what would change.
void Paste(TourScript& script, const QString& list, const QString& table, int rows) {
    script.Do(
        u"从剪贴板粘贴一张表：先列出将有的变化"_s,
        [list, table] {
            QApplication::clipboard()->setText(table);
            return hands::Click(FindIn(FindWindow(kSetup), list + u"Paste"_s));
        },
        [] { return FindIn(FindWindow(kSetupPreview), u"setupPreviewTake"_s) != nullptr; });
    script.Picture(kSetupPreview, u"paste-"_s + list);
    script.Do(
        u"采用"_s,
        [] { return hands::Click(FindIn(FindWindow(kSetupPreview), u"setupPreviewTake"_s)); },
        [list, rows] { return FindWindow(kSetupPreview) == nullptr && RowsOf(list) == rows; });
}

void WriteGrid(TourScript& script) {
    ShowPage(script, u"“楼层和轴线”"_s, Grid, u"floorsTable"_s);
    Paste(script, u"floors"_s, u"-1\n1\n2\n3\n"_s, 4);
    script.Do(
        u"X 轴写 1-6，Y 轴写 A-D，在所有楼层相交"_s,
        [] {
            return hands::TypeOver(FindIn(FindWindow(kSetup), u"axesX"_s), u"1-6"_s) &&
                   hands::TypeOver(FindIn(FindWindow(kSetup), u"axesY"_s), u"A-D"_s) &&
                   hands::Click(FindIn(FindWindow(kSetup), u"axesAllFloors"_s)) &&
                   hands::Click(FindIn(FindWindow(kSetup), u"axesCross"_s));
        },
        [] {
            const auto* table = Find<QAbstractItemView>(kSetup, u"axisMatrix"_s);
            return table != nullptr && table->model()->rowCount() == 4 &&
                   table->model()->columnCount() == 6;
        });
    script.Picture(kSetup, u"setup-grid"_s);
}

} // namespace

void WriteSetup(TourScript& script) {
    script.Do(
        u"主窗口 Ctrl+,：设置"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_Comma, Qt::ControlModifier); },
        [] { return FindWindow(kSetup) != nullptr; });
    script.Picture(kSetup, u"setup"_s);
    ShowPage(script, u"“人员”"_s, People, u"peopleTable"_s);
    Paste(script, u"people"_s, u"姓名\t角色\n李娜\t工程师\n赵敏\t查看者\n"_s, 3);
    script.Picture(kSetup, u"setup-people"_s);
    ShowPage(script, u"“标识”"_s, Marks, u"marksTable"_s);
    Paste(script, u"marks"_s, u"名称\t颜色\n质量\t#D32F2F\n安全\t#F57C00\n进度\t#1976D2\n"_s, 3);
    script.Picture(kSetup, u"setup-marks"_s);
    ShowPage(script, u"“标签”"_s, Labels, u"labelsTable"_s);
    Paste(script, u"labels"_s, u"名称\n钢筋\n模板\n渗漏\n"_s, 3);
    WriteGrid(script);
    script.Do(
        u"“保存”：全部一起写入"_s,
        [] { return hands::Click(FindIn(FindWindow(kSetup), u"setupSave"_s)); },
        [] { return !hands::CanReach(FindIn(FindWindow(kSetup), u"setupSave"_s)); });
    script.Picture(kSetup, u"setup-saved"_s);
    script.Do(
        u"关闭设置（Esc）"_s, [] { return hands::PressKey(FindWindow(kSetup), Qt::Key_Escape); },
        [] { return FindWindow(kSetup) == nullptr; });
}

} // namespace tour
