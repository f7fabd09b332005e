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
    : QDialog(parent), taken(takenNames) {
    setObjectName(u"projectNameDialog"_s);
    setWindowTitle(u"新建工程"_s);
    setMinimumWidth(360);
    auto* caption = new QLabel(u"工程名称："_s, this);
    nameEdit = new QLineEdit(this);
    nameEdit->setObjectName(u"projectName"_s);
    nameEdit->setMaxLength(kLongestName);
    nameEdit->setToolTip(u"不超过 %1 个字，不能与已有的工程重名"_s.arg(kLongestName));
    caption->setBuddy(nameEdit);
    note = new QLabel(this);
    note->setObjectName(u"projectNameNote"_s);
    QPalette red = note->palette();
    red.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
    note->setPalette(red);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    okButton = buttons->button(QDialogButtonBox::Ok);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(caption);
    all->addWidget(nameEdit);
    all->addWidget(note);
    all->addWidget(buttons);
    connect(nameEdit, &QLineEdit::textChanged, this, &ProjectNameDialog::Validate);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Validate();
}

QString ProjectNameDialog::Name() const {
    return nameEdit->text().trimmed();
}

void ProjectNameDialog::Validate() {
    const bool isTaken = taken.contains(Name());
    note->setText(isTaken ? u"已经有同名的工程。"_s : QString());
    okButton->setEnabled(!Name().isEmpty() && !isTaken);
}

} // namespace host
