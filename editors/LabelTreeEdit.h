// The tree of labels with its row for new ones, the same in every editor that has one.
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <vector>

class CPopTipDlg;
class CTreeCtrl3StateBase;
class QLineEdit;
class QPushButton;
class QTreeWidgetItem;
class QWidget;

/// Fills the tree under "全部标签", keeps blanks out of new labels, adds them on the server at
/// once, and tells which labels are checked.
///
/// Works on controls of its dialog's window and lives as long as they do. Thread: user interface.
class LabelTreeEdit final {
public:
    struct Parts {
        CTreeCtrl3StateBase* labelTree = nullptr;
        QWidget* newLabelCaption = nullptr;
        QLineEdit* newLabelEdit = nullptr;
        QPushButton* addLabelButton = nullptr;
    };
    /// @param readFields  what else the dialog reads from its window before a label is added; may
    ///                    be null.
    LabelTreeEdit(CPopTipDlg& dialog, const Parts& parts, std::function<void()> readFields);

    /// Fetches the labels; those named are checked. Raises LabelsFailed, with the root alone in the
    /// tree.
    void Fill(const std::vector<QString>& checkedNames);
    /// Hides the row for new labels from a person who may not add any.
    void HideAddingUnlessAllowed();
    /// In the order of the tree.
    [[nodiscard]] std::vector<QString> CheckedIds() const;

private:
    void ConnectParts();
    void OnNewLabelChanged();
    void OnAddLabel();
    void AddLabel();
    void InsertLabel(const QString& labelId, const QString& name, bool checked);
    [[nodiscard]] std::vector<QString> Names() const;

    CPopTipDlg& m_dialog;
    Parts m_parts;
    std::function<void()> m_readFields;
    QTreeWidgetItem* m_root = nullptr;
    /// The label id of each item; the items' data point to these.
    std::vector<std::unique_ptr<QString>> m_labelIdStore;
};
