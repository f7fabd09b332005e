#include "host/ui/catchup/CatchUpDock.h"

#include "host/ui/catchup/CatchUpPaint.h"
#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QListView>
#include <QToolButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

CatchUpDock::CatchUpDock(QWidget* parent) : QDockWidget(u"新到提醒"_s, parent) {
    setObjectName(u"catchUpDock"_s);
    auto* content = new QWidget(this);
    auto* lines = new QVBoxLayout(content);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);

    auto* head = new QHBoxLayout;
    head->setContentsMargins(2 * toolkit::kStep, toolkit::kStep, toolkit::kStep, toolkit::kStep);
    m_count = new QLabel(content);
    m_count->setObjectName(u"catchUpCount"_s);
    m_markAll = new QToolButton(content);
    m_markAll->setObjectName(u"catchUpMarkAll"_s);
    m_markAll->setText(u"全部标为已读"_s);
    m_markAll->setAutoRaise(true);
    m_markAll->setFocusPolicy(Qt::TabFocus);
    connect(m_markAll, &QToolButton::clicked, this, &CatchUpDock::AllReadWanted);
    head->addWidget(m_count, 1);
    head->addWidget(m_markAll);
    lines->addLayout(head);

    m_model = new CatchUpModel(this);
    m_list = new QListView(content);
    m_list->setObjectName(u"catchUpList"_s);
    m_list->setAccessibleName(u"新到的照片和问题"_s);
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setUniformItemSizes(true);
    m_list->setMinimumHeight(48); // a low screen has no more
    m_list->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_list->setMouseTracking(true);
    m_list->setItemDelegate(new CatchUpPaint(*m_model, this));
    m_list->setModel(m_model);
    connect(m_list, &QListView::clicked, this,
            [this](const QModelIndex& index) { emit ItemWanted(index.row()); });
    // By the keyboard; where a click of the platform's activates too, the first one counts.
    connect(m_list, &QListView::activated, this, [this](const QModelIndex& index) {
        if (QGuiApplication::mouseButtons() == Qt::NoButton && m_list->hasFocus()) {
            emit ItemWanted(index.row());
        }
    });
    lines->addWidget(m_list, 1);

    m_hint =
        new QLabel(u"没有新到的照片和问题。\n其他人上传照片、提出问题后会列在这里。"_s, content);
    m_hint->setAlignment(Qt::AlignCenter);
    m_hint->setWordWrap(true);
    m_hint->setForegroundRole(QPalette::PlaceholderText);
    m_hint->setContentsMargins(4 * toolkit::kStep, 0, 4 * toolkit::kStep, 0);
    lines->addWidget(m_hint, 1);
    connect(m_model, &QAbstractItemModel::modelReset, this, &CatchUpDock::ShowHint);
    connect(m_model, &QAbstractItemModel::rowsInserted, this, &CatchUpDock::ShowHint);
    setWidget(content);
    ShowHint();
    ShowUnread({});
}

void CatchUpDock::TakeFocus() {
    if (m_model->rowCount() > 0) {
        m_list->setFocus(Qt::ShortcutFocusReason);
    }
}

void CatchUpDock::ShowHint() {
    const bool isEmpty = m_model->rowCount() == 0;
    m_list->setVisible(!isEmpty);
    m_hint->setVisible(isEmpty);
}

void CatchUpDock::ShowUnread(const QString& unread) {
    m_count->setText(unread.isEmpty() ? u"没有未读"_s : u"未读 %1 项"_s.arg(unread));
    m_markAll->setEnabled(!unread.isEmpty());
}

} // namespace host
