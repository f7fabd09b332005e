#include "toolkit/KXComboBox.h"

#include <QAbstractItemModel>
#include <QLineEdit>

KXComboBox::KXComboBox(QWidget* parent) : DropCombo(parent) {
    setEditable(true);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);
    // Else Enter on a text of the list would count as a choice from the list too.
    setDuplicatesEnabled(true);
    lineEdit()->setClearButtonEnabled(true);
    connect(lineEdit(), &QLineEdit::returnPressed, this, &KXComboBox::returnPressed);
    // The base takes the first entry that ever comes into an empty list for its text.
    connect(model(), &QAbstractItemModel::rowsAboutToBeInserted, this, [this] {
        if (count() == 0)
            m_textBeforeFill = lineEdit()->text();
    });
    connect(model(), &QAbstractItemModel::rowsInserted, this,
            [this](const QModelIndex&, int first, int last) {
                if (last - first + 1 != count())
                    return;
                setCurrentIndex(-1);
                setEditText(m_textBeforeFill);
            });
}

void KXComboBox::SetTipInfo(const QString& hint) {
    lineEdit()->setPlaceholderText(hint);
}

QString KXComboBox::TipInfo() const {
    return lineEdit()->placeholderText();
}
