#include "bench/BareTree.h"

#include "bench/Stopwatch.h"

#include <QCoreApplication>
#include <QTreeWidget>

namespace bench {

namespace {

QTreeWidgetItem* AddRow(QTreeWidgetItem* above, const QString& name, qint32 count) {
    auto* row = new QTreeWidgetItem(above, {name, QString::number(count)});
    row->setCheckState(0, Qt::Checked);
    return row;
}

} // namespace

double FillAndPaintBareTree(const host::MarkTree& rows, const QSize& size) {
    const Stopwatch watch;
    QTreeWidget tree;
    tree.setColumnCount(2);
    tree.setUniformRowHeights(true);
    for (const host::MarkTreeFloor& floor : rows) {
        QTreeWidgetItem* above = AddRow(tree.invisibleRootItem(), floor.caption, floor.count);
        for (const host::MarkTreeMark& mark : floor.marks) {
            AddRow(above, mark.name, mark.count);
        }
    }
    tree.resize(size);
    tree.show();
    // Before it is exposed nothing would be painted.
    QCoreApplication::processEvents();
    tree.viewport()->repaint();
    return watch.Milliseconds();
}

} // namespace bench
