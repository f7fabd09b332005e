#include "host/ui/SignInDialog.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

SignInDialog::SignInDialog(const std::vector<SignInEntry>& people, const QString& last,
                           const QString& folder) {
    setObjectName(u"signInDialog"_s);
    setWindowTitle(u"登录"_s);
    auto* title = new QLabel(u"请选择用户"_s, this);
    title->setFont(toolkit::UiFont(16));
    auto* place = new QLabel(this);
    place->setTextFormat(Qt::PlainText);
    place->setText(
        place->fontMetrics().elidedText(QDir::toNativeSeparators(folder), Qt::ElideMiddle, 330));
    place->setToolTip(toolkit::PlainTip(QDir::toNativeSeparators(folder)));
    place->setForegroundRole(QPalette::PlaceholderText);

    list = new QListWidget(this);
    list->setObjectName(u"userList"_s);
    list->setAccessibleName(u"用户"_s);
    list->setIconSize(QSize(20, 20));
    for (const SignInEntry& user : people) {
        auto* item = new QListWidgetItem(toolkit::Icon(u"user"_s), user.name, list);
        item->setSizeHint(QSize(0, 32));
        item->setToolTip(toolkit::PlainTip(user.rights));
        if (user.name == last || list->count() == 1)
            list->setCurrentItem(item);
    }

    auto* buttons = new QDialogButtonBox(this);
    signInButton = buttons->addButton(u"登录"_s, QDialogButtonBox::AcceptRole);
    signInButton->setObjectName(u"signInButton"_s);
    signInButton->setToolTip(u"以选中的用户登录（Enter）"_s);
    signInButton->setDefault(true);
    signInButton->setEnabled(list->currentItem() != nullptr);
    auto* quit = buttons->addButton(u"退出"_s, QDialogButtonBox::RejectRole);
    quit->setToolTip(u"不登录，结束程序（Esc）"_s);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(title);
    all->addWidget(place);
    all->addWidget(list, 1);
    all->addWidget(buttons);
    resize(370, 340);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(list, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* now) { signInButton->setEnabled(now != nullptr); });
    list->setFocus();
}

QString SignInDialog::UserName() const {
    return list->currentItem() == nullptr ? QString() : list->currentItem()->text();
}

} // namespace host
