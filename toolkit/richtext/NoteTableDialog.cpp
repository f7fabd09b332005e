#include "toolkit/richtext/NoteTableDialog.h"

#include "toolkit/Look.h"
#include "toolkit/richtext/NoteCommands.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsualSide = 3;

QSpinBox* MakeNumber(QWidget& parent, const QString& name, const QString& text) {
    auto* number = new QSpinBox(&parent);
    number->setObjectName(name);
    number->setRange(1, kMostTableSide);
    number->setValue(kUsualSide);
    number->setAccessibleName(text);
    number->setToolTip(u"%1（1 至 %2）"_s.arg(text).arg(kMostTableSide));
    return number;
}

} // namespace

NoteTableDialog::NoteTableDialog(QWidget* parent) : QDialog(parent) {
    setObjectName(u"noteTableDialog"_s);
    setWindowTitle(u"插入表格"_s);
    setAttribute(Qt::WA_DeleteOnClose);
    m_rows = MakeNumber(*this, u"rowsBox"_s, u"行数"_s);
    m_columns = MakeNumber(*this, u"columnsBox"_s, u"列数"_s);
    auto* form = new QFormLayout;
    form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    form->setSpacing(2 * kStep);
    form->addRow(u"行数："_s, m_rows);
    form->addRow(u"列数："_s, m_columns);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(u"确定"_s, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(u"取消"_s, QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* lines = new QVBoxLayout(this);
    lines->setContentsMargins(3 * kStep, 3 * kStep, 3 * kStep, 3 * kStep);
    lines->setSpacing(3 * kStep);
    lines->addLayout(form);
    lines->addWidget(buttons);
    m_rows->setFocus();
    m_rows->selectAll();
}

NoteTableSize NoteTableDialog::Size() const {
    return {m_rows->value(), m_columns->value()};
}

} // namespace toolkit
