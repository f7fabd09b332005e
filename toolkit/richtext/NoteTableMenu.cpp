#include "toolkit/richtext/NoteTableMenu.h"

#include "toolkit/Icons.h"
#include "toolkit/richtext/NoteCommands.h"
#include "toolkit/richtext/NoteEdit.h"
#include "toolkit/richtext/NoteTableDialog.h"
#include "toolkit/richtext/NoteTableGrid.h"

#include <QAction>
#include <QApplication>
#include <QTextTable>
#include <QWidgetAction>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

namespace toolkit {

using namespace Qt::StringLiterals;

namespace {

/// A widget in a menu doesn't end the menu, nor those that led to it.
void CloseMenus() {
    while (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
        menu->close();
    }
}

} // namespace

NoteTableMenu::NoteTableMenu(NoteEdit& sheet, QWidget* parent) : QMenu(parent), m_sheet(sheet) {
    setObjectName(u"tableMenu"_s);
    setTitle(u"表格"_s);
    setIcon(Icon(u"table"_s));
    AddNew();
    addSeparator();
    AddDeeds();
}

void NoteTableMenu::AddNew() {
    auto* grid = new NoteTableGrid(this);
    auto* field = new QWidgetAction(this);
    field->setText(u"插入表格"_s);
    field->setDefaultWidget(grid);
    addAction(field);
    connect(grid, &NoteTableGrid::Chosen, &m_sheet, [this](int rows, int columns) {
        CloseMenus();
        Insert(rows, columns);
    });
    QAction* other = addAction(u"其他大小…"_s, &m_sheet, [this] { AskForSize(); });
    other->setObjectName(u"otherTableSize"_s);
}

void NoteTableMenu::Insert(int rows, int columns) {
    m_sheet.setFocus();
    m_sheet.setTextCursor(InsertTable(m_sheet.textCursor(), rows, columns));
    m_sheet.ensureCursorVisible();
}

void NoteTableMenu::AskForSize() {
    auto* dialog = new NoteTableDialog(&m_sheet);
    connect(dialog, &QDialog::accepted, this,
            [this, dialog] { Insert(dialog->Size().rows, dialog->Size().columns); });
    dialog->open();
}

void NoteTableMenu::AddDeeds() {
    const std::array deeds = {std::pair(TableDeed::RowAbove, u"在上方插入行"_s),
                              std::pair(TableDeed::RowBelow, u"在下方插入行"_s),
                              std::pair(TableDeed::ColumnBefore, u"在左侧插入列"_s),
                              std::pair(TableDeed::ColumnAfter, u"在右侧插入列"_s),
                              std::pair(TableDeed::Merge, u"合并单元格"_s),
                              std::pair(TableDeed::Split, u"拆分单元格"_s),
                              std::pair(TableDeed::RemoveRows, u"删除行"_s),
                              std::pair(TableDeed::RemoveColumns, u"删除列"_s),
                              std::pair(TableDeed::RemoveTable, u"删除表格"_s)};
    std::vector<std::pair<QAction*, TableDeed>> actions;
    for (const auto& [deed, text] : deeds) {
        QAction* action = addAction(text, &m_sheet, [this, what = deed] { Change(what); });
        actions.emplace_back(action, deed);
    }
    connect(this, &QMenu::aboutToShow, &m_sheet, [this, actions] {
        for (const auto& [action, deed] : actions) {
            action->setEnabled(CanDo(m_sheet.textCursor(), deed));
        }
    });
}

void NoteTableMenu::Change(TableDeed deed) {
    const int first = m_sheet.textCursor().selectionStart();
    Do(m_sheet.textCursor(), deed);
    // What was selected are other cells now, whose text the next key would delete.
    QTextCursor here = m_sheet.textCursor();
    here.setPosition(std::min(first, m_sheet.document()->characterCount() - 1));
    m_sheet.setTextCursor(here);
    m_sheet.setFocus();
}

} // namespace toolkit
