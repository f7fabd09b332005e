#include "toolkit/controls/TreeCtrl3StateBase.h"

#include "toolkit/Look.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QToolTip>

namespace {

constexpr int kDataRole = Qt::UserRole;
constexpr Qt::ItemFlags kItemFlags =
    Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable;

} // namespace

CTreeCtrl3StateBase::CTreeCtrl3StateBase(QWidget* parent) : QTreeWidget(parent) {
    setColumnCount(1);
    header()->hide();
    setUniformRowHeights(true);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    // The root opens and closes by its sign; a double click on a box is two clicks.
    setExpandsOnDoubleClick(false);
}

void CTreeCtrl3StateBase::DeleteAllItems() {
    clear();
}

QTreeWidgetItem* CTreeCtrl3StateBase::InsertItem(const QString& text, QTreeWidgetItem* parent,
                                                 const void* itemData, CheckState state) {
    // Made whole before it comes into the tree, which would be told of every step.
    auto* item = new QTreeWidgetItem(QStringList(text));
    item->setFlags(kItemFlags);
    item->setCheckState(0, state == kChecked ? Qt::Checked : Qt::Unchecked);
    if (itemData != nullptr) {
        SetItemData(*item, itemData);
    }
    if (parent == nullptr) {
        addTopLevelItem(item);
        return item;
    }
    if (!parent->flags().testFlag(Qt::ItemIsAutoTristate)) {
        parent->setFlags(kItemFlags | Qt::ItemIsAutoTristate);
    }
    parent->addChild(item);
    return item;
}

void CTreeCtrl3StateBase::SetItemData(QTreeWidgetItem& item, const void* itemData) {
    item.setData(0, kDataRole, QVariant::fromValue(quintptr(itemData)));
}

const void* CTreeCtrl3StateBase::GetItemData(const QTreeWidgetItem& item) {
    return reinterpret_cast<const void*>(item.data(0, kDataRole).value<quintptr>());
}

void CTreeCtrl3StateBase::Set3StateCheck(QTreeWidgetItem& item, CheckState state) {
    if (state != kMixed) {
        item.setCheckState(0, state == kChecked ? Qt::Checked : Qt::Unchecked);
    }
}

CTreeCtrl3StateBase::CheckState CTreeCtrl3StateBase::Get3StateCheck(const QTreeWidgetItem& item) {
    switch (item.checkState(0)) {
    case Qt::Checked:
        return kChecked;
    case Qt::PartiallyChecked:
        return kMixed;
    default:
        return kUnchecked;
    }
}

std::vector<QTreeWidgetItem*> CTreeCtrl3StateBase::ChildrenOf(const QTreeWidgetItem& item) {
    std::vector<QTreeWidgetItem*> children;
    children.reserve(size_t(item.childCount()));
    for (int i = 0; i < item.childCount(); ++i) {
        children.push_back(item.child(i));
    }
    return children;
}

QString CTreeCtrl3StateBase::ElidedTextAt(const QPoint& place) const {
    const QModelIndex index = indexAt(place);
    if (!index.isValid() || visualRect(index).width() >= sizeHintForIndex(index).width()) {
        return {};
    }
    return index.data().toString();
}

bool CTreeCtrl3StateBase::viewportEvent(QEvent* event) {
    if (event->type() != QEvent::ToolTip) {
        return QTreeWidget::viewportEvent(event);
    }
    const auto* help = static_cast<QHelpEvent*>(event);
    const QString text = ElidedTextAt(help->pos());
    if (text.isEmpty()) {
        return QTreeWidget::viewportEvent(event);
    }
    QToolTip::showText(help->globalPos(), toolkit::PlainTip(text), viewport());
    return true;
}
