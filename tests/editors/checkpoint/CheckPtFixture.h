// The editor of a checkpoint in its window.
#pragma once

#include "editors/CheckPtEditDlg.h"
#include "tests/console/ModuleFixture.h"
#include "tests/support/Hands.h"
#include "toolkit/controls/ColorTxtComboBox.h"
#include "toolkit/controls/TreeCtrl3StateBase.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

#include <memory>

/// The service has checkpoint 101, four labels and three marks.
class CheckPtFixture : public ModuleFixture {
protected:
    CheckPtFixture();
    ~CheckPtFixture() override;

    /// Checkpoint 101 at 11, 22 with labels 裂缝 and 渗漏, a description and a remark.
    [[nodiscard]] static KX_DATA::CheckpointEdit Checkpoint();
    /// Opens the editor, shows it and waits until it has the keyboard.
    void Open(const KX_DATA::CheckpointEdit& checkpoint = Checkpoint(),
              const QString& markName = QStringLiteral("安全"));

    [[nodiscard]] QWidget* Window() { return editor->Widget(); }
    [[nodiscard]] bool IsOpen() { return editor->HasWindow(); }
    template <class Control> [[nodiscard]] Control& Find(const char* name) {
        auto* control = Window()->findChild<Control*>(QString::fromLatin1(name));
        EXPECT_NE(control, nullptr) << name;
        return *control;
    }
    [[nodiscard]] QPlainTextEdit& Description() { return Find<QPlainTextEdit>("descriptionEdit"); }
    [[nodiscard]] QPlainTextEdit& Remark() { return Find<QPlainTextEdit>("remarkEdit"); }
    [[nodiscard]] CColorTxtComboBox& Mark() { return Find<CColorTxtComboBox>("markCombo"); }
    [[nodiscard]] QLineEdit& NewLabel() { return Find<QLineEdit>("newLabelEdit"); }
    [[nodiscard]] QPushButton& AddLabel() { return Find<QPushButton>("addLabelButton"); }
    [[nodiscard]] QPushButton& Ok() { return Find<QPushButton>("okButton"); }
    [[nodiscard]] QTreeWidgetItem& Root() {
        return *Find<CTreeCtrl3StateBase>("labelTree").topLevelItem(0);
    }
    /// "x 裂缝", "  空鼓" and so on, in the order of the tree.
    [[nodiscard]] Calls Labels();
    /// What was sent to the service last.
    [[nodiscard]] const KX_DATA::CheckpointEdit& Sent() { return host.drawings.lastEdit; }
    /// Clicks "确定"; true if the dialog ended.
    bool Save();

    std::unique_ptr<CCheckPtEditDlg> editor;
};
