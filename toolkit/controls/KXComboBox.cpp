#include "toolkit/controls/KXComboBox.h"

#include <QAbstractItemModel>
#include <QKeyEvent>
#include <QLineEdit>

KXComboBox::KXComboBox(QWidget* parent) : DropCombo(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    // The base would take a typed text that is in the list for a choice from the list, at Enter and
    // when the keyboard leaves.
    disconnect(lineEdit(), &QLineEdit::editingFinished, this, nullptr);
    lineEdit()->setClearButtonEnabled(true);
    // The base takes the first entry that ever comes into an empty list for its text.
    connect(model(), &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        if (count() == 0) {
            m_textBeforeFill = lineEdit()->text();
        }
    });
    connect(model(), &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) {
                if (last - first + 1 != count()) {
                    return;
                }
                setCurrentIndex(-1);
                setEditText(m_textBeforeFill);
            });
}

void KXComboBox::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
        DropCombo::keyPressEvent(event);
        return;
    }
    event->ignore();
    emit returnPressed();
}

void KXComboBox::SetTipInfo(const QString& hint) {
    lineEdit()->setPlaceholderText(hint);
}

QString KXComboBox::TipInfo() const {
    return lineEdit()->placeholderText();
}
