#include "host/ui/BinWindow.h"

#include "host/ui/HintTable.h"
#include "toolkit/Clock.h"
#include "toolkit/Icons.h"
#include "toolkit/windows/WindowPlace.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

BinWindow::BinWindow(QWidget* parent, IBinSource& binSource)
    : QDialog(parent), m_source(binSource) {
    setObjectName(u"binWindow"_s);
    setWindowTitle(u"回收站"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    toolkit::ResizeWithinScreen(*this, QSize(820, 460));

    m_model = new BinModel(this);
    m_table = new HintTable(this);
    m_table->setObjectName(u"binTable"_s);
    m_table->setAccessibleName(u"回收站"_s);
    m_table->setModel(m_model);
    m_table->SetHint(
        u"回收站是空的。\n在控制台中删除的照片和问题会在这里保留 30 天，期间可以恢复。"_s);
    const QList<int> widths = {96, 240, 160, 96, 136, 80};
    for (int column = 0; column < widths.size(); ++column) {
        m_table->setColumnWidth(column, widths[column]);
    }
    m_table->horizontalHeader()->setSectionResizeMode(BinModel::kName, QHeaderView::Stretch);

    m_summary = new QLabel(this);
    m_summary->setObjectName(u"binSummary"_s);
    m_restoreButton = new QPushButton(toolkit::Icon(u"restore"_s), u"恢复所选"_s, this);
    m_restoreButton->setObjectName(u"binRestore"_s);
    m_restoreButton->setToolTip(u"把选中的照片和问题放回原处（Ctrl+R）"_s);
    m_restoreButton->setShortcut(Qt::CTRL | Qt::Key_R);
    auto* closeButton = new QPushButton(u"关闭"_s, this);
    closeButton->setObjectName(u"binClose"_s);
    closeButton->setToolTip(u"关闭回收站（Esc）"_s);

    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(m_summary, 1);
    bottom->addWidget(m_restoreButton);
    bottom->addWidget(closeButton);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(m_table, 1);
    all->addLayout(bottom);
    const int width =
        std::max(m_restoreButton->sizeHint().width(), closeButton->sizeHint().width());
    m_restoreButton->setMinimumWidth(width);
    closeButton->setMinimumWidth(width);

    connect(m_restoreButton, &QPushButton::clicked, this, &BinWindow::Restore);
    connect(closeButton, &QPushButton::clicked, this, &BinWindow::close);
    connect(m_table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &BinWindow::ShowSelection);
    Reload();
}

void BinWindow::Reload() {
    m_model->SetRows(m_source.ReadBin(), toolkit::Clock().NowSeconds());
    ShowSelection();
}

void BinWindow::ShowSelection() {
    const qsizetype chosen = m_table->selectionModel()->selectedRows().size();
    m_restoreButton->setEnabled(chosen > 0);
    QString text;
    if (m_model->rowCount() > 0) {
        text = u"共 %1 项，已选 %2 项"_s.arg(m_model->rowCount()).arg(chosen);
    }
    m_summary->setText(text);
}

void BinWindow::Restore() {
    std::vector<qint64> ids;
    const QModelIndexList chosen = m_table->selectionModel()->selectedRows();
    for (const QModelIndex& row : chosen) {
        ids.push_back(m_model->IdAt(row.row()));
    }
    if (ids.empty()) {
        return;
    }
    const int count = m_source.RestoreFromBin(ids);
    Reload();
    if (count > 0) {
        emit Restored(count);
    }
}

} // namespace host
