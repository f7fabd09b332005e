#include "host/ui/ActionLogDock.h"

#include "host/ui/ActionLogModel.h"
#include "host/ui/HintTable.h"

#include <QHeaderView>

namespace host {

using namespace Qt::StringLiterals;

ActionLogDock::ActionLogDock(QWidget* parent) : QDockWidget(u"操作记录"_s, parent) {
    setObjectName(u"actionLogDock"_s);
    m_model = new ActionLogModel(this);
    auto* table = new HintTable(this);
    table->setObjectName(u"actionLogTable"_s);
    table->setAccessibleName(u"操作记录"_s);
    table->setFrameShape(QFrame::NoFrame);
    table->setModel(m_model);
    table->SetHint(u"还没有操作记录。\n隐藏、显示、删除照片等操作会记录在这里。"_s);
    table->horizontalHeader()->setStretchLastSection(true);
    table->setColumnWidth(ActionLogModel::kTime,
                          table->fontMetrics().horizontalAdvance(u"2000-00-00 00:00:00"_s) + 24);
    table->setColumnWidth(ActionLogModel::kUser,
                          table->fontMetrics().horizontalAdvance(u"一二三四五六"_s) + 24);
    setWidget(table);
}

} // namespace host
