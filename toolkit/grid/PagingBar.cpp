#include "toolkit/grid/PagingBar.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/grid/MultiPageGridManager.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpressionValidator>
#include <QShortcut>
#include <QToolButton>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace toolkit {

PagingBar::PagingBar(CMultiPageGridManager& manager, QWidget* parent)
    : QWidget(parent), m_manager(&manager) {
    setObjectName(u"pagingBar"_s);
    setAccessibleName(u"翻页"_s);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(kStep);
    layout->addStretch();

    m_first = AddButton("pagingFirst", u"first"_s, u"首页"_s, u"Alt+Home"_s);
    m_previous = AddButton("pagingPrevious", u"previous"_s, u"上一页"_s, u"Alt+Left"_s);
    m_box = new QLineEdit(this);
    m_box->setObjectName(u"pagingBox"_s);
    m_box->setAccessibleName(u"页码"_s);
    m_box->setToolTip(u"输入页码后按 Enter 跳转"_s);
    m_box->setAlignment(Qt::AlignCenter);
    m_box->setMaxLength(9);
    m_box->setValidator(new QRegularExpressionValidator(QRegularExpression(u"[0-9]*"_s), m_box));
    m_box->setFixedWidth(m_box->fontMetrics().horizontalAdvance(u"0000000"_s) + 4 * kStep);
    m_box->installEventFilter(this);
    layout->addWidget(m_box);
    m_total = new QLabel(this);
    m_total->setObjectName(u"pagingTotal"_s);
    layout->addWidget(m_total);
    m_next = AddButton("pagingNext", u"next"_s, u"下一页"_s, u"Alt+Right"_s);
    m_last = AddButton("pagingLast", u"last"_s, u"末页"_s, u"Alt+End"_s);
    AddShortcut(u"Ctrl+PgUp"_s, m_previous);
    AddShortcut(u"Ctrl+PgDown"_s, m_next);

    connect(m_first, &QToolButton::clicked, this, [this] { Go(1); });
    connect(m_previous, &QToolButton::clicked, this, [this] { Go(m_page - 1); });
    connect(m_next, &QToolButton::clicked, this, [this] { Go(m_page + 1); });
    connect(m_last, &QToolButton::clicked, this, [this] { Go(m_count); });
    resize(sizeHint());
}

QToolButton* PagingBar::AddButton(const char* name, const QString& icon, const QString& caption,
                                  const QString& keys) {
    auto* button = new QToolButton(this);
    button->setObjectName(QLatin1String(name));
    button->setIcon(Icon(icon));
    button->setIconSize(QSize(16, 16));
    button->setFixedSize(26, 26);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setAccessibleName(caption);
    button->setToolTip(u"%1（%2）"_s.arg(caption, keys));
    AddShortcut(keys, button);
    layout()->addWidget(button);
    return button;
}

void PagingBar::AddShortcut(const QString& keys, QToolButton* button) {
    auto* shortcut = new QShortcut(QKeySequence(keys), this);
    shortcut->setAutoRepeat(true);
    // Not click(): a key must not move the keyboard to the button.
    connect(shortcut, &QShortcut::activated, button, [button] {
        if (button->isEnabled()) {
            emit button->clicked();
        }
    });
}

void PagingBar::Retire() {
    m_manager = nullptr;
    hide();
    deleteLater();
}

void PagingBar::ShowPage(int page, int count) {
    const bool samePage = page == m_page;
    m_page = page;
    m_count = std::max(count, 0);
    if (!(samePage && m_box->hasFocus() && m_box->isModified())) {
        ShowNumber();
    }
    m_total->setText(u"/ %1 页"_s.arg(m_count));
    m_box->setEnabled(m_count > 0);
    EnableButton(m_first, m_count > 0 && m_page > 1);
    EnableButton(m_previous, m_count > 0 && m_page > 1);
    EnableButton(m_next, m_page < m_count);
    EnableButton(m_last, m_page < m_count);
}

void PagingBar::ShowNumber() {
    m_box->setText(QString::number(m_count == 0 ? 0 : m_page));
    if (m_box->hasFocus()) {
        m_box->selectAll();
    }
}

void PagingBar::EnableButton(QToolButton* button, bool enabled) {
    // Else the keyboard would wander off to whatever comes next in the window.
    const bool hadFocus = button->hasFocus();
    button->setEnabled(enabled);
    if (hadFocus && !enabled && m_box->isEnabled()) {
        m_box->setFocus(Qt::OtherFocusReason);
    }
}

void PagingBar::Go(int page) {
    if (m_manager != nullptr) {
        m_manager->DoPage(page);
    }
}

void PagingBar::GoToTyped() {
    bool isNumber = false;
    const int page = m_box->text().toInt(&isNumber);
    m_box->setModified(false);
    // A number beyond the ends comes back as the page that it led to.
    const int wanted = isNumber ? std::clamp(page, 1, std::max(m_count, 1)) : m_page;
    m_box->setText(QString::number(wanted));
    m_box->selectAll();
    if (isNumber) {
        Go(wanted);
    }
}

bool PagingBar::eventFilter(QObject* watched, QEvent* event) {
    if (watched != m_box) {
        return QWidget::eventFilter(watched, event);
    }
    if (event->type() == QEvent::FocusOut && m_box->isModified()) {
        ShowNumber();
        m_box->setModified(false);
    }
    if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            // Ends here: the dialog's default button isn't meant.
            GoToTyped();
            return true;
        }
        if (key == Qt::Key_Escape && m_box->isModified()) {
            m_box->setModified(false);
            ShowNumber();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

QSize PagingBar::sizeHint() const {
    return {300, 28};
}

} // namespace toolkit
