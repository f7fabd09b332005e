// A tree of check boxes in which a parent shows what its children are.
#pragma once

#include "toolkit/ToolkitExport.h"

#include <QTreeWidget>

#include <vector>

/// Each item has a box of three states and a pointer for its maker. A parent is checked when all of
/// its children are, mixed when they differ; checking or unchecking it does so to all of them.
///
/// The mouse and the space bar change the current item's box. A text too long for the tree is
/// elided and shown whole in a tip. Texts are plain. Thread: user interface. Owned by its parent.
class TOOLKIT_EXPORT CTreeCtrl3StateBase final : public QTreeWidget {
    Q_OBJECT
public:
    /// Numbers of the states; the boxes of an item without children know only the first and the
    /// last.
    enum CheckState { kUnchecked = 1, kMixed = 2, kChecked = 3 };

    explicit CTreeCtrl3StateBase(QWidget* parent = nullptr);

    void DeleteAllItems();
    /// Adds an item as last child of `parent`, at the top if that is null; parents follow its
    /// state. What `itemData` points to is the caller's and must outlive the item, here and below.
    QTreeWidgetItem* InsertItem(const QString& text, QTreeWidgetItem* parent = nullptr,
                                const void* itemData = nullptr, CheckState state = kUnchecked);
    static void SetItemData(QTreeWidgetItem& item, const void* itemData);
    [[nodiscard]] static const void* GetItemData(const QTreeWidgetItem& item);
    /// Parents follow. kMixed is no state that can be set: it changes nothing.
    static void Set3StateCheck(QTreeWidgetItem& item, CheckState state);
    [[nodiscard]] static CheckState Get3StateCheck(const QTreeWidgetItem& item);
    /// In the order of the tree.
    [[nodiscard]] static std::vector<QTreeWidgetItem*> ChildrenOf(const QTreeWidgetItem& item);

protected:
    bool viewportEvent(QEvent* event) override;

private:
    [[nodiscard]] QString ElidedTextAt(const QPoint& place) const;
};
