#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QComboBox>
#include <QMainWindow>
#include <QMenuBar>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

QString LastMessage() {
    return ReadText(FindIn(FindWindow(kMain), u"messageText"_s));
}

bool FillImport(const QString& folder) {
    return hands::TypeOver(FindIn(FindWindow(kImport), u"pathsEdit"_s), folder) &&
           hands::ChooseInCombo(Find<QComboBox>(kImport, u"floorCombo"_s),
                                Find<QComboBox>(kImport, u"floorCombo"_s)->itemText(1)) &&
           hands::ChooseInCombo(Find<QComboBox>(kImport, u"axisXCombo"_s),
                                Find<QComboBox>(kImport, u"axisXCombo"_s)->itemText(1)) &&
           hands::ChooseInCombo(Find<QComboBox>(kImport, u"axisYCombo"_s),
                                Find<QComboBox>(kImport, u"axisYCombo"_s)->itemText(1));
}

void CloseResult(TourScript& script) {
    script.Do(
        u"导入结果：Esc 关闭"_s,
        [] { return hands::PressKey(FindWindow(kImportResult), Qt::Key_Escape); },
        [] { return FindWindow(kImportResult) == nullptr; });
}

} // namespace

void WriteImport(TourScript& script, const TourPlaces& places) {
    script.Do(
        u"菜单“文件 / 导入照片...”"_s,
        [] {
            auto* window = qobject_cast<QMainWindow*>(FindWindow(kMain));
            return window != nullptr &&
                   hands::ClickInMenuBar(window->menuBar(), u"文件(F)"_s, u"导入照片..."_s);
        },
        [] { return FindWindow(kImport) != nullptr; });
    script.Do(
        u"填写文件夹，选择楼层和轴线"_s, [places] { return FillImport(places.photoFolder); },
        [] { return hands::CanReach(FindIn(FindWindow(kImport), u"importStart"_s)); });
    script.Picture(kImport, u"import"_s);
    const QString filed = QString::number(places.photoCount);
    script.Do(
        u"单击“导入”：消息栏给出结果，控制台列出导入的照片"_s,
        [] {
            Remembered() = ConsoleTotal();
            return hands::Click(FindIn(FindWindow(kImport), u"importStart"_s));
        },
        [filed, places] {
            return LastMessage().contains(filed) &&
                   ConsoleTotal() == Remembered() + places.photoCount;
        });
    script.Picture(kImportResult, u"import-result"_s);
    CloseResult(script);
    script.Picture(kMain, u"import-done"_s);
    script.Do(
        u"把同一文件夹拖到主窗口"_s,
        [places] { return hands::DropPaths(FindWindow(kMain), {places.photoFolder}); },
        [] { return FindWindow(kImport) != nullptr; });
    script.Do(
        u"再导入一次：没有重复的照片"_s,
        [] {
            Remembered() = int(LastMessage().size());
            return hands::Click(FindIn(FindWindow(kImport), u"importStart"_s));
        },
        [filed] { return FindWindow(kImport) == nullptr && LastMessage().contains(u" 0 张"_s); });
    CloseResult(script);
    script.Do(
        u"主窗口 Ctrl+M：清除消息"_s,
        [] { return hands::PressKey(FindWindow(kMain), Qt::Key_M, Qt::ControlModifier); },
        [] { return FindIn(FindWindow(kMain), u"messageText"_s) == nullptr; });
}

} // namespace tour
