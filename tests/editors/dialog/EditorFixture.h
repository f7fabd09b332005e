// The editor of a BIM photo in its window, worked with mouse and keys.
#pragma once

#include "editors/BimPicEditDlg.h"
#include "tests/console/ModuleFixture.h"
#include "tests/console/SampleRecords.h"
#include "tests/support/Hands.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/TreeCtrl3StateBase.h"

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QtTest/QTest>

/// Services: floors 1 to 3, axes A and B, 1 to 3 with keys N1 to N3, four labels, three marks.
class EditorFixture : public ModuleFixture {
protected:
    EditorFixture();
    ~EditorFixture() override;

    /// "照片1.jpg" at A/1 of floor 1, mark 2, shown, labels 裂缝 and 渗漏; project 1.
    [[nodiscard]] static KX_DATA::BimPicRow Photo();
    /// The same photo elsewhere on its grid, or under another name.
    [[nodiscard]] static KX_DATA::BimPicRow PhotoAt(const QString& floor, const QString& axisX,
                                                    const QString& axisY);
    [[nodiscard]] static KX_DATA::BimPicRow PhotoNamed(const QString& fileName);
    /// On no floor, with no axes and no key.
    [[nodiscard]] static KX_DATA::BimPicRow PhotoWithoutPlace();
    /// Opens the editor, shows it and waits until it has the keyboard.
    void Open(const KX_DATA::BimPicRow& row = Photo());
    void Open(const KX_DATA::BimPicDetail& detail);
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});

    [[nodiscard]] CBimPicEditDlg& Editor() { return *editor; }
    [[nodiscard]] QWidget* Window() { return editor->Widget(); }
    /// Whether the dialog is there still.
    [[nodiscard]] bool IsOpen() { return editor->HasWindow(); }
    template <class Control> [[nodiscard]] Control& Find(const char* name) {
        auto* control = Window()->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    [[nodiscard]] QLineEdit& Name() { return Find<QLineEdit>("picNameEdit"); }
    [[nodiscard]] QLineEdit& NewLabel() { return Find<QLineEdit>("newLabelEdit"); }
    [[nodiscard]] QPushButton& AddLabel() { return Find<QPushButton>("addLabelButton"); }
    [[nodiscard]] QPushButton& Ok() { return Find<QPushButton>("okButton"); }
    [[nodiscard]] QPushButton& Cancel() { return Find<QPushButton>("cancelButton"); }
    [[nodiscard]] QPlainTextEdit& Description() { return Find<QPlainTextEdit>("descriptionEdit"); }
    [[nodiscard]] CColorTxtComboBox& Mark() { return Find<CColorTxtComboBox>("markCombo"); }
    [[nodiscard]] DropCombo& Status() { return Find<DropCombo>("statusCombo"); }
    [[nodiscard]] DropCombo& Floor() { return Find<DropCombo>("floorCombo"); }
    [[nodiscard]] DropCombo& AxisX() { return Find<DropCombo>("axisXCombo"); }
    [[nodiscard]] DropCombo& AxisY() { return Find<DropCombo>("axisYCombo"); }
    [[nodiscard]] CTreeCtrl3StateBase& Tree() { return Find<CTreeCtrl3StateBase>("labelTree"); }
    [[nodiscard]] QTreeWidgetItem& Root() { return *Tree().topLevelItem(0); }
    /// "x 裂缝", "  空鼓" and so on, in the order of the tree.
    [[nodiscard]] Calls Labels();
    void ClickBox(QTreeWidgetItem& item);
    /// What was sent to the service last.
    [[nodiscard]] const KX_DATA::BimPicUpdate& Sent() { return host.pics.lastBimUpdate; }
    [[nodiscard]] int Saves() { return Log().CountOf("UpdateBimPic"); }
    /// Clicks "确定"; true if the dialog ended.
    bool Save();
    /// Clicks "确定"; the message stands at the control, which has the keyboard, and nothing is
    /// sent.
    void ExpectRefused(QWidget& control, const std::string& message);

    std::unique_ptr<CBimPicEditDlg> editor;

private:
    void Show();
};
