// Edits cells of a site's setup: lists where only some values are right, texts elsewhere.
#pragma once

#include <QStyledItemDelegate>

namespace host {

/// What is chosen from a list is taken at once. Owned by its parent.
class SetupDelegate final : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
};

} // namespace host
