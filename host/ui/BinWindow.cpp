#include "host/ui/BinWindow.h"

#include "host/ui/HintTable.h"
#include "toolkit/Clock.h"
#include "toolkit/Icons.h"
#include "toolkit/WindowPlace.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

BinWindow::BinWindow(QWidget* parent, IBinSource& binSource) : QDialog(parent), source(binSource) {
    setObjectName(u"binWindow"_s);
    setWindowTitle(u"回收站"_s);
    setWindowFlag(Qt::WindowMaximizeButtonHint);
    toolkit::ResizeWithinScreen(*this, QSize(820, 460));

    model = new BinModel(this);
    table = new HintTable(this);
    table->setObjectName(u"binTable"_s);
    table->setAccessibleName(u"回收站"_s);
    table->setModel(model);
    table->SetHint(
        u"回收站是空的。\n在控制台中删除的照片和问题会在这里保留 30 天，期间可以恢复。"_s);
    const QList<int> widths = {96, 240, 160, 96, 136, 80};
    for (int column = 0; column < widths.size(); ++column)
        table->setColumnWidth(column, widths[column]);
    table->horizontalHeader()->setSectionResizeMode(BinModel::kName, QHeaderView::Stretch);

    summary = new QLabel(this);
    summary->setObjectName(u"binSummary"_s);
    restoreButton = new QPushButton(toolkit::Icon(u"restore"_s), u"恢复所选"_s, this);
    restoreButton->setObjectName(u"binRestore"_s);
    restoreButton->setToolTip(u"把选中的照片和问题放回原处（Ctrl+R）"_s);
    restoreButton->setShortcut(Qt::CTRL | Qt::Key_R);
    auto* closeButton = new QPushButton(u"关闭"_s, this);
    closeButton->setObjectName(u"binClose"_s);
    closeButton->setToolTip(u"关闭回收站（Esc）"_s);

    auto* bottom = new QHBoxLayout;
    bottom->setSpacing(8);
    bottom->addWidget(summary, 1);
    bottom->addWidget(restoreButton);
    bottom->addWidget(closeButton);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(12, 12, 12, 12);
    all->setSpacing(12);
    all->addWidget(table, 1);
    all->addLayout(bottom);
    const int width = std::max(restoreButton->sizeHint().width(), closeButton->sizeHint().width());
    restoreButton->setMinimumWidth(width);
    closeButton->setMinimumWidth(width);

    connect(restoreButton, &QPushButton::clicked, this, &BinWindow::Restore);
    connect(closeButton, &QPushButton::clicked, this, &BinWindow::close);
    connect(table->selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &BinWindow::ShowSelection);
    Reload();
}

void BinWindow::Reload() {
    model->SetRows(source.ReadBin(), toolkit::Clock().NowSeconds());
    ShowSelection();
}

void BinWindow::ShowSelection() {
    const qsizetype chosen = table->selectionModel()->selectedRows().size();
    restoreButton->setEnabled(chosen > 0);
    QString text;
    if (model->rowCount() > 0)
        text = u"共 %1 项，已选 %2 项"_s.arg(model->rowCount()).arg(chosen);
    summary->setText(text);
}

void BinWindow::Restore() {
    std::vector<qint64> ids;
    const QModelIndexList chosen = table->selectionModel()->selectedRows();
    for (const QModelIndex& row : chosen)
        ids.push_back(model->IdAt(row.row()));
    if (ids.empty())
        return;
    const int count = source.RestoreFromBin(ids);
    Reload();
    if (count > 0)
        emit Restored(count);
}

} // namespace host
