#include "host/ui/pick/ComponentDock.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCloseEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QTableWidget>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

ComponentDock::ComponentDock(QWidget* parent) : QDockWidget(u"构件属性"_s, parent) {
    setObjectName(u"componentDock"_s);
    auto* inside = new QWidget(this);
    m_title = new QLabel(inside);
    m_title->setObjectName(u"componentTitle"_s);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_title->setContentsMargins(8, 8, 8, 4);
    m_table = new QTableWidget(0, 2, inside);
    m_table->setObjectName(u"componentTable"_s);
    m_table->setAccessibleName(u"构件属性"_s);
    m_table->setHorizontalHeaderLabels({u"属性"_s, u"值"_s});
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    m_table->horizontalHeader()->setStretchLastSection(true);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setAlternatingRowColors(true);
    m_table->setTabKeyNavigation(false);
    m_table->setWordWrap(true);
    m_table->setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const QString& text, const QKeySequence& key, auto deed) {
        auto* action = new QAction(toolkit::Icon(u"copy"_s), text, m_table);
        action->setShortcut(key);
        action->setShortcutContext(Qt::WidgetShortcut);
        connect(action, &QAction::triggered, this, deed);
        m_table->addAction(action);
    };
    add(u"复制"_s, QKeySequence::Copy, &ComponentDock::CopySelected);
    add(u"全部复制"_s, {}, &ComponentDock::CopyAll);
    auto* lines = new QVBoxLayout(inside);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(m_title);
    lines->addWidget(m_table, 1);
    setWidget(inside);
    Empty();
}

void ComponentDock::Fill(const ComponentFacts& facts, const QString& sentence) {
    m_title->setText(facts.title.isEmpty() ? sentence : facts.title);
    m_title->setForegroundRole(facts.title.isEmpty() ? QPalette::PlaceholderText
                                                     : QPalette::WindowText);
    m_table->setRowCount(int(facts.rows.size()));
    for (int row = 0; row < int(facts.rows.size()); ++row) {
        const auto& [caption, value] = facts.rows[size_t(row)];
        const QString texts[] = {caption, value};
        for (int column = 0; column < 2; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setToolTip(toolkit::PlainTip(texts[column]));
            m_table->setItem(row, column, item);
        }
    }
    m_table->setVisible(!facts.rows.empty());
    m_table->resizeRowsToContents();
    m_table->scrollToTop();
}

void ComponentDock::ShowFacts(const ComponentFacts& facts) {
    Fill(facts, {});
    BringUp();
}

void ComponentDock::ShowSentence(const QString& text) {
    Fill({}, text);
    BringUp();
}

void ComponentDock::Empty() {
    Fill({}, u"还没有构件：选择构件时点“属性”，或在问题查看窗口中查看其构件的属性。"_s);
}

void ComponentDock::BringUp() {
    const QWidget* active = QApplication::activeWindow();
    if (m_isOut && isFloating() && active == parentWidget()) {
        setFloating(false);
    }
    show();
    raise();
    QApplication::sendPostedEvents(parentWidget(), QEvent::LayoutRequest); // it has its place now
    BringOut(active);
}

/// A window above the main one stays above it: what it was asked for in front of that window comes
/// out of the main one, to the place where it would be docked.
void ComponentDock::BringOut(const QWidget* active) {
    const QRect place(mapToGlobal(QPoint(0, 0)), size());
    if (active == nullptr || active == parentWidget() ||
        (!isFloating() && !active->frameGeometry().intersects(place))) {
        return;
    }
    if (!isFloating()) {
        m_isOut = true;
        setFloating(true);
        setGeometry(place);
    }
    raise();
    activateWindow();
    m_table->setFocus();
}

void ComponentDock::closeEvent(QCloseEvent* event) {
    QDockWidget::closeEvent(event);
    if (m_isOut) {
        m_isOut = false;
        setFloating(false); // hidden as it is
    }
}

void ComponentDock::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape && isFloating()) {
        close();
        return;
    }
    QDockWidget::keyPressEvent(event);
}

QString ComponentDock::RowText(int row) const {
    return m_table->item(row, 0)->text() + u'\t' + m_table->item(row, 1)->text();
}

void ComponentDock::CopySelected() const {
    QStringList lines;
    for (int row = 0; row < m_table->rowCount(); ++row) {
        if (m_table->item(row, 0)->isSelected()) {
            lines << RowText(row);
        }
    }
    if (!lines.isEmpty()) {
        QApplication::clipboard()->setText(lines.join(u'\n'));
    }
}

void ComponentDock::CopyAll() const {
    QStringList lines{m_title->text()};
    for (int row = 0; row < m_table->rowCount(); ++row) {
        lines << RowText(row);
    }
    QApplication::clipboard()->setText(lines.join(u'\n'));
}

} // namespace host
