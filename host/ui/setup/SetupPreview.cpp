#include "host/ui/setup/SetupPreview.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"
#include "toolkit/windows/WindowPlace.h"

#include <QApplication>
#include <QClipboard>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QStringListModel>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

SetupPreview::SetupPreview(QWidget* parent, const QString& source, const QStringList& changes,
                           const QStringList& faults)
    : QDialog(parent), m_lines(faults.isEmpty() ? changes : faults) {
    setObjectName(u"setupPreview"_s);
    setWindowTitle(u"将有的变化"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    auto* head = new QLabel(this);
    head->setObjectName(u"setupPreviewHead"_s);
    head->setTextFormat(Qt::PlainText);
    head->setWordWrap(true);
    const QString count = QString::number(m_lines.size());
    if (!faults.isEmpty()) {
        head->setText(u"%1 中有 %2 处错误，什么都没有采用。请改正后再试。"_s.arg(source, count));
        QPalette red = head->palette();
        red.setColor(QPalette::WindowText, toolkit::Colors::ErrorText());
        head->setPalette(red);
    } else if (changes.isEmpty()) {
        head->setText(u"%1 与现有的设置相同，没有变化。"_s.arg(source));
    } else {
        head->setText(u"采用 %1 将有 %2 处变化，保存后生效："_s.arg(source, count));
    }
    auto* list = new QListView(this);
    list->setObjectName(u"setupPreviewList"_s);
    list->setAccessibleName(windowTitle());
    list->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list->setUniformItemSizes(true);
    list->setAlternatingRowColors(true);
    list->setModel(new QStringListModel(m_lines, list));
    auto* buttons = new QDialogButtonBox(this);
    auto* copy = buttons->addButton(u"复制"_s, QDialogButtonBox::ActionRole);
    copy->setObjectName(u"setupPreviewCopy"_s);
    copy->setIcon(toolkit::Icon(u"copy"_s));
    copy->setToolTip(u"复制全部内容"_s);
    copy->setAutoDefault(false);
    if (faults.isEmpty() && !changes.isEmpty()) {
        auto* take = buttons->addButton(u"采用"_s, QDialogButtonBox::AcceptRole);
        take->setObjectName(u"setupPreviewTake"_s);
        take->setToolTip(u"采用这些变化，还要保存（Enter）"_s);
        take->setDefault(true);
    }
    auto* close = buttons->addButton(u"取消"_s, QDialogButtonBox::RejectRole);
    close->setObjectName(u"setupPreviewCancel"_s);
    close->setToolTip(u"不采用（Esc）"_s);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(head);
    all->addWidget(list, 1);
    all->addWidget(buttons);
    toolkit::ResizeWithinScreen(*this, QSize(640, 420));
    connect(copy, &QPushButton::clicked, this, &SetupPreview::Copy);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void SetupPreview::Copy() {
    QApplication::clipboard()->setText(m_lines.join(u'\n'));
}

} // namespace host
