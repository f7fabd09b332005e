#include "host/ui/photo/PhotoDock.h"

#include "toolkit/Icons.h"
#include "toolkit/Look.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>

namespace host {

using namespace Qt::StringLiterals;

PhotoDock::PhotoDock(QWidget* parent) : QDockWidget(u"照片信息"_s, parent) {
    setObjectName(u"photoDock"_s);
    auto* inside = new QWidget(this);
    m_title = new QLabel(inside);
    m_title->setObjectName(u"photoTitle"_s);
    m_title->setTextFormat(Qt::PlainText);
    m_title->setWordWrap(true);
    m_title->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_title->setContentsMargins(2 * toolkit::kStep, 2 * toolkit::kStep, 2 * toolkit::kStep,
                                toolkit::kStep);
    auto* lines = new QVBoxLayout(inside);
    lines->setContentsMargins(0, 0, 0, 0);
    lines->setSpacing(0);
    lines->addWidget(m_title);
    lines->addWidget(MakeTable(inside), 1);
    lines->addWidget(MakeButtons(inside));
    lines->addStretch(0);
    setWidget(inside);
    connect(this, &QDockWidget::visibilityChanged, this, [this](bool visible) {
        if (visible) {
            emit Seen();
        }
    });
    Empty();
}

QWidget* PhotoDock::MakeTable(QWidget* inside) {
    m_table = new QTableWidget(0, 2, inside);
    m_table->setObjectName(u"photoTable"_s);
    m_table->setAccessibleName(u"照片信息"_s);
    m_table->horizontalHeader()->hide();
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
    add(u"复制"_s, QKeySequence::Copy, &PhotoDock::CopySelected);
    add(u"全部复制"_s, {}, &PhotoDock::CopyAll);
    return m_table;
}

QWidget* PhotoDock::MakeButtons(QWidget* inside) {
    m_buttons = new QWidget(inside);
    auto* line = new QHBoxLayout(m_buttons);
    line->setContentsMargins(2 * toolkit::kStep, toolkit::kStep, 2 * toolkit::kStep,
                             2 * toolkit::kStep);
    line->setSpacing(toolkit::kStep);
    const auto add = [&](const QString& name, const QString& text, const QString& tip,
                         auto wanted) {
        auto* button = new QPushButton(text, m_buttons);
        button->setObjectName(name);
        button->setToolTip(tip);
        connect(button, &QPushButton::clicked, this, wanted);
        line->addWidget(button);
    };
    add(u"openOriginal"_s, u"打开原始文件"_s, u"用系统中的程序打开导入时的文件"_s,
        &PhotoDock::OpenOriginalWanted);
    add(u"saveOriginal"_s, u"另存原始文件..."_s, u"把导入时的文件原样存到别处"_s,
        &PhotoDock::SaveOriginalWanted);
    line->addStretch(1);
    return m_buttons;
}

bool PhotoDock::IsSeen() const {
    // Behind another tab a dock is visible to Qt and to nobody else.
    return isVisible() && !visibleRegion().isEmpty();
}

void PhotoDock::SetBusy(bool busy) {
    m_buttons->setEnabled(!busy);
}

void PhotoDock::Fill(const PhotoInfo& info, const QString& sentence) {
    m_title->setText(info.title.isEmpty() ? sentence : info.title);
    m_title->setForegroundRole(info.title.isEmpty() ? QPalette::PlaceholderText
                                                    : QPalette::WindowText);
    m_table->setRowCount(int(info.rows.size()));
    for (int row = 0; row < int(info.rows.size()); ++row) {
        const auto& [caption, value] = info.rows[size_t(row)];
        const QString texts[] = {caption, value};
        for (int column = 0; column < 2; ++column) {
            auto* item = new QTableWidgetItem(texts[column]);
            item->setToolTip(toolkit::PlainTip(texts[column]));
            m_table->setItem(row, column, item);
        }
    }
    m_table->setVisible(!info.rows.empty());
    m_table->resizeRowsToContents();
    m_buttons->setVisible(!info.originalName.isEmpty());
}

void PhotoDock::ShowInfo(const PhotoInfo& info) {
    Fill(info, {});
}

void PhotoDock::ShowSentence(const QString& text) {
    Fill({}, text);
}

void PhotoDock::Empty() {
    Fill({}, u"还没有照片：请在控制台中选中一张，或从标识、新到提醒中打开一张。"_s);
}

QString PhotoDock::RowText(int row) const {
    return m_table->item(row, 0)->text() + u'\t' + m_table->item(row, 1)->text();
}

void PhotoDock::CopySelected() const {
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

void PhotoDock::CopyAll() const {
    QStringList lines{m_title->text()};
    for (int row = 0; row < m_table->rowCount(); ++row) {
        lines << RowText(row);
    }
    QApplication::clipboard()->setText(lines.join(u'\n'));
}

} // namespace host
