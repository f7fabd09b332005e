#include "hands/Choices.h"
#include "hands/Hands.h"
#include "tour/ConsoleEyes.h"
#include "tour/TourEyes.h"
#include "tour/TourNames.h"
#include "tour/TourScript.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QTreeView>

namespace tour {

using namespace Qt::StringLiterals;

namespace {

const QString kNewName = u"走查改名"_s;

QWidget* EditorControl(const QString& name) {
    return FindIn(FindWindow(kPhotoEditor), name);
}

QComboBox* EditorCombo(const QString& name) {
    return qobject_cast<QComboBox*>(EditorControl(name));
}

bool IsDropped(const QString& name) {
    const QComboBox* combo = EditorCombo(name);
    return combo != nullptr && combo->view()->isVisible() && combo->count() > 1;
}

/// Of a list that is open; the entry that isn't the present one.
bool ChooseOther(const QString& name) {
    const QComboBox* combo = EditorCombo(name);
    return combo != nullptr && hands::ClickCell(combo->view(), combo->currentIndex() == 0 ? 1 : 0,
                                                combo->modelColumn());
}

int LabelCount() {
    const auto* tree = qobject_cast<QTreeView*>(EditorControl(u"labelTree"_s));
    return tree == nullptr ? -1 : tree->model()->rowCount(tree->model()->index(0, 0));
}

bool ClickRowsEdit() {
    return hands::ClickCell(ConsoleGrid(), ConsoleRowWithPlace(), ConsoleColumn(u"编辑"_s));
}

void WriteOpening(TourScript& script) {
    script.Do(u"单击一行的“编辑”：打开编辑窗口"_s, ClickRowsEdit, [] { return LabelCount() > 0; });
    script.Picture(kPhotoEditor, u"editor"_s);
    script.Do(
        u"增加一个标签"_s,
        [] {
            Remembered() = LabelCount();
            return hands::TypeOver(EditorControl(u"newLabelEdit"_s), u"走查新增"_s) &&
                   hands::Click(EditorControl(u"addLabelButton"_s));
        },
        [] { return LabelCount() == Remembered() + 1 && FindWindow(u"balloonTip"_s) != nullptr; });
    script.Picture(kPhotoEditor, u"editor-label"_s);
}

void WritePlace(TourScript& script) {
    script.Do(
        u"打开楼层列表"_s, [] { return hands::Click(EditorControl(u"floorCombo"_s)); },
        [] { return IsDropped(u"floorCombo"_s); });
    script.Picture(kPhotoEditor, u"editor-floors"_s);
    script.Do(
        u"选择另一楼层：轴线随之更新"_s, [] { return ChooseOther(u"floorCombo"_s); },
        [] {
            return EditorCombo(u"axisXCombo"_s)->count() > 1 &&
                   EditorCombo(u"axisYCombo"_s)->count() > 1;
        });
    script.Do(
        u"打开Y轴列表"_s, [] { return hands::Click(EditorControl(u"axisYCombo"_s)); },
        [] { return IsDropped(u"axisYCombo"_s); });
    script.Picture(kPhotoEditor, u"editor-axes"_s);
    script.Do(
        u"选择另一条Y轴"_s, [] { return ChooseOther(u"axisYCombo"_s); },
        [] { return EditorCombo(u"axisYCombo"_s)->currentIndex() == 1; });
}

void WriteSaving(TourScript& script) {
    script.Do(
        u"清空名称再单击“确定”：提示输入名称"_s,
        [] {
            return hands::TypeOver(EditorControl(u"picNameEdit"_s), QString()) &&
                   hands::Click(EditorControl(u"okButton"_s));
        },
        [] { return FindWindow(u"balloonTip"_s) != nullptr; });
    script.Picture(kPhotoEditor, u"editor-refused"_s);
    script.Do(
        u"输入名称，保存：控制台显示新的名称"_s,
        [] {
            return hands::TypeOver(EditorControl(u"picNameEdit"_s), kNewName) &&
                   hands::Click(EditorControl(u"okButton"_s));
        },
        [] {
            return FindWindow(kPhotoEditor) == nullptr &&
                   ConsoleText(0, u"照片名称"_s).startsWith(kNewName) &&
                   ConsoleText(0, u"标签"_s).contains(u"走查新增"_s);
        });
    script.Picture(kConsole, u"console-edited"_s);
}

} // namespace

void WriteEditor(TourScript& script) {
    WriteOpening(script);
    WritePlace(script);
    WriteSaving(script);
}

} // namespace tour
