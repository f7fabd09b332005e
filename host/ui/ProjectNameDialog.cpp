#include "host/ui/ProjectNameDialog.h"

#include "toolkit/Look.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

ProjectNameDialog::ProjectNameDialog(QWidget* parent, const QStringList& takenNames)
    : QDialog(parent), m_taken(takenNames) {
    setObjectName(u"projectNameDialog"_s);
    setWindowTitle(u"新建工程"_s);
    setMinimumWidth(360);
    auto* caption = new QLabel(u"工程名称："_s, this);
    m_nameEdit = new QLineEdit(this);
    m_nameEdit->setObjectName(u"projectName"_s);
    m_nameEdit->setMaxLength(kLongestName);
    m_nameEdit->setToolTip(u"不超过 %1 个字，不能与已有的工程重名"_s.arg(kLongestName));
    caption->setBuddy(m_nameEdit);
    m_note = new QLabel(this);
    m_note->setObjectName(u"projectNameNote"_s);
    QPalette red = m_note->palette();
    red.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    m_note->setPalette(red);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    m_okButton = buttons->button(QDialogButtonBox::Ok);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(caption);
    all->addWidget(m_nameEdit);
    all->addWidget(m_note);
    all->addWidget(buttons);
    connect(m_nameEdit, &QLineEdit::textChanged, this, &ProjectNameDialog::Validate);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Validate();
}

QString ProjectNameDialog::Name() const {
    return m_nameEdit->text().trimmed();
}

void ProjectNameDialog::Validate() {
    const bool isTaken = m_taken.contains(Name());
    m_note->setText(isTaken ? u"已经有同名的工程。"_s : QString());
    m_okButton->setEnabled(!Name().isEmpty() && !isTaken);
}

} // namespace host
