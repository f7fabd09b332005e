#include "report/ClientBlock.h"

#include <QApplication>
#include <QWidget>

#include <algorithm>

namespace report {

using namespace Qt::StringLiterals;

void ClientBlock::Begin() {
    QWidget* client = toolkit::WidgetOf(toolkit::MainWindow());
    if (client == nullptr || IsActive() || !client->isEnabled()) {
        return;
    }
    m_blocked = toolkit::MainWindow();
    QWidgetList others;
    for (QWidget* child : client->findChildren<QWidget*>()) {
        if (child->isWindow() && child->isEnabled()) {
            others.append(child);
        }
    }
    client->setEnabled(false);
    // Qt disables what belongs to a window with it, the viewer too.
    for (QWidget* other : others) {
        other->setEnabled(true);
    }
}

void ClientBlock::End() {
    if (!IsActive()) {
        return;
    }
    if (QWidget* client = toolkit::WidgetOf(m_blocked)) {
        client->setEnabled(true);
    }
    m_blocked = toolkit::kNoWindow;
}

bool ClientBlock::IsReportOpen() {
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(windows.begin(), windows.end(), [](const QWidget* window) {
        return window->isVisible() && window->windowTitle() == u"输出报告"_s;
    });
}

} // namespace report
