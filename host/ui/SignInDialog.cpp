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

    m_list = new QListWidget(this);
    m_list->setObjectName(u"userList"_s);
    m_list->setAccessibleName(u"用户"_s);
    m_list->setIconSize(QSize(20, 20));
    for (const SignInEntry& user : people) {
        auto* item = new QListWidgetItem(toolkit::Icon(u"user"_s), user.name, m_list);
        item->setSizeHint(QSize(0, 32));
        item->setToolTip(toolkit::PlainTip(user.rights));
        if (user.name == last || m_list->count() == 1) {
            m_list->setCurrentItem(item);
        }
    }

    auto* buttons = new QDialogButtonBox(this);
    m_signInButton = buttons->addButton(u"登录"_s, QDialogButtonBox::AcceptRole);
    m_signInButton->setObjectName(u"signInButton"_s);
    m_signInButton->setToolTip(u"以选中的用户登录（Enter）"_s);
    m_signInButton->setDefault(true);
    m_signInButton->setEnabled(m_list->currentItem() != nullptr);
    auto* quit = buttons->addButton(u"退出"_s, QDialogButtonBox::RejectRole);
    quit->setToolTip(u"不登录，结束程序（Esc）"_s);

    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(16, 16, 16, 12);
    all->setSpacing(8);
    all->addWidget(title);
    all->addWidget(place);
    all->addWidget(m_list, 1);
    all->addWidget(buttons);
    resize(370, 340);

    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(m_list, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    connect(m_list, &QListWidget::currentItemChanged, this,
            [this](const QListWidgetItem* now) { m_signInButton->setEnabled(now != nullptr); });
    m_list->setFocus();
}

QString SignInDialog::UserName() const {
    return m_list->currentItem() == nullptr ? QString() : m_list->currentItem()->text();
}

} // namespace host
