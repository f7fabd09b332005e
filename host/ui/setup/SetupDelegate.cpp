#include "host/ui/setup/SetupDelegate.h"

#include "host/ui/setup/SetupListModel.h"

#include <QComboBox>
#include <QLineEdit>

namespace host {

QWidget* SetupDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                     const QModelIndex& index) const {
    const QStringList choices = index.data(SetupListModel::ChoicesRole).toStringList();
    if (choices.isEmpty()) {
        return QStyledItemDelegate::createEditor(parent, option, index);
    }
    auto* combo = new QComboBox(parent);
    combo->addItems(choices);
    connect(combo, &QComboBox::activated, this, [this, combo] {
        auto* self = const_cast<SetupDelegate*>(this);
        emit self->commitData(combo);
        emit self->closeEditor(combo);
    });
    return combo;
}

void SetupDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
    if (auto* combo = qobject_cast<QComboBox*>(editor)) {
        combo->setCurrentText(index.data(Qt::EditRole).toString());
    } else {
        QStyledItemDelegate::setEditorData(editor, index);
    }
}

void SetupDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                 const QModelIndex& index) const {
    if (const auto* combo = qobject_cast<QComboBox*>(editor)) {
        if (combo->currentIndex() >= 0) {
            model->setData(index, combo->currentText(), Qt::EditRole);
        }
    } else {
        QStyledItemDelegate::setModelData(editor, model, index);
    }
}

} // namespace host
