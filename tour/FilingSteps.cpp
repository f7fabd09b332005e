#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QMainWindow>
#include <QMenuBar>
#include <QPixmap>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

constexpr double kLeastPicture = 60;

/// How many stand in the list, 0 once a hint has taken its place; -1 while it isn't open.
int Waiting() {
    if (const auto* list = Find<QAbstractItemView>(kInbox, u"inboxList"_s)) {
        return list->model()->rowCount();
    }
    return FindIn(FindWindow(kInbox), u"inboxHint"_s) == nullptr ? -1 : 0;
}

bool HaveAllPictures() {
    const auto* list = Find<QAbstractItemView>(kInbox, u"inboxList"_s);
    for (int row = 0; list != nullptr && row < list->model()->rowCount(); ++row) {
        const QVariant picture = list->model()->index(row, 0).data(Qt::DecorationRole);
        // Until it comes, a small sign stands there.
        if (picture.value<QPixmap>().deviceIndependentSize().width() < kLeastPicture) {
            return false;
        }
    }
    return list != nullptr;
}

QAbstractItemView* Bars() {
    return Find<QAbstractItemView>(kMain, u"statisticsBars"_s);
}

bool ChooseInQuestion(const QString& box, const QString& entry) {
    return hands::ChooseInCombo(Find<QComboBox>(kBulk, box), entry);
}

bool ShowDock(const QString& title) {
    auto* window = qobject_cast<QMainWindow*>(FindWindow(kMain));
    return window != nullptr && hands::ClickInMenuBar(window->menuBar(), u"视图(V)"_s, title);
}

void FileAll(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"待归档照片：Ctrl+A 全选"_s,
        [] { return hands::PressKey(FindWindow(kInbox), Qt::Key_A, Qt::ControlModifier); },
        [places] {
            return ReadText(FindIn(FindWindow(kInbox), u"inboxCount"_s))
                .endsWith(u"已选 %1 张"_s.arg(places.photoCount));
        });
    script.Do(
        u"Ctrl+Shift+G：归档所选"_s,
        [] {
            return hands::PressKey(FindWindow(kInbox), Qt::Key_G,
                                   Qt::ControlModifier | Qt::ShiftModifier);
        },
        [] { return FindWindow(kBulk) != nullptr; });
    script.Do(
        u"指定楼层、轴线和标识"_s,
        [] {
            return ChooseInQuestion(u"placeCombo"_s, u"指定"_s) &&
                   ChooseInQuestion(u"floorCombo"_s, u"1"_s) &&
                   ChooseInQuestion(u"axisXCombo"_s, u"2"_s) &&
                   ChooseInQuestion(u"axisYCombo"_s, u"B"_s) &&
                   ChooseInQuestion(u"markCombo"_s, u"质量"_s);
        },
        [] { return hands::CanReach(FindIn(FindWindow(kBulk), u"bulkStart"_s)); });
    script.Picture(kBulk, u"bulk-filing"_s);
    script.Do(
        u"“归档”：待归档照片空了"_s,
        [] { return hands::Click(FindIn(FindWindow(kBulk), u"bulkStart"_s)); },
        [] { return FindWindow(kBulk) == nullptr && Waiting() == 0; });
}

} // namespace

void WriteUnplacedImport(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"主窗口 Ctrl+I：导入照片"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_I, Qt::ControlModifier); },
        [] { return FindWindow(kImport) != nullptr; });
    script.Do(
        u"只写文件夹，不选楼层，导入"_s,
        [places] {
            return hands::TypeOver(FindIn(FindWindow(kImport), u"pathsEdit"_s),
                                   places.photoFolder) &&
                   hands::Click(FindIn(FindWindow(kImport), u"importStart"_s));
        },
        [] { return FindWindow(kImportResult) != nullptr; });
    script.Do(
        u"关闭导入结果（Esc）"_s,
        [] { return hands::PressKey(FindWindow(kImportResult), Qt::Key_Escape); },
        [] { return FindWindow(kImportResult) == nullptr; });
    script.Picture(kMain, u"imported"_s);
}

void WriteInbox(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"主窗口 Ctrl+7：待归档照片"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_7, Qt::ControlModifier); },
        [places] { return Waiting() == places.photoCount && HaveAllPictures(); });
    script.Picture(kInbox, u"inbox"_s);
    FileAll(script, places);
    script.Picture(kMain, u"filed"_s);
    script.Do(
        u"消息栏中“撤销”：照片又在待归档中"_s,
        [] { return hands::Click(FindIn(FindWindow(kMain), u"messageAction"_s)); },
        [places] { return Waiting() == places.photoCount; });
    FileAll(script, places);
    script.Picture(kInbox, u"inbox-empty"_s);
    script.Do(
        u"关闭待归档照片（Esc）"_s,
        [] { return hands::PressKey(FindWindow(kInbox), Qt::Key_Escape); },
        [] { return FindWindow(kInbox) == nullptr; });
}

void WriteStatistics(TourScript& script) {
    script.Do(
        u"菜单“视图 / 统计”"_s, [] { return ShowDock(u"统计"_s); },
        [] { return Bars() != nullptr && Bars()->model()->rowCount() > 0; });
    script.Do(
        u"按楼层统计"_s,
        [] {
            return hands::ChooseInCombo(Find<QComboBox>(kMain, u"statisticsGrouping"_s),
                                        u"按楼层"_s);
        },
        [] { return Bars() != nullptr && Bars()->model()->rowCount() > 0; });
    script.Picture(kMain, u"statistics"_s);
    script.Do(
        u"单击一根柱：控制台只列出它所代表的照片"_s,
        [] { return hands::ClickCell(Bars(), Bars()->model()->rowCount() - 1, 0); },
        [] { return ConsoleTotal() > 0; });
    script.Picture(kConsole, u"console-of-bar"_s);
}

void WritePhotoFacts(TourScript& script) {
    script.Do(
        u"菜单“视图 / 照片信息”"_s, [] { return ShowDock(u"照片信息"_s); },
        [] { return FindIn(FindWindow(kMain), u"photoTitle"_s) != nullptr; });
    script.Do(
        u"单击控制台的第一张照片：主窗口列出拍摄时间和相机"_s,
        [] { return hands::ClickCell(ConsoleGrid(), 0, ConsoleColumn(u"照片名称"_s)); },
        [] {
            const auto* table = Find<QAbstractItemView>(kMain, u"photoTable"_s);
            return table != nullptr && table->model()->rowCount() > 0;
        });
    script.Picture(kMain, u"photo-facts"_s);
}

} // namespace tour
