#include "host/ui/SheetDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

SheetDialog::SheetDialog(QWidget* parent, const QString& what, const SheetChoice& proposed)
    : QDialog(parent) {
    setObjectName(u"sheetDialog"_s);
    setWindowTitle(u"输出列表"_s);
    auto* caption = new QLabel(what, this);
    caption->setObjectName(u"sheetWhat"_s);
    caption->setTextFormat(Qt::PlainText);
    caption->setWordWrap(true);
    caption->setMinimumWidth(360);
    m_workbook = new QRadioButton(u"Excel 工作簿 (*.xlsx)(&X)"_s, this);
    m_workbook->setObjectName(u"sheetWorkbook"_s);
    m_pictures = new QCheckBox(u"附上小图(&P)"_s, this);
    m_pictures->setObjectName(u"sheetPictures"_s);
    m_pictures->setToolTip(u"每行附上一张小图，最多 10,000 张；不在本机的图片会先下载，输出较慢"_s);
    auto* csv = new QRadioButton(u"CSV 文件 (*.csv)，只有文字(&C)"_s, this);
    csv->setObjectName(u"sheetCsv"_s);
    (proposed.isWorkbook ? m_workbook : csv)->setChecked(true);
    m_pictures->setChecked(proposed.pictures);
    m_pictures->setEnabled(proposed.isWorkbook);
    connect(m_workbook, &QRadioButton::toggled, m_pictures, &QWidget::setEnabled);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText(u"选择文件..."_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* below = new QHBoxLayout;
    below->addSpacing(style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth) + 6);
    below->addWidget(m_pictures);
    below->addStretch(1);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(caption);
    all->addWidget(m_workbook, 0, Qt::AlignLeft);
    all->addLayout(below);
    all->addWidget(csv, 0, Qt::AlignLeft);
    all->addSpacing(4);
    all->addWidget(buttons);
}

SheetChoice SheetDialog::Choice() const {
    return {m_workbook->isChecked(), m_pictures->isChecked()};
}

} // namespace host
